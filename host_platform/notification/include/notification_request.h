// A notification request: what an application asks the notification service to show, and what
// the service hands back when asked for an active notification.
//
// Thread safety: none; a request is built by one thread, then handed over.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_REQUEST_H
#define TAVI_NOTIFICATION_NOTIFICATION_REQUEST_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "notification_action_button.h"
#include "notification_constant.h"
#include "notification_content.h"
#include "refbase.h"
#include "want_agent.h"

namespace Tavi {
namespace Notification {

class NotificationRequest : public RefBase {
public:
    // The auto-deleted time that means "not set".
    static constexpr int64_t DEFAULT_AUTO_DELETED_TIME = -1;

    NotificationRequest() = default;
    explicit NotificationRequest(int32_t notificationId) : notificationId_(notificationId) {}
    ~NotificationRequest() override = default;

    void SetNotificationId(int32_t notificationId) { notificationId_ = notificationId; }
    int32_t GetNotificationId() const { return notificationId_; }
    void SetSlotType(NotificationConstant::SlotType slotType) { slotType_ = slotType; }
    NotificationConstant::SlotType GetSlotType() const { return slotType_; }
    void SetInProgress(bool inProgress) { inProgress_ = inProgress; }
    bool IsInProgress() const { return inProgress_; }
    // Seconds an ended notification stays before the service removes it.
    void SetAutoDeletedTime(int64_t autoDeletedTime) { autoDeletedTime_ = autoDeletedTime; }
    int64_t GetAutoDeletedTime() const { return autoDeletedTime_; }
    // What a tap on the notification starts; may be null.
    void SetWantAgent(const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& wantAgent) {
        wantAgent_ = wantAgent;
    }
    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> GetWantAgent() const {
        return wantAgent_;
    }
    // Shared with the caller; may be null.
    void SetContent(const std::shared_ptr<NotificationContent>& content) { content_ = content; }
    std::shared_ptr<NotificationContent> GetContent() const { return content_; }
    // A null button is ignored.
    void AddActionButton(const std::shared_ptr<NotificationActionButton>& button);
    std::vector<std::shared_ptr<NotificationActionButton>> GetActionButtons() const {
        return actionButtons_;
    }
    void ClearActionButtons() { actionButtons_.clear(); }
    // True when the request's buttons replace whatever the notification showed before.
    void SetIsCoverActionButtons(bool isCover) { isCoverActionButtons_ = isCover; }
    bool IsCoverActionButtons() const { return isCoverActionButtons_; }

    // Set by the service on the requests it hands back: the owner of the notification.
    void SetOwnerBundleName(const std::string& bundleName) { ownerBundleName_ = bundleName; }
    std::string GetOwnerBundleName() const { return ownerBundleName_; }
    void SetOwnerUid(int32_t uid) { ownerUid_ = uid; }
    int32_t GetOwnerUid() const { return ownerUid_; }

    // A copy that shares nothing mutable with this request: content, extra information and
    // pictures are copied, buttons and actions (immutable) are shared.
    sptr<NotificationRequest> Clone() const;

private:
    int32_t notificationId_ = 0;
    NotificationConstant::SlotType slotType_ = NotificationConstant::OTHER;
    bool inProgress_ = false;
    int64_t autoDeletedTime_ = DEFAULT_AUTO_DELETED_TIME;
    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> wantAgent_;
    std::shared_ptr<NotificationContent> content_;
    std::vector<std::shared_ptr<NotificationActionButton>> actionButtons_;
    bool isCoverActionButtons_ = false;
    std::string ownerBundleName_;
    int32_t ownerUid_ = -1;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_REQUEST_H
