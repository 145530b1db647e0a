// Reports the library's calls to the platform's system events.
//
// Thread safety: SendEvent may be called from any thread.
#ifndef LIVE_VIEW_EVENT_REPORT_H
#define LIVE_VIEW_EVENT_REPORT_H

#include "event_info.h"
#include "live_view_event.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class EventReport {
public:
    // The domain every live view system event is written under.
    static constexpr const char* DOMAIN = "LIVE_VIEW";

    // Writes one system event named and typed by the kind's entry of EVENT_LEVEL_MAP, with the
    // parameters API_NAME, ERROR_CODE and COST_TIME (milliseconds). A kind without an entry
    // writes nothing.
    static void SendEvent(const LiveViewEvent& event, const EventInfo& info);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_EVENT_REPORT_H
