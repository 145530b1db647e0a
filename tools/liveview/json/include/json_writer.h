// Writing JSON for output: any JsonValue as text that every JSON reader accepts, whatever its
// strings hold. '"', '\\' and control characters are escaped (NUL included), so are U+2028 and
// U+2029, and each byte that is not part of well-formed UTF-8 is written as U+FFFD.
//
// Thread safety: the functions keep no state.
#ifndef LIVEVIEW_JSON_JSON_WRITER_H
#define LIVEVIEW_JSON_JSON_WRITER_H

#include <string>

#include "json_value.h"

namespace LiveViewJson {

// value as JSON text without a final line break. indent > 0: one member or element a line,
// nested values indented by that many more spaces, ": " after names; 0: all on one line with
// no spaces.
std::string WriteJson(const JsonValue& value, int indent = 2);

// text as a JSON string, quotes included, appended to out.
void AppendJsonString(const std::string& text, std::string& out);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_JSON_WRITER_H
