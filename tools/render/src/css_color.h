// Colours of the record as CSS: a colour text is checked against its exact form before any part
// of it reaches a style, so that no text can carry CSS (or markup) of its own.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_CSS_COLOR_H
#define LIVEVIEW_RENDER_CSS_COLOR_H

#include <cstdint>
#include <memory>
#include <string>

namespace LiveViewRender {

struct Rgba {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
};

// "#AARRGGBB" (hexadecimal digits of either case, nothing around them); false otherwise.
bool ParseArgb(const std::shared_ptr<std::string>& text, Rgba& color);
// "#RRGGBB", opaque; false otherwise.
bool ParseRgb(const std::shared_ptr<std::string>& text, Rgba& color);

// "rgb(r, g, b)" when opaque, else "rgba(r, g, b, a)" with a = alpha / 255 to three places.
std::string Css(const Rgba& color);

// Css of an ARGB colour text; empty when the text is null or not of that form.
std::string CssFromArgb(const std::shared_ptr<std::string>& text);

// Whether dark text reads better than white text on color (laid over white when translucent).
bool IsLight(const Rgba& color);

// For an element drawn on color: appends " on-light" to cls when dark text reads better, and
// answers the style attribute that sets the background.
std::string BackgroundAttrs(const Rgba& color, std::string& cls);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_CSS_COLOR_H
