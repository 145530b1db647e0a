// LiveViewTimer: the clock of a live view, as the application gives it.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_LIVE_VIEW_TIMER_H
#define TAVI_WISP_LIVE_VIEW_LIVE_VIEW_TIMER_H

#include <memory>

#include "live_view_base.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewTimer : public LiveViewBase {
public:
    // The timer value in milliseconds.
    std::shared_ptr<long> GetTime() const;
    void SetTime(const std::shared_ptr<long>& time);

    std::shared_ptr<bool> GetIsCountdown() const;
    void SetIsCountdown(const std::shared_ptr<bool>& isCountdown);

    std::shared_ptr<bool> GetIsPaused() const;
    void SetIsPaused(const std::shared_ptr<bool>& isPaused);

private:
    std::shared_ptr<long> time_;
    std::shared_ptr<bool> isCountdown_;
    std::shared_ptr<bool> isPaused_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_LIVE_VIEW_TIMER_H
