#include "live_view_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<PrimaryData> LiveViewData::GetPrimary() const {
    return primary_;
}

void LiveViewData::SetPrimary(const std::shared_ptr<PrimaryData>& primary) {
    primary_ = primary;
}

std::shared_ptr<CapsuleData> LiveViewData::GetCapsule() const {
    return capsule_;
}

void LiveViewData::SetCapsule(const std::shared_ptr<CapsuleData>& capsule) {
    capsule_ = capsule;
}

std::shared_ptr<ExternalData> LiveViewData::GetExternal() const {
    return external_;
}

void LiveViewData::SetExternal(const std::shared_ptr<ExternalData>& external) {
    external_ = external;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
