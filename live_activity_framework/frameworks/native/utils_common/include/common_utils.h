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
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_COMMON_UTILS_H
