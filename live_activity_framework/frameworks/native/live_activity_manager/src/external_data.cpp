#include "external_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<std::string> ExternalData::GetTitle() const {
    return title_;
}

void ExternalData::SetTitle(const std::shared_ptr<std::string>& title) {
    title_ = title;
}

std::vector<std::shared_ptr<RichText>> ExternalData::GetContent() const {
    return content_;
}

void ExternalData::AddContent(const std::shared_ptr<RichText>& content) {
    content_.push_back(content);
}

void ExternalData::SetContent(const std::vector<std::shared_ptr<RichText>>& content) {
    content_ = content;
}

std::shared_ptr<std::string> ExternalData::GetBackgroundColor() const {
    return backgroundColor_;
}

void ExternalData::SetBackgroundColor(const std::shared_ptr<std::string>& backgroundColor) {
    backgroundColor_ = backgroundColor;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
