// Reading the record's optional fields: a field is a shared pointer that is empty when not given.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_FIELD_VALUE_H
#define LIVEVIEW_RENDER_FIELD_VALUE_H

#include <memory>

namespace LiveViewRender {

// The field's value, or fallback when the field was not given.
template <typename T>
T ValueOr(const std::shared_ptr<T>& field, T fallback) {
    return field == nullptr ? fallback : *field;
}

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_FIELD_VALUE_H
