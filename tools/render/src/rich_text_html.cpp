#include "rich_text_html.h"

#include "css_color.h"
#include "html.h"

namespace LiveViewRender {

std::string RunsHtml(const std::vector<std::shared_ptr<Tavi::Wisp::LiveView::RichText>>& runs,
                     bool withColors) {
    std::string out;
    for (const auto& run : runs) {
        if (run == nullptr || run->GetText() == nullptr) {
            continue;
        }
        const std::string color = withColors ? CssFromArgb(run->GetTextColor()) : std::string();
        out += Element("span", "", "run", Escape(*run->GetText()),
                       color.empty() ? std::string() : Attr("style", "color:" + color));
    }
    return out;
}

std::string RunsField(const char* tag, const char* cls, const char* part,
                      const std::vector<std::shared_ptr<Tavi::Wisp::LiveView::RichText>>& runs,
                      bool withColors) {
    const std::string inner = RunsHtml(runs, withColors);
    return inner.empty() ? std::string() : Element(tag, cls, part, inner);
}

}  // namespace LiveViewRender
