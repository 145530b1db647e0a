// Reading JSON text that this project did not write (files given to the command line). The
// nesting is checked against a small bound before the text reaches cJSON, the whole text must be
// one JSON value, and a failure names its file and, when it has one, its place in the text.
//
// Thread safety: distinct documents may be parsed and read on distinct threads.
#ifndef LIVEVIEW_JSON_JSON_DOCUMENT_H
#define LIVEVIEW_JSON_JSON_DOCUMENT_H

#include <cjson/cJSON.h>

#include <memory>
#include <string>

namespace LiveViewJson {

// Arrays and objects may nest this deep; deeper text is refused unparsed.
constexpr int MAX_NESTING = 64;

// Why an input cannot be used.
struct InputError {
    std::string file;
    int line = 0;    // from 1; 0 when the reason has no place in the text
    int column = 0;  // from 1, in bytes
    std::string reason;

    bool IsSet() const { return !reason.empty(); }
    // "file:line:column: reason", or "file: reason" without a place; always one line.
    std::string ToString() const;
};

// Owns one parsed tree.
class JsonDocument {
public:
    JsonDocument() = default;
    explicit JsonDocument(cJSON* root) : root_(root, cJSON_Delete) {}

    // Null until a parse succeeded.
    const cJSON* Root() const { return root_.get(); }

private:
    std::unique_ptr<cJSON, void (*)(cJSON*)> root_{nullptr, cJSON_Delete};
};

// Parses text as one JSON value; `name` is the file name that a failure carries. On failure the
// document is left as it was.
bool ParseJson(const std::string& text, const std::string& name, JsonDocument& document,
               InputError& error);

// Reads the file at path and parses it.
bool LoadJsonFile(const std::string& path, JsonDocument& document, InputError& error);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_JSON_DOCUMENT_H
