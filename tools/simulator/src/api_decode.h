// The simulator API's request bodies, read into calls. A body is one JSON object; every member is
// checked for presence, type and range, and a member the call does not know is refused, so that a
// typo is noticed instead of ignored. Nothing here touches the service.
//
// Thread safety: stateless; concurrent calls are safe.
#ifndef LIVEVIEW_SIMULATOR_API_DECODE_H
#define LIVEVIEW_SIMULATOR_API_DECODE_H

#include <cstdint>
#include <string>

#include "host_control.h"
#include "notification_live_view_filter.h"
#include "notification_request.h"

namespace LiveViewSimulator {

// Why a body was refused: what is wrong, and the path of the member it is about ("request.content.
// version", "app.uid"; empty when the body as a whole is wrong).
struct ApiError {
    std::string message;
    std::string field;
};

struct PublishCall {
    Tavi::Host::AppId app;
    Tavi::sptr<Tavi::Notification::NotificationRequest> request;
};

struct GetCall {
    Tavi::Host::AppId app;
    Tavi::Notification::LiveViewFilter filter;
};

// Calls that name only the calling app (subscribe, enabled).
struct AppCall {
    Tavi::Host::AppId app;
    int32_t slotType = 5;  // the live view slot
};

struct PressCall {
    Tavi::Host::AppId app;
    int32_t id = 0;
    std::string button;
};

struct SlotCall {
    Tavi::Host::AppId app;
    bool enabled = false;
};

struct RateLimitCall {
    int32_t perSecond = 0;
};

struct ClockCall {
    enum class Kind { SET, ADVANCE, REAL } kind = Kind::REAL;
    int64_t millis = 0;
};

struct FailNextCall {
    Tavi::Host::ServiceCall call = Tavi::Host::ServiceCall::PUBLISH;
    int32_t errorNumber = 0;
    int32_t times = 1;
};

// Which held live views to list: all, one app's, or one app's under one id.
struct HeldQuery {
    bool hasApp = false;
    Tavi::Host::AppId app;
    bool hasId = false;
    int32_t id = 0;
};

// Each reads body into call; false with error set, and call unspecified, when the body is refused.
bool DecodePublish(const std::string& body, PublishCall& call, ApiError& error);
bool DecodeGet(const std::string& body, GetCall& call, ApiError& error);
bool DecodeAppCall(const std::string& body, AppCall& call, ApiError& error);
bool DecodePress(const std::string& body, PressCall& call, ApiError& error);
bool DecodeSlot(const std::string& body, SlotCall& call, ApiError& error);
bool DecodeRateLimit(const std::string& body, RateLimitCall& call, ApiError& error);
bool DecodeClock(const std::string& body, ClockCall& call, ApiError& error);
bool DecodeFailNext(const std::string& body, FailNextCall& call, ApiError& error);
bool DecodeHeldQuery(const std::string& body, HeldQuery& query, ApiError& error);
// A body that must be an empty object (kill); an empty body counts as one.
bool DecodeEmpty(const std::string& body, ApiError& error);

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_API_DECODE_H
