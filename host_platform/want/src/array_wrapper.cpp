#include "array_wrapper.h"

namespace Tavi {
namespace AAFwk {

Array::Array(long size, const InterfaceID& typeId)
    : type_(typeId), values_(size > 0 ? static_cast<size_t>(size) : 0) {}

ErrCode Array::Get(long index, sptr<IInterface>& value) const {
    if (index < 0 || static_cast<size_t>(index) >= values_.size()) {
        value = nullptr;
        return ERR_INVALID_VALUE;
    }
    value = values_[static_cast<size_t>(index)];
    return ERR_OK;
}

ErrCode Array::Set(long index, const sptr<IInterface>& value) {
    if (index < 0 || static_cast<size_t>(index) >= values_.size()) {
        return ERR_INVALID_VALUE;
    }
    if (value != nullptr && value->GetInterfaceId() != type_) {
        return ERR_INVALID_VALUE;
    }
    values_[static_cast<size_t>(index)] = value;
    return ERR_OK;
}

ErrCode Array::GetLength(long& size) const {
    size = static_cast<long>(values_.size());
    return ERR_OK;
}

ErrCode Array::GetType(InterfaceID& id) const {
    id = type_;
    return ERR_OK;
}

sptr<IInterface> Array::Clone() const {
    sptr<Array> copy(new Array(static_cast<long>(values_.size()), type_));
    for (size_t i = 0; i < values_.size(); ++i) {
        copy->values_[i] = values_[i] == nullptr ? values_[i] : values_[i]->Clone();
    }
    return copy;
}

bool Array::IsArrayOf(const IArray* object, const InterfaceID& id) {
    InterfaceID type{};
    return object != nullptr && object->GetType(type) == ERR_OK && type == id;
}

}  // namespace AAFwk
}  // namespace Tavi
