#include "commands.h"

#include "host_control.h"
#include "json_tree.h"
#include "live_view_reader.h"
#include "live_view_request_pipeline.h"
#include "request_json.h"
#include "scenario.h"

namespace LiveViewCli {

using Tavi::Wisp::LiveView::BaseRsp;
using Tavi::Wisp::LiveView::HeldLiveView;
using Tavi::Wisp::LiveView::LiveView;
using Tavi::Wisp::LiveView::LiveViewRequestPipeline;
using Tavi::Wisp::LiveView::PipelineOutcome;

namespace {

LiveView::Operation OperationOf(const std::string& name) {
    return name == "update" ? LiveView::UPDATE : name == "stop" ? LiveView::STOP : LiveView::START;
}

// The library's diagnostics are not part of these verbs' output.
void Quiet() {
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
}

int Unusable(const LiveViewJson::InputError& error, std::ostream& err) {
    err << "liveview: " << error.ToString() << '\n';
    return STATUS_UNUSABLE;
}

// Reads the live view of file with the library's diagnostics silenced; on unusable input writes
// the reason to err and stores the exit status in status.
bool LoadQuietly(const std::string& file, LiveView& liveView, std::ostream& err, int& status) {
    Quiet();
    LiveViewJson::InputError error;
    if (LiveViewJson::LoadLiveView(file, liveView, error)) {
        return true;
    }
    status = Unusable(error, err);
    return false;
}

// The library's answer, and the section whose check gave it.
int Refused(const PipelineOutcome& outcome, std::ostream& out) {
    out << outcome.rsp.GetErrAsInt32() << ' ' << outcome.rsp.GetInfo() << '\n';
    if (outcome.failedSection != nullptr) {
        out << "section: " << outcome.failedSection->name << '\n';
    }
    return STATUS_REFUSED;
}

// What the service holds for the live view that an update or stop continues: the live view of
// heldFile (the file itself when there is none) as its start would have left it.
bool LoadHeld(const std::string& file, const std::string& heldFile, HeldLiveView& held,
              std::ostream& err, int& status) {
    LiveView heldLiveView;
    if (!LoadQuietly(heldFile.empty() ? file : heldFile, heldLiveView, err, status)) {
        return false;
    }
    held = LiveViewRequestPipeline::HeldAfterStart(heldLiveView);
    return true;
}

// Reads the live view of request.file and builds what request.operation would publish, as the
// client would before publishing; a build that passes goes to `report`. Answers the exit status:
// unusable input, the library's refusal, or report's.
template <typename Report>
int BuildFromFile(const BuildRequest& request, std::ostream& out, std::ostream& err,
                  Report&& report) {
    int status = STATUS_OK;
    LiveView liveView;
    if (!LoadQuietly(request.file, liveView, err, status)) {
        return status;
    }
    const LiveView::Operation operation = OperationOf(request.operation);
    HeldLiveView held;
    if (operation != LiveView::START &&
        !LoadHeld(request.file, request.heldFile, held, err, status)) {
        return status;
    }
    Tavi::Notification::NotificationRequest built;
    const PipelineOutcome outcome =
        LiveViewRequestPipeline::Build(liveView, operation, held, built);
    return outcome.rsp.Succeed() ? report(built) : Refused(outcome, out);
}

}  // namespace

int RunValidate(const BuildRequest& request, std::ostream& out, std::ostream& err) {
    return BuildFromFile(request, out, err, [&](const Tavi::Notification::NotificationRequest&) {
        out << "0 valid for " << request.operation << '\n';
        return STATUS_OK;
    });
}

int RunConvert(const BuildRequest& request, std::ostream& out, std::ostream& err) {
    return BuildFromFile(request, out, err,
                         [&](const Tavi::Notification::NotificationRequest& built) {
                             const JsonTree tree = MakeTree(RequestToJson(built));
                             out << PrintTree(tree.get()) << '\n';
                             return STATUS_OK;
                         });
}

int RunPlay(const std::string& file, const PlayOptions& options, std::ostream& out,
            std::ostream& err) {
    Quiet();
    Scenario scenario;
    LiveViewJson::InputError error;
    if (!LoadScenario(file, scenario, error)) {
        return Unusable(error, err);
    }
    TextPlayReport report(options, out);
    const bool asExpected = PlayScenario(scenario, report);
    report.Finish(asExpected);
    return asExpected ? STATUS_OK : STATUS_REFUSED;
}

}  // namespace LiveViewCli
