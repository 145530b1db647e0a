// The application's client of the notification service.
//
// On this host every call goes to one embedded service per process, which keeps its own deep
// copy of what it accepts and enforces what the device's service enforces: per-app isolation,
// the live view slot switch, a per-app publish rate, create/update/end ordering and versions.
// Answers are ERR_OK or an error number of ans_inner_errors.h.
//
// Thread safety: every call may be made from any thread.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_HELPER_H
#define TAVI_NOTIFICATION_NOTIFICATION_HELPER_H

#include "ans_inner_errors.h"
#include "notification_constant.h"
#include "notification_live_view_filter.h"
#include "notification_local_live_view_subscriber.h"
#include "notification_request.h"
#include "refbase.h"

namespace Tavi {
namespace Notification {

class NotificationHelper {
public:
    // Publishes a live view request of the calling app: create, update or end by the live view
    // status of its content. The service copies what it accepts; request stays the caller's.
    static ErrCode PublishNotification(const NotificationRequest& request);

    // Keeps subscriber (not owned: it must outlive the service's use of it, e.g. have static
    // lifetime) for the calling app and tells it OnConnected. Subscribing the same object again
    // keeps one registration. A null subscriber gives ERR_ANS_INVALID_PARAM.
    static ErrCode SubscribeLocalLiveViewNotification(
        NotificationLocalLiveViewSubscriber& subscriber);
    static ErrCode SubscribeLocalLiveViewNotification(
        NotificationLocalLiveViewSubscriber* subscriber);

    // Fills request with a copy of the live view filter.notificationKey.id of the app that
    // filter.bundle names, holding only filter.extraInfoKeys of its extra information (all when
    // the list is empty). request is left alone on failure.
    static ErrCode GetActiveNotificationByFilter(const LiveViewFilter& filter,
                                                 sptr<NotificationRequest>& request);

    // Whether the calling app's slot of slotType is enabled.
    static ErrCode GetEnabledForBundleSlotSelf(const NotificationConstant::SlotType& slotType,
                                               bool& enabled);
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_HELPER_H
