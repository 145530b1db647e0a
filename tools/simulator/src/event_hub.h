// What the simulator tells its open streams: the page's change counter, and each app's notices
// (a button pressed, the service died) waiting for that app's event stream.
//
// Thread safety: every member may be called from any thread. Waits return early when the hub
// stops, so that streams end when the simulator does.
#ifndef LIVEVIEW_SIMULATOR_EVENT_HUB_H
#define LIVEVIEW_SIMULATOR_EVENT_HUB_H

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <string>

#include "host_control.h"

namespace LiveViewSimulator {

struct AppNotice {
    std::string event;  // "response" or "died"
    std::string data;   // JSON
};

class EventHub {
public:
    // Something a page shows changed: the change counter moves on and waiting pages wake.
    void Changed();
    int64_t ChangeCount();
    // Waits up to timeout for the change counter to pass seen; returns the counter then.
    int64_t WaitForChange(int64_t seen, std::chrono::milliseconds timeout);

    // Queues a notice for app's stream (at most a thousand wait; older ones are dropped).
    void Post(const Tavi::Host::AppId& app, AppNotice notice);
    // Forgets app's waiting notices (a new subscription starts afresh).
    void Clear(const Tavi::Host::AppId& app);
    // Waits up to timeout for a notice of app; true with it taken into notice.
    bool WaitForNotice(const Tavi::Host::AppId& app, std::chrono::milliseconds timeout,
                       AppNotice& notice);

    void Stop();
    bool Stopped();

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int64_t changes_ = 0;
    std::map<Tavi::Host::AppId, std::deque<AppNotice>> notices_;
    bool stopped_ = false;
};

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_EVENT_HUB_H
