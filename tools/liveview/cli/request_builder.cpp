#include "request_builder.h"

#include <memory>
#include <string>

#include "live_view_constant.h"
#include "live_view_param_conversion.h"
#include "live_view_param_validate.h"
#include "notification_content.h"

namespace LiveViewCli {

using namespace Tavi::Wisp::LiveView;
using Tavi::AAFwk::Boolean;
using Tavi::AAFwk::WantParams;
using Tavi::Notification::NotificationContent;
using Tavi::Notification::NotificationLiveViewContent;
using Tavi::Notification::NotificationRequest;
using Status = NotificationLiveViewContent::LiveViewStatus;

namespace {

// What the service is taken to hold for the id (see the header).
struct Held {
    int layoutType = -1;
    int capsuleType = -1;
    bool hasExternalTitle = false;
    bool hasTimer = false;
};

Held HeldAsRecord(const LiveView& liveView) {
    const auto external = LiveView::GetExternalData(liveView);
    const auto timer = liveView.GetTimer();
    return Held{LiveView::GetLayoutType(liveView), LiveView::GetCapsuleType(liveView),
                external != nullptr && external->GetTitle() != nullptr,
                timer != nullptr && timer->GetTime() != nullptr};
}

// One build: the request, its content and the two maps being filled.
class Build {
public:
    Build(LiveView& liveView, LiveView::Operation operation, NotificationRequest& request)
        : liveView_(liveView),
          operation_(operation),
          request_(request),
          content_(std::make_shared<NotificationLiveViewContent>()),
          extraInfo_(std::make_shared<WantParams>()) {
        content_->SetLiveViewStatus(operation == LiveView::START ? Status::LIVE_VIEW_CREATE
                                    : operation == LiveView::UPDATE
                                        ? Status::LIVE_VIEW_INCREMENTAL_UPDATE
                                        : Status::LIVE_VIEW_END);
        content_->SetExtraInfo(extraInfo_);
    }

    BaseRsp Start();
    BaseRsp UpdateOrStop(const Held& held);

private:
    BaseRsp CommonAndTimer(bool isUpdateTimer);
    void Finish();

    LiveView& liveView_;
    LiveView::Operation operation_;
    NotificationRequest& request_;
    std::shared_ptr<NotificationLiveViewContent> content_;
    std::shared_ptr<WantParams> extraInfo_;
    LiveViewParamConversion::PictureMap pictures_;
};

BaseRsp Build::CommonAndTimer(bool isUpdateTimer) {
    BaseRsp rsp = LiveViewParamValidate::CommonDataParamValidate(liveView_);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::CommonDataParamConversion(liveView_, request_, extraInfo_, content_);
    rsp = LiveViewParamValidate::TimerDataParamValidate(liveView_);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::TimerDataParamConversion(liveView_, extraInfo_, isUpdateTimer);
    const bool hasTime = extraInfo_->HasParam(LiveViewConstant::LIVE_VIEW_TIMER_TIME);
    extraInfo_->SetParam(LiveViewConstant::LIVE_VIEW_TIMER_IS_UPDATE_TIMER, Boolean::Box(hasTime));
    return rsp;
}

void Build::Finish() {
    content_->SetExtraInfo(extraInfo_);
    content_->SetPicture(pictures_);
    const std::string event = liveView_.GetEvent();
    if (operation_ == LiveView::START && (event == "NAVIGATION" || event == "WORKOUT")) {
        content_->SetIsOnlyLocalUpdate(true);
    }
    request_.SetContent(std::make_shared<NotificationContent>(content_));
}

BaseRsp Build::Start() {
    BaseRsp rsp = CommonAndTimer(false);
    if (!rsp.Succeed()) {
        return rsp;
    }
    const LiveView::Operation start = LiveView::START;
    if (!(rsp = LiveViewParamValidate::PrimaryDataParamValidate(liveView_, start)).Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::PrimaryDataParamConversion(liveView_, request_, extraInfo_, content_,
                                                        start);
    bool hasData = false;
    if (!(rsp = LiveViewParamValidate::ExtendDataParamValidate(liveView_, hasData)).Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::ExtendDataParamConversion(liveView_, request_, extraInfo_, pictures_);
    if (!(rsp = LiveViewParamValidate::LayoutDataParamValidate(liveView_, start, hasData))
             .Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::LayoutDataParamConversion(liveView_, extraInfo_, pictures_);
    if (!(rsp = LiveViewParamValidate::CapsuleDataParamValidate(liveView_, start, hasData))
             .Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::CapsuleDataParamConversion(liveView_, extraInfo_, pictures_);
    if (!(rsp = LiveViewParamValidate::ExternalDataParamValidate(liveView_, start, hasData))
             .Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::ExternalDataParamConversion(liveView_, extraInfo_);
    Finish();
    return rsp;
}

BaseRsp Build::UpdateOrStop(const Held& held) {
    BaseRsp rsp = CommonAndTimer(held.hasTimer);
    if (!rsp.Succeed()) {
        return rsp;
    }
    if (!(rsp = LiveViewParamValidate::PrimaryDataParamValidate(liveView_, operation_)).Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::PrimaryDataParamConversion(liveView_, request_, extraInfo_, content_,
                                                        operation_);
    bool hasData = false;
    if (!(rsp = LiveViewParamValidate::ExtendDataParamValidate(liveView_, hasData)).Succeed()) {
        return rsp;
    }
    if (hasData) {
        LiveViewParamConversion::ExtendDataParamConversion(liveView_, request_, extraInfo_,
                                                           pictures_);
    }
    // A change of layout kind is checked as a start.
    const int layoutType = LiveView::GetLayoutType(liveView_);
    const LiveView::Operation layoutOperation =
        layoutType != -1 && layoutType != held.layoutType ? LiveView::START : operation_;
    hasData = false;
    if (!(rsp = LiveViewParamValidate::LayoutDataParamValidate(liveView_, layoutOperation, hasData))
             .Succeed()) {
        return rsp;
    }
    if (hasData) {
        LiveViewParamConversion::LayoutDataParamConversion(liveView_, extraInfo_, pictures_);
    }
    hasData = false;
    if (!(rsp = LiveViewParamValidate::CapsuleDataParamValidate(liveView_, operation_, hasData))
             .Succeed()) {
        return rsp;
    }
    bool isUpdateTimer = false;
    if (hasData) {
        LiveViewParamConversion::CapsuleDataParamConversion(liveView_, extraInfo_, pictures_);
        isUpdateTimer = LiveView::GetCapsuleType(liveView_) == CapsuleData::TIMER &&
                        (held.capsuleType != CapsuleData::TIMER || liveView_.GetTimer() != nullptr);
    }
    extraInfo_->SetParam(LiveViewConstant::TIMER_CAPSULE_IS_UPDATE_TIMER,
                         Boolean::Box(isUpdateTimer));
    // External data where the held live view had none is checked as at a start.
    const LiveView::Operation externalOperation =
        held.hasExternalTitle ? operation_ : LiveView::START;
    hasData = false;
    if (!(rsp = LiveViewParamValidate::ExternalDataParamValidate(liveView_, externalOperation,
                                                                 hasData))
             .Succeed()) {
        return rsp;
    }
    if (hasData) {
        LiveViewParamConversion::ExternalDataParamConversion(liveView_, extraInfo_);
    }
    Finish();
    return rsp;
}

}  // namespace

BaseRsp BuildRequest(LiveView& liveView, LiveView::Operation operation,
                     NotificationRequest& request) {
    Build build(liveView, operation, request);
    return operation == LiveView::START ? build.Start()
                                        : build.UpdateOrStop(HeldAsRecord(liveView));
}

}  // namespace LiveViewCli
