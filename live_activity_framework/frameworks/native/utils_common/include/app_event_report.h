// Reports the end of each public API call of the library as an application event.
//
// Thread safety: WriteEndEvent may be called from any thread.
#ifndef LIVE_VIEW_APP_EVENT_REPORT_H
#define LIVE_VIEW_APP_EVENT_REPORT_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

class AppEventReport {
public:
    static constexpr const char* DOMAIN = "api_diagnostic";
    static constexpr const char* NAME = "api_exec_end";

    // Writes one event "api_exec_end" with the parameters trans_id, api_name, sdk_name,
    // begin_time, end_time (now), result (0 success, 1 failure), error_code, event, layout_type
    // and capsule_type, in that order.
    static void WriteEndEvent(const std::string& transId, const std::string& apiName,
                              const std::string& kitName, int64_t startTimeMillis, int result,
                              const std::string& errorCode, const std::string& event,
                              int layoutType, int capsuleType);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_APP_EVENT_REPORT_H
