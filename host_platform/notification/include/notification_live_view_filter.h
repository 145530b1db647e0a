// Selects one live view of an application, and which of its extra-information keys to return.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_LIVE_VIEW_FILTER_H
#define TAVI_NOTIFICATION_NOTIFICATION_LIVE_VIEW_FILTER_H

#include <string>
#include <vector>

#include "notification_bundle_option.h"
#include "notification_key.h"

namespace Tavi {
namespace Notification {

struct LiveViewFilter {
    NotificationBundleOption bundle;
    NotificationKey notificationKey;
    // Only these keys of the extra information are returned; an empty list returns all.
    std::vector<std::string> extraInfoKeys;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_LIVE_VIEW_FILTER_H
