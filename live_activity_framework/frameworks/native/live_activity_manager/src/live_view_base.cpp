#include "live_view_base.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::string LiveViewBase::GetParamFailed() const {
    return paramFailed_;
}

void LiveViewBase::SetParamFailed(const std::string& paramFailed) {
    paramFailed_ = paramFailed;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
