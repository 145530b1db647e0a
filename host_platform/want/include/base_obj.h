// Boxed values: the interface every value of a parameter map implements, the typed interfaces a
// value can be queried for, and the boxes for texts, numbers and flags.
//
// A box is immutable once made, except Array, whose elements may be set. Query functions return a
// borrowed pointer (kept alive by the caller's sptr) or null when the value is of another type.
//
// Thread safety: an immutable box may be read from several threads.
#ifndef TAVI_WANT_BASE_OBJ_H
#define TAVI_WANT_BASE_OBJ_H

#include <string>
#include <utility>

#include "refbase.h"

namespace Tavi {
namespace AAFwk {

using ErrCode = int;
constexpr ErrCode ERR_OK = 0;
constexpr ErrCode ERR_INVALID_VALUE = 22;

// Identifies a box type, e.g. the element type of an Array.
struct InterfaceID {
    int value;
    bool operator==(const InterfaceID& other) const { return value == other.value; }
    bool operator!=(const InterfaceID& other) const { return value != other.value; }
};

inline constexpr InterfaceID g_IID_IInterface{0};
inline constexpr InterfaceID g_IID_IBoolean{1};
inline constexpr InterfaceID g_IID_IInteger{5};
inline constexpr InterfaceID g_IID_ILong{6};
inline constexpr InterfaceID g_IID_IDouble{8};
inline constexpr InterfaceID g_IID_IString{9};
inline constexpr InterfaceID g_IID_IWantParams{101};
inline constexpr InterfaceID g_IID_IArray{102};

// Every boxed value. Clone() yields a value that shares nothing mutable with this one (immutable
// boxes return themselves); it is how parameter maps are deep-copied.
class IInterface : public RefBase {
public:
    ~IInterface() override = default;
    virtual InterfaceID GetInterfaceId() const = 0;
    virtual sptr<IInterface> Clone() const = 0;
};

// The typed interface of a box holding one T. Query() yields null for a null value or a value of
// another type.
template <typename T, int Iid>
class IValue : public IInterface {
public:
    virtual ErrCode GetValue(T& value) const = 0;
    static IValue* Query(IInterface* object) { return dynamic_cast<IValue*>(object); }
    static IValue* Query(const sptr<IInterface>& object) { return Query(object.GetRefPtr()); }
};

// An immutable box of one T. Unbox() of a null pointer yields T's zero value.
template <typename T, int Iid>
class ValueBox final : public IValue<T, Iid> {
public:
    explicit ValueBox(const T& value) : value_(value) {}
    explicit ValueBox(T&& value) : value_(std::move(value)) {}

    ErrCode GetValue(T& value) const override {
        value = value_;
        return ERR_OK;
    }
    InterfaceID GetInterfaceId() const override { return InterfaceID{Iid}; }
    sptr<IInterface> Clone() const override {
        return sptr<IInterface>(const_cast<ValueBox*>(this));
    }

    static sptr<IValue<T, Iid>> Box(const T& value) {
        return sptr<IValue<T, Iid>>(new ValueBox(value));
    }
    // Takes the value over instead of copying it.
    static sptr<IValue<T, Iid>> Box(T&& value) {
        return sptr<IValue<T, Iid>>(new ValueBox(std::move(value)));
    }
    static T Unbox(const IValue<T, Iid>* object) {
        T value{};
        if (object != nullptr) {
            object->GetValue(value);
        }
        return value;
    }
    static T Unbox(const sptr<IValue<T, Iid>>& object) { return Unbox(object.GetRefPtr()); }

private:
    const T value_;
};

using IString = IValue<std::string, g_IID_IString.value>;
using IInteger = IValue<int, g_IID_IInteger.value>;
using ILong = IValue<long, g_IID_ILong.value>;
using IBoolean = IValue<bool, g_IID_IBoolean.value>;
using IDouble = IValue<double, g_IID_IDouble.value>;

using String = ValueBox<std::string, g_IID_IString.value>;
using Integer = ValueBox<int, g_IID_IInteger.value>;
using Long = ValueBox<long, g_IID_ILong.value>;
using Boolean = ValueBox<bool, g_IID_IBoolean.value>;
using Double = ValueBox<double, g_IID_IDouble.value>;

}  // namespace AAFwk
}  // namespace Tavi

#endif  // TAVI_WANT_BASE_OBJ_H
