#include "text_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

TextCapsule::TextCapsule() : CapsuleData(Kind::TEXT) {}

TextCapsule::TextCapsule(const TextCapsule& other)
    : CapsuleData(other, Kind::TEXT), title_(other.title_), content_(other.content_) {}

std::shared_ptr<std::string> TextCapsule::GetTitle() const {
    return title_;
}

void TextCapsule::SetTitle(const std::shared_ptr<std::string>& title) {
    title_ = title;
}

std::shared_ptr<std::string> TextCapsule::GetContent() const {
    return content_;
}

void TextCapsule::SetContent(const std::shared_ptr<std::string>& content) {
    content_ = content;
}

std::shared_ptr<TextCapsule> AsTextCapsule(const std::shared_ptr<CapsuleData>& capsule) {
    if (capsule == nullptr || capsule->kind_ != CapsuleData::Kind::TEXT) {
        return nullptr;
    }
    return std::static_pointer_cast<TextCapsule>(capsule);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
