#include "live_view_request_pipeline.h"

#include <map>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "live_view_constant.h"
#include "live_view_content_of.h"
#include "live_view_logger.h"
#include "live_view_param_conversion.h"
#include "live_view_param_validate.h"
#include "live_view_rule_hint.h"
#include "notification_content.h"
#include "notification_live_view_content.h"
#include "want_box.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

using Notification::NotificationContent;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Validate = LiveViewParamValidate;
using Convert = LiveViewParamConversion;

namespace {

// The pipeline runs the facade's steps, so its failures and lines name the facade's source.
const char* const CLIENT_FILE =
    "live_activity_framework/frameworks/native/live_activity_manager/src/live_view_client";
const char* const CLIENT_SOURCE_NAME = "live_view_client.cpp";

// One build: the request and the maps that the conversions fill.
struct RequestBuild {
    const LiveView& liveView;
    LiveView::Operation operation;
    const HeldLiveView& held;
    NotificationRequest& request;
    std::shared_ptr<NotificationLiveViewContent> content;
    std::shared_ptr<AAFwk::WantParams> extraInfo;
    Convert::PictureMap pictures;

    bool IsStart() const { return operation == LiveView::START; }
};

using Check = BaseRsp (*)(const LiveView&, const LiveView::Operation&, bool& hasData);
using Conversion = void (*)(RequestBuild&);
// The operation a section is checked for, given the build's.
using OperationRule = LiveView::Operation (*)(const RequestBuild&);

struct SectionStep {
    PipelineSection section;
    Check check;
    Conversion convert;
    OperationRule checkedAs;
    // On update and stop the section is converted only when its record is present; when it is
    // not, `notConverted` (if any) runs instead. On start every passing section is converted.
    bool convertsOnlyWithData;
    Conversion notConverted;
};

// ---- checks, in one shape

BaseRsp CheckCommon(const LiveView& liveView, const LiveView::Operation&, bool&) {
    return Validate::CommonDataParamValidate(liveView);
}

BaseRsp CheckTimer(const LiveView& liveView, const LiveView::Operation&, bool&) {
    return Validate::TimerDataParamValidate(liveView);
}

// On stop this check also clamps the record's keep time into 0..3600.
BaseRsp CheckPrimary(const LiveView& liveView, const LiveView::Operation& operation, bool&) {
    return Validate::PrimaryDataParamValidate(liveView, operation);
}

BaseRsp CheckExtension(const LiveView& liveView, const LiveView::Operation&, bool& hasData) {
    return Validate::ExtendDataParamValidate(liveView, hasData);
}

// ---- the operation each section is checked for

LiveView::Operation AsBuilt(const RequestBuild& build) {
    return build.operation;
}

// A change of layout kind is checked as a start: the new kind's mandatory fields are needed.
LiveView::Operation LayoutCheckedAs(const RequestBuild& build) {
    const int layoutType = LiveView::GetLayoutType(build.liveView);
    return !build.IsStart() && layoutType != -1 && layoutType != build.held.layoutType
               ? LiveView::START
               : build.operation;
}

// External data new to the live view is taken as at a start.
LiveView::Operation ExternalCheckedAs(const RequestBuild& build) {
    return !build.IsStart() && build.held.externalTitle.empty() ? LiveView::START : build.operation;
}

// ---- conversions

void ConvertCommon(RequestBuild& build) {
    Convert::CommonDataParamConversion(build.liveView, build.request, build.extraInfo,
                                       build.content);
}

// The timer's update flag follows only whether a timer time was written; what the service holds
// decides whether an update without a time writes one.
void ConvertTimer(RequestBuild& build) {
    const bool isUpdateTimer = !build.IsStart() && build.held.hasTimer;
    Convert::TimerDataParamConversion(build.liveView, build.extraInfo, isUpdateTimer);
    const bool hasTime = build.extraInfo->HasParam(LiveViewConstant::LIVE_VIEW_TIMER_TIME);
    WriteParam(*build.extraInfo, LiveViewConstant::LIVE_VIEW_TIMER_IS_UPDATE_TIMER, hasTime);
}

void ConvertPrimary(RequestBuild& build) {
    Convert::PrimaryDataParamConversion(build.liveView, build.request, build.extraInfo,
                                        build.content, build.operation);
}

void ConvertExtension(RequestBuild& build) {
    Convert::ExtendDataParamConversion(build.liveView, build.request, build.extraInfo,
                                       build.pictures);
}

void ConvertLayout(RequestBuild& build) {
    Convert::LayoutDataParamConversion(build.liveView, build.extraInfo, build.pictures);
}

void WriteCapsuleUpdateTimer(RequestBuild& build, bool isUpdateTimer) {
    WriteParam(*build.extraInfo, LiveViewConstant::TIMER_CAPSULE_IS_UPDATE_TIMER, isUpdateTimer);
}

// On update and stop a capsule that becomes a timer starts its clock; a timer capsule that stays
// one restarts it only when the record carries a timer.
void ConvertCapsule(RequestBuild& build) {
    Convert::CapsuleDataParamConversion(build.liveView, build.extraInfo, build.pictures);
    if (build.IsStart()) {
        return;
    }
    const auto capsule = LiveView::GetCapsuleData(build.liveView);
    bool isUpdateTimer = false;
    if (capsule == nullptr) {
        LV_LOG_AT(LOG_INFO, CLIENT_SOURCE_NAME, 290, "SetIsUpdateTimer", "The capsule is nullptr");
    } else if (capsule->GetType() == CapsuleData::TIMER) {
        isUpdateTimer =
            build.held.capsuleType != CapsuleData::TIMER || build.liveView.GetTimer() != nullptr;
    }
    WriteCapsuleUpdateTimer(build, isUpdateTimer);
}

void CapsuleNotConverted(RequestBuild& build) {
    WriteCapsuleUpdateTimer(build, false);
}

void ConvertExternal(RequestBuild& build) {
    Convert::ExternalDataParamConversion(build.liveView, build.extraInfo);
}

const UpdateFailureReport PRIMARY_FAILURE{214, "UpdatePrimaryData", "Primary Data",
                                          "The primary data "};
const UpdateFailureReport EXTENSION_FAILURE{234, "UpdateExtendData", "Extension Data",
                                            "The extensionData data "};
const UpdateFailureReport LAYOUT_FAILURE{264, "UpdateLayoutData", "Layout Data",
                                         "The layoutData data "};
const UpdateFailureReport CAPSULE_FAILURE{329, "UpdateCapsuleData", "Capsule Data",
                                          "The capsule data "};
const UpdateFailureReport EXTERNAL_FAILURE{356, "UpdateExternalData", "External Data",
                                           "The external data "};

// The sections in the client's order.
const SectionStep STEPS[] = {
    {{"common", nullptr}, CheckCommon, ConvertCommon, AsBuilt, false, nullptr},
    {{"timer", nullptr}, CheckTimer, ConvertTimer, AsBuilt, false, nullptr},
    {{"primary", &PRIMARY_FAILURE}, CheckPrimary, ConvertPrimary, AsBuilt, false, nullptr},
    {{"extension", &EXTENSION_FAILURE}, CheckExtension, ConvertExtension, AsBuilt, true, nullptr},
    {{"layout", &LAYOUT_FAILURE},
     Validate::LayoutDataParamValidate,
     ConvertLayout,
     LayoutCheckedAs,
     true,
     nullptr},
    {{"capsule", &CAPSULE_FAILURE},
     Validate::CapsuleDataParamValidate,
     ConvertCapsule,
     AsBuilt,
     true,
     CapsuleNotConverted},
    {{"external", &EXTERNAL_FAILURE},
     Validate::ExternalDataParamValidate,
     ConvertExternal,
     ExternalCheckedAs,
     true,
     nullptr},
};

// An empty live view request: a fresh extra-info map and picture map in a live-view content
// whose status follows the operation.
BaseRsp SetNotificationRequest(NotificationRequest& request, const LiveView::Operation& operation) {
    std::shared_ptr<AAFwk::WantParams> extraInfo(new (std::nothrow) AAFwk::WantParams());
    if (extraInfo == nullptr) {
        return BaseRsp(ERR_INTERNAL,
                       LogTemplate(LOGGER_HILOG, CLIENT_FILE, "SetNotificationRequest", 78),
                       "The wantParams is nullptr.");
    }
    auto content = std::make_shared<NotificationLiveViewContent>();
    using Status = NotificationLiveViewContent::LiveViewStatus;
    content->SetLiveViewStatus(operation == LiveView::START ? Status::LIVE_VIEW_CREATE
                               : operation == LiveView::UPDATE
                                   ? Status::LIVE_VIEW_INCREMENTAL_UPDATE
                                   : Status::LIVE_VIEW_END);
    content->SetExtraInfo(extraInfo);
    content->SetPicture(Convert::PictureMap());
    request.SetContent(std::make_shared<NotificationContent>(content));
    return BaseRsp();
}

bool NeedsLocalUpdate(const LiveView& liveView) {
    const std::string event = liveView.GetEvent();
    return event == "NAVIGATION" || event == "WORKOUT";
}

}  // namespace

const std::vector<std::string>& HeldLiveView::Keys() {
    static const std::vector<std::string> keys = {
        LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, LiveViewConstant::EXTERNAL_DATA_TITLE,
        LiveViewConstant::CAPSULE_DATA_TYPE, LiveViewConstant::LIVE_VIEW_TIMER_TIME};
    return keys;
}

HeldLiveView HeldLiveView::FromExtraInfo(const AAFwk::WantParams& extraInfo) {
    HeldLiveView held;
    ReadParam<int>(extraInfo, LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE,
                   [&held](int type) { held.layoutType = type; });
    ReadParam<std::string>(extraInfo, LiveViewConstant::EXTERNAL_DATA_TITLE,
                           [&held](std::string title) { held.externalTitle = std::move(title); });
    ReadParam<int>(extraInfo, LiveViewConstant::CAPSULE_DATA_TYPE,
                   [&held](int type) { held.capsuleType = type; });
    held.hasTimer = extraInfo.HasParam(LiveViewConstant::LIVE_VIEW_TIMER_TIME);
    return held;
}

PipelineOutcome LiveViewRequestPipeline::Build(const LiveView& liveView,
                                               const LiveView::Operation& operation,
                                               const HeldLiveView& held,
                                               NotificationRequest& request, RuleHint* hint) {
    std::optional<RuleHintScope> hintScope;
    if (hint != nullptr) {
        hintScope.emplace(*hint);
    }
    PipelineOutcome outcome;
    outcome.rsp = SetNotificationRequest(request, operation);
    if (!outcome.rsp.Succeed()) {
        return outcome;
    }
    RequestBuild build{liveView, operation, held, request, LiveViewContentOf(request), nullptr, {}};
    build.extraInfo = build.content->GetExtraInfo();
    build.pictures = build.content->GetPicture();

    for (const SectionStep& step : STEPS) {
        bool hasData = false;
        outcome.rsp = step.check(liveView, step.checkedAs(build), hasData);
        if (!outcome.rsp.Succeed()) {
            outcome.failedSection = &step.section;
            return outcome;
        }
        if (!build.IsStart() && step.convertsOnlyWithData && !hasData) {
            if (step.notConverted != nullptr) {
                step.notConverted(build);
            }
            continue;
        }
        step.convert(build);
    }
    // Every build that gets here converted its primary data, so the maps always go back. The
    // request already carries this content object: it is filled in place.
    build.content->SetExtraInfo(build.extraInfo);
    build.content->SetPicture(std::move(build.pictures));
    if (build.IsStart() && NeedsLocalUpdate(liveView)) {
        build.content->SetIsOnlyLocalUpdate(true);
        outcome.needsLocalUpdateSubscription = true;
    }
    return outcome;
}

HeldLiveView LiveViewRequestPipeline::HeldAfterStart(const LiveView& liveView) {
    NotificationRequest request;
    const HeldLiveView none;
    RequestBuild build{liveView, LiveView::START, none,
                       request,  nullptr,         std::make_shared<AAFwk::WantParams>(),
                       {}};
    // The sections that write what HeldLiveView::Keys() reads.
    for (Conversion convert : {ConvertTimer, ConvertLayout, ConvertCapsule, ConvertExternal}) {
        convert(build);
    }
    return HeldLiveView::FromExtraInfo(*build.extraInfo);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
