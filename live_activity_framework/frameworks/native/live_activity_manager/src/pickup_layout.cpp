#include "pickup_layout.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

PickupLayout::PickupLayout() : LayoutData(Kind::PICKUP) {}

PickupLayout::PickupLayout(const PickupLayout& other)
    : LayoutData(other, Kind::PICKUP),
      title_(other.title_),
      content_(other.content_),
      underlineColor_(other.underlineColor_),
      descPicStr_(other.descPicStr_),
      descPic_(other.descPic_) {}

std::shared_ptr<std::string> PickupLayout::GetTitle() const {
    return title_;
}

void PickupLayout::SetTitle(const std::shared_ptr<std::string>& title) {
    title_ = title;
}

std::shared_ptr<std::string> PickupLayout::GetContent() const {
    return content_;
}

void PickupLayout::SetContent(const std::shared_ptr<std::string>& content) {
    content_ = content;
}

std::shared_ptr<std::string> PickupLayout::GetUnderlineColor() const {
    return underlineColor_;
}

void PickupLayout::SetUnderlineColor(const std::shared_ptr<std::string>& underlineColor) {
    underlineColor_ = underlineColor;
}

std::shared_ptr<std::string> PickupLayout::GetDescPicStr() const {
    return descPicStr_;
}

void PickupLayout::SetDescPicStr(const std::shared_ptr<std::string>& descPicStr) {
    descPicStr_ = descPicStr;
}

std::shared_ptr<Media::PixelMap> PickupLayout::GetDescPic() const {
    return descPic_;
}

void PickupLayout::SetDescPic(const std::shared_ptr<Media::PixelMap>& descPic) {
    descPic_ = descPic;
}

std::shared_ptr<PickupLayout> AsPickupLayout(const std::shared_ptr<LayoutData>& layout) {
    if (layout == nullptr || layout->kind_ != LayoutData::Kind::PICKUP) {
        return nullptr;
    }
    return std::static_pointer_cast<PickupLayout>(layout);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
