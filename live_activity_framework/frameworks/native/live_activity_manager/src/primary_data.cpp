#include "primary_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<std::string> PrimaryData::GetTitle() const {
    return title_;
}

void PrimaryData::SetTitle(const std::shared_ptr<std::string>& title) {
    title_ = title;
}

std::vector<std::shared_ptr<RichText>> PrimaryData::GetContent() const {
    return content_;
}

void PrimaryData::SetContent(const std::vector<std::shared_ptr<RichText>>& content) {
    content_ = content;
}

void PrimaryData::AddContent(const std::shared_ptr<RichText>& content) {
    if (content != nullptr) {
        content_.push_back(content);
    }
}

std::shared_ptr<int> PrimaryData::GetKeepTime() const {
    return keepTime_;
}

void PrimaryData::SetKeepTime(const std::shared_ptr<int>& keepTime) {
    keepTime_ = keepTime;
}

std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> PrimaryData::GetClickAction() const {
    return clickAction_;
}

void PrimaryData::SetClickAction(
    const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& clickAction) {
    clickAction_ = clickAction;
}

std::shared_ptr<std::string> PrimaryData::GetImmersivePicStr() const {
    return immersivePicStr_;
}

void PrimaryData::SetImmersivePicStr(const std::shared_ptr<std::string>& immersivePicStr) {
    immersivePicStr_ = immersivePicStr;
}

std::shared_ptr<Media::PixelMap> PrimaryData::GetImmersivePic() const {
    return immersivePic_;
}

void PrimaryData::SetImmersivePic(const std::shared_ptr<Media::PixelMap>& immersivePic) {
    immersivePic_ = immersivePic;
}

std::shared_ptr<std::string> PrimaryData::GetImmersiveAbilityName() const {
    return immersiveAbilityName_;
}

void PrimaryData::SetImmersiveAbilityName(
    const std::shared_ptr<std::string>& immersiveAbilityName) {
    immersiveAbilityName_ = immersiveAbilityName;
}

std::shared_ptr<AAFwk::WantParams> PrimaryData::GetImmersiveParameters() const {
    return immersiveParameters_;
}

void PrimaryData::SetImmersiveParameters(
    const std::shared_ptr<AAFwk::WantParams>& immersiveParameters) {
    immersiveParameters_ = immersiveParameters;
}

std::shared_ptr<ExtensionData> PrimaryData::GetExtensionData() const {
    return extensionData_;
}

void PrimaryData::SetExtensionData(const std::shared_ptr<ExtensionData>& extensionData) {
    extensionData_ = extensionData;
}

std::shared_ptr<LayoutData> PrimaryData::GetLayoutData() const {
    return layoutData_;
}

void PrimaryData::SetLayoutData(const std::shared_ptr<LayoutData>& layoutData) {
    layoutData_ = layoutData;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
