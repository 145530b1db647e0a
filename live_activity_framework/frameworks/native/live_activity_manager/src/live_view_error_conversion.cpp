#include "live_view_error_conversion.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

const std::map<LiveViewErrorConversion::InternalError, ErrorCode>
    LiveViewErrorConversion::INTERNAL_ERROR_MAP = {
        {ERR_OK, SUCCESS},
        {ERR_ANS_SERVICE_NOT_READY, ERR_CONNECT_SERVICE},
        {ERR_ANS_SERVICE_NOT_CONNECTED, ERR_CONNECT_SERVICE},
        {ERR_ANS_PARCELABLE_FAILED, ERR_MARSHALLING},
        {ERR_ANS_TRANSACT_FAILED, ERR_MARSHALLING},
        {ERR_ANS_NOTIFICATION_NOT_EXISTS, ERR_LIVE_VIEW_NOT_EXIST},
        {ERR_ANS_OVER_MAX_ACTIVE_PERSECOND, ERR_OVER_MAX_PER_SECOND},
        {ERR_ANS_NOT_ALLOWED, ERR_LIVE_VIEW_NOT_ENABLED},
        {ERR_ANS_PERMISSION_DENIED, ERR_LIVE_VIEW_RIGHT_NOT_ENABLED},
        {ERR_ANS_NON_SYSTEM_APP, ERR_LIVE_VIEW_RIGHT_NOT_ENABLED},
        {ERR_ANS_REPEAT_CREATE, ERR_LIVE_VIEW_ALREADY_EXISTS},
        {ERR_ANS_END_NOTIFICATION, ERR_LIVE_VIEW_ENDED},
        {ERR_ANS_EXPIRED_NOTIFICATION, ERR_SEQUENCE_INCORRECT},
        {ERR_ANS_DISTRIBUTED_OPERATION_FAILED, ERR_CONNECT_SERVER},
};

ErrorCode LiveViewErrorConversion::ReturnLiveViewError(const int& error) {
    auto internal = INTERNAL_ERROR_MAP.find(static_cast<InternalError>(error));
    if (internal != INTERNAL_ERROR_MAP.end()) {
        return internal->second;
    }
    if (ErrorMessage::ERROR_MAP.count(static_cast<ErrorCode>(error)) != 0) {
        return static_cast<ErrorCode>(error);
    }
    return ERR_INTERNAL;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
