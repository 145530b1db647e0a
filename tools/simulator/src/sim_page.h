// The simulator's live page, answered at `GET /`: a phone with the status bar and notification
// shade, the lock screen and the external screen of every held live view, the service's controls
// (clock, slots, rate limit, kill) and the history of publishes, redrawn from `GET /api/state`
// whenever `GET /api/page-events` tells of a change. The page reads the token from its own
// address (`?token=`) and sends it with every call.
//
// Thread safety: stateless; concurrent calls are safe.
#ifndef LIVEVIEW_SIMULATOR_SIM_PAGE_H
#define LIVEVIEW_SIMULATOR_SIM_PAGE_H

#include <string>

namespace LiveViewSimulator {

// The whole page: inline style (the renderer's style sheet and the page's own), the renderer's
// clock script and the page's script. Its content security policy allows only the page's own
// scripts, by a nonce drawn for each call, fetch and event streams to the same origin, and data:
// images; it loads nothing from outside. When no nonce can be drawn, a page without script that
// says so.
std::string SimulatorPage();

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_SIM_PAGE_H
