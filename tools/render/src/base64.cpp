#include "base64.h"

#include <cstdint>

namespace LiveViewRender {

std::string Base64(const std::string& bytes) {
    static const char ALPHABET[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    size_t i = 0;
    for (; i + 2 < bytes.size(); i += 3) {
        const std::uint32_t group = static_cast<std::uint8_t>(bytes[i]) << 16 |
                                    static_cast<std::uint8_t>(bytes[i + 1]) << 8 |
                                    static_cast<std::uint8_t>(bytes[i + 2]);
        out += ALPHABET[group >> 18];
        out += ALPHABET[(group >> 12) & 63];
        out += ALPHABET[(group >> 6) & 63];
        out += ALPHABET[group & 63];
    }
    const size_t rest = bytes.size() - i;
    if (rest > 0) {
        std::uint32_t group = static_cast<std::uint8_t>(bytes[i]) << 16;
        if (rest == 2) {
            group |= static_cast<std::uint8_t>(bytes[i + 1]) << 8;
        }
        out += ALPHABET[group >> 18];
        out += ALPHABET[(group >> 12) & 63];
        out += rest == 2 ? ALPHABET[(group >> 6) & 63] : '=';
        out += '=';
    }
    return out;
}

}  // namespace LiveViewRender
