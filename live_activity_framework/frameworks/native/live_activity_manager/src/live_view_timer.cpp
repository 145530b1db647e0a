#include "live_view_timer.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<long> LiveViewTimer::GetTime() const {
    return time_;
}

void LiveViewTimer::SetTime(const std::shared_ptr<long>& time) {
    time_ = time;
}

std::shared_ptr<bool> LiveViewTimer::GetIsCountdown() const {
    return isCountdown_;
}

void LiveViewTimer::SetIsCountdown(const std::shared_ptr<bool>& isCountdown) {
    isCountdown_ = isCountdown;
}

std::shared_ptr<bool> LiveViewTimer::GetIsPaused() const {
    return isPaused_;
}

void LiveViewTimer::SetIsPaused(const std::shared_ptr<bool>& isPaused) {
    isPaused_ = isPaused;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
