// Plays a scenario against a fresh embedded notification service, through LiveViewClient and the
// host-only controls, printing every step's code and message and the live view as the service
// holds it afterwards.
#ifndef LIVEVIEW_CLI_SCENARIO_RUNNER_H
#define LIVEVIEW_CLI_SCENARIO_RUNNER_H

#include <ostream>

#include "scenario.h"

namespace LiveViewCli {

struct PlayOptions {
    bool events = false;    // print system events and end events after each step
    bool logLines = false;  // print log lines after each step
};

// The service clock starts here and moves only by advanceClock steps.
constexpr int64_t PLAY_CLOCK_START_MILLIS = 1000000;

// True when every step answered the code it expects. Stops at the first step that does not.
bool PlayScenario(const Scenario& scenario, const PlayOptions& options, std::ostream& out);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_SCENARIO_RUNNER_H
