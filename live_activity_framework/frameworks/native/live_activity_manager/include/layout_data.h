// LayoutData: the scenario-specific body of a live view's primary data, and the base of the five
// layout kinds (ProgressLayout, PickupLayout, FlightLayout, ScoreLayout, NavigationLayout).
//
// Kind safety: every layout object carries a private tag of its real class, set by its
// constructor and never changed afterwards. A copy constructed as a LayoutData (a sliced copy of
// a kind) is a plain LayoutData; copy assignment copies fields and keeps the target's tag. The tag
// is independent of the `layoutType` field, which is only the caller's claim of the kind. Take a
// layout as a kind only through AsProgressLayout, AsPickupLayout, AsFlightLayout, AsScoreLayout or
// AsNavigationLayout (declared in the kind's header), which answer an empty pointer when the
// object is not of that kind.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_LAYOUT_DATA_H
#define TAVI_WISP_LIVE_VIEW_LAYOUT_DATA_H

#include <cstdint>
#include <memory>

#include "live_view_base.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class ProgressLayout;
class PickupLayout;
class FlightLayout;
class ScoreLayout;
class NavigationLayout;

class LayoutData : public LiveViewBase {
public:
    // Any other value may be stored (through static_cast); validation decides what it accepts.
    enum LayoutType : int32_t {
        LAYOUT_TYPE_NONE = -1,  // not set; the type of a new layout
        PROGRESS = 3,           // ProgressLayout
        PICKUP = 4,             // PickupLayout
        FLIGHT = 5,             // FlightLayout
        BASIC = 6,              // a plain LayoutData: the kind has no fields of its own
        SCORE = 7,              // ScoreLayout
        NAVIGATION = 8,         // NavigationLayout
    };

    LayoutData();
    // Copies the fields; the result is a plain LayoutData whatever the real class of other.
    LayoutData(const LayoutData& other);
    // Copies the fields; this object keeps its own real class.
    LayoutData& operator=(const LayoutData& other);
    ~LayoutData() = default;

    LayoutType GetLayoutType() const;
    void SetLayoutType(const LayoutType& layoutType);

private:
    // The real class of the object.
    enum class Kind : int32_t { LAYOUT, PROGRESS, PICKUP, FLIGHT, SCORE, NAVIGATION };

    // Only the kind classes may claim a kind other than LAYOUT.
    explicit LayoutData(Kind kind);
    LayoutData(const LayoutData& other, Kind kind);

    friend class ProgressLayout;
    friend class PickupLayout;
    friend class FlightLayout;
    friend class ScoreLayout;
    friend class NavigationLayout;
    friend std::shared_ptr<ProgressLayout> AsProgressLayout(
        const std::shared_ptr<LayoutData>& layout);
    friend std::shared_ptr<PickupLayout> AsPickupLayout(const std::shared_ptr<LayoutData>& layout);
    friend std::shared_ptr<FlightLayout> AsFlightLayout(const std::shared_ptr<LayoutData>& layout);
    friend std::shared_ptr<ScoreLayout> AsScoreLayout(const std::shared_ptr<LayoutData>& layout);
    friend std::shared_ptr<NavigationLayout> AsNavigationLayout(
        const std::shared_ptr<LayoutData>& layout);

    LayoutType layoutType_ = LAYOUT_TYPE_NONE;
    Kind kind_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_LAYOUT_DATA_H
