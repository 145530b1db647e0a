#include "notification_content.h"

#include "notification_basic_content.h"
#include "notification_live_view_content.h"

namespace Tavi {
namespace Notification {

namespace {
std::shared_ptr<Media::PixelMap> CopyPicture(const std::shared_ptr<Media::PixelMap>& picture) {
    return picture == nullptr ? nullptr : std::make_shared<Media::PixelMap>(*picture);
}
}  // namespace

NotificationBasicContent::NotificationBasicContent(const NotificationBasicContent& other)
    : title_(other.title_), text_(other.text_), picture_(CopyPicture(other.picture_)) {}

std::shared_ptr<NotificationBasicContent> NotificationLiveViewContent::Clone() const {
    auto copy = std::make_shared<NotificationLiveViewContent>(*this);
    if (extraInfo_ != nullptr) {
        copy->extraInfo_ = std::make_shared<AAFwk::WantParams>(*extraInfo_);
    }
    for (auto& entry : copy->pictureMap_) {
        for (auto& picture : entry.second) {
            picture = CopyPicture(picture);
        }
    }
    return copy;
}

NotificationContent::NotificationContent(
    const std::shared_ptr<NotificationLiveViewContent>& liveViewContent)
    : type_(liveViewContent == nullptr ? Type::NONE : Type::LIVE_VIEW), content_(liveViewContent) {}

}  // namespace Notification
}  // namespace Tavi
