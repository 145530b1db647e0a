#include "flight_layout.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

FlightLayout::FlightLayout() : LayoutData(Kind::FLIGHT) {}

FlightLayout::FlightLayout(const FlightLayout& other)
    : LayoutData(other, Kind::FLIGHT),
      firstTitle_(other.firstTitle_),
      firstContent_(other.firstContent_),
      lastTitle_(other.lastTitle_),
      lastContent_(other.lastContent_),
      spaceIconStr_(other.spaceIconStr_),
      spaceIcon_(other.spaceIcon_),
      isHorizontalLineDisplayed_(other.isHorizontalLineDisplayed_),
      additionalText_(other.additionalText_) {}

std::shared_ptr<std::string> FlightLayout::GetFirstTitle() const {
    return firstTitle_;
}

void FlightLayout::SetFirstTitle(const std::shared_ptr<std::string>& firstTitle) {
    firstTitle_ = firstTitle;
}

std::shared_ptr<std::string> FlightLayout::GetFirstContent() const {
    return firstContent_;
}

void FlightLayout::SetFirstContent(const std::shared_ptr<std::string>& firstContent) {
    firstContent_ = firstContent;
}

std::shared_ptr<std::string> FlightLayout::GetLastTitle() const {
    return lastTitle_;
}

void FlightLayout::SetLastTitle(const std::shared_ptr<std::string>& lastTitle) {
    lastTitle_ = lastTitle;
}

std::shared_ptr<std::string> FlightLayout::GetLastContent() const {
    return lastContent_;
}

void FlightLayout::SetLastContent(const std::shared_ptr<std::string>& lastContent) {
    lastContent_ = lastContent;
}

std::shared_ptr<std::string> FlightLayout::GetSpaceIconStr() const {
    return spaceIconStr_;
}

void FlightLayout::SetSpaceIconStr(const std::shared_ptr<std::string>& spaceIconStr) {
    spaceIconStr_ = spaceIconStr;
}

std::shared_ptr<Media::PixelMap> FlightLayout::GetSpaceIcon() const {
    return spaceIcon_;
}

void FlightLayout::SetSpaceIcon(const std::shared_ptr<Media::PixelMap>& spaceIcon) {
    spaceIcon_ = spaceIcon;
}

std::shared_ptr<bool> FlightLayout::GetIsHorizontalLineDisplayed() const {
    return isHorizontalLineDisplayed_;
}

void FlightLayout::SetIsHorizontalLineDisplayed(
    const std::shared_ptr<bool>& isHorizontalLineDisplayed) {
    isHorizontalLineDisplayed_ = isHorizontalLineDisplayed;
}

std::shared_ptr<std::string> FlightLayout::GetAdditionalText() const {
    return additionalText_;
}

void FlightLayout::SetAdditionalText(const std::shared_ptr<std::string>& additionalText) {
    additionalText_ = additionalText;
}

std::shared_ptr<FlightLayout> AsFlightLayout(const std::shared_ptr<LayoutData>& layout) {
    if (layout == nullptr || layout->kind_ != LayoutData::Kind::FLIGHT) {
        return nullptr;
    }
    return std::static_pointer_cast<FlightLayout>(layout);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
