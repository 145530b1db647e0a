// WantParams: a map from text keys to boxed values, the extra information of a notification.
//
// Values are held by sptr. Copying a WantParams deep-copies it: arrays and nested maps are cloned,
// immutable boxes are shared. Keys are kept in sorted order.
//
// Thread safety: none; a WantParams is owned by one thread at a time, or read-only.
#ifndef TAVI_WANT_WANT_PARAMS_H
#define TAVI_WANT_WANT_PARAMS_H

#include <map>
#include <string>

#include "array_wrapper.h"
#include "base_obj.h"

namespace Tavi {
namespace AAFwk {

class WantParams {
public:
    // The data type numbers that GetDataType reports.
    enum VALUE_TYPE : int {
        VALUE_TYPE_NULL = -1,
        VALUE_TYPE_BOOLEAN = 1,
        VALUE_TYPE_INT = 5,
        VALUE_TYPE_LONG = 6,
        VALUE_TYPE_DOUBLE = 8,
        VALUE_TYPE_STRING = 9,
        VALUE_TYPE_WANTPARAMS = 101,
        VALUE_TYPE_ARRAY = 102,
    };

    WantParams() = default;
    WantParams(const WantParams& other);
    WantParams(WantParams&& other) noexcept = default;
    WantParams& operator=(const WantParams& other);
    WantParams& operator=(WantParams&& other) noexcept = default;

    // Stores value under key, replacing an earlier value. A null value is stored as null.
    void SetParam(const std::string& key, const sptr<IInterface>& value);
    // The value under key, or null when there is none.
    sptr<IInterface> GetParam(const std::string& key) const;
    bool HasParam(const std::string& key) const;
    void Remove(const std::string& key);
    int Size() const { return static_cast<int>(params_.size()); }
    bool IsEmpty() const { return params_.empty(); }
    const std::map<std::string, sptr<IInterface>>& GetParams() const { return params_; }

    // The VALUE_TYPE of a value; VALUE_TYPE_NULL for null.
    static int GetDataType(const sptr<IInterface>& value);

    bool operator==(const WantParams& other) const;
    bool operator!=(const WantParams& other) const { return !(*this == other); }

private:
    std::map<std::string, sptr<IInterface>> params_;
};

// The typed interface of a nested parameter map.
class IWantParams : public IInterface {
public:
    virtual ErrCode GetValue(WantParams& value) const = 0;
    static IWantParams* Query(IInterface* object) { return dynamic_cast<IWantParams*>(object); }
    static IWantParams* Query(const sptr<IInterface>& object) { return Query(object.GetRefPtr()); }
};

// The box of a nested parameter map; it holds its own copy of the map.
class WantParamWrapper final : public IWantParams {
public:
    explicit WantParamWrapper(const WantParams& value) : value_(value) {}
    ErrCode GetValue(WantParams& value) const override;
    InterfaceID GetInterfaceId() const override { return g_IID_IWantParams; }
    sptr<IInterface> Clone() const override;

    static sptr<IWantParams> Box(const WantParams& value);
    // An empty map for a null pointer.
    static WantParams Unbox(const IWantParams* object);

private:
    WantParams value_;
};

}  // namespace AAFwk
}  // namespace Tavi

#endif  // TAVI_WANT_WANT_PARAMS_H
