#include "want_params.h"

namespace Tavi {
namespace AAFwk {

namespace {
bool ValuesEqual(const sptr<IInterface>& a, const sptr<IInterface>& b);

template <typename I, typename T>
bool SameValue(const sptr<IInterface>& a, const sptr<IInterface>& b) {
    T x{};
    T y{};
    I::Query(a)->GetValue(x);
    I::Query(b)->GetValue(y);
    return x == y;
}

bool ArraysEqual(const IArray* a, const IArray* b) {
    long sizeA = 0;
    long sizeB = 0;
    InterfaceID typeA{};
    InterfaceID typeB{};
    a->GetLength(sizeA);
    b->GetLength(sizeB);
    a->GetType(typeA);
    b->GetType(typeB);
    if (sizeA != sizeB || typeA != typeB) {
        return false;
    }
    for (long i = 0; i < sizeA; ++i) {
        sptr<IInterface> x;
        sptr<IInterface> y;
        a->Get(i, x);
        b->Get(i, y);
        if (!ValuesEqual(x, y)) {
            return false;
        }
    }
    return true;
}

bool ValuesEqual(const sptr<IInterface>& a, const sptr<IInterface>& b) {
    if (a == nullptr || b == nullptr) {
        return a == nullptr && b == nullptr;
    }
    if (a->GetInterfaceId() != b->GetInterfaceId()) {
        return false;
    }
    switch (a->GetInterfaceId().value) {
        case g_IID_IString.value:
            return SameValue<IString, std::string>(a, b);
        case g_IID_IInteger.value:
            return SameValue<IInteger, int>(a, b);
        case g_IID_ILong.value:
            return SameValue<ILong, long>(a, b);
        case g_IID_IBoolean.value:
            return SameValue<IBoolean, bool>(a, b);
        case g_IID_IDouble.value:
            return SameValue<IDouble, double>(a, b);
        case g_IID_IWantParams.value:
            return WantParamWrapper::Unbox(IWantParams::Query(a)) ==
                   WantParamWrapper::Unbox(IWantParams::Query(b));
        case g_IID_IArray.value:
            return ArraysEqual(IArray::Query(a), IArray::Query(b));
        default:
            return a == b;
    }
}
}  // namespace

WantParams::WantParams(const WantParams& other) {
    for (const auto& [key, value] : other.params_) {
        params_.emplace(key, value == nullptr ? value : value->Clone());
    }
}

WantParams& WantParams::operator=(const WantParams& other) {
    if (this != &other) {
        WantParams copy(other);
        params_.swap(copy.params_);
    }
    return *this;
}

void WantParams::SetParam(const std::string& key, const sptr<IInterface>& value) {
    params_[key] = value;
}

sptr<IInterface> WantParams::GetParam(const std::string& key) const {
    auto it = params_.find(key);
    return it == params_.end() ? sptr<IInterface>() : it->second;
}

bool WantParams::HasParam(const std::string& key) const {
    return params_.count(key) != 0;
}

void WantParams::Remove(const std::string& key) {
    params_.erase(key);
}

int WantParams::GetDataType(const sptr<IInterface>& value) {
    if (value == nullptr) {
        return VALUE_TYPE_NULL;
    }
    return value->GetInterfaceId().value;
}

bool WantParams::operator==(const WantParams& other) const {
    if (params_.size() != other.params_.size()) {
        return false;
    }
    auto it = other.params_.begin();
    for (const auto& [key, value] : params_) {
        if (key != it->first || !ValuesEqual(value, it->second)) {
            return false;
        }
        ++it;
    }
    return true;
}

ErrCode WantParamWrapper::GetValue(WantParams& value) const {
    value = value_;
    return ERR_OK;
}

sptr<IInterface> WantParamWrapper::Clone() const {
    return sptr<IInterface>(new WantParamWrapper(value_));
}

sptr<IWantParams> WantParamWrapper::Box(const WantParams& value) {
    return sptr<IWantParams>(new WantParamWrapper(value));
}

WantParams WantParamWrapper::Unbox(const IWantParams* object) {
    WantParams value;
    if (object != nullptr) {
        object->GetValue(value);
    }
    return value;
}

}  // namespace AAFwk
}  // namespace Tavi
