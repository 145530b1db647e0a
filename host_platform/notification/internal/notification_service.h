// Host-internal: the embedded notification service, one per process, behind NotificationHelper
// unless the process talks to a simulator (service_backend.h).
//
// It keeps its own deep copy of every request it accepts, per app (bundle name and uid), and
// enforces the slot switch, the per-app publish rate, the create/update/end order and versions.
// The host-only controls reach it through the control functions below; nothing else should.
//
// Thread safety: every member may be called from any thread. Subscriber notices are delivered
// after the service's lock is released, on the thread of the call that caused them.
#ifndef TAVI_HOST_NOTIFICATION_SERVICE_H
#define TAVI_HOST_NOTIFICATION_SERVICE_H

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "notification_helper.h"
#include "service_backend.h"

namespace Tavi {
namespace Host {

class NotificationService : public ServiceBackend {
public:
    static NotificationService& Instance();

    Notification::ErrCode Publish(const Notification::NotificationRequest& request) override;
    Notification::ErrCode Subscribe(
        Notification::NotificationLocalLiveViewSubscriber* subscriber) override;
    Notification::ErrCode GetActive(const Notification::LiveViewFilter& filter,
                                    sptr<Notification::NotificationRequest>& request) override;
    Notification::ErrCode GetEnabled(const Notification::NotificationConstant::SlotType& slotType,
                                     bool& enabled) override;

    // Controls.
    void Reset() override;
    void SetSlotEnabled(const AppId& app, bool enabled) override;
    void FailNext(ServiceCall call, int32_t errorNumber, int times) override;
    void SetRateLimit(int perSecond) override;
    void SetClockMillis(int64_t millis) override;
    void AdvanceClock(int64_t millis) override;
    void UseRealClock() override;
    int64_t ClockMillis() override;
    void SetPublishRecording(bool enabled) override;
    std::vector<PublishRecord> Published() override;
    std::vector<HeldLiveView> Held() override;
    std::vector<HeldKey> HeldKeys() override;
    // The app's live view under id, copied into held; false when there is none.
    bool HeldOf(const AppId& app, int32_t id, HeldLiveView& held) override;
    Notification::ErrCode PressButton(const AppId& app, int32_t id,
                                      const std::string& buttonName) override;
    void Die() override;

    // Puts back a live view that a restarted simulator had stored: app holds request under its id,
    // ended or not; an ended one stays for its auto-deleted time counted from now. Replaces what
    // app held under that id.
    void Restore(const AppId& app, const Notification::NotificationRequest& request, bool ended);

private:
    struct Stored {
        sptr<Notification::NotificationRequest> request;
        bool ended = false;
        int64_t endedAtMillis = 0;
        // Set when the live view ended with an auto-deleted time that can run out: the service
        // clock reading from which on it is removed, which is also its key in expiries_.
        bool expires = false;
        int64_t expiresAtMillis = 0;
    };
    // Ended live views that expire, by the clock reading at which they do, so that a purge visits
    // only the expired ones instead of every live view held.
    using ExpiryKey = std::tuple<int64_t, AppId, int32_t>;
    using Subscriber = Notification::NotificationLocalLiveViewSubscriber*;

    NotificationService() = default;
    // Consumes one injected fault of call; true with the number to answer when there is one.
    bool TakeFault(ServiceCall call, int32_t& errorNumber);
    int64_t NowLocked() const;
    void PurgeExpiredLocked(int64_t now);
    // Marks a stored live view ended at now and files it under its expiry, if it has one.
    void EndLocked(const AppId& app, int32_t id, Stored& stored, int64_t now);
    void ForgetExpiryLocked(const AppId& app, int32_t id, const Stored& stored);
    Notification::ErrCode PublishLocked(const AppId& app,
                                        const Notification::NotificationRequest& request,
                                        int64_t now);
    void Record(const AppId& app, const Notification::NotificationRequest& request, int32_t result,
                int64_t now);

    std::mutex mutex_;
    std::map<AppId, std::map<int32_t, Stored>> liveViews_;
    std::set<ExpiryKey> expiries_;
    std::map<AppId, std::deque<int64_t>> publishTimes_;
    std::map<AppId, bool> slotEnabled_;
    std::map<AppId, std::vector<Subscriber>> subscribers_;
    std::map<ServiceCall, std::pair<int32_t, int>> faults_;
    std::vector<PublishRecord> published_;
    bool recordPublishes_ = true;
    int rateLimit_ = 10;
    bool manualClock_ = false;
    int64_t manualMillis_ = 0;
};

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_NOTIFICATION_SERVICE_H
