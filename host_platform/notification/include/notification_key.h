// Identifies one notification of an application: its id and an optional label.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_KEY_H
#define TAVI_NOTIFICATION_NOTIFICATION_KEY_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace Notification {

struct NotificationKey {
    int32_t id = 0;
    std::string label;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_KEY_H
