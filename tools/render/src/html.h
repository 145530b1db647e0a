// Building HTML text: escaping, attributes and elements. Everything that did not come from this
// renderer's own constants goes through Escape before it is written.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_HTML_H
#define LIVEVIEW_RENDER_HTML_H

#include <memory>
#include <string>

namespace LiveViewRender {

// text with &, <, >, " and ' written as character references: safe as element content and as a
// quoted attribute value.
std::string Escape(const std::string& text);

// ` name="value"` with value escaped.
std::string Attr(const char* name, const std::string& value);

// <tag class="cls" data-part="part" ...extra>inner</tag>. cls and part may be empty (left out);
// extra is a run of Attr(...) results; inner is HTML, inserted as it is.
std::string Element(const char* tag, const char* cls, const char* part, const std::string& inner,
                    const std::string& extra = "");

// A text field as Element(tag, cls, part, Escape(*text)); empty when text is null.
std::string TextField(const char* tag, const char* cls, const char* part,
                      const std::shared_ptr<std::string>& text);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_HTML_H
