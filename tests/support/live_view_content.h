// Test support: the live-view content of a notification request, as the service received or holds
// it.
#ifndef LIVE_VIEW_TESTS_LIVE_VIEW_CONTENT_H
#define LIVE_VIEW_TESTS_LIVE_VIEW_CONTENT_H

#include <memory>

#include "notification_content.h"
#include "notification_live_view_content.h"
#include "notification_request.h"

namespace LiveViewTest {

// The request's live-view content; nullptr when it has no content or content of another kind.
inline std::shared_ptr<Tavi::Notification::NotificationLiveViewContent> LiveViewContentOf(
    const Tavi::Notification::NotificationRequest& request) {
    auto content = request.GetContent();
    if (content == nullptr) {
        return nullptr;
    }
    return std::dynamic_pointer_cast<Tavi::Notification::NotificationLiveViewContent>(
        content->GetNotificationContent());
}

}  // namespace LiveViewTest

#endif  // LIVE_VIEW_TESTS_LIVE_VIEW_CONTENT_H
