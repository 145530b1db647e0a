#include "time_helper.h"

#include <chrono>

namespace Tavi {
namespace Wisp {
namespace LiveView {

int64_t TimeHelper::GetCurrentTimeMillis() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
