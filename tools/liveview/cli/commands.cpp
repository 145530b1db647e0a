#include "commands.h"

#include "host_control.h"
#include "json_document.h"
#include "json_tree.h"
#include "live_view_reader.h"
#include "live_view_request_pipeline.h"
#include "live_view_rule_hint.h"
#include "request_json.h"
#include "scenario.h"

namespace LiveViewCli {

using LiveViewJson::JsonValue;
using Tavi::Wisp::LiveView::HeldLiveView;
using Tavi::Wisp::LiveView::LiveView;
using Tavi::Wisp::LiveView::LiveViewRequestPipeline;
using Tavi::Wisp::LiveView::PipelineOutcome;
using Tavi::Wisp::LiveView::RuleHint;

namespace {

LiveView::Operation OperationOf(const std::string& name) {
    return name == "update" ? LiveView::UPDATE : name == "stop" ? LiveView::STOP : LiveView::START;
}

// Reads the live view of file with the library's diagnostics silenced (they are not part of these
// verbs' output); warnings go to the report. False with error set when the input is unusable.
bool LoadQuietly(const std::string& file, const VerbOptions& options, LiveView& liveView,
                 VerbReport& report, LiveViewJson::InputError& error) {
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    std::vector<LiveViewJson::InputWarning> warnings;
    LiveViewJson::LoadOptions load;
    load.strict = options.strict;
    const bool usable = LiveViewJson::LoadLiveView(file, load, liveView, warnings, error);
    report.AddWarnings(warnings);
    return usable;
}

// The request as the JSON that convert prints.
JsonValue RequestDocument(const Tavi::Notification::NotificationRequest& request) {
    const JsonTree tree = MakeTree(RequestToJson(request));
    LiveViewJson::JsonDocument document;
    LiveViewJson::InputError ignored;
    LiveViewJson::ParseJson(PrintTree(tree.get()), "request", document, ignored);
    return document.Root() == nullptr ? JsonValue() : *document.Root();
}

// Reads the live view of request.file and builds what request.operation would publish, as the
// client would before publishing (held: the --held file, or the file itself, as its start would
// have left the service); a build that passes goes to `accept`. Answers the exit status.
template <typename Accept>
int BuildFromFile(const BuildRequest& request, VerbReport& report, Accept&& accept) {
    report.Document().Add("operation", JsonValue::String(request.operation));
    LiveViewJson::InputError error;
    LiveView liveView;
    if (!LoadQuietly(request.file, request.verb, liveView, report, error)) {
        return report.Unusable(error);
    }
    const LiveView::Operation operation = OperationOf(request.operation);
    HeldLiveView held;
    if (operation != LiveView::START) {
        LiveView heldLiveView;
        const std::string& heldFile = request.heldFile.empty() ? request.file : request.heldFile;
        if (!LoadQuietly(heldFile, request.verb, heldLiveView, report, error)) {
            return report.Unusable(error);
        }
        held = LiveViewRequestPipeline::HeldAfterStart(heldLiveView);
    }
    Tavi::Notification::NotificationRequest built;
    RuleHint hint;
    const PipelineOutcome outcome =
        LiveViewRequestPipeline::Build(liveView, operation, held, built, &hint);
    if (!outcome.rsp.Succeed()) {
        return report.Refused(
            Refusal{outcome.rsp.GetErrAsInt32(), outcome.rsp.GetInfo(),
                    outcome.failedSection == nullptr ? "" : outcome.failedSection->name, hint.path,
                    hint.IsSet() ? hint.ToString() : ""});
    }
    return accept(built);
}

// play's JSON report: every step with its answer and the live view held afterwards.
class JsonPlayReport : public PlayObserver {
public:
    explicit JsonPlayReport(JsonValue& steps) : steps_(steps) {}

    void OnStep(const StepReport& report) override {
        JsonValue& step = steps_.Append(JsonValue::Object());
        step.Add("number", JsonValue::Integer(report.number));
        step.Add("step", JsonValue::String(report.title));
        step.Add("code", JsonValue::Integer(report.code));
        step.Add("message", JsonValue::String(report.message));
        step.Add("expected", JsonValue::Integer(report.step->expect));
        step.Add("asExpected", JsonValue::Boolean(report.asExpected));
        step.Add("note", JsonValue::String(report.step->note));
        JsonValue& details = step.Add("details", JsonValue::Array());
        for (const auto& detail : report.details) {
            details.Append(JsonValue::String(detail));
        }
        if (!report.concernsLiveView) {
            step.Add("held", JsonValue());
        } else {
            JsonValue& held = step.Add("held", JsonValue::Object());
            held.Add("id", JsonValue::Integer(report.liveViewId));
            held.Add("ended", JsonValue::Boolean(report.heldEnded));
            held.Add("request",
                     report.held == nullptr ? JsonValue() : RequestDocument(*report.held));
        }
        Tavi::Host::TakeLogLines();
        Tavi::Host::TakeSysEvents();
        Tavi::Host::TakeAppEvents();
        lastCode_ = report.code;
        lastMessage_ = report.message;
    }

    int32_t LastCode() const { return lastCode_; }
    const std::string& LastMessage() const { return lastMessage_; }

private:
    JsonValue& steps_;
    int32_t lastCode_ = 0;
    std::string lastMessage_;
};

}  // namespace

int RunValidate(const BuildRequest& request, std::ostream& out, std::ostream& err) {
    VerbReport report("validate", request.file, request.verb, out, err);
    return BuildFromFile(request, report, [&](const Tavi::Notification::NotificationRequest&) {
        return report.Accepted("0 valid for " + request.operation,
                               "valid for " + request.operation);
    });
}

int RunConvert(const BuildRequest& request, std::ostream& out, std::ostream& err) {
    VerbReport report("convert", request.file, request.verb, out, err);
    return BuildFromFile(request, report,
                         [&](const Tavi::Notification::NotificationRequest& built) {
                             if (report.IsJson()) {
                                 report.Document().Add("request", RequestDocument(built));
                             } else {
                                 const JsonTree tree = MakeTree(RequestToJson(built));
                                 out << PrintTree(tree.get()) << '\n';
                             }
                             return report.Accepted("", "converted");
                         });
}

int RunPlay(const PlayRequest& request, std::ostream& out, std::ostream& err) {
    VerbReport report("play", request.file, request.verb, out, err);
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    Scenario scenario;
    std::vector<LiveViewJson::InputWarning> warnings;
    LiveViewJson::InputError error;
    LiveViewJson::LoadOptions load;
    load.strict = request.verb.strict;
    const bool usable = LoadScenario(request.file, load, scenario, warnings, error);
    report.AddWarnings(warnings);
    if (!usable) {
        return report.Unusable(error);
    }
    const bool shared = !request.play.service.empty();
    std::string serviceError;
    if (shared && !Tavi::Host::UseRemoteService(request.play.service, serviceError)) {
        err << "liveview: --service: " << serviceError << '\n';
        return STATUS_UNUSABLE;
    }
    if (!report.IsJson()) {
        TextPlayReport text(request.play, out);
        const bool asExpected = PlayScenario(scenario, text, shared);
        text.Finish(asExpected);
        return report.Done(asExpected ? STATUS_OK : STATUS_REFUSED);
    }
    JsonValue& steps = report.Document().Add("steps", JsonValue::Array());
    JsonPlayReport json(steps);
    const bool asExpected = PlayScenario(scenario, json, shared);
    report.Document().Add("asExpected", JsonValue::Boolean(asExpected));
    const Refusal last{json.LastCode(), json.LastMessage(), "", "", ""};
    return asExpected ? report.Accepted("", "every answer as expected") : report.Refused(last);
}

}  // namespace LiveViewCli
