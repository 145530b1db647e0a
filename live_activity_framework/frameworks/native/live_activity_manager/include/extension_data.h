// ExtensionData: one extra element shown with a live view (a text or a picture) and the action
// that a tap on it starts.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_EXTENSION_DATA_H
#define TAVI_WISP_LIVE_VIEW_EXTENSION_DATA_H

#include <cstdint>
#include <memory>
#include <string>

#include "live_view_base.h"
#include "pixel_map.h"
#include "want_agent.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class ExtensionData : public LiveViewBase {
public:
    // The valid values are 0 to 4; any other value, EXTENSION_TYPE_NONE included, is carried as
    // given and rejected by validation. The two values of each pair require the same fields.
    enum ExtensionType : int32_t {
        EXTENSION_TYPE_NONE = -1,      // not set; the type of a new record
        EXTENSION_TYPE_BLANK = 0,      // requires neither text nor picture
        EXTENSION_TYPE_TEXT_1 = 1,     // requires the text
        EXTENSION_TYPE_TEXT_2 = 2,     // requires the text
        EXTENSION_TYPE_PICTURE_1 = 3,  // requires picStr or pic
        EXTENSION_TYPE_PICTURE_2 = 4,  // requires picStr or pic
    };

    std::shared_ptr<std::string> GetText() const;
    void SetText(const std::shared_ptr<std::string>& text);

    ExtensionType GetType() const;
    void SetType(const ExtensionType& type);

    // The picture as a resource string; when both forms are given, both are kept.
    std::shared_ptr<std::string> GetPicStr() const;
    void SetPicStr(const std::shared_ptr<std::string>& picStr);

    std::shared_ptr<Media::PixelMap> GetPic() const;
    void SetPic(const std::shared_ptr<Media::PixelMap>& pic);

    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> GetClickAction() const;
    void SetClickAction(const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& clickAction);

    // Whether the element's action replaces the request's own action buttons; false at first.
    bool GetIsCoverClickAction() const;
    void SetIsCoverClickAction(const bool& isCoverClickAction);

private:
    std::shared_ptr<std::string> text_;
    ExtensionType type_ = EXTENSION_TYPE_NONE;
    std::shared_ptr<std::string> picStr_;
    std::shared_ptr<Media::PixelMap> pic_;
    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> clickAction_;
    bool isCoverClickAction_ = false;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_EXTENSION_DATA_H
