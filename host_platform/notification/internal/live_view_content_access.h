// Host-internal: the live-view content of a notification request, the one downcast the host makes
// from a request's content to its live-view kind. Public only through the host-only controls.
//
// Thread safety: reads the request only; the request belongs to the caller.
#ifndef TAVI_HOST_LIVE_VIEW_CONTENT_ACCESS_H
#define TAVI_HOST_LIVE_VIEW_CONTENT_ACCESS_H

#include <memory>

#include "notification_content.h"
#include "notification_live_view_content.h"
#include "notification_request.h"

namespace Tavi {
namespace Host {

// The request's live-view content, shared; null when the request has no content or content of
// another kind. The host's content records its kind, so the kind is read, not probed.
inline std::shared_ptr<Notification::NotificationLiveViewContent> LiveViewContentOf(
    const Notification::NotificationRequest& request) {
    using Notification::NotificationContent;
    const std::shared_ptr<NotificationContent> content = request.GetContent();
    const bool isLiveView =
        content != nullptr && content->GetContentType() == NotificationContent::Type::LIVE_VIEW;
    return isLiveView ? std::static_pointer_cast<Notification::NotificationLiveViewContent>(
                            content->GetNotificationContent())
                      : nullptr;
}

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_LIVE_VIEW_CONTENT_ACCESS_H
