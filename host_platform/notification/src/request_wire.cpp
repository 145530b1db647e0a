#include "request_wire.h"

#include <algorithm>

namespace Tavi {
namespace Host {
namespace Wire {

namespace {

// What ParseJsonText refuses before cJSON sees the text: nesting deeper than a limit, and the
// escape of a NUL character, which cJSON would decode into a text that its C strings cut short
// (so that "com.a\u0000x" would read as "com.a").
struct TextScan {
    int deepest = 0;                   // stops counting once the limit is passed
    size_t nulAt = std::string::npos;  // the byte offset of the first "\u0000"
};

TextScan ScanText(const std::string& text, int limit) {
    TextScan scan;
    int depth = 0;
    bool inString = false;
    bool escaped = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString) {
            if (escaped) {
                escaped = false;
                if (c == 'u' && text.compare(i + 1, 4, "0000") == 0 &&
                    scan.nulAt == std::string::npos) {
                    scan.nulAt = i - 1;
                }
            } else if (c == '\\') {
                escaped = true;
            } else if (c == '"') {
                inString = false;
            }
        } else if (c == '"') {
            inString = true;
        } else if (c == '{' || c == '[') {
            scan.deepest = std::max(scan.deepest, ++depth);
            if (scan.deepest > limit) {
                break;
            }
        } else if ((c == '}' || c == ']') && depth > 0) {
            --depth;
        }
    }
    return scan;
}

}  // namespace

std::string RequestToText(const Notification::NotificationRequest& request) {
    cJSON* json = RequestToJson(request);
    char* printed = json == nullptr ? nullptr : cJSON_PrintUnformatted(json);
    cJSON_Delete(json);
    if (printed == nullptr) {
        return std::string();
    }
    std::string text(printed);
    cJSON_free(printed);
    return text;
}

cJSON* ParseJsonText(const std::string& text, std::string& error) {
    const TextScan scan = ScanText(text, MAX_NESTING);
    if (scan.deepest > MAX_NESTING) {
        error = "nested deeper than " + std::to_string(MAX_NESTING) + " levels";
        return nullptr;
    }
    if (scan.nulAt != std::string::npos) {
        error = "a text holds \\u0000 at byte " + std::to_string(scan.nulAt) +
                "; texts cannot hold NUL characters";
        return nullptr;
    }
    const char* end = nullptr;
    cJSON* json = cJSON_ParseWithLengthOpts(text.data(), text.size(), &end, false);
    if (json != nullptr) {
        // cJSON stops after the first value; anything but white space after it is an error too.
        const size_t rest = static_cast<size_t>(end - text.data());
        const size_t trailing = text.find_first_not_of(" \t\r\n", rest);
        if (trailing == std::string::npos) {
            return json;
        }
        cJSON_Delete(json);
        end = text.data() + trailing;
    }
    const size_t at = end == nullptr ? 0 : static_cast<size_t>(end - text.data());
    error = "syntax error at byte " + std::to_string(at);
    return nullptr;
}

bool RequestFromText(const std::string& text, sptr<Notification::NotificationRequest>& request,
                     std::string& error) {
    std::string parseError;
    cJSON* json = ParseJsonText(text, parseError);
    if (json == nullptr) {
        error = "(root): not JSON (" + parseError + ")";
        return false;
    }
    const bool read = RequestFromJson(json, request, error);
    cJSON_Delete(json);
    return read;
}

}  // namespace Wire
}  // namespace Host
}  // namespace Tavi
