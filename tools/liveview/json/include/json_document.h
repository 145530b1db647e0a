// Reading JSON text that this project did not write (files given to the command line), strictly:
// the whole text is one JSON value (RFC 8259; a leading UTF-8 byte order mark is skipped);
// strings are valid UTF-8 without NUL (raw or escaped) or raw control characters; no object
// repeats a member name; nesting and the number of values are bounded. A refusal names its file,
// its place in the text (line and column in bytes) when it has one, and the reason.
//
// Thread safety: distinct documents may be parsed and read on distinct threads.
#ifndef LIVEVIEW_JSON_JSON_DOCUMENT_H
#define LIVEVIEW_JSON_JSON_DOCUMENT_H

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include "input_error.h"
#include "json_value.h"

namespace LiveViewJson {

// Arrays and objects may nest this deep; the bracket that opens a deeper level is refused.
constexpr int MAX_NESTING = 64;
// A text may hold this many values (members and elements included); no live view or scenario
// comes near it, and it bounds the memory of a tree to some hundred megabytes.
constexpr size_t MAX_VALUES = 1000000;

// Owns one parsed tree.
class JsonDocument {
public:
    JsonDocument() = default;
    explicit JsonDocument(JsonValue root) : root_(std::make_unique<JsonValue>(std::move(root))) {}

    // Null until a parse succeeded.
    const JsonValue* Root() const { return root_.get(); }

private:
    std::unique_ptr<JsonValue> root_;
};

// Parses text as one JSON value; name is the file name that a failure carries. On failure the
// document is left as it was.
bool ParseJson(const std::string& text, const std::string& name, JsonDocument& document,
               InputError& error);

// Reads the file at path (a regular file of at most MAX_INPUT_FILE_BYTES) and parses it.
bool LoadJsonFile(const std::string& path, JsonDocument& document, InputError& error);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_JSON_DOCUMENT_H
