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
#include "live_view_content_of.h"
#include "live_view_error_conversion.h"
#include "live_view_logger.h"
#include "live_view_request_pipeline.h"
#include "live_view_subscriber.h"
#include "notification_bundle_option.h"
#include "notification_helper.h"
#include "notification_live_view_content.h"
#include "notification_live_view_filter.h"
#include "notification_request.h"
#include "notification_request_conversion.h"
#include "time_helper.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

using Notification::NotificationHelper;
using Notification::NotificationRequest;

namespace {

const char* const CLIENT_FILE =
    "live_activity_framework/frameworks/native/live_activity_manager/src/live_view_client";
const std::string KIT_NAME = "Zembrak";
const std::string UPDATE_FAILED = "update failed";
const std::string STOP_FAILED = "stop failed";
// The service's answer to an enablement query of an app whose slot was never configured: the
// app may show live views.
constexpr int SLOT_NOT_CONFIGURED = 67108888;

// What the active notification of an update or stop says about the live view. Shared by the
// steps of one call.
struct LiveViewInfo {
    explicit LiveViewInfo(LiveView::Operation op) : operation(op) {}
    HeldLiveView held;
    LiveView::Operation operation;
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

BaseRsp NavigationSubScribe(NotificationRequest& request) {
    LV_LOGI(530, "Navigation layout subscribe.");
    auto liveViewContent = LiveViewContentOf(request);
    if (liveViewContent == nullptr) {
        LV_LOGE(534, "The notification liveView content is nullptr.");
        return BaseRsp(ERR_INTERNAL,
                       LogTemplate(LOGGER_HILOG, CLIENT_FILE, "NavigationSubScribe", 535),
                       "The notification liveView content is nullptr.");
    }
    // The pipeline marked the content for local update; the subscriber hears of its buttons.
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
    sptr<NotificationRequest> request(new NotificationRequest());
    const int ret = GetActiveNotification(*id, HeldLiveView::Keys(), request);
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
    info->held = HeldLiveView::FromExtraInfo(*extraInfo);
    return BaseRsp();
}

// Builds the request of an update or stop. A section that fails is logged and named in the
// caller's result; the common and timer sections leave the result alone.
BaseRsp UpdateLiveViewParamParse(const LiveView& liveView, NotificationRequest& request,
                                 std::shared_ptr<LiveViewInfo>& info,
                                 LiveViewClient::LiveViewResult& result) {
    const PipelineOutcome built =
        LiveViewRequestPipeline::Build(liveView, info->operation, info->held, request);
    const UpdateFailureReport* report =
        built.failedSection == nullptr ? nullptr : built.failedSection->updateFailure;
    if (report != nullptr) {
        LV_LOGE_FN(report->line, report->function, "%{public}s Param Validate fail: %{public}s",
                   report->logLabel, built.rsp.GetInfo().c_str());
        result.code = 1;
        result.message = report->resultPrefix + OperationWord(info->operation);
    }
    return built.rsp;
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
    const PipelineOutcome built =
        LiveViewRequestPipeline::Build(liveView, LiveView::START, HeldLiveView(), request);
    BaseRsp rsp = built.rsp;
    if (!rsp.Succeed()) {
        LV_LOGE(604, "StartLiveViewParamParse fail: %{public}s", rsp.GetInfo().c_str());
        frame.WriteEndEvent("startLiveView", 1, std::to_string(rsp.GetErrAsInt32()), liveView);
        return rsp;
    }
    if (built.needsLocalUpdateSubscription) {
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
