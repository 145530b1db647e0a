#include "live_view_subscriber.h"

#include "live_view_logger.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

namespace {
LiveViewSubscriber g_subscriber;
}  // namespace

LiveViewSubscriber& LiveViewSubscriber::GetInstance() {
    return g_subscriber;
}

void LiveViewSubscriber::OnConnected() {
    LV_LOGI(14, "LiveViewSubscriber OnConnected.");
}

void LiveViewSubscriber::OnDisconnected() {
    LV_LOGI(19, "LiveViewSubscriber OnDisconnected.");
}

void LiveViewSubscriber::OnResponse(int notificationId,
                                    sptr<Notification::NotificationButtonOption>) {
    LV_LOGI(24, "LiveViewSubscriber OnResponse, notificationId is %{public}d", notificationId);
}

void LiveViewSubscriber::OnDied() {
    LV_LOGI(29, "LiveViewSubscriber OnDied.");
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
