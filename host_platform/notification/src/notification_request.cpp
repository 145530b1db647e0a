#include "notification_request.h"

namespace Tavi {
namespace Notification {

void NotificationRequest::AddActionButton(const std::shared_ptr<NotificationActionButton>& button) {
    if (button != nullptr) {
        actionButtons_.push_back(button);
    }
}

sptr<NotificationRequest> NotificationRequest::Clone() const {
    sptr<NotificationRequest> copy(new NotificationRequest(*this));
    if (content_ != nullptr) {
        auto inner = content_->GetNotificationContent();
        auto liveView = std::dynamic_pointer_cast<NotificationLiveViewContent>(
            inner == nullptr ? nullptr : inner->Clone());
        copy->content_ = std::make_shared<NotificationContent>(liveView);
    }
    return copy;
}

}  // namespace Notification
}  // namespace Tavi
