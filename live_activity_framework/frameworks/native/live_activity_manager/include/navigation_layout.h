// NavigationLayout: a layout of turn-by-turn navigation (or a workout): the picture of the
// current step and the pictures of the steps to come.
//
// Getters return a copy of the field's pointer (sharing the pointee) or a copy of the list;
// setters replace the pointer or the list; an empty pointer means the field was not given. A
// picture is given either as a resource string (the ...Str field) or as a pixel map. A new
// NavigationLayout has layout type LAYOUT_TYPE_NONE like every layout; whoever makes it sets the
// type to NAVIGATION.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_NAVIGATION_LAYOUT_H
#define TAVI_WISP_LIVE_VIEW_NAVIGATION_LAYOUT_H

#include <memory>
#include <string>
#include <vector>

#include "layout_data.h"
#include "pixel_map.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class NavigationLayout : public LayoutData {
public:
    NavigationLayout();
    NavigationLayout(const NavigationLayout& other);
    NavigationLayout& operator=(const NavigationLayout& other) = default;
    ~NavigationLayout() = default;

    std::shared_ptr<std::string> GetCurrentNavigationIconStr() const;
    void SetCurrentNavigationIconStr(const std::shared_ptr<std::string>& currentNavigationIconStr);
    std::shared_ptr<Media::PixelMap> GetCurrentNavigationIcon() const;
    void SetCurrentNavigationIcon(const std::shared_ptr<Media::PixelMap>& currentNavigationIcon);

    std::vector<std::string> GetNavigationIconsStr() const;
    void AddNavigationIconsStr(const std::string& navigationIconStr);
    void SetNavigationIconsStr(const std::vector<std::string>& navigationIconsStr);

    // Elements may be empty pointers; validation rejects them.
    std::vector<std::shared_ptr<Media::PixelMap>> GetNavigationIcons() const;
    void AddNavigationIcons(const std::shared_ptr<Media::PixelMap>& navigationIcon);
    void SetNavigationIcons(const std::vector<std::shared_ptr<Media::PixelMap>>& navigationIcons);

private:
    std::shared_ptr<std::string> currentNavigationIconStr_;
    std::shared_ptr<Media::PixelMap> currentNavigationIcon_;
    std::vector<std::string> navigationIconsStr_;
    std::vector<std::shared_ptr<Media::PixelMap>> navigationIcons_;
};

// The same object as a NavigationLayout (sharing ownership with layout) when its real class is
// NavigationLayout or derives from it; an empty pointer when layout is empty or of another class,
// whatever its layout type says.
std::shared_ptr<NavigationLayout> AsNavigationLayout(const std::shared_ptr<LayoutData>& layout);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_NAVIGATION_LAYOUT_H
