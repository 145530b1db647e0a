#include "app_event_report.h"

#include "hiappevent.h"
#include "time_helper.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

void AppEventReport::WriteEndEvent(const std::string& transId, const std::string& apiName,
                                   const std::string& kitName, int64_t startTimeMillis, int result,
                                   const std::string& errorCode, const std::string& event,
                                   int layoutType, int capsuleType) {
    HiviewDFX::HiAppEvent::Event endEvent(DOMAIN, NAME, HiviewDFX::HiAppEvent::BEHAVIOR);
    endEvent.AddParam("trans_id", transId);
    endEvent.AddParam("api_name", apiName);
    endEvent.AddParam("sdk_name", kitName);
    endEvent.AddParam("begin_time", startTimeMillis);
    endEvent.AddParam("end_time", TimeHelper::GetCurrentTimeMillis());
    endEvent.AddParam("result", static_cast<int32_t>(result));
    endEvent.AddParam("error_code", errorCode);
    endEvent.AddParam("event", event);
    endEvent.AddParam("layout_type", static_cast<int32_t>(layoutType));
    endEvent.AddParam("capsule_type", static_cast<int32_t>(capsuleType));
    HiviewDFX::HiAppEvent::Write(endEvent);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
