// The simulator's core: the embedded notification service of this process, driven for whichever
// app a call names, with every publish and every change of what is held written to the store
// before the answer is given, and every change told to the event hub.
//
// Calls take decoded API calls and give the API's answers (a status and a JSON body). A live view
// the page shows is drawn by the renderer; the drawing is made once per change and shared by
// every page that asks.
//
// Thread safety: every member may be called from any thread; calls into the service are made one
// at a time, since the service's caller is the process-wide host identity.
#ifndef LIVEVIEW_SIMULATOR_SIMULATOR_H
#define LIVEVIEW_SIMULATOR_SIMULATOR_H

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "api_decode.h"
#include "event_hub.h"
#include "sim_store.h"

namespace LiveViewSimulator {

struct SimulatorOptions {
    std::string databasePath;  // empty: an in-memory database
    std::string resourceDir;   // the folder of "res://" pictures; empty: placeholders
};

struct ApiAnswer {
    int status = 200;
    std::string body;  // JSON
};

class Simulator {
public:
    // Opens the store and puts what it holds (slot switches, held live views) back into the
    // embedded service, which this process then uses whatever LIVEVIEW_SERVICE says. Null with
    // error set when the store cannot be opened or read. At most one per process.
    static std::unique_ptr<Simulator> Open(const SimulatorOptions& options, std::string& error);
    ~Simulator();

    ApiAnswer Publish(const PublishCall& call);
    ApiAnswer Get(const GetCall& call);
    ApiAnswer Enabled(const AppCall& call);
    // Subscribes the app: presses and the service's death are posted to its notices in the hub.
    ApiAnswer Subscribe(const AppCall& call);
    ApiAnswer Press(const PressCall& call);
    ApiAnswer Slot(const SlotCall& call);
    ApiAnswer RateLimit(const RateLimitCall& call);
    ApiAnswer Clock(const ClockCall& call);
    ApiAnswer ClockNow();
    ApiAnswer FailNext(const FailNextCall& call);
    ApiAnswer Kill();
    ApiAnswer Held(const HeldQuery& query);
    // Newest first; limit 0 for all; with the request of each publish when withRequests.
    ApiAnswer History(int limit, bool withRequests);
    // What the page shows (see the page's script).
    ApiAnswer State();

    // Live views also leave by themselves when their keep time runs out on the real clock; the
    // server calls this once a second so that the store and the pages follow.
    void Tick();

    EventHub& Events() { return events_; }

private:
    class AppNotices;

    Simulator(std::unique_ptr<SimStore> store, SimulatorOptions options);
    bool RestoreLocked(std::string& error);
    // Writes what the service holds now to the store when it differs from what was written last.
    bool SyncHeldLocked(std::string& error);
    // The store's held row of app's live view id is now written (null: deleted).
    void NoteWrittenLocked(const Tavi::Host::AppId& app, int32_t id, const HeldRow* written);
    void SetCallerLocked(const Tavi::Host::AppId& app);
    std::string RenderState();
    // One live view as the page's state lists it (JSON): its app, id, ended flag, revision (the
    // page keeps a drawing while these stay the same) and drawings.
    std::string DrawView(const Tavi::Host::HeldLiveView& view, int64_t revision) const;

    const SimulatorOptions options_;
    std::unique_ptr<SimStore> store_;
    EventHub events_;

    std::mutex mutex_;  // one call into the service at a time
    std::set<Tavi::Host::AppId> apps_;
    std::map<Tavi::Host::AppId, std::unique_ptr<AppNotices>> notices_;
    // What the store's held table lists, in the service's order.
    std::vector<Tavi::Host::HeldKey> lastHeld_;
    // Accepted publishes per live view, so that a drawing is made again only when it changed.
    std::map<std::pair<Tavi::Host::AppId, int32_t>, int64_t> revisions_;
    bool manualClock_ = false;
    int32_t rateLimit_ = 10;

    struct DrawnView {
        int64_t revision = 0;
        bool ended = false;
        std::string json;
    };
    std::mutex stateMutex_;  // the page's state, drawn once per change, and the drawings it reuses
    int64_t stateChange_ = -1;
    std::string state_;
    std::map<std::pair<Tavi::Host::AppId, int32_t>, DrawnView> drawn_;
};

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_SIMULATOR_H
