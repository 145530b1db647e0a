// The base of every kind of notification content: what all kinds share.
//
// Thread safety: none; a content is built by one thread, then handed over.
#ifndef TAVI_NOTIFICATION_NOTIFICATION_BASIC_CONTENT_H
#define TAVI_NOTIFICATION_NOTIFICATION_BASIC_CONTENT_H

#include <memory>
#include <string>

#include "pixel_map.h"

namespace Tavi {
namespace Notification {

class NotificationBasicContent {
public:
    virtual ~NotificationBasicContent() = default;

    virtual void SetTitle(const std::string& title) { title_ = title; }
    virtual std::string GetTitle() const { return title_; }
    virtual void SetText(const std::string& text) { text_ = text; }
    virtual std::string GetText() const { return text_; }
    // The one picture of the content shown when it is displayed full screen; may be null.
    virtual void SetSinglePicture(const std::shared_ptr<Media::PixelMap>& picture) {
        picture_ = picture;
    }
    virtual std::shared_ptr<Media::PixelMap> GetSinglePicture() const { return picture_; }

    // A copy that shares nothing mutable with this content (pictures are copied too).
    virtual std::shared_ptr<NotificationBasicContent> Clone() const = 0;

protected:
    NotificationBasicContent() = default;
    NotificationBasicContent(const NotificationBasicContent& other);
    NotificationBasicContent& operator=(const NotificationBasicContent&) = default;

private:
    std::string title_;
    std::string text_;
    std::shared_ptr<Media::PixelMap> picture_;
};

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_NOTIFICATION_BASIC_CONTENT_H
