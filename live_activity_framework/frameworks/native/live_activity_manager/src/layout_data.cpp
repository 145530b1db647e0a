#include "layout_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

LayoutData::LayoutData() : kind_(Kind::LAYOUT) {}

LayoutData::LayoutData(Kind kind) : kind_(kind) {}

LayoutData::LayoutData(const LayoutData& other) : LayoutData(other, Kind::LAYOUT) {}

LayoutData::LayoutData(const LayoutData& other, Kind kind)
    : LiveViewBase(other), layoutType_(other.layoutType_), kind_(kind) {}

LayoutData& LayoutData::operator=(const LayoutData& other) {
    LiveViewBase::operator=(other);
    layoutType_ = other.layoutType_;
    return *this;
}

LayoutData::LayoutType LayoutData::GetLayoutType() const {
    return layoutType_;
}

void LayoutData::SetLayoutType(const LayoutData::LayoutType& layoutType) {
    layoutType_ = layoutType;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
