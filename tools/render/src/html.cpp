#include "html.h"

namespace LiveViewRender {

std::string Escape(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\'':
                out += "&#39;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::string Attr(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + Escape(value) + "\"";
}

std::string Element(const char* tag, const char* cls, const char* part, const std::string& inner,
                    const std::string& extra) {
    std::string out = std::string("<") + tag;
    if (cls != nullptr && *cls != '\0') {
        out += Attr("class", cls);
    }
    if (part != nullptr && *part != '\0') {
        out += Attr("data-part", part);
    }
    out += extra;
    out += '>';
    out += inner;
    out += "</";
    out += tag;
    out += '>';
    return out;
}

std::string TextField(const char* tag, const char* cls, const char* part,
                      const std::shared_ptr<std::string>& text) {
    return text == nullptr ? std::string() : Element(tag, cls, part, Escape(*text));
}

}  // namespace LiveViewRender
