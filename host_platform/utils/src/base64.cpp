#include "base64.h"

namespace Tavi {
namespace Host {

namespace {

constexpr char ALPHABET[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The 6-bit value of an alphabet character, or -1.
int SextetOf(char c) {
    if (c >= 'A' && c <= 'Z') {
        return c - 'A';
    }
    if (c >= 'a' && c <= 'z') {
        return c - 'a' + 26;
    }
    if (c >= '0' && c <= '9') {
        return c - '0' + 52;
    }
    if (c == '+') {
        return 62;
    }
    return c == '/' ? 63 : -1;
}

}  // namespace

std::string Base64Encode(const uint8_t* bytes, size_t size) {
    std::string out;
    out.reserve((size + 2) / 3 * 4);
    size_t i = 0;
    for (; i + 2 < size; i += 3) {
        const uint32_t group =
            uint32_t{bytes[i]} << 16 | uint32_t{bytes[i + 1]} << 8 | bytes[i + 2];
        out += ALPHABET[group >> 18];
        out += ALPHABET[(group >> 12) & 63];
        out += ALPHABET[(group >> 6) & 63];
        out += ALPHABET[group & 63];
    }
    const size_t rest = size - i;
    if (rest > 0) {
        uint32_t group = uint32_t{bytes[i]} << 16;
        if (rest == 2) {
            group |= uint32_t{bytes[i + 1]} << 8;
        }
        out += ALPHABET[group >> 18];
        out += ALPHABET[(group >> 12) & 63];
        out += rest == 2 ? ALPHABET[(group >> 6) & 63] : '=';
        out += '=';
    }
    return out;
}

bool Base64Decode(const std::string& text, std::string& bytes) {
    if (text.size() % 4 != 0) {
        return false;
    }
    size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') {
        ++padding;
    }
    std::string out;
    out.reserve(text.size() / 4 * 3);
    for (size_t i = 0; i < text.size(); i += 4) {
        const bool last = i + 4 == text.size();
        const size_t sextets = last ? 4 - padding : 4;
        uint32_t group = 0;
        for (size_t k = 0; k < 4; ++k) {
            const int value = k < sextets ? SextetOf(text[i + k]) : 0;
            if (value < 0) {
                return false;
            }
            group = group << 6 | static_cast<uint32_t>(value);
        }
        // One byte per 8 bits of the sextets present; the bits left over must be zero, so that
        // every byte sequence has exactly one text.
        const size_t count = sextets * 6 / 8;
        if ((group & ((1u << (24 - count * 8)) - 1)) != 0) {
            return false;
        }
        for (size_t k = 0; k < count; ++k) {
            out += static_cast<char>((group >> (16 - 8 * k)) & 0xFF);
        }
    }
    bytes.swap(out);
    return true;
}

}  // namespace Host
}  // namespace Tavi
