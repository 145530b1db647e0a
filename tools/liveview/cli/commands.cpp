#include "commands.h"

#include "host_control.h"
#include "json_tree.h"
#include "live_view_param_validate.h"
#include "live_view_reader.h"
#include "request_builder.h"
#include "request_json.h"
#include "scenario.h"

namespace LiveViewCli {

using Tavi::Wisp::LiveView::BaseRsp;
using Tavi::Wisp::LiveView::LiveView;
using Tavi::Wisp::LiveView::LiveViewParamValidate;

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

int Refused(const BaseRsp& rsp, std::ostream& out) {
    out << rsp.GetErrAsInt32() << ' ' << rsp.GetInfo() << '\n';
    return STATUS_REFUSED;
}

}  // namespace

int RunValidate(const std::string& file, const std::string& operation, std::ostream& out,
                std::ostream& err) {
    LiveView liveView;
    int status = STATUS_OK;
    if (!LoadQuietly(file, liveView, err, status)) {
        return status;
    }
    const LiveView::Operation op = OperationOf(operation);
    const BaseRsp rsp = op == LiveView::START
                            ? LiveViewParamValidate::ValidateStartLiveViewParam(liveView, op)
                            : LiveViewParamValidate::ValidateUpdateLiveViewParam(liveView, op);
    if (!rsp.Succeed()) {
        return Refused(rsp, out);
    }
    out << "0 valid for " << operation << '\n';
    return STATUS_OK;
}

int RunConvert(const std::string& file, const std::string& operation, std::ostream& out,
               std::ostream& err) {
    LiveView liveView;
    int status = STATUS_OK;
    if (!LoadQuietly(file, liveView, err, status)) {
        return status;
    }
    Tavi::Notification::NotificationRequest request;
    const BaseRsp rsp = BuildRequest(liveView, OperationOf(operation), request);
    if (!rsp.Succeed()) {
        return Refused(rsp, out);
    }
    const JsonTree tree = MakeTree(RequestToJson(request));
    out << PrintTree(tree.get()) << '\n';
    return STATUS_OK;
}

int RunPlay(const std::string& file, const PlayOptions& options, std::ostream& out,
            std::ostream& err) {
    Quiet();
    Scenario scenario;
    LiveViewJson::InputError error;
    if (!LoadScenario(file, scenario, error)) {
        return Unusable(error, err);
    }
    return PlayScenario(scenario, options, out) ? STATUS_OK : STATUS_REFUSED;
}

}  // namespace LiveViewCli
