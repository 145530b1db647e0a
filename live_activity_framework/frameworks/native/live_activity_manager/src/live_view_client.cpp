#include "live_view_client.h"

#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "app_event_report.h"
#include "bundle_helper.h"
#include "event_report.h"
#include "ipc_skeleton.h"
#include "live_view_constant.h"
#include "live_view_error_conversion.h"
#include "live_view_logger.h"
#include "live_view_param_conversion.h"
#include "live_view_param_validate.h"
#include "live_view_subscriber.h"
#include "notification_bundle_option.h"
#include "notification_content.h"
#include "notification_helper.h"
#include "notification_live_view_content.h"
#include "notification_live_view_filter.h"
#include "notification_request.h"
#include "notification_request_conversion.h"
#include "time_helper.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

using Notification::NotificationContent;
using Notification::NotificationHelper;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using PictureMap = std::map<std::string, std::vector<std::shared_ptr<Media::PixelMap>>>;

namespace {

const char* const CLIENT_FILE =
    "live_activity_framework/frameworks/native/live_activity_manager/src/live_view_client";
const std::string KIT_NAME = "Zembrak";
const std::string UPDATE_FAILED = "update failed";
const std::string STOP_FAILED = "stop failed";
// The service's answer to an enablement query of an app whose slot was never configured: the
// app may show live views.
constexpr int SLOT_NOT_CONFIGURED = 67108888;

// What the active notification of an update or stop says about the live view, and the request
// being built for it. Shared by the steps of one call.
struct LiveViewInfo {
    explicit LiveViewInfo(LiveView::Operation op) : operation(op) {}
    int layoutType = -1;
    std::string externalTitle;
    int capsuleType = -1;
    LiveView::Operation operation;
    bool isChanged = false;
    std::shared_ptr<AAFwk::WantParams> extraInfo;
    PictureMap pictureMap;
    bool hasTimer = false;
};

// The per-call frame: transaction id, start times and the end event that every exit writes.
class CallFrame {
public:
    CallFrame()
        : startTimeMillis_(TimeHelper::GetCurrentTimeMillis()),
          transId_("transId_" + std::to_string(static_cast<uint32_t>(std::rand()))),
          startClock_(std::chrono::system_clock::now()) {}

    // Milliseconds since the frame began, truncated.
    int64_t ElapsedMillis() const {
        using namespace std::chrono;
        return duration_cast<microseconds>(system_clock::now() - startClock_).count() / 1000;
    }

    void WriteEndEvent(const std::string& apiName, int outcome, const std::string& code,
                       const std::string& event, int layoutType, int capsuleType) const {
        AppEventReport::WriteEndEvent(transId_, apiName, KIT_NAME, startTimeMillis_, outcome, code,
                                      event, layoutType, capsuleType);
    }

    // The end event of an operation on a record: its event and kinds as they stand now.
    void WriteEndEvent(const std::string& apiName, int outcome, const std::string& code,
                       const LiveView& liveView) const {
        WriteEndEvent(apiName, outcome, code, liveView.GetEvent(),
                      LiveView::GetLayoutType(liveView), LiveView::GetCapsuleType(liveView));
    }

private:
    int64_t startTimeMillis_;
    std::string transId_;
    std::chrono::system_clock::time_point startClock_;
};

// The names and documented lines that distinguish an update from a stop.
struct UpdateKind {
    const char* function;   // "UpdateLiveView"
    const char* apiName;    // "updateLiveView", for the end event
    const char* beginText;  // the opening log line
    unsigned int beginLine;
    unsigned int publishErrorLine;
    unsigned int templateLine;
};

const UpdateKind UPDATE_KIND = {
    "UpdateLiveView", "updateLiveView", "Begin update liveView.", 651, 692, 695};
const UpdateKind STOP_KIND = {
    "StopLiveView", "stopLiveView", "Begin stop liveView.", 703, 745, 748};

const std::string& OperationWord(LiveView::Operation operation) {
    return operation == LiveView::UPDATE ? UPDATE_FAILED : STOP_FAILED;
}

std::shared_ptr<NotificationLiveViewContent> LiveViewContentOf(const NotificationRequest& request) {
    auto content = request.GetContent();
    if (content == nullptr) {
        return nullptr;
    }
    return std::dynamic_pointer_cast<NotificationLiveViewContent>(
        content->GetNotificationContent());
}

void SetLiveViewContent(NotificationRequest& request,
                        const std::shared_ptr<NotificationLiveViewContent>& content) {
    request.SetContent(std::make_shared<NotificationContent>(content));
}

BaseRsp SetNotificationRequest(NotificationRequest& request, const LiveView::Operation& operation) {
    std::shared_ptr<AAFwk::WantParams> extraInfo(new (std::nothrow) AAFwk::WantParams());
    if (extraInfo == nullptr) {
        return BaseRsp(ERR_INTERNAL,
                       LogTemplate(LOGGER_HILOG, CLIENT_FILE, "SetNotificationRequest", 78),
                       "The wantParams is nullptr.");
    }
    PictureMap pictureMap;
    auto content = std::make_shared<NotificationLiveViewContent>();
    using Status = NotificationLiveViewContent::LiveViewStatus;
    content->SetLiveViewStatus(operation == LiveView::START ? Status::LIVE_VIEW_CREATE
                               : operation == LiveView::UPDATE
                                   ? Status::LIVE_VIEW_INCREMENTAL_UPDATE
                                   : Status::LIVE_VIEW_END);
    content->SetExtraInfo(extraInfo);
    content->SetPicture(pictureMap);
    SetLiveViewContent(request, content);
    return BaseRsp();
}

// isUpdate is taken and deliberately ignored: the flag follows only whether a timer time was
// written.
void SetIsUpdateTimerInLiveViewTimer(const LiveView&, std::shared_ptr<AAFwk::WantParams>& extraInfo,
                                     bool) {
    const bool hasTime = extraInfo->HasParam(LiveViewConstant::LIVE_VIEW_TIMER_TIME);
    extraInfo->SetParam(LiveViewConstant::LIVE_VIEW_TIMER_IS_UPDATE_TIMER,
                        AAFwk::Boolean::Box(hasTime));
}

BaseRsp StartLiveViewParamParse(LiveView& liveView, NotificationRequest& request) {
    auto liveViewContent = LiveViewContentOf(request);
    auto extraInfo = liveViewContent->GetExtraInfo();
    PictureMap pictureMap = liveViewContent->GetPicture();
    const LiveView::Operation start = LiveView::START;

    BaseRsp rsp = LiveViewParamValidate::CommonDataParamValidate(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::CommonDataParamConversion(liveView, request, extraInfo,
                                                       liveViewContent);

    rsp = LiveViewParamValidate::TimerDataParamValidate(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::TimerDataParamConversion(liveView, extraInfo, false);
    SetIsUpdateTimerInLiveViewTimer(liveView, extraInfo, false);

    rsp = LiveViewParamValidate::PrimaryDataParamValidate(liveView, start);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::PrimaryDataParamConversion(liveView, request, extraInfo,
                                                        liveViewContent, start);

    bool hasData = false;
    rsp = LiveViewParamValidate::ExtendDataParamValidate(liveView, hasData);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::ExtendDataParamConversion(liveView, request, extraInfo, pictureMap);

    rsp = LiveViewParamValidate::LayoutDataParamValidate(liveView, start, hasData);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::LayoutDataParamConversion(liveView, extraInfo, pictureMap);

    rsp = LiveViewParamValidate::CapsuleDataParamValidate(liveView, start, hasData);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::CapsuleDataParamConversion(liveView, extraInfo, pictureMap);

    rsp = LiveViewParamValidate::ExternalDataParamValidate(liveView, start, hasData);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::ExternalDataParamConversion(liveView, extraInfo);

    // The request already carries this content object: it is filled in place, not wrapped again.
    liveViewContent->SetExtraInfo(extraInfo);
    liveViewContent->SetPicture(std::move(pictureMap));
    return BaseRsp();
}

BaseRsp NavigationSubScribe(NotificationRequest& request) {
    LV_LOGI(530, "Navigation layout subscribe.");
    auto liveViewContent = LiveViewContentOf(request);
    if (liveViewContent == nullptr) {
        LV_LOGE(534, "The notification liveView content is nullptr.");
        return BaseRsp(ERR_INTERNAL,
                       LogTemplate(LOGGER_HILOG, CLIENT_FILE, "NavigationSubScribe", 535),
                       "The notification liveView content is nullptr.");
    }
    liveViewContent->SetIsOnlyLocalUpdate(true);
    const int ret =
        NotificationHelper::SubscribeLocalLiveViewNotification(LiveViewSubscriber::GetInstance());
    const ErrorCode code = LiveViewErrorConversion::ReturnLiveViewError(ret);
    if (code != SUCCESS) {
        LV_LOGE(550, "Subscribe localLiveView notification ret is %{public}d", ret);
        return BaseRsp(code, LogTemplate(LOGGER_HILOG, CLIENT_FILE, "NavigationSubScribe", 551),
                       "Subscribe localLiveView notification error.");
    }
    return BaseRsp();
}

int GetActiveNotification(const int& id, std::vector<std::string> keys,
                          sptr<NotificationRequest>& request) {
    const auto startClock = std::chrono::system_clock::now();
    const int32_t uid = IPCSkeleton::GetCallingUid();
    std::string bundleName;
    BaseRsp rsp = BundleHelper::GetCurrBundle(bundleName);
    if (!rsp.Succeed()) {
        LV_LOGE(439, "Get current bundle name fail: %{public}s", rsp.GetInfo().c_str());
        return rsp.GetErr();
    }
    Notification::LiveViewFilter filter;
    filter.bundle = Notification::NotificationBundleOption(bundleName, uid);
    filter.notificationKey.id = id;
    if (!keys.empty()) {
        filter.extraInfoKeys = std::move(keys);
    }
    const int ret = NotificationHelper::GetActiveNotificationByFilter(filter, request);
    if (ret != 0) {
        using namespace std::chrono;
        const int64_t elapsed =
            duration_cast<microseconds>(system_clock::now() - startClock).count() / 1000;
        // The event names the failing call but carries the bundle lookup's code (0 here).
        EventReport::SendEvent(INVOKE_NOTIFICATION_ERROR, EventInfo("GetActiveNotificationByFilter",
                                                                    rsp.GetErrAsInt32(), elapsed));
    }
    return LiveViewErrorConversion::ReturnLiveViewError(ret);
}

BaseRsp GetLiveViewInfo(LiveView& liveView, std::shared_ptr<LiveViewInfo>& info) {
    const auto id = liveView.GetId();
    if (id == nullptr) {
        return BaseRsp(ERR_PARAM_INVALID,
                       "Parameter error. The type of liveView.id mustbe number [or the parameter "
                       "is mandatory].");
    }
    std::vector<std::string> keys = {
        LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, LiveViewConstant::EXTERNAL_DATA_TITLE,
        LiveViewConstant::CAPSULE_DATA_TYPE, LiveViewConstant::LIVE_VIEW_TIMER_TIME};
    sptr<NotificationRequest> request(new NotificationRequest());
    const int ret = GetActiveNotification(*id, std::move(keys), request);
    if (ret != 0) {
        LV_LOGE(479, "PublishNotification error, code is %{public}d", ret);
        return BaseRsp(static_cast<ErrorCode>(ret),
                       LogTemplate(LOGGER_HILOG, CLIENT_FILE, "GetLiveViewInfo", 480),
                       "GetActiveNotificationByFilter error.");
    }
    auto liveViewContent = request == nullptr ? nullptr : LiveViewContentOf(*request);
    if (liveViewContent == nullptr) {
        return BaseRsp(ERR_INTERNAL, LogTemplate(LOGGER_HILOG, CLIENT_FILE, "GetLiveViewInfo", 486),
                       "The liveViewContent is nullptr.");
    }
    auto extraInfo = liveViewContent->GetExtraInfo();
    if (extraInfo == nullptr) {
        return BaseRsp(ERR_INTERNAL, LogTemplate(LOGGER_HILOG, CLIENT_FILE, "GetLiveViewInfo", 491),
                       "The liveViewExtraInfo is nullptr.");
    }
    if (auto* layoutType = AAFwk::IInteger::Query(
            extraInfo->GetParam(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE))) {
        info->layoutType = AAFwk::Integer::Unbox(layoutType);
    }
    if (auto* title =
            AAFwk::IString::Query(extraInfo->GetParam(LiveViewConstant::EXTERNAL_DATA_TITLE))) {
        info->externalTitle = AAFwk::String::Unbox(title);
    }
    if (auto* capsuleType =
            AAFwk::IInteger::Query(extraInfo->GetParam(LiveViewConstant::CAPSULE_DATA_TYPE))) {
        info->capsuleType = AAFwk::Integer::Unbox(capsuleType);
    }
    info->hasTimer = extraInfo->HasParam(LiveViewConstant::LIVE_VIEW_TIMER_TIME);
    return BaseRsp();
}

// A section of an update or stop failed its check: the caller's result names the section.
BaseRsp SectionFailed(const BaseRsp& rsp, const std::string& prefix, const LiveViewInfo& info,
                      LiveViewClient::LiveViewResult& result) {
    result.code = 1;
    result.message = prefix + OperationWord(info.operation);
    return rsp;
}

BaseRsp UpdatePrimaryData(const LiveView& liveView, NotificationRequest& request,
                          LiveViewInfo& info, std::shared_ptr<NotificationLiveViewContent>& content,
                          LiveViewClient::LiveViewResult& result) {
    BaseRsp rsp = LiveViewParamValidate::PrimaryDataParamValidate(liveView, info.operation);
    if (!rsp.Succeed()) {
        LV_LOGE(214, "Primary Data Param Validate fail: %{public}s", rsp.GetInfo().c_str());
        return SectionFailed(rsp, "The primary data ", info, result);
    }
    info.isChanged = true;
    LiveViewParamConversion::PrimaryDataParamConversion(liveView, request, info.extraInfo, content,
                                                        info.operation);
    return rsp;
}

BaseRsp UpdateExtendData(const LiveView& liveView, NotificationRequest& request, LiveViewInfo& info,
                         LiveViewClient::LiveViewResult& result) {
    bool hasData = false;
    BaseRsp rsp = LiveViewParamValidate::ExtendDataParamValidate(liveView, hasData);
    if (!rsp.Succeed()) {
        LV_LOGE(234, "Extension Data Param Validate fail: %{public}s", rsp.GetInfo().c_str());
        return SectionFailed(rsp, "The extensionData data ", info, result);
    }
    if (hasData) {
        info.isChanged = true;
        LiveViewParamConversion::ExtendDataParamConversion(liveView, request, info.extraInfo,
                                                           info.pictureMap);
    }
    return rsp;
}

BaseRsp UpdateLayoutData(const LiveView& liveView, LiveViewInfo& info,
                         LiveViewClient::LiveViewResult& result) {
    // A change of layout kind is checked as a start: the new kind's mandatory fields are needed.
    const int layoutType = LiveView::GetLayoutType(liveView);
    const LiveView::Operation operation =
        layoutType != -1 && layoutType != info.layoutType ? LiveView::START : info.operation;
    bool hasData = false;
    BaseRsp rsp = LiveViewParamValidate::LayoutDataParamValidate(liveView, operation, hasData);
    if (!rsp.Succeed()) {
        LV_LOGE(264, "Layout Data Param Validate fail: %{public}s", rsp.GetInfo().c_str());
        return SectionFailed(rsp, "The layoutData data ", info, result);
    }
    if (hasData) {
        info.isChanged = true;
        LiveViewParamConversion::LayoutDataParamConversion(liveView, info.extraInfo,
                                                           info.pictureMap);
    }
    return rsp;
}

void SetIsUpdateTimer(const LiveView& liveView, LiveViewInfo& info) {
    auto capsule = LiveView::GetCapsuleData(liveView);
    bool isUpdateTimer = false;
    if (capsule == nullptr) {
        LV_LOGI(290, "The capsule is nullptr");
    } else if (capsule->GetType() == CapsuleData::TIMER) {
        // A capsule that becomes a timer starts its clock; a timer capsule that stays one restarts
        // it only when the record carries a timer.
        isUpdateTimer = info.capsuleType != CapsuleData::TIMER || liveView.GetTimer() != nullptr;
    }
    info.extraInfo->SetParam(LiveViewConstant::TIMER_CAPSULE_IS_UPDATE_TIMER,
                             AAFwk::Boolean::Box(isUpdateTimer));
}

BaseRsp UpdateCapsuleData(const LiveView& liveView, LiveViewInfo& info,
                          LiveViewClient::LiveViewResult& result) {
    bool hasData = false;
    BaseRsp rsp =
        LiveViewParamValidate::CapsuleDataParamValidate(liveView, info.operation, hasData);
    if (!rsp.Succeed()) {
        LV_LOGE(329, "Capsule Data Param Validate fail: %{public}s", rsp.GetInfo().c_str());
        return SectionFailed(rsp, "The capsule data ", info, result);
    }
    if (hasData) {
        info.isChanged = true;
        LiveViewParamConversion::CapsuleDataParamConversion(liveView, info.extraInfo,
                                                            info.pictureMap);
        SetIsUpdateTimer(liveView, info);
    } else {
        info.extraInfo->SetParam(LiveViewConstant::TIMER_CAPSULE_IS_UPDATE_TIMER,
                                 AAFwk::Boolean::Box(false));
    }
    return rsp;
}

BaseRsp UpdateExternalData(const LiveView& liveView, LiveViewInfo& info,
                           LiveViewClient::LiveViewResult& result) {
    // A live view that had no external data takes it as at a start.
    const LiveView::Operation operation =
        info.externalTitle.empty() ? LiveView::START : info.operation;
    bool hasData = false;
    BaseRsp rsp = LiveViewParamValidate::ExternalDataParamValidate(liveView, operation, hasData);
    if (!rsp.Succeed()) {
        LV_LOGE(356, "External Data Param Validate fail: %{public}s", rsp.GetInfo().c_str());
        return SectionFailed(rsp, "The external data ", info, result);
    }
    if (hasData) {
        info.isChanged = true;
        LiveViewParamConversion::ExternalDataParamConversion(liveView, info.extraInfo);
    }
    return rsp;
}

BaseRsp UpdateLiveViewParamParse(const LiveView& liveView, NotificationRequest& request,
                                 std::shared_ptr<LiveViewInfo>& info,
                                 LiveViewClient::LiveViewResult& result) {
    BaseRsp rsp = SetNotificationRequest(request, info->operation);
    if (!rsp.Succeed()) {
        return rsp;
    }
    auto liveViewContent = LiveViewContentOf(request);
    info->extraInfo = liveViewContent->GetExtraInfo();
    info->pictureMap = liveViewContent->GetPicture();

    rsp = LiveViewParamValidate::CommonDataParamValidate(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::CommonDataParamConversion(liveView, request, info->extraInfo,
                                                       liveViewContent);
    rsp = LiveViewParamValidate::TimerDataParamValidate(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    LiveViewParamConversion::TimerDataParamConversion(liveView, info->extraInfo, info->hasTimer);
    SetIsUpdateTimerInLiveViewTimer(liveView, info->extraInfo, info->hasTimer);

    if (!(rsp = UpdatePrimaryData(liveView, request, *info, liveViewContent, result)).Succeed() ||
        !(rsp = UpdateExtendData(liveView, request, *info, result)).Succeed() ||
        !(rsp = UpdateLayoutData(liveView, *info, result)).Succeed() ||
        !(rsp = UpdateCapsuleData(liveView, *info, result)).Succeed() ||
        !(rsp = UpdateExternalData(liveView, *info, result)).Succeed()) {
        return rsp;
    }
    if (info->isChanged) {
        liveViewContent->SetExtraInfo(info->extraInfo);
        liveViewContent->SetPicture(std::move(info->pictureMap));
    }
    return BaseRsp();
}

// Update and stop are one algorithm that differs in the operation and its names.
BaseRsp UpdateOrStopLiveView(LiveView& liveView, LiveViewClient::LiveViewResult& result,
                             LiveView::Operation operation, const UpdateKind& kind) {
    LV_LOGI_FN(kind.beginLine, kind.function, "%{public}s", kind.beginText);
    CallFrame frame;
    NotificationRequest request;
    auto info = std::make_shared<LiveViewInfo>(operation);
    result.code = 0;
    result.message = "success";

    BaseRsp rsp = GetLiveViewInfo(liveView, info);
    const int layoutType = LiveView::GetLayoutType(liveView);
    const int capsuleType = LiveView::GetCapsuleType(liveView);
    auto writeEndEvent = [&](int outcome, const std::string& code) {
        frame.WriteEndEvent(kind.apiName, outcome, code, liveView.GetEvent(), layoutType,
                            capsuleType);
    };
    if (!rsp.Succeed()) {
        EventReport::SendEvent(
            INVOKE_LIVE_VIEW_SERVICE,
            EventInfo(kind.function, rsp.GetErrAsInt32(), frame.ElapsedMillis()));
        writeEndEvent(1, std::to_string(rsp.GetErrAsInt32()));
        return rsp;
    }
    rsp = UpdateLiveViewParamParse(liveView, request, info, result);
    if (!rsp.Succeed()) {
        writeEndEvent(1, std::to_string(rsp.GetErrAsInt32()));
        return rsp;
    }
    const int ret = NotificationHelper::PublishNotification(request);
    const ErrorCode code = LiveViewErrorConversion::ReturnLiveViewError(ret);
    const int64_t elapsed = frame.ElapsedMillis();
    EventReport::SendEvent(INVOKE_LIVE_VIEW_SERVICE, EventInfo(kind.function, code, elapsed));
    writeEndEvent(code == SUCCESS ? 0 : 1, std::to_string(code));
    if (code != SUCCESS) {
        LV_LOGE_FN(kind.publishErrorLine, kind.function,
                   "PublishNotification error, code is %{public}d", ret);
        EventReport::SendEvent(INVOKE_NOTIFICATION_ERROR,
                               EventInfo("PublishNotification", code, elapsed));
        return BaseRsp(code,
                       LogTemplate(LOGGER_HILOG, CLIENT_FILE, kind.function, kind.templateLine),
                       "StartLiveView publishNotification error.");
    }
    return rsp;
}

}  // namespace

BaseRsp LiveViewClient::StartLiveView(LiveView& liveView, LiveViewResult& result) {
    LV_LOGI(596, "Begin start liveView.");
    CallFrame frame;
    NotificationRequest request;
    BaseRsp rsp = SetNotificationRequest(request, LiveView::START);
    if (rsp.Succeed()) {
        rsp = StartLiveViewParamParse(liveView, request);
    }
    if (!rsp.Succeed()) {
        LV_LOGE(604, "StartLiveViewParamParse fail: %{public}s", rsp.GetInfo().c_str());
        frame.WriteEndEvent("startLiveView", 1, std::to_string(rsp.GetErrAsInt32()), liveView);
        return rsp;
    }
    const std::string event = liveView.GetEvent();
    if (event == "NAVIGATION" || event == "WORKOUT") {
        rsp = NavigationSubScribe(request);
        if (!rsp.Succeed()) {
            frame.WriteEndEvent("startLiveView", 1, std::to_string(rsp.GetErrAsInt32()), liveView);
            return rsp;
        }
    }
    const ErrorCode code = LiveViewErrorConversion::ReturnLiveViewError(
        NotificationHelper::PublishNotification(request));
    const int64_t elapsed = frame.ElapsedMillis();
    EventReport::SendEvent(INVOKE_LIVE_VIEW_SERVICE, EventInfo("StartLiveView", code, elapsed));
    if (code == SUCCESS) {
        result.code = 0;
        result.message = "success.";
        frame.WriteEndEvent("startLiveView", 0, "0", liveView);
        return BaseRsp();
    }
    LV_LOGE(628, "PublishNotification error, code is %{public}d", static_cast<int>(code));
    EventReport::SendEvent(INVOKE_NOTIFICATION_ERROR,
                           EventInfo("PublishNotification", code, elapsed));
    frame.WriteEndEvent("startLiveView", 1, std::to_string(code), liveView);
    return BaseRsp(code, LogTemplate(LOGGER_HILOG, CLIENT_FILE, "StartLiveView", 636),
                   "StartLiveView publishNotification error.");
}

BaseRsp LiveViewClient::UpdateLiveView(LiveView& liveView, LiveViewResult& result) {
    return UpdateOrStopLiveView(liveView, result, LiveView::UPDATE, UPDATE_KIND);
}

BaseRsp LiveViewClient::StopLiveView(LiveView& liveView, LiveViewResult& result) {
    return UpdateOrStopLiveView(liveView, result, LiveView::STOP, STOP_KIND);
}

int LiveViewClient::GetActiveLiveView(const int& id, LiveView& liveView) {
    LV_LOGI(756, "Begin get active liveView.");
    CallFrame frame;
    sptr<NotificationRequest> request(new NotificationRequest());
    const int ret = GetActiveNotification(id, {}, request);
    EventReport::SendEvent(INVOKE_LIVE_VIEW_SERVICE,
                           EventInfo("GetActiveLiveView", ret, frame.ElapsedMillis()));
    if (ret != 0) {
        LV_LOGE(769, "PublishNotification error, code is %{public}d", ret);
        frame.WriteEndEvent("getActiveLiveView", 1, std::to_string(ret), liveView);
        return ret;
    }
    BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(request, liveView);
    if (rsp.Succeed()) {
        frame.WriteEndEvent("getActiveLiveView", 0, "0", liveView);
        return 0;
    }
    LV_LOGE(779, "ConvertToLiveView failed: %{public}s", rsp.GetInfo().c_str());
    frame.WriteEndEvent("getActiveLiveView", 1, std::to_string(rsp.GetErrAsInt32()), liveView);
    return rsp.GetErrAsInt32();
}

int LiveViewClient::IsLiveViewEnabled(bool& enabled) {
    CallFrame frame;
    int ret = NotificationHelper::GetEnabledForBundleSlotSelf(
        Notification::NotificationConstant::LIVE_VIEW, enabled);
    if (ret != 0) {
        LV_LOGI(571, "GetEnabledForBundleSlot ret is %{public}d", ret);
        if (ret == SLOT_NOT_CONFIGURED) {
            enabled = true;
            ret = 0;
        }
    }
    const ErrorCode code = LiveViewErrorConversion::ReturnLiveViewError(ret);
    const int64_t elapsed = frame.ElapsedMillis();
    if (ret != 0) {
        EventReport::SendEvent(INVOKE_NOTIFICATION_ERROR,
                               EventInfo("GetEnabledForBundleSlotSelf", ret, elapsed));
    }
    EventReport::SendEvent(INVOKE_LIVE_VIEW_SERVICE, EventInfo("IsLiveViewEnabled", code, elapsed));
    // There is no record: the event slot carries the API name and both kinds are -1.
    frame.WriteEndEvent("isLiveViewEnabled", code != SUCCESS ? 1 : 0, std::to_string(code),
                        "isLiveViewEnabled", -1, -1);
    return code;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
