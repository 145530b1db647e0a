// The content of a live view notification: its status (create, update, end), a version that
// orders its states, an extra-information map and a map of pictures.
//
// Thread safety: none; a content is built by one thread, then handed over.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_LIVE_VIEW_CONTENT_H
#define TAVI_NOTIFICATION_NOTIFICATION_LIVE_VIEW_CONTENT_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "notification_basic_content.h"
#include "pixel_map.h"
#include "want_params.h"

namespace Tavi {
namespace Notification {

class NotificationLiveViewContent : public NotificationBasicContent {
public:
    using PictureMap = std::map<std::string, std::vector<std::shared_ptr<Media::PixelMap>>>;

    enum class LiveViewStatus : int32_t {
        LIVE_VIEW_CREATE = 0,
        LIVE_VIEW_INCREMENTAL_UPDATE = 1,
        LIVE_VIEW_END = 2,
        LIVE_VIEW_FULL_UPDATE = 3,
    };

    // The version that means "no version set".
    static constexpr uint32_t MAX_VERSION = 0xFFFFFFFF;

    NotificationLiveViewContent() = default;
    ~NotificationLiveViewContent() override = default;

    void SetLiveViewStatus(const LiveViewStatus status) { status_ = status; }
    LiveViewStatus GetLiveViewStatus() const { return status_; }
    void SetVersion(uint32_t version) { version_ = version; }
    // MAX_VERSION when no version was set.
    uint32_t GetVersion() const { return version_; }
    // Shared with the caller; may be null.
    void SetExtraInfo(const std::shared_ptr<AAFwk::WantParams>& extraInfo) {
        extraInfo_ = extraInfo;
    }
    std::shared_ptr<AAFwk::WantParams> GetExtraInfo() const { return extraInfo_; }
    void SetPicture(const PictureMap& pictureMap) { pictureMap_ = pictureMap; }
    // Takes the map over instead of copying it.
    void SetPicture(PictureMap&& pictureMap) { pictureMap_ = std::move(pictureMap); }
    PictureMap GetPicture() const { return pictureMap_; }
    // True when the live view is updated by the device itself and a subscriber hears of it.
    void SetIsOnlyLocalUpdate(bool isOnlyLocalUpdate) { isOnlyLocalUpdate_ = isOnlyLocalUpdate; }
    bool GetIsOnlyLocalUpdate() const { return isOnlyLocalUpdate_; }

    std::shared_ptr<NotificationBasicContent> Clone() const override;

private:
    LiveViewStatus status_ = LiveViewStatus::LIVE_VIEW_CREATE;
    uint32_t version_ = MAX_VERSION;
    std::shared_ptr<AAFwk::WantParams> extraInfo_;
    PictureMap pictureMap_;
    bool isOnlyLocalUpdate_ = false;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_LIVE_VIEW_CONTENT_H
