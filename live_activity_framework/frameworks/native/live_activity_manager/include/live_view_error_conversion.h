// Translation of the notification service's error numbers into the library's public codes.
//
// Thread safety: INTERNAL_ERROR_MAP is built once, before first use, and only read afterwards;
// ReturnLiveViewError may be called from any thread.
#ifndef LIVE_VIEW_LIVE_VIEW_ERROR_CONVERSION_H
#define LIVE_VIEW_LIVE_VIEW_ERROR_CONVERSION_H

#include <cstdint>
#include <map>

#include "error_code.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewErrorConversion {
public:
    // The service's error numbers: its base 0x4000000 plus a small number.
    enum InternalError : int32_t {
        ERR_OK = 0,
        ERR_ANS_SERVICE_NOT_READY = 0x4000001,
        ERR_ANS_SERVICE_NOT_CONNECTED = 0x4000002,
        ERR_ANS_PARCELABLE_FAILED = 0x4000009,
        ERR_ANS_TRANSACT_FAILED = 0x400000A,
        ERR_ANS_NOTIFICATION_NOT_EXISTS = 0x4000010,
        ERR_ANS_OVER_MAX_ACTIVE_PERSECOND = 0x4000012,
        ERR_ANS_NOT_ALLOWED = 0x4000022,
        ERR_ANS_PERMISSION_DENIED = 0x4000024,
        ERR_ANS_NON_SYSTEM_APP = 0x4000027,
        ERR_ANS_REPEAT_CREATE = 0x4000028,
        ERR_ANS_END_NOTIFICATION = 0x4000029,
        ERR_ANS_EXPIRED_NOTIFICATION = 0x400002A,
        ERR_ANS_DISTRIBUTED_OPERATION_FAILED = 0x400002B,
    };

    // The public code of every known service error number.
    static const std::map<InternalError, ErrorCode> INTERNAL_ERROR_MAP;

    // The public code for any integer answer of the notification service: the mapped code of a
    // known service error (0 for 0), the number itself when it already is a public failure code,
    // and ERR_INTERNAL for anything else.
    static ErrorCode ReturnLiveViewError(const int& error);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_ERROR_CONVERSION_H
