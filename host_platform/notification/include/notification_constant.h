// Constants of the notification service.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_CONSTANT_H
#define TAVI_NOTIFICATION_NOTIFICATION_CONSTANT_H

namespace Tavi {
namespace Notification {

class NotificationConstant {
public:
    // The channel a notification is posted on; live views use LIVE_VIEW.
    enum SlotType : int {
        SOCIAL_COMMUNICATION = 1,
        SERVICE_REMINDER = 2,
        CONTENT_INFORMATION = 3,
        OTHER = 4,
        LIVE_VIEW = 5,
        CUSTOM = 6,
    };
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_CONSTANT_H
