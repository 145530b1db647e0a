// Plays a scenario against a fresh embedded notification service, through LiveViewClient and the
// host-only controls, and hands every step's answer, with the live view that the service then
// holds, to an observer: the text report of `play`, its JSON report, or a preview's filmstrip.
//
// Thread safety: none; the embedded service is the process's, so one play at a time.
#ifndef LIVEVIEW_CLI_SCENARIO_RUNNER_H
#define LIVEVIEW_CLI_SCENARIO_RUNNER_H

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "notification_request.h"
#include "refbase.h"
#include "scenario.h"

namespace LiveViewCli {

// The service clock starts here and moves only by advanceClock steps.
constexpr int64_t PLAY_CLOCK_START_MILLIS = 1000000;

// What one step did.
struct StepReport {
    int number = 0;              // from 1
    const Step* step = nullptr;  // the scenario's step; outlives the observer's call
    std::string title;           // the step and its arguments, e.g. "start id 101 (a.json)"
    int32_t code = 0;            // the answer
    std::string message;
    bool asExpected = true;            // the answer is the step's "expect" (0 when not given)
    std::vector<std::string> details;  // e.g. the caller's result of an update, a read-back
    // Whether the step is about one live view (start, update, stop, get with an id).
    bool concernsLiveView = false;
    // The live view of the step, or for other steps the last one a step was about (0 before any),
    // and what the service holds under it afterwards (null when nothing).
    int32_t liveViewId = 0;
    Tavi::sptr<Tavi::Notification::NotificationRequest> held;
    bool heldEnded = false;
};

class PlayObserver {
public:
    virtual ~PlayObserver() = default;
    // Right after each step; the host's captured records of the step are still there to take.
    virtual void OnStep(const StepReport& report) = 0;
};

// Plays the steps in order and stops after the first one whose answer is not the one it
// expects. True when every step answered as expected. The service is reset before and after.
//
// Against a shared service (a simulator), the service's clock is left as it is, and what the
// scenario leaves behind stays for others to see.
bool PlayScenario(const Scenario& scenario, PlayObserver& observer, bool sharedService = false);

struct PlayOptions {
    bool events = false;    // print system events and end events after each step
    bool logLines = false;  // print log lines after each step
    std::string service;    // a running simulator's address; empty: a fresh embedded service
};

// The text report of `play`: a line per step with its answer, the step's note and details, the
// asked host records, and the live view held under the step's id.
class TextPlayReport : public PlayObserver {
public:
    TextPlayReport(const PlayOptions& options, std::ostream& out) : options_(options), out_(out) {}
    void OnStep(const StepReport& report) override;
    // The closing line of a play whose answers were all as expected.
    void Finish(bool asExpected) const;

private:
    PlayOptions options_;
    std::ostream& out_;
    int steps_ = 0;
};

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_SCENARIO_RUNNER_H
