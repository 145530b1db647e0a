#include "notification_action_button.h"

namespace Tavi {
namespace Notification {

std::shared_ptr<NotificationActionButton> NotificationActionButton::Create(
    const std::shared_ptr<Media::PixelMap>& icon, const std::string& title,
    const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& wantAgent,
    const std::shared_ptr<AAFwk::WantParams>& extras, ActionButton semanticActionButton,
    bool autoCreatedReplies,
    const std::vector<std::shared_ptr<NotificationUserInput>>& mimeTypeOnlyInputs,
    const std::shared_ptr<NotificationUserInput>& userInput, bool isContextDependent) {
    std::shared_ptr<NotificationActionButton> button(new NotificationActionButton());
    button->icon_ = icon;
    button->title_ = title;
    button->wantAgent_ = wantAgent;
    button->extras_ = extras;
    button->semantic_ = semanticActionButton;
    button->autoCreatedReplies_ = autoCreatedReplies;
    button->mimeTypeOnlyInputs_ = mimeTypeOnlyInputs;
    button->userInput_ = userInput;
    button->isContextDependent_ = isContextDependent;
    return button;
}

}  // namespace Notification
}  // namespace Tavi
