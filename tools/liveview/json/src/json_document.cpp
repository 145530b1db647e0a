#include "json_document.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace LiveViewJson {

namespace {

// Larger files are refused before they are read: no live view or scenario comes near it.
constexpr std::uintmax_t MAX_FILE_BYTES = 16u * 1024u * 1024u;

bool IsJsonSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

InputError ErrorAt(const std::string& name, const std::string& text, size_t offset,
                   const std::string& reason) {
    InputError error{name, 1, 1, reason};
    for (size_t i = 0; i < offset && i < text.size(); ++i) {
        if (text[i] == '\n') {
            ++error.line;
            error.column = 1;
        } else {
            ++error.column;
        }
    }
    return error;
}

// The offset of the first bracket that opens level MAX_NESTING + 1, or npos. Brackets inside
// strings do not count; the scan does not judge anything else.
size_t FindTooDeep(const std::string& text) {
    int depth = 0;
    bool inString = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString) {
            if (c == '\\') {
                ++i;
            } else if (c == '"') {
                inString = false;
            }
        } else if (c == '"') {
            inString = true;
        } else if (c == '[' || c == '{') {
            if (++depth > MAX_NESTING) {
                return i;
            }
        } else if ((c == ']' || c == '}') && depth > 0) {
            --depth;
        }
    }
    return std::string::npos;
}

}  // namespace

std::string InputError::ToString() const {
    std::ostringstream out;
    out << file;
    if (line > 0) {
        out << ':' << line << ':' << column;
    }
    out << ": " << reason;
    std::string text = out.str();
    for (char& c : text) {
        if (c == '\n' || c == '\r') {
            c = ' ';
        }
    }
    return text;
}

bool ParseJson(const std::string& text, const std::string& name, JsonDocument& document,
               InputError& error) {
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
        error = InputError{name, 0, 0, text.empty() ? "the file is empty" : "no JSON value"};
        return false;
    }
    const size_t tooDeep = FindTooDeep(text);
    if (tooDeep != std::string::npos) {
        error = ErrorAt(name, text, tooDeep,
                        "JSON nested deeper than " + std::to_string(MAX_NESTING) + " levels");
        return false;
    }
    const char* end = nullptr;
    cJSON* root = cJSON_ParseWithLengthOpts(text.data(), text.size(), &end, false);
    if (root == nullptr) {
        const char* at = end != nullptr ? end : cJSON_GetErrorPtr();
        const size_t offset = at != nullptr ? static_cast<size_t>(at - text.data()) : 0;
        error = ErrorAt(name, text, offset, "JSON syntax error");
        return false;
    }
    size_t rest = static_cast<size_t>(end - text.data());
    while (rest < text.size() && IsJsonSpace(text[rest])) {
        ++rest;
    }
    if (rest < text.size()) {
        cJSON_Delete(root);
        error = ErrorAt(name, text, rest, "JSON syntax error: text after the JSON value");
        return false;
    }
    document = JsonDocument(root);
    return true;
}

bool LoadJsonFile(const std::string& path, JsonDocument& document, InputError& error) {
    std::error_code ec;
    const auto status = std::filesystem::status(path, ec);
    if (ec || !std::filesystem::exists(status)) {
        error = InputError{path, 0, 0, "no such file"};
        return false;
    }
    if (!std::filesystem::is_regular_file(status)) {
        error = InputError{path, 0, 0, "not a regular file"};
        return false;
    }
    if (std::filesystem::file_size(path, ec) > MAX_FILE_BYTES || ec) {
        error = InputError{path, 0, 0, "larger than 16 MiB"};
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = InputError{path, 0, 0, std::string("cannot be read: ") + std::strerror(errno)};
        return false;
    }
    std::ostringstream text;
    text << in.rdbuf();
    if (in.bad()) {
        error = InputError{path, 0, 0, "cannot be read"};
        return false;
    }
    return ParseJson(text.str(), path, document, error);
}

}  // namespace LiveViewJson
