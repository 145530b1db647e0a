#include "json_document.h"

#include "input_file.h"

namespace LiveViewJson {

bool LoadJsonFile(const std::string& path, JsonDocument& document, InputError& error) {
    return ReadWithinMemory(path, error, [&] {
        std::string text;
        std::string reason;
        if (!ReadInputFile(path, MAX_INPUT_FILE_BYTES, text, reason)) {
            error = InputError{path, 0, 0, reason};
            return false;
        }
        return ParseJson(text, path, document, error);
    });
}

}  // namespace LiveViewJson
