#include "request_wire.h"

#include <algorithm>

namespace Tavi {
namespace Host {
namespace Wire {

namespace {

// The deepest nesting of arrays and objects in text, not counting brackets inside strings; stops
// counting once limit is passed.
int NestingOf(const std::string& text, int limit) {
    int depth = 0;
    int deepest = 0;
    bool inString = false;
    bool escaped = false;
    for (const char c : text) {
        if (inString) {
            if (escaped) {
                escaped = false;
            } else if (c == '\\') {
                escaped = true;
            } else if (c == '"') {
                inString = false;
            }
        } else if (c == '"') {
            inString = true;
        } else if (c == '{' || c == '[') {
            deepest = std::max(deepest, ++depth);
            if (deepest > limit) {
                break;
            }
        } else if ((c == '}' || c == ']') && depth > 0) {
            --depth;
        }
    }
    return deepest;
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
    if (NestingOf(text, MAX_NESTING) > MAX_NESTING) {
        error = "nested deeper than " + std::to_string(MAX_NESTING) + " levels";
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
