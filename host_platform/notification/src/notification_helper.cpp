#include "notification_helper.h"

#include "notification_service.h"

namespace Tavi {
namespace Notification {

ErrCode NotificationHelper::PublishNotification(const NotificationRequest& request) {
    return Host::NotificationService::Instance().Publish(request);
}

ErrCode NotificationHelper::SubscribeLocalLiveViewNotification(
    NotificationLocalLiveViewSubscriber& subscriber) {
    return Host::NotificationService::Instance().Subscribe(&subscriber);
}

ErrCode NotificationHelper::SubscribeLocalLiveViewNotification(
    NotificationLocalLiveViewSubscriber* subscriber) {
    return Host::NotificationService::Instance().Subscribe(subscriber);
}

ErrCode NotificationHelper::GetActiveNotificationByFilter(const LiveViewFilter& filter,
                                                          sptr<NotificationRequest>& request) {
    return Host::NotificationService::Instance().GetActive(filter, request);
}

ErrCode NotificationHelper::GetEnabledForBundleSlotSelf(
    const NotificationConstant::SlotType& slotType, bool& enabled) {
    return Host::NotificationService::Instance().GetEnabled(slotType, enabled);
}

}  // namespace Notification
}  // namespace Tavi
