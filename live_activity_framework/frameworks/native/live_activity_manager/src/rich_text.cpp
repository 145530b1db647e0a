#include "rich_text.h"

#include <utility>

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<std::string> RichText::GetText() const {
    return text_;
}

void RichText::SetText(std::shared_ptr<std::string> text) {
    text_ = std::move(text);
}

std::shared_ptr<std::string> RichText::GetTextColor() const {
    return textColor_;
}

void RichText::SetTextColor(std::shared_ptr<std::string> textColor) {
    textColor_ = std::move(textColor);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
