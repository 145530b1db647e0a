// The request pipeline: the one place that knows how a live view record becomes the notification
// request that start, update or stop publishes. It holds the seven sections in the order the
// client runs them (common, timer, primary, extension, layout, capsule, external), each with its
// check, its conversion and its rule for the operation, and the rules around them: the request's
// live view status, the timer's update flag, the capsule's update-timer flag, a changed layout
// kind checked as a start, external data new to the live view checked as a start, the keep-time
// clamp that the primary check applies on stop, and the local-update marking of navigation and
// workout live views. The client, the command line, the benchmarks and the fuzzers all build
// requests here; nothing else restates the order or these rules.
//
// Thread safety: stateless; distinct calls may run on distinct threads. A record must not be
// shared by two calls at once: the stop check may clamp its keep time.
#ifndef LIVE_VIEW_INTERNAL_LIVE_VIEW_REQUEST_PIPELINE_H
#define LIVE_VIEW_INTERNAL_LIVE_VIEW_REQUEST_PIPELINE_H

#include <string>
#include <vector>

#include "base_rsp.h"
#include "live_view.h"
#include "live_view_rule_hint.h"
#include "notification_request.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

// What the service holds for the live view that an update or stop continues, as far as the
// pipeline's rules need it. A start continues nothing and ignores it.
struct HeldLiveView {
    int layoutType = -1;        // the held layout kind; -1 when it has none
    std::string externalTitle;  // the held external title; empty when it has none
    int capsuleType = -1;       // the held capsule kind; -1 when it has none
    bool hasTimer = false;      // whether a timer time is held

    // The extra-info keys to ask the service for, in the order the client asks for them.
    static const std::vector<std::string>& Keys();
    // Reads the held state from the held request's extra info; a key that is missing or of
    // another box type leaves its default.
    static HeldLiveView FromExtraInfo(const AAFwk::WantParams& extraInfo);
};

// How the client reports a section that fails an update or stop: an error line at `line` of
// `function`, "<logLabel> Param Validate fail: <message>", and the caller's result set to code 1
// and "<resultPrefix>update failed" (or "stop failed").
struct UpdateFailureReport {
    unsigned int line;
    const char* function;
    const char* logLabel;
    const char* resultPrefix;
};

// One section of the pipeline. The steps themselves are private to the pipeline; callers read
// the section's name and, for an update or stop, how its failure is reported (null for the
// common and timer sections, whose failure leaves the caller's result alone).
struct PipelineSection {
    const char* name;  // "common", "timer", "primary", "extension", "layout", "capsule", "external"
    const UpdateFailureReport* updateFailure;
};

struct PipelineOutcome {
    BaseRsp rsp;  // success, or the first failing check's answer (or the request's preparation)
    const PipelineSection* failedSection = nullptr;  // null on success or a failed preparation
    // A start of a navigation or workout live view: the request is marked for local update, and
    // the caller must register the process's local live view subscriber before publishing it.
    bool needsLocalUpdateSubscription = false;
};

class LiveViewRequestPipeline {
public:
    // Builds into request (which should be default-made) what `operation` publishes for
    // liveView, the live view continued by an update or stop being `held`. Every section is
    // checked and, when its check passes, converted, in order; the first failing check ends the
    // build. On failure request holds what was built before it and must not be published.
    // When hint is given it is cleared, and a failed check leaves in it how to fix the rule that
    // failed (unset for a param-failed text or a failed preparation).
    static PipelineOutcome Build(const LiveView& liveView, const LiveView::Operation& operation,
                                 const HeldLiveView& held,
                                 Notification::NotificationRequest& request,
                                 RuleHint* hint = nullptr);

    // What the service would hold for liveView had its sections been published as a start, for
    // tools that have no service to ask: the same conversions, without the checks. For a record
    // that passes the start checks it is exactly what the service holds after the start.
    static HeldLiveView HeldAfterStart(const LiveView& liveView);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_INTERNAL_LIVE_VIEW_REQUEST_PIPELINE_H
