// Host-internal: what NotificationHelper and the host-only controls talk to. Two services stand
// behind it: the embedded one in this process (NotificationService), and a running simulator
// reached over HTTP (RemoteService) when the environment variable LIVEVIEW_SERVICE names one.
// The library never knows which one answers.
//
// Thread safety: every member may be called from any thread. ActiveService and the Use* functions
// may be called from any thread; switching while other threads make calls is not supported.
#ifndef TAVI_HOST_SERVICE_BACKEND_H
#define TAVI_HOST_SERVICE_BACKEND_H

#include <cstdint>
#include <string>
#include <tuple>
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

// The name of a call as scenarios, the simulator's API and its clients write it: "publish",
// "subscribe", "getActive", "getEnabled".
const char* ServiceCallName(ServiceCall call);
// The call named name; false when name is none of the four.
bool ServiceCallNamed(const std::string& name, ServiceCall& call);

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

// Which live view the service holds, without the request: cheap to list and compare.
struct HeldKey {
    AppId app;
    int32_t id = 0;
    bool ended = false;
    bool operator==(const HeldKey& other) const {
        return app == other.app && id == other.id && ended == other.ended;
    }
};

// One live view as the service holds it now.
struct HeldLiveView {
    AppId app;
    int32_t id = 0;
    bool ended = false;
    sptr<Notification::NotificationRequest> request;  // a copy; changing it changes nothing
};

class ServiceBackend {
public:
    virtual ~ServiceBackend() = default;

    // The calls of NotificationHelper, for the calling app (host identity).
    virtual Notification::ErrCode Publish(const Notification::NotificationRequest& request) = 0;
    virtual Notification::ErrCode Subscribe(
        Notification::NotificationLocalLiveViewSubscriber* subscriber) = 0;
    virtual Notification::ErrCode GetActive(const Notification::LiveViewFilter& filter,
                                            sptr<Notification::NotificationRequest>& request) = 0;
    virtual Notification::ErrCode GetEnabled(
        const Notification::NotificationConstant::SlotType& slotType, bool& enabled) = 0;

    // The controls of host_control.h.
    virtual void Reset() = 0;
    virtual void SetSlotEnabled(const AppId& app, bool enabled) = 0;
    virtual void FailNext(ServiceCall call, int32_t errorNumber, int times) = 0;
    virtual void SetRateLimit(int perSecond) = 0;
    virtual void SetClockMillis(int64_t millis) = 0;
    virtual void AdvanceClock(int64_t millis) = 0;
    virtual void UseRealClock() = 0;
    virtual int64_t ClockMillis() = 0;
    virtual void SetPublishRecording(bool enabled) = 0;
    virtual std::vector<PublishRecord> Published() = 0;
    virtual std::vector<HeldLiveView> Held() = 0;
    // What Held lists, without copying a request.
    virtual std::vector<HeldKey> HeldKeys() = 0;
    // The app's live view under id, copied into held; false when there is none.
    virtual bool HeldOf(const AppId& app, int32_t id, HeldLiveView& held) = 0;
    virtual Notification::ErrCode PressButton(const AppId& app, int32_t id,
                                              const std::string& buttonName) = 0;
    virtual void Die() = 0;
};

// The calling app by the host identity; false when none is set.
bool CallingApp(AppId& app);

// The service that calls go to. On first use: the simulator named by LIVEVIEW_SERVICE when that
// variable is set and not empty, else the embedded service. Never destroyed.
ServiceBackend& ActiveService();

// From now on the embedded service answers, whatever LIVEVIEW_SERVICE says.
void UseEmbeddedService();

// From now on the simulator at url ("http://127.0.0.1:PORT/?token=TOKEN"; without a token, the
// one in $HOME/.liveview/serve-PORT.token) answers. False with error set when url is unusable;
// the active service is then unchanged. Nothing is sent until the first call.
bool UseRemoteService(const std::string& url, std::string& error);

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_SERVICE_BACKEND_H
