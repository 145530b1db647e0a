// ExternalData: what a live view shows on an external screen: a title, rich-text content and a
// background colour.
//
// Getters return a copy of the field's pointer (sharing the pointee) or a copy of the list;
// setters replace the pointer or the list; an empty pointer means the field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_EXTERNAL_DATA_H
#define TAVI_WISP_LIVE_VIEW_EXTERNAL_DATA_H

#include <memory>
#include <string>
#include <vector>

#include "live_view_base.h"
#include "rich_text.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class ExternalData : public LiveViewBase {
public:
    std::shared_ptr<std::string> GetTitle() const;
    void SetTitle(const std::shared_ptr<std::string>& title);

    // Elements may be empty pointers; the writers of the content skip them.
    std::vector<std::shared_ptr<RichText>> GetContent() const;
    void SetContent(const std::vector<std::shared_ptr<RichText>>& content);
    // Appends the run as given, an empty pointer included.
    void AddContent(const std::shared_ptr<RichText>& content);

    // "#" and six hexadecimal RGB digits; checked by validation only.
    std::shared_ptr<std::string> GetBackgroundColor() const;
    void SetBackgroundColor(const std::shared_ptr<std::string>& backgroundColor);

private:
    std::shared_ptr<std::string> title_;
    std::vector<std::shared_ptr<RichText>> content_;
    std::shared_ptr<std::string> backgroundColor_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_EXTERNAL_DATA_H
