// A button shown with a notification, and what a press on it starts.
//
// Thread safety: immutable after Create.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_ACTION_BUTTON_H
#define TAVI_NOTIFICATION_NOTIFICATION_ACTION_BUTTON_H

#include <memory>
#include <string>
#include <vector>

#include "pixel_map.h"
#include "want_agent.h"
#include "want_params.h"

namespace Tavi {
namespace Notification {

// A free-text or choice input that a button may ask for.
class NotificationUserInput {
public:
    explicit NotificationUserInput(std::string inputKey = "") : inputKey_(std::move(inputKey)) {}
    const std::string& GetInputKey() const { return inputKey_; }

private:
    std::string inputKey_;
};

class NotificationActionButton {
public:
    enum class ActionButton : int {
        NONE_ACTION_BUTTON = 0,
        REPLY_ACTION_BUTTON = 1,
        READ_ACTION_BUTTON = 2,
    };

    // Every pointer may be null. Returns a new button (never null).
    static std::shared_ptr<NotificationActionButton> Create(
        const std::shared_ptr<Media::PixelMap>& icon, const std::string& title,
        const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& wantAgent,
        const std::shared_ptr<AAFwk::WantParams>& extras = {},
        ActionButton semanticActionButton = ActionButton::NONE_ACTION_BUTTON,
        bool autoCreatedReplies = true,
        const std::vector<std::shared_ptr<NotificationUserInput>>& mimeTypeOnlyInputs = {},
        const std::shared_ptr<NotificationUserInput>& userInput = {},
        bool isContextDependent = false);

    std::shared_ptr<Media::PixelMap> GetIcon() const { return icon_; }
    std::string GetTitle() const { return title_; }
    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> GetWantAgent() const {
        return wantAgent_;
    }
    std::shared_ptr<AAFwk::WantParams> GetAdditionalData() const { return extras_; }
    ActionButton GetSemanticActionButton() const { return semantic_; }
    bool IsAutoCreatedReplies() const { return autoCreatedReplies_; }
    std::vector<std::shared_ptr<NotificationUserInput>> GetMimeTypeOnlyUserInputs() const {
        return mimeTypeOnlyInputs_;
    }
    std::shared_ptr<NotificationUserInput> GetUserInput() const { return userInput_; }
    bool IsContextDependent() const { return isContextDependent_; }

private:
    NotificationActionButton() = default;

    std::shared_ptr<Media::PixelMap> icon_;
    std::string title_;
    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> wantAgent_;
    std::shared_ptr<AAFwk::WantParams> extras_;
    ActionButton semantic_ = ActionButton::NONE_ACTION_BUTTON;
    bool autoCreatedReplies_ = true;
    std::vector<std::shared_ptr<NotificationUserInput>> mimeTypeOnlyInputs_;
    std::shared_ptr<NotificationUserInput> userInput_;
    bool isContextDependent_ = false;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_ACTION_BUTTON_H
