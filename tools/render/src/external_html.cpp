#include "external_html.h"

#include "css_color.h"
#include "html.h"
#include "rich_text_html.h"

namespace LiveViewRender {

std::string ExternalHtml(const std::shared_ptr<Tavi::Wisp::LiveView::ExternalData>& external) {
    if (external == nullptr) {
        return "";
    }
    const std::string inner =
        TextField("div", "ext-title", "title", external->GetTitle()) +
        RunsField("div", "ext-content", "content", external->GetContent(), true);
    if (inner.empty() && external->GetBackgroundColor() == nullptr) {
        return "";
    }
    Rgba background;
    std::string cls = "external";
    std::string style;
    if (ParseRgb(external->GetBackgroundColor(), background)) {
        style = BackgroundAttrs(background, cls);
    }
    return Element("div", cls.c_str(), "external", inner, style);
}

}  // namespace LiveViewRender
