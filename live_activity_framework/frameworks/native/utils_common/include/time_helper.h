// Wall-clock time for event reports.
#ifndef LIVE_VIEW_TIME_HELPER_H
#define LIVE_VIEW_TIME_HELPER_H

#include <cstdint>

namespace Tavi {
namespace Wisp {
namespace LiveView {

class TimeHelper {
public:
    // Milliseconds since the Unix epoch, from the system clock.
    static int64_t GetCurrentTimeMillis();
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TIME_HELPER_H
