#include "preview.h"

#include <filesystem>
#include <fstream>

#include "commands.h"
#include "host_control.h"
#include "json_document.h"
#include "live_view_client.h"
#include "live_view_reader.h"
#include "live_view_request_pipeline.h"
#include "live_view_rule_hint.h"
#include "render_page.h"
#include "scenario.h"
#include "scenario_runner.h"

namespace LiveViewCli {

using Tavi::Wisp::LiveView::BaseRsp;
using Tavi::Wisp::LiveView::LiveView;
using Tavi::Wisp::LiveView::LiveViewClient;

namespace {

const char* const PREVIEW_FOOTER =
    "For update and stop the file is first started with its sequence left out, so that the "
    "service holds it without a version, and then the operation is applied to the file exactly "
    "as written (its own sequence included). The page shows what the service then holds, as the "
    "library reads it back; a refusal shows its code and message instead. An ended live view "
    "is held only for its keep time: after a stop without one the page says that nothing is "
    "held.";

// The app that previews publish as: the one a scenario without an "app" member uses.
const Scenario PREVIEW_APP;

// The client's answer to the operation; result holds the application-facing outcome.
BaseRsp Apply(LiveViewClient& client, const std::string& operation, LiveView& liveView,
              LiveViewClient::LiveViewResult& result) {
    if (operation == "update") {
        return client.UpdateLiveView(liveView, result);
    }
    if (operation == "stop") {
        return client.StopLiveView(liveView, result);
    }
    return client.StartLiveView(liveView, result);
}

// What the service holds under the live view's id for the preview's app; null when nothing.
Tavi::sptr<Tavi::Notification::NotificationRequest> Held(const LiveView& liveView) {
    const auto id = liveView.GetId();
    Tavi::Host::HeldLiveView held;
    if (id == nullptr ||
        !Tavi::Host::HeldLiveViewOf(PREVIEW_APP.bundle, PREVIEW_APP.uid, *id, held)) {
        return nullptr;
    }
    return held.request;
}

// The page and the exit status of one preview.
struct Result {
    std::string page;
    int status = STATUS_OK;
    LiveViewRender::Answer refusal;  // what refused, when status is STATUS_REFUSED

    void Refuse(const std::string& heading, const LiveViewRender::Answer& answer,
                const std::string& hint) {
        refusal = answer;
        page = LiveViewRender::Page(
            heading, LiveViewRender::RefusalPanel(answer.code, answer.message, hint));
        status = STATUS_REFUSED;
    }
};

LiveViewRender::Answer AnswerOf(const BaseRsp& rsp) {
    return LiveViewRender::Answer{rsp.GetErrAsInt32(), rsp.GetInfo()};
}

// How to fix a record that the client refused for a broken rule: the request pipeline's hint for
// the same record and operation, the held live view being what `started` left. Empty for a
// refusal that no rule explains (a service refusal).
std::string HintFor(const LiveView& liveView, const std::string& operation,
                    const LiveView& started) {
    using Tavi::Wisp::LiveView::LiveViewRequestPipeline;
    const LiveView::Operation op = operation == "update" ? LiveView::UPDATE
                                   : operation == "stop" ? LiveView::STOP
                                                         : LiveView::START;
    const auto held = op == LiveView::START ? Tavi::Wisp::LiveView::HeldLiveView()
                                            : LiveViewRequestPipeline::HeldAfterStart(started);
    Tavi::Notification::NotificationRequest scratch;
    Tavi::Wisp::LiveView::RuleHint hint;
    LiveViewRequestPipeline::Build(liveView, op, held, scratch, &hint);
    return hint.ToString();
}

// Runs the preview against a fresh service; false with error set when the file is unusable.
bool Preview(const PreviewOptions& options, const std::string& heading, Result& result,
             LiveViewJson::InputError& error) {
    LiveView liveView;
    if (!LiveViewJson::LoadLiveView(options.file, liveView, error)) {
        return false;
    }
    LiveViewClient client;
    if (options.operation != "start") {
        LiveView first;
        if (!LiveViewJson::LoadLiveView(options.file, first, error)) {
            return false;
        }
        first.SetSequence(nullptr);
        LiveViewClient::LiveViewResult startResult;
        const BaseRsp started = Apply(client, "start", first, startResult);
        if (!started.Succeed()) {
            result.Refuse(heading + " (the start before " + options.operation + ")",
                          AnswerOf(started), HintFor(first, "start", first));
            return true;
        }
    }
    LiveViewClient::LiveViewResult outcome;
    const BaseRsp rsp = Apply(client, options.operation, liveView, outcome);
    if (!rsp.Succeed()) {
        LiveView started;
        LiveViewJson::LoadLiveView(options.file, started, error);
        result.Refuse(heading, AnswerOf(rsp), HintFor(liveView, options.operation, started));
        return true;
    }
    const auto held = Held(liveView);
    if (held == nullptr) {
        // An ended live view is kept only for its keep time, which may be none at all.
        const auto id = liveView.GetId();
        const std::string step = options.operation + ": the service holds nothing under id " +
                                 (id == nullptr ? std::string("(none)") : std::to_string(*id));
        result.page = LiveViewRender::FilmstripPage(
            heading, {{step, {outcome.code, outcome.message}, std::nullopt}});
        return true;
    }
    LiveViewRender::RenderOptions render;
    render.resourceDir = options.resourceDir;
    const LiveViewRender::Presentations presentations =
        LiveViewRender::RenderPresentations(held, render);
    result.page = LiveViewRender::PreviewPage(heading, presentations);
    if (presentations.readBack.code != 0) {
        result.refusal = presentations.readBack;
        result.status = STATUS_REFUSED;
    }
    return true;
}

// One frame per step: the step, its answer, and the live view held afterwards.
class Filmstrip : public PlayObserver {
public:
    explicit Filmstrip(const LiveViewRender::RenderOptions& render) : render_(render) {}

    void OnStep(const StepReport& report) override {
        LiveViewRender::Frame frame;
        frame.step = "#" + std::to_string(report.number) + " " + report.title;
        if (!report.step->note.empty()) {
            frame.step += " \xE2\x80\x94 " + report.step->note;
        }
        frame.answer = {report.code, report.message};
        if (report.held != nullptr) {
            frame.held = LiveViewRender::RenderPresentations(report.held, render_);
        }
        frames_.push_back(std::move(frame));
        Tavi::Host::TakeLogLines();
        Tavi::Host::TakeSysEvents();
        Tavi::Host::TakeAppEvents();
    }

    const std::vector<LiveViewRender::Frame>& Frames() const { return frames_; }

private:
    LiveViewRender::RenderOptions render_;
    std::vector<LiveViewRender::Frame> frames_;
};

// A scenario file: its steps played, one frame each. False with error set when it is unusable.
bool PreviewScenario(const PreviewOptions& options, const std::string& heading, Result& result,
                     LiveViewJson::InputError& error) {
    Scenario scenario;
    if (!LoadScenario(options.file, scenario, error)) {
        return false;
    }
    LiveViewRender::RenderOptions render;
    render.resourceDir = options.resourceDir;
    Filmstrip filmstrip(render);
    const bool asExpected = PlayScenario(scenario, filmstrip);
    result.page = LiveViewRender::FilmstripPage(heading, filmstrip.Frames());
    if (!asExpected) {
        const auto& last = filmstrip.Frames().back();
        result.refusal = last.answer;
        result.status = STATUS_REFUSED;
    }
    return true;
}

// Writes page to options.output, or to out when there is none; false when it cannot be written.
bool WritePage(const PreviewOptions& options, const std::string& page, std::ostream& out,
               std::ostream& err) {
    if (options.output.empty()) {
        out << page;
        return true;
    }
    std::ofstream file(options.output, std::ios::binary | std::ios::trunc);
    file << page;
    file.close();
    if (!file) {
        err << "liveview: " << options.output << ": cannot be written\n";
        return false;
    }
    return true;
}

// What a running simulator holds for the app under the id, drawn; a refusal panel when nothing.
int PreviewFromService(const PreviewOptions& options, std::ostream& out, std::ostream& err) {
    std::string error;
    if (options.bundle.empty()) {
        err << "liveview: preview --service needs --app, the bundle name of the live view's app\n";
        return STATUS_UNUSABLE;
    }
    if (!Tavi::Host::UseRemoteService(options.service, error)) {
        err << "liveview: --service: " << error << '\n';
        return STATUS_UNUSABLE;
    }
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    const std::string heading = options.bundle + " \xC2\xB7 " + std::to_string(options.id);
    Tavi::Host::HeldLiveView held;
    Result result;
    if (!Tavi::Host::HeldLiveViewOf(options.bundle, options.uid, options.id, held)) {
        result.Refuse(heading,
                      {Tavi::Notification::ERR_ANS_NOTIFICATION_NOT_EXISTS,
                       "the simulator holds no live view of this app under this id, "
                       "or cannot be reached"},
                      "");
    } else {
        LiveViewRender::RenderOptions render;
        render.resourceDir = options.resourceDir;
        result.page = LiveViewRender::PreviewPage(
            heading, LiveViewRender::RenderPresentations(held.request, render));
    }
    if (!WritePage(options, result.page, out, err)) {
        return STATUS_UNUSABLE;
    }
    if (result.status != STATUS_OK && !options.output.empty()) {
        out << result.refusal.code << ' ' << result.refusal.message << '\n';
    }
    return result.status;
}

// A scenario is an object with "steps"; anything else is taken for a live view.
bool IsScenarioFile(const std::string& path) {
    LiveViewJson::JsonDocument document;
    LiveViewJson::InputError ignored;
    return LiveViewJson::LoadJsonFile(path, document, ignored) && document.Root()->IsObject() &&
           document.Root()->Find("steps") != nullptr;
}

}  // namespace

CLI::App* AddPreviewVerb(CLI::App& app, PreviewOptions& options) {
    CLI::App* verb = app.add_subcommand(
        "preview",
        "Publish a live view to the embedded service and write a self-contained HTML page of "
        "what the service holds: the capsule in the status bar, the card in the notification "
        "shade, the lock screen card and the external screen.");
    CLI::Option* file = verb->add_option(
        "FILE", options.file,
        "Live view JSON file, or a scenario: then a filmstrip with one frame per step, the step's "
        "answer and the live view held after it");
    CLI::Option* service = verb->add_option(
        "--service", options.service,
        "Instead of FILE: draw the live view that the running simulator at this address holds "
        "(with --app, --uid and --id)");
    file->excludes(service);
    verb->add_option("--app", options.bundle, "With --service: the app's bundle name")
        ->needs(service);
    verb->add_option("--uid", options.uid, "With --service: the app's uid")->needs(service);
    verb->add_option("--id", options.id, "With --service: the live view's id")->needs(service);
    verb->add_option("--op", options.operation,
                     "Operation to preview a live view file for: start, update or stop")
        ->check(CLI::IsMember({"start", "update", "stop"}));
    verb->add_option("--res", options.resourceDir,
                     "Folder of resource pictures: \"res://name\" is drawn from DIR/name.png; "
                     "without it, or when the file is missing, a labelled placeholder");
    verb->add_option("-o,--output", options.output, "Write the page here instead of to stdout");
    verb->footer(PREVIEW_FOOTER);
    return verb;
}

int RunPreview(const PreviewOptions& options, std::ostream& out, std::ostream& err) {
    if (!options.service.empty()) {
        return PreviewFromService(options, out, err);
    }
    if (options.file.empty()) {
        err << "liveview: preview needs FILE, or --service with --app, --uid and --id\n";
        return STATUS_UNUSABLE;
    }
    Tavi::Host::ResetAll();
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    Tavi::Host::SetCallingApp(PREVIEW_APP.bundle, PREVIEW_APP.uid);
    Tavi::Host::SetClockMillis(PLAY_CLOCK_START_MILLIS);

    const bool isScenario = IsScenarioFile(options.file);
    const std::string heading = std::filesystem::path(options.file).filename().string() +
                                (isScenario ? "" : " \xC2\xB7 " + options.operation);
    Result result;
    LiveViewJson::InputError error;
    const bool usable = isScenario ? PreviewScenario(options, heading, result, error)
                                   : Preview(options, heading, result, error);
    Tavi::Host::ResetAll();
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    if (!usable) {
        err << "liveview: " << error.ToString() << '\n';
        return STATUS_UNUSABLE;
    }
    if (!WritePage(options, result.page, out, err)) {
        return STATUS_UNUSABLE;
    }
    if (result.status != STATUS_OK && !options.output.empty()) {
        out << result.refusal.code << ' ' << result.refusal.message << '\n';
    }
    return result.status;
}

}  // namespace LiveViewCli
