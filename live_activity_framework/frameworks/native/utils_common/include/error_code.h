// The public result codes of the live view library and their standard messages.
//
// Thread safety: ERROR_MAP is built once, before first use, and only read afterwards.
#ifndef LIVE_VIEW_ERROR_CODE_H
#define LIVE_VIEW_ERROR_CODE_H

#include <cstdint>
#include <map>
#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

enum ErrorCode : int32_t {
    SUCCESS = 0,
    ERR_PARAM_INVALID = 401,
    ERR_INTERNAL = 1003500001,
    ERR_MARSHALLING = 1003500002,
    ERR_CONNECT_SERVICE = 1003500003,
    ERR_LIVE_VIEW_NOT_ENABLED = 1003500004,
    ERR_LIVE_VIEW_RIGHT_NOT_ENABLED = 1003500005,
    ERR_LIVE_VIEW_ALREADY_EXISTS = 1003500006,
    ERR_CONNECT_SERVER = 1003500007,
    ERR_OVER_MAX_PER_SECOND = 1003500008,
    ERR_LIVE_VIEW_NOT_EXIST = 1003500009,
    ERR_LIVE_VIEW_ENDED = 1003500010,
    ERR_SEQUENCE_INCORRECT = 1003500011,
};

class ErrorMessage {
public:
    // The standard message of every public failure code; success has no entry. The texts are
    // compared by applications and are kept word for word.
    inline static const std::map<ErrorCode, std::string> ERROR_MAP = {
        {ERR_PARAM_INVALID, "The parameter check failed."},
        {ERR_INTERNAL, "Internal error."},
        {ERR_MARSHALLING, "Marshalling or unmarshalling error."},
        {ERR_CONNECT_SERVICE, "Failed to connect service."},
        {ERR_LIVE_VIEW_NOT_ENABLED, "LiveView is not enabled."},
        {ERR_LIVE_VIEW_RIGHT_NOT_ENABLED, "The right of liveView is not enabled."},
        {ERR_LIVE_VIEW_ALREADY_EXISTS, "The liveView already exists."},
        {ERR_CONNECT_SERVER, "Couldn't to connect server."},
        {ERR_OVER_MAX_PER_SECOND, "Over max number liveViews per second."},
        {ERR_LIVE_VIEW_NOT_EXIST, "The liveView does not exists."},
        {ERR_LIVE_VIEW_ENDED, "The liveView has ended."},
        {ERR_SEQUENCE_INCORRECT, "The liveView sequence is incorrect."},
    };
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_ERROR_CODE_H
