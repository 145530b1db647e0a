// How a value of a record field travels in the notification's extra-info map: the box class and
// box interface of each field type, the typed write and the typed read. Every writer and reader
// of extra info goes through these, so a field's box type is decided in one place.
//
// Thread safety: stateless; the maps passed in belong to the caller.
#ifndef LIVE_VIEW_INTERNAL_WANT_BOX_H
#define LIVE_VIEW_INTERNAL_WANT_BOX_H

#include <memory>
#include <string>
#include <utility>

#include "base_obj.h"
#include "want_params.h"
#include "want_params_wrapper.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

// The box interface and box class that carry a value of type T: texts as String, enumerations
// and counts as Integer, times as Long, flags as Boolean, maps as WantParamWrapper.
template <typename T>
struct BoxOf;
template <>
struct BoxOf<std::string> {
    using Interface = AAFwk::IString;
    using Box = AAFwk::String;
};
template <>
struct BoxOf<int> {
    using Interface = AAFwk::IInteger;
    using Box = AAFwk::Integer;
};
template <>
struct BoxOf<long> {
    using Interface = AAFwk::ILong;
    using Box = AAFwk::Long;
};
template <>
struct BoxOf<bool> {
    using Interface = AAFwk::IBoolean;
    using Box = AAFwk::Boolean;
};
template <>
struct BoxOf<AAFwk::WantParams> {
    using Interface = AAFwk::IWantParams;
    using Box = AAFwk::WantParamWrapper;
};

// Boxes value under key, replacing what was there.
template <typename T>
void WriteParam(AAFwk::WantParams& params, const std::string& key, const T& value) {
    params.SetParam(key, BoxOf<T>::Box::Box(value));
}

// Hands `use` the value under key viewed as Interface. Nothing happens when the key is absent or
// its value is null or of another box type.
template <typename Interface, typename Use>
void WithParam(const AAFwk::WantParams& params, const std::string& key, Use&& use) {
    const sptr<AAFwk::IInterface> value = params.GetParam(key);
    if (value == nullptr) {
        return;
    }
    const Interface* typed = Interface::Query(value);
    if (typed != nullptr) {
        use(*typed);
    }
}

// The typed read: hands `set` the unboxed value of type T under key, skipped as in WithParam.
template <typename T, typename Set>
void ReadParam(const AAFwk::WantParams& params, const std::string& key, Set&& set) {
    using Interface = typename BoxOf<T>::Interface;
    WithParam<Interface>(params, key,
                         [&set](const Interface& typed) { set(BoxOf<T>::Box::Unbox(&typed)); });
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_INTERNAL_WANT_BOX_H
