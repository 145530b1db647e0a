// LiveViewParamValidate: decides whether a live view record may be published, one section at a
// time. Each check stops at the first rule that the section breaks and answers a BaseRsp with code
// ERR_PARAM_INVALID and that rule's fixed message, or a successful BaseRsp.
//
// A sub-record whose param-failed text is not empty fails with that text, before any other rule
// of its section. Fields are mandatory on START only, except where a rule says otherwise.
//
// The bool& of the extension, layout, capsule and external checks is set to true as soon as the
// section's record is present, before any rule is tested, and is left untouched when it is
// absent; it stays true when the present record then fails.
//
// No check throws, whatever the record holds. The only check that changes the record is the
// primary check on STOP, which clamps the keep time into 0..3600 and writes it back.
//
// Thread safety: stateless (a failing check describes its rule only to a hint scope that the
// calling thread opened, see internal/live_view_rule_hint.h); checks of distinct records may run
// on several threads. A record must not be changed while it is being checked.
#ifndef TAVI_WISP_LIVE_VIEW_LIVE_VIEW_PARAM_VALIDATE_H
#define TAVI_WISP_LIVE_VIEW_LIVE_VIEW_PARAM_VALIDATE_H

#include "base_rsp.h"
#include "live_view.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewParamValidate {
public:
    // Common, primary, extension, layout, capsule and external checks in that order; the first
    // failure is the answer.
    static BaseRsp ValidateStartLiveViewParam(const LiveView& liveView,
                                              const LiveView::Operation& operation);

    // Common, then primary. When the primary data is bad, the update is still accepted if one of
    // the extension, layout, capsule or external sections is present and valid (tried in that
    // order); otherwise the answer is the last of those that failed, or the primary failure.
    static BaseRsp ValidateUpdateLiveViewParam(const LiveView& liveView,
                                               const LiveView::Operation& operation);

    // Id, event, sequence and live view data; the same rules for every operation.
    static BaseRsp CommonDataParamValidate(const LiveView& liveView);

    // The timer, when there is one.
    static BaseRsp TimerDataParamValidate(const LiveView& liveView);

    // The primary data. On STOP a keep time outside 0..3600 is clamped into it and written back
    // to the record's primary data, even when a later rule then fails.
    static BaseRsp PrimaryDataParamValidate(const LiveView& liveView,
                                            const LiveView::Operation& operation);

    // The extension element; the same rules for every operation.
    static BaseRsp ExtendDataParamValidate(const LiveView& liveView, bool& isPresent);

    // The layout: mandatory on START; type -1 is accepted without further rules. A layout whose
    // object is not of the kind that its type names is accepted with an info log line.
    static BaseRsp LayoutDataParamValidate(const LiveView& liveView,
                                           const LiveView::Operation& operation, bool& isPresent);

    // The capsule: status -1 is accepted without further rules. The kind's own rules are skipped,
    // with an info log line, when the object is not of the kind that its type names.
    static BaseRsp CapsuleDataParamValidate(const LiveView& liveView,
                                            const LiveView::Operation& operation, bool& isPresent);

    // The external-screen data.
    static BaseRsp ExternalDataParamValidate(const LiveView& liveView,
                                             const LiveView::Operation& operation, bool& isPresent);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_LIVE_VIEW_PARAM_VALIDATE_H
