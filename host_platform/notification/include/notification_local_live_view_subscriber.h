// What an application implements to hear about its locally updated live views: connection to the
// service, button presses, and the service's death.
//
// The notices arrive on whatever thread the service uses (on this host, the thread of the call
// that caused them); implementations must be thread-safe.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_LOCAL_LIVE_VIEW_SUBSCRIBER_H
#define TAVI_NOTIFICATION_NOTIFICATION_LOCAL_LIVE_VIEW_SUBSCRIBER_H

#include <cstdint>

#include "notification_button_option.h"
#include "refbase.h"

namespace Tavi {
namespace Notification {

class NotificationLocalLiveViewSubscriber {
public:
    NotificationLocalLiveViewSubscriber() = default;
    virtual ~NotificationLocalLiveViewSubscriber() = default;

    virtual void OnConnected() = 0;
    virtual void OnDisconnected() = 0;
    // A button of the live view notificationId was pressed; buttonOption names it.
    virtual void OnResponse(int32_t notificationId,
                            sptr<NotificationButtonOption> buttonOption) = 0;
    virtual void OnDied() = 0;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_LOCAL_LIVE_VIEW_SUBSCRIBER_H
