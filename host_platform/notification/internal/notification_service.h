// Host-internal: the embedded notification service behind NotificationHelper, one per process.
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

namespace Tavi {
namespace Host {

// The calls into the service that a fault can be injected into.
enum class ServiceCall {
    PUBLISH,
    SUBSCRIBE,
    GET_ACTIVE,
    GET_ENABLED,
};

struct AppId {
    std::string bundleName;
    int32_t uid = -1;
    bool operator<(const AppId& other) const {
        return std::tie(bundleName, uid) < std::tie(other.bundleName, other.uid);
    }
    bool operator==(const AppId& other) const {
        return bundleName == other.bundleName && uid == other.uid;
    }
};

// One call of PublishNotification, accepted or not.
struct PublishRecord {
    AppId app;
    sptr<Notification::NotificationRequest> request;  // the service's copy of what was sent
    int32_t result = 0;
    int64_t atMillis = 0;  // service clock
};

// One live view as the service holds it now.
struct HeldLiveView {
    AppId app;
    int32_t id = 0;
    bool ended = false;
    sptr<Notification::NotificationRequest> request;  // a copy; changing it changes nothing
};

class NotificationService {
public:
    static NotificationService& Instance();

    Notification::ErrCode Publish(const Notification::NotificationRequest& request);
    Notification::ErrCode Subscribe(Notification::NotificationLocalLiveViewSubscriber* subscriber);
    Notification::ErrCode GetActive(const Notification::LiveViewFilter& filter,
                                    sptr<Notification::NotificationRequest>& request);
    Notification::ErrCode GetEnabled(const Notification::NotificationConstant::SlotType& slotType,
                                     bool& enabled);

    // Controls.
    void Reset();
    void SetSlotEnabled(const AppId& app, bool enabled);
    void FailNext(ServiceCall call, int32_t errorNumber, int times);
    void SetRateLimit(int perSecond);
    void SetClockMillis(int64_t millis);
    void AdvanceClock(int64_t millis);
    void UseRealClock();
    int64_t ClockMillis();
    void SetPublishRecording(bool enabled);
    std::vector<PublishRecord> Published();
    std::vector<HeldLiveView> Held();
    // The app's live view under id, copied into held; false when there is none.
    bool HeldOf(const AppId& app, int32_t id, HeldLiveView& held);
    Notification::ErrCode PressButton(const AppId& app, int32_t id, const std::string& buttonName);
    void Die();

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
    bool CallerApp(AppId& app) const;
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
