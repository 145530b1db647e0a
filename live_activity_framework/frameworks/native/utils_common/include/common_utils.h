// Text helpers shared by the live view library.
//
// Thread safety: stateless.
#ifndef LIVE_VIEW_COMMON_UTILS_H
#define LIVE_VIEW_COMMON_UTILS_H

#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

class CommonUtils {
public:
    // str without its leading and trailing white space (space, tab, CR, LF, VT, FF).
    static std::string TrimString(const std::string& str);
    // True when TrimString(str) would be empty; allocates nothing.
    static bool IsBlank(const std::string& str);
    // Appends c as it stands inside a JSON string: '"', '\\' and the control characters (DEL
    // included) escaped, \b, \f, \n, \r and \t by name and the others as \u00XX; any other byte as
    // it is.
    static void AppendJsonEscaped(char c, std::string& out);
    // The value of a hexadecimal digit of either case, 0 to 15; -1 for any other character.
    static int HexDigitValue(char c) {
        if (c >= '0' && c <= '9') {
            return c - '0';
        }
        if (c >= 'a' && c <= 'f') {
            return c - 'a' + 10;
        }
        return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    }
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_COMMON_UTILS_H
