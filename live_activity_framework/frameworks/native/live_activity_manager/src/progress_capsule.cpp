#include "progress_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

ProgressCapsule::ProgressCapsule() : CapsuleData(Kind::PROGRESS) {}

ProgressCapsule::ProgressCapsule(const ProgressCapsule& other)
    : CapsuleData(other, Kind::PROGRESS),
      max_(other.max_),
      progress_(other.progress_),
      indeterminate_(other.indeterminate_) {}

std::shared_ptr<int> ProgressCapsule::GetMax() const {
    return max_;
}

void ProgressCapsule::SetMax(const std::shared_ptr<int>& max) {
    max_ = max;
}

std::shared_ptr<int> ProgressCapsule::GetProgress() const {
    return progress_;
}

void ProgressCapsule::SetProgress(const std::shared_ptr<int>& progress) {
    progress_ = progress;
}

std::shared_ptr<bool> ProgressCapsule::GetIndeterminate() const {
    return indeterminate_;
}

void ProgressCapsule::SetIndeterminate(const std::shared_ptr<bool>& indeterminate) {
    indeterminate_ = indeterminate;
}

std::shared_ptr<ProgressCapsule> AsProgressCapsule(const std::shared_ptr<CapsuleData>& capsule) {
    if (capsule == nullptr || capsule->kind_ != CapsuleData::Kind::PROGRESS) {
        return nullptr;
    }
    return std::static_pointer_cast<ProgressCapsule>(capsule);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
