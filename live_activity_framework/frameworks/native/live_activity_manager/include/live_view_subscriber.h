// The library's subscriber for locally updated live views (navigation and workout). Its notices
// only write log lines. One instance with static lifetime is registered by every start of such a
// live view.
//
// Thread safety: the notices may arrive on any thread; they touch no shared state.
#ifndef LIVE_VIEW_LIVE_VIEW_SUBSCRIBER_H
#define LIVE_VIEW_LIVE_VIEW_SUBSCRIBER_H

#include <cstdint>

#include "notification_button_option.h"
#include "notification_local_live_view_subscriber.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewSubscriber : public Notification::NotificationLocalLiveViewSubscriber {
public:
    LiveViewSubscriber() = default;
    ~LiveViewSubscriber() override = default;

    void OnConnected() override;
    void OnDisconnected() override;
    // Logs the id; the button option is ignored.
    void OnResponse(int notificationId,
                    sptr<Notification::NotificationButtonOption> buttonOption) override;
    void OnDied() override;

    // The one instance, created when the library is loaded.
    static LiveViewSubscriber& GetInstance();
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_SUBSCRIBER_H
