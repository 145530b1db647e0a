// Live view records built from arbitrary bytes (every field present or not, kinds that disagree
// with their type fields, extreme numbers, long texts, gigabyte pictures, null list entries) go
// through both validation entry points and every section check, for every operation. The
// answers must be verdicts (success, or 401 with a message), repeatable, and those of the entry
// algorithms applied to the section answers. The request pipeline decides whether the record is
// a valid start; the client must agree: it publishes exactly such records, refuses the others
// with the pipeline's answer, and a published live view is read back, updated and stopped
// through the client against the embedded service.
#include <cstddef>
#include <cstdint>

#include "fuzz_codec.h"
#include "fuzz_support.h"
#include "live_view_request_pipeline.h"

namespace {

using namespace LiveViewFuzz;

const LiveView::Operation OPERATIONS[] = {LiveView::START, LiveView::UPDATE, LiveView::STOP};

// The optional sections, in the order in which both entry points try them.
BaseRsp CheckOptional(int section, const LiveView& liveView, const LiveView::Operation& operation,
                      bool& isPresent) {
    switch (section) {
        case 0:
            return LiveViewParamValidate::ExtendDataParamValidate(liveView, isPresent);
        case 1:
            return LiveViewParamValidate::LayoutDataParamValidate(liveView, operation, isPresent);
        case 2:
            return LiveViewParamValidate::CapsuleDataParamValidate(liveView, operation, isPresent);
        default:
            return LiveViewParamValidate::ExternalDataParamValidate(liveView, operation, isPresent);
    }
}

bool IsSectionPresent(int section, const LiveView& liveView) {
    switch (section) {
        case 0:
            return LiveView::GetExtensionData(liveView) != nullptr;
        case 1:
            return LiveView::GetLayoutData(liveView) != nullptr;
        case 2:
            return LiveView::GetCapsuleData(liveView) != nullptr;
        default:
            return LiveView::GetExternalData(liveView) != nullptr;
    }
}

// Both entry points must answer what their algorithms make of the section answers. Returns the
// start entry point's answer.
BaseRsp CheckEntries(const LiveView& liveView, const LiveView::Operation& operation) {
    const BaseRsp common = LiveViewParamValidate::CommonDataParamValidate(liveView);
    const BaseRsp primary = LiveViewParamValidate::PrimaryDataParamValidate(liveView, operation);
    ExpectVerdict(common, "common check");
    ExpectVerdict(primary, "primary check");
    ExpectVerdict(LiveViewParamValidate::TimerDataParamValidate(liveView), "timer check");
    BaseRsp sections[4];
    bool present[4] = {false, false, false, false};
    for (int section = 0; section < 4; ++section) {
        sections[section] = CheckOptional(section, liveView, operation, present[section]);
        ExpectVerdict(sections[section], "section check");
        // The flag tells whether the section's record is there; a start without layout fails
        // before it is looked at, and leaves it clear as well.
        Expect(present[section] == IsSectionPresent(section, liveView), "section flag");
    }

    BaseRsp expectedStart = !common.Succeed() ? common : primary;
    for (int section = 0; section < 4 && expectedStart.Succeed(); ++section) {
        expectedStart = sections[section];
    }
    const BaseRsp start = LiveViewParamValidate::ValidateStartLiveViewParam(liveView, operation);
    Expect(SameAnswer(start, expectedStart), "start entry point", start.GetErrAsInt32(),
           start.GetInfo());

    BaseRsp expectedUpdate = common;
    if (common.Succeed() && !primary.Succeed()) {
        expectedUpdate = primary;
        for (int section = 0; section < 4; ++section) {
            if (!sections[section].Succeed()) {
                expectedUpdate = sections[section];
            } else if (present[section]) {
                expectedUpdate = sections[section];
                break;
            }
        }
    }
    const BaseRsp update = LiveViewParamValidate::ValidateUpdateLiveViewParam(liveView, operation);
    Expect(SameAnswer(update, expectedUpdate), "update entry point", update.GetErrAsInt32(),
           update.GetInfo());
    return start;
}

void ExpectPublic(const BaseRsp& rsp, const char* promise) {
    Expect(IsPublicCode(rsp.GetErrAsInt32()) && rsp.Succeed() == rsp.GetInfo().empty(), promise,
           rsp.GetErrAsInt32(), rsp.GetInfo());
}

// A record that passes every check of a start is published, and then read back, updated and
// stopped through the client, whose answers must be public codes. A record that fails them is
// refused with the checks' own answer and never reaches the service; the other operations'
// checks of it are held by CheckEntries.
void PlayThroughClient(const uint8_t* data, size_t size) {
    LiveView liveView;
    ByteReader in(data, size);
    ReadLiveView(in, liveView);
    Notification::NotificationRequest built;
    const BaseRsp checked =
        LiveViewRequestPipeline::Build(liveView, LiveView::START, HeldLiveView(), built).rsp;
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    const BaseRsp started = client.StartLiveView(liveView, result);
    ExpectPublic(started, "start answer");
    if (!checked.Succeed()) {
        Expect(SameAnswer(started, checked),
               "a record that fails the checks is refused with their answer",
               started.GetErrAsInt32(), started.GetInfo());
        return;
    }
    Expect(started.Succeed(), "a record that passes the checks is published",
           started.GetErrAsInt32(), started.GetInfo());
    LiveView readBack;
    const int code = client.GetActiveLiveView(*liveView.GetId(), readBack);
    Expect(code == 0, "read back after start", code);
    ExpectPublic(client.UpdateLiveView(liveView, result), "update answer");
    ExpectPublic(client.StopLiveView(liveView, result), "stop answer");
    ExpectPublic(client.UpdateLiveView(readBack, result), "update of the read-back answer");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FreshHost();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // One record for the three operations: only the stop check changes it (it clamps the keep
    // time in place), and the stop comes last.
    LiveView liveView;
    ByteReader in(data, size);
    ReadLiveView(in, liveView);
    for (const LiveView::Operation& operation : OPERATIONS) {
        const BaseRsp start = CheckEntries(liveView, operation);
        Expect(SameAnswer(start,
                          LiveViewParamValidate::ValidateStartLiveViewParam(liveView, operation)),
               "repeatable answer");
    }
    PlayThroughClient(data, size);
    FreshHost();
    return 0;
}
