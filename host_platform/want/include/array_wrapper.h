// Array: a fixed-length boxed list whose elements are boxes of one declared type.
//
// Thread safety: none while elements are being set.
#ifndef TAVI_WANT_ARRAY_WRAPPER_H
#define TAVI_WANT_ARRAY_WRAPPER_H

#include <vector>

#include "base_obj.h"

namespace Tavi {
namespace AAFwk {

class IArray : public IInterface {
public:
    virtual ErrCode Get(long index, sptr<IInterface>& value) const = 0;
    virtual ErrCode Set(long index, const sptr<IInterface>& value) = 0;
    virtual ErrCode GetLength(long& size) const = 0;
    virtual ErrCode GetType(InterfaceID& id) const = 0;
    static IArray* Query(IInterface* object) { return dynamic_cast<IArray*>(object); }
    static IArray* Query(const sptr<IInterface>& object) { return Query(object.GetRefPtr()); }
};

class Array final : public IArray {
public:
    // An array of size null elements that will hold boxes of typeId. A negative size gives an
    // empty array.
    Array(long size, const InterfaceID& typeId);

    // ERR_INVALID_VALUE for an index out of range; Get stores null then.
    ErrCode Get(long index, sptr<IInterface>& value) const override;
    // ERR_INVALID_VALUE for an index out of range or a value of another type than declared.
    ErrCode Set(long index, const sptr<IInterface>& value) override;
    ErrCode GetLength(long& size) const override;
    ErrCode GetType(InterfaceID& id) const override;
    InterfaceID GetInterfaceId() const override { return g_IID_IArray; }
    sptr<IInterface> Clone() const override;

    // True when object is an array declared to hold strings.
    static bool IsStringArray(const IArray* object) { return IsArrayOf(object, g_IID_IString); }
    static bool IsIntegerArray(const IArray* object) { return IsArrayOf(object, g_IID_IInteger); }
    static bool IsBooleanArray(const IArray* object) { return IsArrayOf(object, g_IID_IBoolean); }
    static bool IsLongArray(const IArray* object) { return IsArrayOf(object, g_IID_ILong); }

private:
    static bool IsArrayOf(const IArray* object, const InterfaceID& id);

    InterfaceID type_;
    std::vector<sptr<IInterface>> values_;
};

}  // namespace AAFwk
}  // namespace Tavi

#endif  // TAVI_WANT_ARRAY_WRAPPER_H
