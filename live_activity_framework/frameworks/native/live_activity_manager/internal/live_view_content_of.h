// The live-view content of a notification request, the one downcast the library makes from a
// request's content to its live-view kind.
//
// Thread safety: reads the request only; the request belongs to the caller.
#ifndef LIVE_VIEW_INTERNAL_LIVE_VIEW_CONTENT_OF_H
#define LIVE_VIEW_INTERNAL_LIVE_VIEW_CONTENT_OF_H

#include <memory>

#include "notification_content.h"
#include "notification_live_view_content.h"
#include "notification_request.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

// The request's live-view content, shared; null when the request has no content or content of
// another kind.
inline std::shared_ptr<Notification::NotificationLiveViewContent> LiveViewContentOf(
    const Notification::NotificationRequest& request) {
    const auto content = request.GetContent();
    if (content == nullptr) {
        return nullptr;
    }
    return std::dynamic_pointer_cast<Notification::NotificationLiveViewContent>(
        content->GetNotificationContent());
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_INTERNAL_LIVE_VIEW_CONTENT_OF_H
