// PickupLayout: a layout of a pickup card (a ride or an order to collect): title, text, an
// underline colour and a descriptive picture.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given. The picture is given either as a resource string
// (descPicStr) or as a pixel map (descPic). A new PickupLayout has layout type LAYOUT_TYPE_NONE
// like every layout; whoever makes it sets the type to PICKUP.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_PICKUP_LAYOUT_H
#define TAVI_WISP_LIVE_VIEW_PICKUP_LAYOUT_H

#include <memory>
#include <string>

#include "layout_data.h"
#include "pixel_map.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class PickupLayout : public LayoutData {
public:
    PickupLayout();
    PickupLayout(const PickupLayout& other);
    PickupLayout& operator=(const PickupLayout& other) = default;
    ~PickupLayout() = default;

    std::shared_ptr<std::string> GetTitle() const;
    void SetTitle(const std::shared_ptr<std::string>& title);

    std::shared_ptr<std::string> GetContent() const;
    void SetContent(const std::shared_ptr<std::string>& content);

    // "#" and eight hexadecimal ARGB digits; checked by validation only.
    std::shared_ptr<std::string> GetUnderlineColor() const;
    void SetUnderlineColor(const std::shared_ptr<std::string>& underlineColor);

    std::shared_ptr<std::string> GetDescPicStr() const;
    void SetDescPicStr(const std::shared_ptr<std::string>& descPicStr);
    std::shared_ptr<Media::PixelMap> GetDescPic() const;
    void SetDescPic(const std::shared_ptr<Media::PixelMap>& descPic);

private:
    std::shared_ptr<std::string> title_;
    std::shared_ptr<std::string> content_;
    std::shared_ptr<std::string> underlineColor_;
    std::shared_ptr<std::string> descPicStr_;
    std::shared_ptr<Media::PixelMap> descPic_;
};

// The same object as a PickupLayout (sharing ownership with layout) when its real class is
// PickupLayout or derives from it; an empty pointer when layout is empty or of another class,
// whatever its layout type says.
std::shared_ptr<PickupLayout> AsPickupLayout(const std::shared_ptr<LayoutData>& layout);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_PICKUP_LAYOUT_H
