// Live view records built from arbitrary bytes (every field present or not, kinds that disagree
// with their type fields, extreme numbers, long texts, gigabyte pictures, null list entries) go
// through both validation entry points and every section check, for every operation. The
// answers must be verdicts (success, or 401 with a message), repeatable, and those of the entry
// algorithms applied to the section answers. The request pipeline decides whether the record is
// a valid start; the client must agree: it publishes exactly such records, and then the live view
// is read back, updated and stopped through the client against the embedded service.
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

// Both entry points must answer what their algorithms make of the section answers.
void CheckEntries(const LiveView& liveView, const LiveView::Operation& operation) {
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
}

void ExpectPublic(const BaseRsp& rsp, const char* promise) {
    Expect(IsPublicCode(rsp.GetErrAsInt32()) && rsp.Succeed() == rsp.GetInfo().empty(), promise,
           rsp.GetErrAsInt32(), rsp.GetInfo());
}

// A record that passes every check of a start is published; then it goes through the other
// operations, whose answers must be public codes.
void PlayThroughClient(const uint8_t* data, size_t size) {
    LiveView liveView;
    ByteReader in(data, size);
    ReadLiveView(in, liveView);
    Notification::NotificationRequest built;
    const bool passes =
        LiveViewRequestPipeline::Build(liveView, LiveView::START, HeldLiveView(), built)
            .rsp.Succeed();
    FreshHost();
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    const BaseRsp started = client.StartLiveView(liveView, result);
    ExpectPublic(started, "start answer");
    if (passes) {
        Expect(started.Succeed(), "a record that passes the checks is published",
               started.GetErrAsInt32(), started.GetInfo());
    } else {
        Expect(!started.Succeed(), "a record that fails the checks is refused");
    }
    if (liveView.GetId() == nullptr) {
        return;
    }
    LiveView readBack;
    const int code = client.GetActiveLiveView(*liveView.GetId(), readBack);
    Expect(started.Succeed() ? code == 0 : code == ERR_LIVE_VIEW_NOT_EXIST, "read back after start",
           code);
    ExpectPublic(client.UpdateLiveView(liveView, result), "update answer");
    ExpectPublic(client.StopLiveView(liveView, result), "stop answer");
    if (started.Succeed()) {
        ExpectPublic(client.UpdateLiveView(readBack, result), "update of the read-back answer");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FreshHost();
    for (const LiveView::Operation& operation : OPERATIONS) {
        // A fresh record each time: the stop check may clamp the keep time in place.
        LiveView liveView;
        ByteReader in(data, size);
        ReadLiveView(in, liveView);
        CheckEntries(liveView, operation);
        const BaseRsp again =
            LiveViewParamValidate::ValidateStartLiveViewParam(liveView, operation);
        CheckEntries(liveView, operation);
        Expect(SameAnswer(again,
                          LiveViewParamValidate::ValidateStartLiveViewParam(liveView, operation)),
               "repeatable answer");
    }
    PlayThroughClient(data, size);
    return 0;
}
