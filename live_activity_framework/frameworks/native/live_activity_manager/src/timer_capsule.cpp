#include "timer_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

TimerCapsule::TimerCapsule() : CapsuleData(Kind::TIMER) {}

TimerCapsule::TimerCapsule(const TimerCapsule& other)
    : CapsuleData(other, Kind::TIMER),
      content_(other.content_),
      time_(other.time_),
      isCountdown_(other.isCountdown_),
      isPaused_(other.isPaused_) {}

std::shared_ptr<std::string> TimerCapsule::GetContent() const {
    return content_;
}

void TimerCapsule::SetContent(const std::shared_ptr<std::string>& content) {
    content_ = content;
}

std::shared_ptr<long> TimerCapsule::GetTime() const {
    return time_;
}

void TimerCapsule::SetTime(const std::shared_ptr<long>& time) {
    time_ = time;
}

std::shared_ptr<bool> TimerCapsule::GetIsCountdown() const {
    return isCountdown_;
}

void TimerCapsule::SetIsCountdown(const std::shared_ptr<bool>& isCountdown) {
    isCountdown_ = isCountdown;
}

std::shared_ptr<bool> TimerCapsule::GetIsPaused() const {
    return isPaused_;
}

void TimerCapsule::SetIsPaused(const std::shared_ptr<bool>& isPaused) {
    isPaused_ = isPaused;
}

std::shared_ptr<TimerCapsule> AsTimerCapsule(const std::shared_ptr<CapsuleData>& capsule) {
    if (capsule == nullptr || capsule->kind_ != CapsuleData::Kind::TIMER) {
        return nullptr;
    }
    return std::static_pointer_cast<TimerCapsule>(capsule);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
