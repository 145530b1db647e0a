// Names an application to the notification service: its bundle name and uid.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_BUNDLE_OPTION_H
#define TAVI_NOTIFICATION_NOTIFICATION_BUNDLE_OPTION_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace Notification {

class NotificationBundleOption {
public:
    NotificationBundleOption() = default;
    NotificationBundleOption(const std::string& bundleName, int32_t uid)
        : bundleName_(bundleName), uid_(uid) {}
    virtual ~NotificationBundleOption() = default;

    void SetBundleName(const std::string& bundleName) { bundleName_ = bundleName; }
    std::string GetBundleName() const { return bundleName_; }
    void SetUid(int32_t uid) { uid_ = uid; }
    int32_t GetUid() const { return uid_; }

private:
    std::string bundleName_;
    int32_t uid_ = -1;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_BUNDLE_OPTION_H
