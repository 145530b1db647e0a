// RichText: one run of body text with its colour, an element of the rich-text lists of primary
// data, external data and the score layout.
//
// Getters return a copy of the field's pointer (sharing the pointee); an empty pointer means the
// field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_RICH_TEXT_H
#define TAVI_WISP_LIVE_VIEW_RICH_TEXT_H

#include <memory>
#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

class RichText {
public:
    std::shared_ptr<std::string> GetText() const;
    void SetText(std::shared_ptr<std::string> text);

    // Colour of the run as "#" and eight hexadecimal ARGB digits; checked by validation only.
    std::shared_ptr<std::string> GetTextColor() const;
    void SetTextColor(std::shared_ptr<std::string> textColor);

private:
    std::shared_ptr<std::string> text_;
    std::shared_ptr<std::string> textColor_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_RICH_TEXT_H
