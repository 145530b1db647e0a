// Host-internal: the notification service of a running simulator, reached over HTTP on loopback.
//
// Every call carries the calling app (host identity) and the simulator's token, and has a time
// limit: a simulator that is gone or does not answer in time gives ERR_ANS_SERVICE_NOT_CONNECTED
// (controls that answer nothing then do nothing), never a hang. Subscribers are kept here; for
// each app with subscribers one thread of this object listens to the simulator's event stream and
// tells them OnResponse when a button is pressed, and OnDied when the service dies or the stream
// ends (the simulator stopped); they are then forgotten.
//
// Thread safety: every member may be called from any thread; calls are sent one at a time over one
// kept-alive connection. Notices arrive on the listening thread, which uses the object: the host
// keeps every RemoteService for the life of the process.
#ifndef TAVI_HOST_REMOTE_SERVICE_H
#define TAVI_HOST_REMOTE_SERVICE_H

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "service_backend.h"

struct cJSON;

namespace Tavi {
namespace Host {

struct RemoteAddress {
    std::string host;
    int port = 0;
    std::string token;
};

class RemoteService : public ServiceBackend {
public:
    // Reads "http://HOST:PORT[/][?token=TOKEN]"; without a token, the one in
    // $HOME/.liveview/serve-PORT.token. False with error set when the url or the token is unusable.
    static bool ParseAddress(const std::string& url, RemoteAddress& address, std::string& error);

    explicit RemoteService(RemoteAddress address);
    ~RemoteService() override;

    Notification::ErrCode Publish(const Notification::NotificationRequest& request) override;
    Notification::ErrCode Subscribe(
        Notification::NotificationLocalLiveViewSubscriber* subscriber) override;
    Notification::ErrCode GetActive(const Notification::LiveViewFilter& filter,
                                    sptr<Notification::NotificationRequest>& request) override;
    Notification::ErrCode GetEnabled(const Notification::NotificationConstant::SlotType& slotType,
                                     bool& enabled) override;

    // Forgets this process's subscribers; a shared simulator is never reset from an app.
    void Reset() override;
    void SetSlotEnabled(const AppId& app, bool enabled) override;
    void FailNext(ServiceCall call, int32_t errorNumber, int times) override;
    void SetRateLimit(int perSecond) override;
    void SetClockMillis(int64_t millis) override;
    void AdvanceClock(int64_t millis) override;
    void UseRealClock() override;
    // -1 when the simulator cannot be reached.
    int64_t ClockMillis() override;
    // The simulator always keeps its history; this changes nothing.
    void SetPublishRecording(bool enabled) override;
    std::vector<PublishRecord> Published() override;
    std::vector<HeldLiveView> Held() override;
    // Held, with the requests dropped: the simulator sends them all the same.
    std::vector<HeldKey> HeldKeys() override;
    bool HeldOf(const AppId& app, int32_t id, HeldLiveView& held) override;
    Notification::ErrCode PressButton(const AppId& app, int32_t id,
                                      const std::string& buttonName) override;
    void Die() override;

private:
    using Subscriber = Notification::NotificationLocalLiveViewSubscriber*;
    struct Connection;

    // Sends body (taken over; may be null for GET) to path and returns the answer's JSON (caller
    // owns), or null when the simulator could not be reached, did not answer in time, or answered
    // something other than a JSON object with status 200.
    cJSON* Call(const char* method, const std::string& path, cJSON* body);
    // The "code" of Call's answer; ERR_ANS_SERVICE_NOT_CONNECTED when there is none.
    Notification::ErrCode CallForCode(const std::string& path, cJSON* body);
    std::vector<HeldLiveView> HeldMatching(cJSON* query);
    void Listen(AppId app);

    const RemoteAddress address_;
    std::mutex connectionMutex_;
    std::unique_ptr<Connection> connection_;
    std::mutex subscribersMutex_;
    std::map<AppId, std::vector<Subscriber>> subscribers_;
    std::set<AppId> listening_;
};

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_REMOTE_SERVICE_H
