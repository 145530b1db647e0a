#include "notification_helper.h"

#include "service_backend.h"

namespace Tavi {
namespace Notification {

ErrCode NotificationHelper::PublishNotification(const NotificationRequest& request) {
    return Host::ActiveService().Publish(request);
}

ErrCode NotificationHelper::SubscribeLocalLiveViewNotification(
    NotificationLocalLiveViewSubscriber& subscriber) {
    return Host::ActiveService().Subscribe(&subscriber);
}

ErrCode NotificationHelper::SubscribeLocalLiveViewNotification(
    NotificationLocalLiveViewSubscriber* subscriber) {
    return Host::ActiveService().Subscribe(subscriber);
}

ErrCode NotificationHelper::GetActiveNotificationByFilter(const LiveViewFilter& filter,
                                                          sptr<NotificationRequest>& request) {
    return Host::ActiveService().GetActive(filter, request);
}

ErrCode NotificationHelper::GetEnabledForBundleSlotSelf(
    const NotificationConstant::SlotType& slotType, bool& enabled) {
    return Host::ActiveService().GetEnabled(slotType, enabled);
}

}  // namespace Notification
}  // namespace Tavi
