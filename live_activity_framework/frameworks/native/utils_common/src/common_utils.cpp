#include "common_utils.h"

#include <cstdio>

namespace Tavi {
namespace Wisp {
namespace LiveView {

namespace {
constexpr const char* WHITE_SPACE = " \t\r\n\v\f";
}  // namespace

std::string CommonUtils::TrimString(const std::string& str) {
    const auto first = str.find_first_not_of(WHITE_SPACE);
    if (first == std::string::npos) {
        return "";
    }
    const auto last = str.find_last_not_of(WHITE_SPACE);
    return str.substr(first, last - first + 1);
}

bool CommonUtils::IsBlank(const std::string& str) {
    return str.find_first_not_of(WHITE_SPACE) == std::string::npos;
}

void CommonUtils::AppendJsonEscaped(char c, std::string& out) {
    switch (c) {
        case '"':
            out += "\\\"";
            return;
        case '\\':
            out += "\\\\";
            return;
        case '\b':
            out += "\\b";
            return;
        case '\f':
            out += "\\f";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            break;
    }
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) {
        char escaped[8];
        std::snprintf(escaped, sizeof(escaped), "\\u%04x", byte);
        out += escaped;
        return;
    }
    out += c;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
