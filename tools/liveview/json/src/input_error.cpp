#include "input_error.h"

#include <string>

namespace LiveViewJson {

namespace {

// "file:line:column: " or "file: ", then text, on one line.
std::string OneLine(const std::string& file, int line, int column, const std::string& text) {
    std::string out = file;
    if (line > 0) {
        out += ':' + std::to_string(line) + ':' + std::to_string(column);
    }
    out += ": " + text;
    for (char& c : out) {
        if (c == '\n' || c == '\r') {
            c = ' ';
        }
    }
    return out;
}

}  // namespace

std::string InputError::ToString() const {
    return OneLine(file, line, column, reason);
}

std::string InputWarning::ToString() const {
    return OneLine(file, line, column, path + ": " + reason);
}

}  // namespace LiveViewJson
