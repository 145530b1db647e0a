// UTF-8 as the JSON reader and writer both need it: how long a well-formed sequence is, and how
// a code point is written.
//
// Thread safety: the functions keep no state.
#ifndef LIVEVIEW_JSON_UTF8_H
#define LIVEVIEW_JSON_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace LiveViewJson {

// The length (2 to 4) of the well-formed multi-byte sequence that starts at text[i]: not
// overlong, no surrogate, at most U+10FFFF. 0 when there is none there.
size_t Utf8SequenceLength(const std::string& text, size_t i);

// codePoint (at most U+10FFFF, not a surrogate) in UTF-8, appended to out.
void AppendUtf8(std::string& out, uint32_t codePoint);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_UTF8_H
