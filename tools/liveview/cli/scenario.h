// A scenario: the steps that an application takes with its live views, and the service controls
// around them, read from JSON:
//   {"app": {"bundle": "com.example.food", "uid": 20010001},
//    "steps": [{"start": <live view> | {"file": "x.json"}}, {"update": ...}, {"stop": ...},
//              {"get": id}, {"enabled": {}}, {"advanceClock": ms},
//              {"pressButton": {"id": N, "button": "name"}}, {"setSlotEnabled": bool},
//              {"setRateLimit": N}, {"failNext": {"call": "publish", "error": N, "times": 1}}]}
// Every step may add "expect": the code it should answer (0 when not given), and "note": a text
// printed with it. A value that makes no sense (a negative clock move or rate limit, "times"
// below 1, "enabled" that is not an object) makes the scenario unusable; the reason names the
// step ("step #3") and its path ("steps[2].advanceClock").
#ifndef LIVEVIEW_CLI_SCENARIO_H
#define LIVEVIEW_CLI_SCENARIO_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host_control.h"
#include "input_error.h"
#include "live_view.h"
#include "read_context.h"

namespace LiveViewCli {

enum class StepKind {
    START,
    UPDATE,
    STOP,
    GET,
    ENABLED,
    ADVANCE_CLOCK,
    PRESS_BUTTON,
    SET_SLOT_ENABLED,
    SET_RATE_LIMIT,
    FAIL_NEXT,
};

struct Step {
    StepKind kind = StepKind::ENABLED;
    std::string name;  // as written, e.g. "start"
    std::string note;
    int32_t expect = 0;
    // START, UPDATE, STOP: the record and where it came from ("inline" or the file).
    std::shared_ptr<Tavi::Wisp::LiveView::LiveView> liveView;
    std::string source;
    // GET and PRESS_BUTTON: the live view id; ADVANCE_CLOCK: milliseconds; SET_RATE_LIMIT: the
    // limit; FAIL_NEXT: the error number.
    int64_t number = 0;
    int32_t id = 0;
    bool flag = false;                                                // SET_SLOT_ENABLED
    std::string button;                                               // PRESS_BUTTON
    Tavi::Host::ServiceCall call = Tavi::Host::ServiceCall::PUBLISH;  // FAIL_NEXT
    int times = 1;                                                    // FAIL_NEXT
};

struct Scenario {
    std::string bundle = "com.example.liveview";
    int32_t uid = 20010001;
    std::vector<Step> steps;
};

// Loads the scenario at path, with every live view it names; files are relative to its folder.
// False with error set when the scenario or a file it names is unusable. Unknown members of the
// scenario and of its live views are added to warnings (or, with options.strict, make it
// unusable).
bool LoadScenario(const std::string& path, const LiveViewJson::LoadOptions& options,
                  Scenario& scenario, std::vector<LiveViewJson::InputWarning>& warnings,
                  LiveViewJson::InputError& error);
// The same with the default options and no warnings.
bool LoadScenario(const std::string& path, Scenario& scenario, LiveViewJson::InputError& error);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_SCENARIO_H
