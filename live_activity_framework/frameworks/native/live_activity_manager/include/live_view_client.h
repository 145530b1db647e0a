// LiveViewClient: what an application calls to start, update, stop and read back its live views,
// and to ask whether it may show live views at all.
//
// Every operation checks the record section by section, converts it into a live view
// notification request and hands it to the platform's notification service; the first failing
// step decides the answer. Failures are returned as values, never thrown. Each call reports a
// system event and one end event, and writes its diagnostics to the platform log.
//
// Thread safety: the client keeps no state; any thread may call any operation on any client.
// A record passed in must not be changed by another thread during the call.
#ifndef LIVE_VIEW_LIVE_VIEW_CLIENT_H
#define LIVE_VIEW_LIVE_VIEW_CLIENT_H

#include <cstdint>
#include <string>

#include "base_rsp.h"
#include "live_view.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewClient {
public:
    // The application-facing outcome of start, update and stop.
    struct LiveViewResult {
        int32_t code = 0;
        std::string message;
    };

    LiveViewClient() = default;
    virtual ~LiveViewClient() = default;

    // Publishes a new live view. On success writes result as 0 and "success."; on failure leaves
    // result untouched and returns the error (a validation failure with code 401, or the public
    // code of the service's refusal).
    BaseRsp StartLiveView(LiveView& liveView, LiveViewResult& result);

    // Updates the caller's live view liveView.GetId(). result starts as 0 and "success"; a failing
    // section sets it to code 1 and a short message naming the section. On stop, the record's keep
    // time is clamped to 0..3600 in place.
    BaseRsp UpdateLiveView(LiveView& liveView, LiveViewResult& result);
    BaseRsp StopLiveView(LiveView& liveView, LiveViewResult& result);

    // Fills liveView with the caller's live view under id; 0 on success, else a public code.
    // liveView is left as it was when the service has no such live view.
    int GetActiveLiveView(const int& id, LiveView& liveView);

    // Whether the caller may show live views; 0 on success with enabled set, else a public code.
    int IsLiveViewEnabled(bool& enabled);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_CLIENT_H
