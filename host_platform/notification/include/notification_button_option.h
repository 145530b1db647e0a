// Which button of a live view was pressed, as told to a local live view subscriber.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_BUTTON_OPTION_H
#define TAVI_NOTIFICATION_NOTIFICATION_BUTTON_OPTION_H

#include <string>

#include "refbase.h"

namespace Tavi {
namespace Notification {

class NotificationButtonOption : public RefBase {
public:
    NotificationButtonOption() = default;
    explicit NotificationButtonOption(const std::string& buttonName) : buttonName_(buttonName) {}

    void SetButtonName(const std::string& buttonName) { buttonName_ = buttonName; }
    std::string GetButtonName() const { return buttonName_; }

private:
    std::string buttonName_;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_BUTTON_OPTION_H
