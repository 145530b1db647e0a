#include "css_color.h"

#include <cstdio>

#include "common_utils.h"
#include "html.h"

namespace LiveViewRender {
namespace {

// The bytes of "#" followed by exactly count hexadecimal digit pairs.
bool ParseHex(const std::shared_ptr<std::string>& text, size_t count, std::uint8_t* bytes) {
    if (text == nullptr || text->size() != 1 + 2 * count || (*text)[0] != '#') {
        return false;
    }
    for (size_t i = 0; i < count; ++i) {
        const int high = Tavi::Wisp::LiveView::CommonUtils::HexDigitValue((*text)[1 + 2 * i]);
        const int low = Tavi::Wisp::LiveView::CommonUtils::HexDigitValue((*text)[2 + 2 * i]);
        if (high < 0 || low < 0) {
            return false;
        }
        bytes[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return true;
}

}  // namespace

bool ParseArgb(const std::shared_ptr<std::string>& text, Rgba& color) {
    std::uint8_t bytes[4] = {};
    if (!ParseHex(text, 4, bytes)) {
        return false;
    }
    color = Rgba{bytes[1], bytes[2], bytes[3], bytes[0]};
    return true;
}

bool ParseRgb(const std::shared_ptr<std::string>& text, Rgba& color) {
    std::uint8_t bytes[3] = {};
    if (!ParseHex(text, 3, bytes)) {
        return false;
    }
    color = Rgba{bytes[0], bytes[1], bytes[2], 255};
    return true;
}

std::string Css(const Rgba& color) {
    char out[48];
    if (color.alpha == 255) {
        std::snprintf(out, sizeof(out), "rgb(%d, %d, %d)", color.red, color.green, color.blue);
    } else {
        std::snprintf(out, sizeof(out), "rgba(%d, %d, %d, %.3g)", color.red, color.green,
                      color.blue, color.alpha / 255.0);
    }
    return out;
}

std::string CssFromArgb(const std::shared_ptr<std::string>& text) {
    Rgba color;
    return ParseArgb(text, color) ? Css(color) : std::string();
}

bool IsLight(const Rgba& color) {
    const double alpha = color.alpha / 255.0;
    const auto over = [alpha](std::uint8_t channel) {
        return channel * alpha + 255.0 * (1.0 - alpha);
    };
    const double luma =
        0.299 * over(color.red) + 0.587 * over(color.green) + 0.114 * over(color.blue);
    return luma > 165.0;
}

std::string BackgroundAttrs(const Rgba& color, std::string& cls) {
    if (IsLight(color)) {
        cls += " on-light";
    }
    return Attr("style", "background-color:" + Css(color));
}

}  // namespace LiveViewRender
