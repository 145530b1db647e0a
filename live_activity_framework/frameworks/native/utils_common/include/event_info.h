// What one system event says about a call: the API name, its result code and how long it took.
#ifndef LIVE_VIEW_EVENT_INFO_H
#define LIVE_VIEW_EVENT_INFO_H

#include <cstdint>
#include <string>
#include <utility>

namespace Tavi {
namespace Wisp {
namespace LiveView {

struct EventInfo {
    EventInfo(std::string api, int32_t code, int64_t elapsedMillis)
        : apiName(std::move(api)), errorCode(code), costTimeMillis(elapsedMillis) {}
    std::string apiName;
    int32_t errorCode;
    int64_t costTimeMillis;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_EVENT_INFO_H
