#include "event_report.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

void EventReport::SendEvent(const LiveViewEvent& event, const EventInfo& info) {
    auto level = EVENT_LEVEL_MAP.find(event);
    if (level == EVENT_LEVEL_MAP.end()) {
        return;
    }
    HiviewDFX::HiSysEvent::Write(DOMAIN, level->second.name, level->second.type, "API_NAME",
                                 info.apiName, "ERROR_CODE", info.errorCode, "COST_TIME",
                                 info.costTimeMillis);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
