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

// Codes: every operation answers 0 on success or one public code (error_code.h). Service
// refusals reach the caller through the translation table, never raw; a service number that is
// not in it becomes ERR_INTERNAL (1003500001).
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
    // result untouched and returns the error:
    //   401 (ERR_PARAM_INVALID)          a section of the record breaks a rule; the message names
    //                                    the field;
    //   1003500004 (LIVE_VIEW_NOT_ENABLED) the app's live view slot is switched off;
    //   1003500006 (ALREADY_EXISTS)      a live view under this id is active and not ended;
    //   1003500008 (OVER_MAX_PER_SECOND) the app published more than the service allows a second;
    //   1003500001 (INTERNAL)            the request could not be prepared, or the service
    //                                    answered a number it does not document;
    //   and the connection codes 1003500002, 1003500003, 1003500005, 1003500007 as the service
    //   reports them.
    // A start whose event is exactly "NAVIGATION" or "WORKOUT" marks the request for local update
    // and first registers the library's one local live view subscriber with the service. The
    // subscriber has static lifetime and serves the whole process: it is registered again on
    // every such start and never unregistered. A failed registration publishes nothing.
    BaseRsp StartLiveView(LiveView& liveView, LiveViewResult& result);

    // Updates (or ends) the caller's live view under liveView.GetId(), built like a start but
    // guided by what the service holds for that id. result starts as 0 and "success"; a failing
    // section also sets it to code 1 and "The <section> data update failed" ("stop failed").
    // Errors: 401 (no id, or a section breaks a rule); 1003500009 (NOT_EXIST) the caller has no
    // live view under the id; 1003500010 (ENDED) it has ended; 1003500011 (SEQUENCE_INCORRECT)
    // the record's sequence is set and not above the held one; 1003500004, 1003500008 and
    // 1003500001 as for a start.
    // Stop also carries the keep time: how many seconds the ended live view stays readable before
    // the service removes it. A keep time outside 0..3600 is clamped into it, in the record
    // itself; no keep time means 0 (removed at once).
    BaseRsp UpdateLiveView(LiveView& liveView, LiveViewResult& result);
    BaseRsp StopLiveView(LiveView& liveView, LiveViewResult& result);

    // Fills liveView with the caller's live view under id, as the service holds it (an ended one
    // too, while its keep time runs). 0 on success; 1003500009 when the caller has no live view
    // under id, with liveView left as it was; 1003500001 when the held request cannot be read
    // back; or the code of a failed service call or bundle lookup.
    int GetActiveLiveView(const int& id, LiveView& liveView);

    // Whether the caller may show live views: 0 with enabled set (an app whose slot was never
    // switched counts as enabled), else the public code of the service's refusal.
    int IsLiveViewEnabled(bool& enabled);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_CLIENT_H
