// TimerCapsule: a capsule that shows a running or paused clock and a text.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given. A new TimerCapsule has type CAPSULE_TYPE_NONE
// like every capsule; whoever makes it sets the type to TIMER.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_TIMER_CAPSULE_H
#define TAVI_WISP_LIVE_VIEW_TIMER_CAPSULE_H

#include <memory>
#include <string>

#include "capsule_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class TimerCapsule : public CapsuleData {
public:
    TimerCapsule();
    TimerCapsule(const TimerCapsule& other);
    TimerCapsule& operator=(const TimerCapsule& other) = default;
    ~TimerCapsule() = default;

    std::shared_ptr<std::string> GetContent() const;
    void SetContent(const std::shared_ptr<std::string>& content);

    // The clock's time in milliseconds.
    std::shared_ptr<long> GetTime() const;
    void SetTime(const std::shared_ptr<long>& time);

    std::shared_ptr<bool> GetIsCountdown() const;
    void SetIsCountdown(const std::shared_ptr<bool>& isCountdown);

    std::shared_ptr<bool> GetIsPaused() const;
    void SetIsPaused(const std::shared_ptr<bool>& isPaused);

private:
    std::shared_ptr<std::string> content_;
    std::shared_ptr<long> time_;
    std::shared_ptr<bool> isCountdown_;
    std::shared_ptr<bool> isPaused_;
};

// The same object as a TimerCapsule (sharing ownership with capsule) when its real class is
// TimerCapsule or derives from it; an empty pointer when capsule is empty or of another class,
// whatever its type field says.
std::shared_ptr<TimerCapsule> AsTimerCapsule(const std::shared_ptr<CapsuleData>& capsule);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_TIMER_CAPSULE_H
