// FlightLayout: a layout of a journey card: departure and arrival title and text, a picture
// between the two ends and an additional text.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given. The picture is given either as a resource string
// (spaceIconStr) or as a pixel map (spaceIcon). A new FlightLayout has layout type
// LAYOUT_TYPE_NONE like every layout; whoever makes it sets the type to FLIGHT.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_FLIGHT_LAYOUT_H
#define TAVI_WISP_LIVE_VIEW_FLIGHT_LAYOUT_H

#include <memory>
#include <string>

#include "layout_data.h"
#include "pixel_map.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class FlightLayout : public LayoutData {
public:
    FlightLayout();
    FlightLayout(const FlightLayout& other);
    FlightLayout& operator=(const FlightLayout& other) = default;
    ~FlightLayout() = default;

    // The departure end.
    std::shared_ptr<std::string> GetFirstTitle() const;
    void SetFirstTitle(const std::shared_ptr<std::string>& firstTitle);
    std::shared_ptr<std::string> GetFirstContent() const;
    void SetFirstContent(const std::shared_ptr<std::string>& firstContent);

    // The arrival end.
    std::shared_ptr<std::string> GetLastTitle() const;
    void SetLastTitle(const std::shared_ptr<std::string>& lastTitle);
    std::shared_ptr<std::string> GetLastContent() const;
    void SetLastContent(const std::shared_ptr<std::string>& lastContent);

    std::shared_ptr<std::string> GetSpaceIconStr() const;
    void SetSpaceIconStr(const std::shared_ptr<std::string>& spaceIconStr);
    std::shared_ptr<Media::PixelMap> GetSpaceIcon() const;
    void SetSpaceIcon(const std::shared_ptr<Media::PixelMap>& spaceIcon);

    std::shared_ptr<bool> GetIsHorizontalLineDisplayed() const;
    void SetIsHorizontalLineDisplayed(const std::shared_ptr<bool>& isHorizontalLineDisplayed);

    std::shared_ptr<std::string> GetAdditionalText() const;
    void SetAdditionalText(const std::shared_ptr<std::string>& additionalText);

private:
    std::shared_ptr<std::string> firstTitle_;
    std::shared_ptr<std::string> firstContent_;
    std::shared_ptr<std::string> lastTitle_;
    std::shared_ptr<std::string> lastContent_;
    std::shared_ptr<std::string> spaceIconStr_;
    std::shared_ptr<Media::PixelMap> spaceIcon_;
    std::shared_ptr<bool> isHorizontalLineDisplayed_;
    std::shared_ptr<std::string> additionalText_;
};

// The same object as a FlightLayout (sharing ownership with layout) when its real class is
// FlightLayout or derives from it; an empty pointer when layout is empty or of another class,
// whatever its layout type says.
std::shared_ptr<FlightLayout> AsFlightLayout(const std::shared_ptr<LayoutData>& layout);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_FLIGHT_LAYOUT_H
