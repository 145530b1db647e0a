#include "service_answer.h"

#include "ans_inner_errors.h"

namespace LiveViewSimulator {

ServiceAnswer DescribeServiceAnswer(int32_t code) {
    using namespace Tavi::Notification;
    switch (code) {
        case ERR_OK:
            return {"success", ""};
        case ERR_ANS_SERVICE_NOT_CONNECTED:
            return {"the service could not be reached", ""};
        case ERR_ANS_INVALID_PARAM:
            return {"the request is unusable: no live view content, or no calling app", "content"};
        case ERR_ANS_NOTIFICATION_NOT_EXISTS:
            return {"the app has no live view under this id", "id"};
        case ERR_ANS_OVER_MAX_ACTIVE_PERSECOND:
            return {"more publishes than the app may make in one second", ""};
        case ERR_ANS_SLOT_NOT_CONFIGURED:
            return {"the app's live view slot was never switched", ""};
        case ERR_ANS_SLOT_DISABLED:
            return {"the app's live view slot is switched off", ""};
        case ERR_ANS_REPEAT_CREATE:
            return {"a live view under this id is active and not ended", "id"};
        case ERR_ANS_END_NOTIFICATION:
            return {"the live view has ended", "id"};
        case ERR_ANS_EXPIRED_NOTIFICATION:
            return {"the version is not above the one held", "content.version"};
        default:
            return {"service error " + std::to_string(code), ""};
    }
}

const char* OperationName(int32_t liveViewStatus) {
    switch (liveViewStatus) {
        case 0:
            return "create";
        case 1:
            return "update";
        case 2:
            return "end";
        case 3:
            return "full-update";
        default:
            return "unknown";
    }
}

}  // namespace LiveViewSimulator
