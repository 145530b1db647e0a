#include "scenario_runner.h"

#include <sstream>
#include <string>
#include <vector>

#include "error_code.h"
#include "host_records.h"
#include "json_tree.h"
#include "live_view_client.h"
#include "live_view_error_conversion.h"
#include "request_json.h"

namespace LiveViewCli {

using namespace Tavi::Wisp::LiveView;

namespace {

// A step's answer, with what it says beyond the code and whether it concerns one live view.
struct Outcome {
    int32_t code = 0;
    std::string message;
    std::vector<std::string> details;
    bool concernsLiveView = false;
    int32_t liveViewId = 0;
};

std::string PublicMessage(int32_t code) {
    if (code == SUCCESS) {
        return "success.";
    }
    const auto it = ErrorMessage::ERROR_MAP.find(static_cast<ErrorCode>(code));
    return it == ErrorMessage::ERROR_MAP.end() ? "unknown code." : it->second;
}

std::string IdText(const LiveView& liveView) {
    const auto id = liveView.GetId();
    return id == nullptr ? "none" : std::to_string(*id);
}

std::string Indent(const std::string& text, const std::string& prefix) {
    std::istringstream lines(text);
    std::string out;
    std::string line;
    while (std::getline(lines, line)) {
        out += prefix + line + "\n";
    }
    return out;
}

// What the step's line says after its name.
std::string Arguments(const Step& step) {
    switch (step.kind) {
        case StepKind::START:
        case StepKind::UPDATE:
        case StepKind::STOP:
            return " id " + IdText(*step.liveView) + " (" + step.source + ")";
        case StepKind::GET:
            return " id " + std::to_string(step.id);
        case StepKind::ENABLED:
            return "";
        case StepKind::ADVANCE_CLOCK:
            return " " + std::to_string(step.number) + " ms";
        case StepKind::PRESS_BUTTON:
            return " id " + std::to_string(step.id) + " button " + step.button;
        case StepKind::SET_SLOT_ENABLED:
            return step.flag ? " true" : " false";
        case StepKind::SET_RATE_LIMIT:
            return " " + std::to_string(step.number);
        case StepKind::FAIL_NEXT:
            return std::string(" ") + Tavi::Host::ServiceCallName(step.call) + " error " +
                   std::to_string(step.number) + " times " + std::to_string(step.times);
    }
    return "";
}

class Player {
public:
    explicit Player(const Scenario& scenario) : scenario_(scenario) {}

    Outcome Run(const Step& step);
    // Fills the report's held live view from what the service holds for the scenario's app.
    void FindHeld(StepReport& report) const;

private:
    Outcome Publish(const Step& step);
    Outcome Get(const Step& step);
    Outcome Enabled();
    Outcome Control(const Step& step) const;

    const Scenario& scenario_;
    LiveViewClient client_;
};

Outcome Player::Run(const Step& step) {
    switch (step.kind) {
        case StepKind::START:
        case StepKind::UPDATE:
        case StepKind::STOP:
            return Publish(step);
        case StepKind::GET:
            return Get(step);
        case StepKind::ENABLED:
            return Enabled();
        default:
            return Control(step);
    }
}

Outcome Player::Publish(const Step& step) {
    LiveView& liveView = *step.liveView;
    LiveViewClient::LiveViewResult result;
    const BaseRsp rsp = step.kind == StepKind::START    ? client_.StartLiveView(liveView, result)
                        : step.kind == StepKind::UPDATE ? client_.UpdateLiveView(liveView, result)
                                                        : client_.StopLiveView(liveView, result);
    Outcome outcome{
        rsp.GetErrAsInt32(), rsp.Succeed() ? result.message : rsp.GetInfo(), {}, false, 0};
    if (step.kind != StepKind::START && result.code != 0) {
        outcome.details.push_back("result: " + std::to_string(result.code) + " " + result.message);
    }
    if (const auto id = liveView.GetId()) {
        outcome.concernsLiveView = true;
        outcome.liveViewId = *id;
    }
    return outcome;
}

Outcome Player::Get(const Step& step) {
    LiveView readBack;
    const int code = client_.GetActiveLiveView(step.id, readBack);
    Outcome outcome{code, PublicMessage(code), {}, true, step.id};
    if (code == SUCCESS) {
        outcome.details.push_back("read back: event " + readBack.GetEvent() + ", layoutType " +
                                  std::to_string(LiveView::GetLayoutType(readBack)) +
                                  ", capsuleType " +
                                  std::to_string(LiveView::GetCapsuleType(readBack)));
    }
    return outcome;
}

Outcome Player::Enabled() {
    bool enabled = false;
    const int code = client_.IsLiveViewEnabled(enabled);
    Outcome outcome{code, PublicMessage(code), {}, false, 0};
    if (code == SUCCESS) {
        outcome.details.push_back(enabled ? "enabled: true" : "enabled: false");
    }
    return outcome;
}

Outcome Player::Control(const Step& step) const {
    switch (step.kind) {
        case StepKind::ADVANCE_CLOCK:
            Tavi::Host::AdvanceClock(step.number);
            break;
        case StepKind::SET_SLOT_ENABLED:
            Tavi::Host::SetLiveViewSlotEnabled(scenario_.bundle, scenario_.uid, step.flag);
            break;
        case StepKind::SET_RATE_LIMIT:
            Tavi::Host::SetRateLimit(static_cast<int>(step.number));
            break;
        case StepKind::FAIL_NEXT:
            Tavi::Host::FailNextCalls(step.call, static_cast<int32_t>(step.number), step.times);
            break;
        case StepKind::PRESS_BUTTON: {
            const int32_t code = LiveViewErrorConversion::ReturnLiveViewError(
                Tavi::Host::PressButton(scenario_.bundle, scenario_.uid, step.id, step.button));
            return Outcome{code, PublicMessage(code), {}, false, 0};
        }
        default:
            break;
    }
    return Outcome{SUCCESS, "done.", {}, false, 0};
}

void Player::FindHeld(StepReport& report) const {
    Tavi::Host::HeldLiveView held;
    if (Tavi::Host::HeldLiveViewOf(scenario_.bundle, scenario_.uid, report.liveViewId, held)) {
        report.held = held.request;
        report.heldEnded = held.ended;
    }
}

}  // namespace

bool PlayScenario(const Scenario& scenario, PlayObserver& observer, bool sharedService) {
    Tavi::Host::ResetAll();
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::CAPTURE);
    Tavi::Host::SetCallingApp(scenario.bundle, scenario.uid);
    if (!sharedService) {
        Tavi::Host::SetClockMillis(PLAY_CLOCK_START_MILLIS);
    }

    Player player(scenario);
    bool asExpected = true;
    int number = 0;
    int32_t lastLiveViewId = 0;
    for (const Step& step : scenario.steps) {
        Outcome outcome = player.Run(step);
        StepReport report;
        report.number = ++number;
        report.step = &step;
        report.title = step.name + Arguments(step);
        report.code = outcome.code;
        report.message = std::move(outcome.message);
        report.asExpected = outcome.code == step.expect;
        report.details = std::move(outcome.details);
        report.concernsLiveView = outcome.concernsLiveView;
        if (outcome.concernsLiveView) {
            lastLiveViewId = outcome.liveViewId;
        }
        report.liveViewId = lastLiveViewId;
        player.FindHeld(report);
        observer.OnStep(report);
        asExpected = report.asExpected;
        if (!asExpected) {
            break;
        }
    }
    Tavi::Host::ResetAll();
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    return asExpected;
}

void TextPlayReport::OnStep(const StepReport& report) {
    const Step& step = *report.step;
    steps_ = report.number;
    out_ << '#' << report.number << ' ' << report.title << ": " << report.code << ' '
         << report.message << (report.asExpected && step.expect != 0 ? " (expected)" : "") << '\n';
    if (!step.note.empty()) {
        out_ << "   note: " << step.note << '\n';
    }
    for (const auto& detail : report.details) {
        out_ << "   " << detail << '\n';
    }
    FlushHostRecords(out_, options_.events, options_.logLines);
    if (report.concernsLiveView) {
        if (report.held == nullptr) {
            out_ << "   held: none under id " << report.liveViewId << '\n';
        } else {
            out_ << "   held: id " << report.liveViewId
                 << (report.heldEnded ? ", ended" : ", active") << '\n';
            const JsonTree tree = MakeTree(RequestToJson(*report.held));
            out_ << Indent(PrintTree(tree.get()), "   ");
        }
    }
    if (!report.asExpected) {
        out_ << "play: step #" << report.number << " answered " << report.code << ", expected "
             << step.expect << '\n';
    }
}

void TextPlayReport::Finish(bool asExpected) const {
    if (asExpected) {
        out_ << "play: " << steps_ << " steps, every answer as expected\n";
    }
}

}  // namespace LiveViewCli
