// ProgressLayout: a layout of a progress bar with an indicator and nodes along the line.
//
// Getters return a copy of the field's pointer (sharing the pointee) or a copy of the list;
// setters replace the pointer or the list; an empty pointer means the field was not given. A
// picture is given either as a resource string (the ...Str field) or as a pixel map. A new
// ProgressLayout has layout type LAYOUT_TYPE_NONE like every layout; whoever makes it sets the
// type to PROGRESS.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_PROGRESS_LAYOUT_H
#define TAVI_WISP_LIVE_VIEW_PROGRESS_LAYOUT_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "layout_data.h"
#include "pixel_map.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class ProgressLayout : public LayoutData {
public:
    // The valid indicator types. Types 1 and 2 need an indicator icon on start; the way each type
    // is drawn belongs to the platform.
    enum IndicatorType : int32_t {
        INDICATOR_TYPE_PLAIN = 0,
        INDICATOR_TYPE_ICON_1 = 1,
        INDICATOR_TYPE_ICON_2 = 2,
    };
    // The valid line types; the way each is drawn belongs to the platform.
    enum LineType : int32_t {
        LINE_TYPE_0 = 0,
        LINE_TYPE_1 = 1,
        LINE_TYPE_2 = 2,
    };

    ProgressLayout();
    ProgressLayout(const ProgressLayout& other);
    ProgressLayout& operator=(const ProgressLayout& other) = default;
    ~ProgressLayout() = default;

    std::shared_ptr<int> GetProgress() const;
    void SetProgress(const std::shared_ptr<int>& progress);

    // Colour texts of the bar and of its background, "#" and eight hexadecimal ARGB digits.
    std::shared_ptr<std::string> GetColor() const;
    void SetColor(const std::shared_ptr<std::string>& color);
    std::shared_ptr<std::string> GetBackgroundColor() const;
    void SetBackgroundColor(const std::shared_ptr<std::string>& backgroundColor);

    // An IndicatorType value, or any other value as given (validation rejects it).
    std::shared_ptr<int> GetIndicatorType() const;
    void SetIndicatorType(const std::shared_ptr<int>& indicatorType);

    std::shared_ptr<std::string> GetIndicatorIconStr() const;
    void SetIndicatorIconStr(const std::shared_ptr<std::string>& indicatorIconStr);
    std::shared_ptr<Media::PixelMap> GetIndicatorIcon() const;
    void SetIndicatorIcon(const std::shared_ptr<Media::PixelMap>& indicatorIcon);

    // A LineType value, or any other value as given (validation rejects it).
    std::shared_ptr<int> GetLineType() const;
    void SetLineType(const std::shared_ptr<int>& lineType);

    std::vector<std::string> GetNodeIconsStr() const;
    void AddNodeIconsStr(const std::string& nodeIconStr);
    void SetNodeIconsStr(const std::vector<std::string>& nodeIconsStr);

    // Elements may be empty pointers; validation rejects them.
    std::vector<std::shared_ptr<Media::PixelMap>> GetNodeIcons() const;
    void AddNodeIcons(const std::shared_ptr<Media::PixelMap>& nodeIcon);
    void SetNodeIcons(const std::vector<std::shared_ptr<Media::PixelMap>>& nodeIcons);

private:
    std::shared_ptr<int> progress_;
    std::shared_ptr<std::string> color_;
    std::shared_ptr<std::string> backgroundColor_;
    std::shared_ptr<int> indicatorType_;
    std::shared_ptr<std::string> indicatorIconStr_;
    std::shared_ptr<Media::PixelMap> indicatorIcon_;
    std::shared_ptr<int> lineType_;
    std::vector<std::string> nodeIconsStr_;
    std::vector<std::shared_ptr<Media::PixelMap>> nodeIcons_;
};

// The same object as a ProgressLayout (sharing ownership with layout) when its real class is
// ProgressLayout or derives from it; an empty pointer when layout is empty or of another class,
// whatever its layout type says.
std::shared_ptr<ProgressLayout> AsProgressLayout(const std::shared_ptr<LayoutData>& layout);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_PROGRESS_LAYOUT_H
