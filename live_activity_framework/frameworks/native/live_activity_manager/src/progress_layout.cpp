#include "progress_layout.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

ProgressLayout::ProgressLayout() : LayoutData(Kind::PROGRESS) {}

ProgressLayout::ProgressLayout(const ProgressLayout& other)
    : LayoutData(other, Kind::PROGRESS),
      progress_(other.progress_),
      color_(other.color_),
      backgroundColor_(other.backgroundColor_),
      indicatorType_(other.indicatorType_),
      indicatorIconStr_(other.indicatorIconStr_),
      indicatorIcon_(other.indicatorIcon_),
      lineType_(other.lineType_),
      nodeIconsStr_(other.nodeIconsStr_),
      nodeIcons_(other.nodeIcons_) {}

std::shared_ptr<int> ProgressLayout::GetProgress() const {
    return progress_;
}

void ProgressLayout::SetProgress(const std::shared_ptr<int>& progress) {
    progress_ = progress;
}

std::shared_ptr<std::string> ProgressLayout::GetColor() const {
    return color_;
}

void ProgressLayout::SetColor(const std::shared_ptr<std::string>& color) {
    color_ = color;
}

std::shared_ptr<std::string> ProgressLayout::GetBackgroundColor() const {
    return backgroundColor_;
}

void ProgressLayout::SetBackgroundColor(const std::shared_ptr<std::string>& backgroundColor) {
    backgroundColor_ = backgroundColor;
}

std::shared_ptr<int> ProgressLayout::GetIndicatorType() const {
    return indicatorType_;
}

void ProgressLayout::SetIndicatorType(const std::shared_ptr<int>& indicatorType) {
    indicatorType_ = indicatorType;
}

std::shared_ptr<std::string> ProgressLayout::GetIndicatorIconStr() const {
    return indicatorIconStr_;
}

void ProgressLayout::SetIndicatorIconStr(const std::shared_ptr<std::string>& indicatorIconStr) {
    indicatorIconStr_ = indicatorIconStr;
}

std::shared_ptr<Media::PixelMap> ProgressLayout::GetIndicatorIcon() const {
    return indicatorIcon_;
}

void ProgressLayout::SetIndicatorIcon(const std::shared_ptr<Media::PixelMap>& indicatorIcon) {
    indicatorIcon_ = indicatorIcon;
}

std::shared_ptr<int> ProgressLayout::GetLineType() const {
    return lineType_;
}

void ProgressLayout::SetLineType(const std::shared_ptr<int>& lineType) {
    lineType_ = lineType;
}

std::vector<std::string> ProgressLayout::GetNodeIconsStr() const {
    return nodeIconsStr_;
}

void ProgressLayout::AddNodeIconsStr(const std::string& nodeIconStr) {
    nodeIconsStr_.push_back(nodeIconStr);
}

void ProgressLayout::SetNodeIconsStr(const std::vector<std::string>& nodeIconsStr) {
    nodeIconsStr_ = nodeIconsStr;
}

std::vector<std::shared_ptr<Media::PixelMap>> ProgressLayout::GetNodeIcons() const {
    return nodeIcons_;
}

void ProgressLayout::AddNodeIcons(const std::shared_ptr<Media::PixelMap>& nodeIcon) {
    nodeIcons_.push_back(nodeIcon);
}

void ProgressLayout::SetNodeIcons(const std::vector<std::shared_ptr<Media::PixelMap>>& nodeIcons) {
    nodeIcons_ = nodeIcons;
}

std::shared_ptr<ProgressLayout> AsProgressLayout(const std::shared_ptr<LayoutData>& layout) {
    if (layout == nullptr || layout->kind_ != LayoutData::Kind::PROGRESS) {
        return nullptr;
    }
    return std::static_pointer_cast<ProgressLayout>(layout);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
