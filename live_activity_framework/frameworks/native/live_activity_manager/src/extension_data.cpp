#include "extension_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<std::string> ExtensionData::GetText() const {
    return text_;
}

void ExtensionData::SetText(const std::shared_ptr<std::string>& text) {
    text_ = text;
}

ExtensionData::ExtensionType ExtensionData::GetType() const {
    return type_;
}

void ExtensionData::SetType(const ExtensionData::ExtensionType& type) {
    type_ = type;
}

std::shared_ptr<std::string> ExtensionData::GetPicStr() const {
    return picStr_;
}

void ExtensionData::SetPicStr(const std::shared_ptr<std::string>& picStr) {
    picStr_ = picStr;
}

std::shared_ptr<Media::PixelMap> ExtensionData::GetPic() const {
    return pic_;
}

void ExtensionData::SetPic(const std::shared_ptr<Media::PixelMap>& pic) {
    pic_ = pic;
}

std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> ExtensionData::GetClickAction() const {
    return clickAction_;
}

void ExtensionData::SetClickAction(
    const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& clickAction) {
    clickAction_ = clickAction;
}

bool ExtensionData::GetIsCoverClickAction() const {
    return isCoverClickAction_;
}

void ExtensionData::SetIsCoverClickAction(const bool& isCoverClickAction) {
    isCoverClickAction_ = isCoverClickAction;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
