#include "navigation_layout.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

NavigationLayout::NavigationLayout() : LayoutData(Kind::NAVIGATION) {}

NavigationLayout::NavigationLayout(const NavigationLayout& other)
    : LayoutData(other, Kind::NAVIGATION),
      currentNavigationIconStr_(other.currentNavigationIconStr_),
      currentNavigationIcon_(other.currentNavigationIcon_),
      navigationIconsStr_(other.navigationIconsStr_),
      navigationIcons_(other.navigationIcons_) {}

std::shared_ptr<std::string> NavigationLayout::GetCurrentNavigationIconStr() const {
    return currentNavigationIconStr_;
}

void NavigationLayout::SetCurrentNavigationIconStr(
    const std::shared_ptr<std::string>& currentNavigationIconStr) {
    currentNavigationIconStr_ = currentNavigationIconStr;
}

std::shared_ptr<Media::PixelMap> NavigationLayout::GetCurrentNavigationIcon() const {
    return currentNavigationIcon_;
}

void NavigationLayout::SetCurrentNavigationIcon(
    const std::shared_ptr<Media::PixelMap>& currentNavigationIcon) {
    currentNavigationIcon_ = currentNavigationIcon;
}

std::vector<std::string> NavigationLayout::GetNavigationIconsStr() const {
    return navigationIconsStr_;
}

void NavigationLayout::AddNavigationIconsStr(const std::string& navigationIconStr) {
    navigationIconsStr_.push_back(navigationIconStr);
}

void NavigationLayout::SetNavigationIconsStr(const std::vector<std::string>& navigationIconsStr) {
    navigationIconsStr_ = navigationIconsStr;
}

std::vector<std::shared_ptr<Media::PixelMap>> NavigationLayout::GetNavigationIcons() const {
    return navigationIcons_;
}

void NavigationLayout::AddNavigationIcons(const std::shared_ptr<Media::PixelMap>& navigationIcon) {
    navigationIcons_.push_back(navigationIcon);
}

void NavigationLayout::SetNavigationIcons(
    const std::vector<std::shared_ptr<Media::PixelMap>>& navigationIcons) {
    navigationIcons_ = navigationIcons;
}

std::shared_ptr<NavigationLayout> AsNavigationLayout(const std::shared_ptr<LayoutData>& layout) {
    if (layout == nullptr || layout->kind_ != LayoutData::Kind::NAVIGATION) {
        return nullptr;
    }
    return std::static_pointer_cast<NavigationLayout>(layout);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
