// Error numbers of the notification service: the service base 0x4000000 plus a small number.
#ifndef TAVI_NOTIFICATION_ANS_INNER_ERRORS_H
#define TAVI_NOTIFICATION_ANS_INNER_ERRORS_H

#include <cstdint>

namespace Tavi {
namespace Notification {

using ErrCode = int32_t;

constexpr ErrCode ANS_ERR_OFFSET = 0x4000000;

constexpr ErrCode ERR_OK = 0;
// The service could not be reached (it died, or was never there).
constexpr ErrCode ERR_ANS_SERVICE_NOT_CONNECTED = ANS_ERR_OFFSET + 0x01;
// A parameter of the call is unusable: null subscriber, request without content, no bundle.
constexpr ErrCode ERR_ANS_INVALID_PARAM = ANS_ERR_OFFSET + 0x03;
// The caller has no live view under the id.
constexpr ErrCode ERR_ANS_NOTIFICATION_NOT_EXISTS = ANS_ERR_OFFSET + 0x10;
// More publishes than the per-app limit within one second.
constexpr ErrCode ERR_ANS_OVER_MAX_ACTIVE_PERSECOND = ANS_ERR_OFFSET + 0x12;
// The slot has never been configured for the calling app (the query then reads as enabled).
constexpr ErrCode ERR_ANS_SLOT_NOT_CONFIGURED = ANS_ERR_OFFSET + 0x18;
// The live view slot of the calling app is disabled.
constexpr ErrCode ERR_ANS_SLOT_DISABLED = ANS_ERR_OFFSET + 0x22;
// A create for an id that is active and not ended.
constexpr ErrCode ERR_ANS_REPEAT_CREATE = ANS_ERR_OFFSET + 0x28;
// An update or end after the live view ended.
constexpr ErrCode ERR_ANS_END_NOTIFICATION = ANS_ERR_OFFSET + 0x29;
// An update or end whose version is set and not above the stored one.
constexpr ErrCode ERR_ANS_EXPIRED_NOTIFICATION = ANS_ERR_OFFSET + 0x2A;

}  // namespace Notification
}  // namespace Tavi

#endif  // TAVI_NOTIFICATION_ANS_INNER_ERRORS_H
