#include "common_utils.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

namespace {
constexpr const char* WHITE_SPACE = " \t\r\n\v\f";
}  // namespace

std::string CommonUtils::TrimString(const std::string& str) {
    const auto first = str.find_first_not_of(WHITE_SPACE);
    if (first == std::string::npos) {
        return "";
    }
    const auto last = str.find_last_not_of(WHITE_SPACE);
    return str.substr(first, last - first + 1);
}

bool CommonUtils::IsBlank(const std::string& str) {
    return str.find_first_not_of(WHITE_SPACE) == std::string::npos;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
