// What the JSON front end reports about an input: the reason it cannot be used (InputError) and
// what it met but did not use (InputWarning), each naming its file and, when it has one, its
// place in the text; and the guard that turns an allocation failure while reading into such a
// reason instead of an exception.
//
// Thread safety: plain values; the guard holds no state.
#ifndef LIVEVIEW_JSON_INPUT_ERROR_H
#define LIVEVIEW_JSON_INPUT_ERROR_H

#include <new>
#include <stdexcept>
#include <string>

namespace LiveViewJson {

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

// Something in an input that was read past: a member that no reader at its place knows.
struct InputWarning {
    std::string file;
    int line = 0;            // of the member name, from 1
    int column = 0;          // from 1, in bytes
    std::string path;        // from the top of the file, e.g. "liveViewData.primary.keeptime"
    std::string reason;      // e.g. "unknown member (did you mean \"keepTime\"?)"
    std::string suggestion;  // the known name in the reason; empty when none is close

    // "file:line:column: path: reason"; always one line.
    std::string ToString() const;
};

// The reason given when reading an input ran out of memory.
inline constexpr const char* OUT_OF_MEMORY = "not enough memory to read this input";

// Runs read() and answers what it answers; an allocation failure inside it becomes error (for
// file, with OUT_OF_MEMORY) and false.
template <typename Read>
bool ReadWithinMemory(const std::string& file, InputError& error, Read&& read) {
    try {
        return read();
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    error = InputError{file, 0, 0, OUT_OF_MEMORY};
    return false;
}

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_INPUT_ERROR_H
