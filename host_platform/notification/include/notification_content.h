// The content of a notification request: one content object of one kind.
//
// Thread safety: none; built by one thread, then handed over.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_CONTENT_H
#define TAVI_NOTIFICATION_NOTIFICATION_CONTENT_H

#include <memory>

#include "notification_basic_content.h"
#include "notification_live_view_content.h"

namespace Tavi {
namespace Notification {

class NotificationContent {
public:
    enum class Type : int {
        NONE = 0,
        LIVE_VIEW = 1,
    };

    // A live view content; a null liveViewContent gives a content of type NONE.
    explicit NotificationContent(
        const std::shared_ptr<NotificationLiveViewContent>& liveViewContent);
    virtual ~NotificationContent() = default;

    Type GetContentType() const { return type_; }
    // The content object, shared; null for type NONE.
    std::shared_ptr<NotificationBasicContent> GetNotificationContent() const { return content_; }

private:
    Type type_;
    std::shared_ptr<NotificationBasicContent> content_;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_CONTENT_H
