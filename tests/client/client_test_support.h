// Shared by the client suites: a fixture that starts every test from a fresh host with the food
// app as caller and a manual service clock, builders of live view records that pass the checks
// of a start, and readers that render what the host captured (published requests, log lines,
// system events, end events) as exact texts that a test can compare.
#ifndef TESTS_CLIENT_CLIENT_TEST_SUPPORT_H
#define TESTS_CLIENT_CLIENT_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "host_control.h"
#include "live_view_content.h"
#include "live_view_manager.h"
#include "log_capture.h"
#include "record_builders.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ClientTesting {

using namespace Builders;
using LiveViewTest::LiveViewContentOf;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Status = NotificationLiveViewContent::LiveViewStatus;

inline const std::string kBundle = "com.example.food";
constexpr int32_t kUid = 20010001;
// Where the manual service clock starts in every test.
constexpr int64_t kStartMillis = 5000000;

// ---------------------------------------------------------------------------------------------
// Log lines, rendered as "I text" (information) or "E text" (error).

inline const std::string kBeginStart =
    "I [live_view_client.cpp:596] StartLiveView# Begin start liveView.";
inline const std::string kBeginUpdate =
    "I [live_view_client.cpp:651] UpdateLiveView# Begin update liveView.";
inline const std::string kBeginStop =
    "I [live_view_client.cpp:703] StopLiveView# Begin stop liveView.";
inline const std::string kBeginGetActive =
    "I [live_view_client.cpp:756] GetActiveLiveView# Begin get active liveView.";

// The information lines of the optional sections when a record has none: one from the check and,
// where the section is converted, one from the conversion.
inline const std::string kNoExtensionChecked =
    "I [live_view_param_validate.cpp:240] ExtendDataParamValidate# The extensionData is nullptr";
inline const std::string kNoExtensionWritten =
    "I [live_view_param_conversion.cpp:398] ExtendDataParamConversion# The extensionData is "
    "nullptr";
inline const std::string kNoCapsuleChecked =
    "I [live_view_param_validate.cpp:320] CapsuleDataParamValidate# The capsule is nullptr";
inline const std::string kNoCapsuleWritten =
    "I [live_view_param_conversion.cpp:440] CapsuleDataParamConversion# The capsule is nullptr.";
inline const std::string kNoExternalChecked =
    "I [live_view_param_validate.cpp:280] ExternalDataParamValidate# The externalData "
    "is null";
inline const std::string kNoExternalWritten =
    "I [live_view_param_conversion.cpp:425] ExternalDataParamConversion# The externalData is null";

// The log lines that follow a live view's opening line on start, up to publishing.
inline std::vector<std::string> StartLines(bool hasCapsule, bool hasExternal = false) {
    std::vector<std::string> lines = {kBeginStart, kNoExtensionChecked, kNoExtensionWritten};
    if (!hasCapsule) {
        lines.push_back(kNoCapsuleChecked);
        lines.push_back(kNoCapsuleWritten);
    }
    if (!hasExternal) {
        lines.push_back(kNoExternalChecked);
        lines.push_back(kNoExternalWritten);
    }
    return lines;
}

// The log lines of an update or stop whose record has no extension, capsule or external data
// (absent sections are only checked, not converted).
inline std::vector<std::string> UpdateLines(const std::string& begin, bool hasCapsule = false) {
    std::vector<std::string> lines = {begin, kNoExtensionChecked};
    if (!hasCapsule) {
        lines.push_back(kNoCapsuleChecked);
    }
    lines.push_back(kNoExternalChecked);
    return lines;
}

inline std::vector<std::string> Concat(std::vector<std::string> first,
                                       const std::vector<std::string>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

inline std::string LogLineText(const Host::LogLine& line) {
    std::string text;
    if (line.level == 4) {
        text = "I ";
    } else if (line.level == 6) {
        text = "E ";
    } else {
        text = "level" + std::to_string(line.level) + " ";
    }
    // Anything but the library's type, domain and tag shows up in the text.
    if (line.type != 3 || line.domain != 0xD005301u || line.tag != "live_view_manager") {
        text += "<type " + std::to_string(line.type) + " domain " + std::to_string(line.domain) +
                " tag " + line.tag + "> ";
    }
    return text + line.text;
}

inline std::vector<std::string> TakeLogs() {
    std::vector<std::string> texts;
    for (const auto& line : Host::TakeLogLines()) {
        texts.push_back(LogLineText(line));
    }
    return texts;
}

// ---------------------------------------------------------------------------------------------
// System events, rendered as "DOMAIN/NAME type=T KEY=VALUE ...", the cost time as <ms> when it is
// a whole number of milliseconds.

inline bool IsDecimal(const std::string& text) {
    static const std::regex pattern("^-?[0-9]+$");
    return std::regex_match(text, pattern);
}

inline std::string SysEventText(const Host::SysEvent& event) {
    std::string text = event.domain + "/" + event.name + " type=" + std::to_string(event.type);
    for (const auto& param : event.params) {
        const bool wholeMillis =
            param.key == "COST_TIME" && IsDecimal(param.value) && param.value[0] != '-';
        text += " " + param.key + "=" + (wholeMillis ? std::string("<ms>") : param.value);
    }
    return text;
}

inline std::vector<std::string> TakeSysEvents() {
    std::vector<std::string> texts;
    for (const auto& event : Host::TakeSysEvents()) {
        texts.push_back(SysEventText(event));
    }
    return texts;
}

// INVOKE_LIVE_VIEW_SERVICE, a behaviour event, named after the facade operation.
inline std::string ServiceEvent(const std::string& apiName, int32_t code) {
    return "LIVE_VIEW/INVOKE_LIVE_VIEW_SERVICE type=4 API_NAME=" + apiName +
           " ERROR_CODE=" + std::to_string(code) + " COST_TIME=<ms>";
}

// INVOKE_NOTIFICATION_ERROR, a fault event, named after the failing platform call.
inline std::string NotificationErrorEvent(const std::string& apiName, int32_t code) {
    return "LIVE_VIEW/INVOKE_NOTIFICATION_ERROR type=1 API_NAME=" + apiName +
           " ERROR_CODE=" + std::to_string(code) + " COST_TIME=<ms>";
}

// ---------------------------------------------------------------------------------------------
// End events, rendered as "DOMAIN/NAME type=T key=value ...", with the transaction id as
// <transId> when it is "transId_" and digits, and the two times as <ms> when they are numbers.

inline std::string EndEventText(const HiviewDFX::HiAppEvent::Event& event) {
    static const std::regex transId("^transId_[0-9]+$");
    std::string text = event.GetDomain() + "/" + event.GetName() +
                       " type=" + std::to_string(static_cast<int>(event.GetType()));
    for (const auto& param : event.GetParams()) {
        std::string value = param.value;
        if (param.key == "trans_id" && std::regex_match(value, transId)) {
            value = "<transId>";
        } else if ((param.key == "begin_time" || param.key == "end_time") && IsDecimal(value)) {
            value = "<ms>";
        }
        text += " " + param.key + "=" + value;
    }
    return text;
}

inline std::vector<std::string> TakeEndEvents() {
    std::vector<std::string> texts;
    for (const auto& event : Host::TakeAppEvents()) {
        texts.push_back(EndEventText(event));
    }
    return texts;
}

inline std::string EndEvent(const std::string& apiName, int outcome, int32_t code,
                            const std::string& event, int layoutType, int capsuleType) {
    return "api_diagnostic/api_exec_end type=4 trans_id=<transId> api_name=" + apiName +
           " sdk_name=Zembrak begin_time=<ms> end_time=<ms> result=" + std::to_string(outcome) +
           " error_code=" + std::to_string(code) + " event=" + event +
           " layout_type=" + std::to_string(layoutType) +
           " capsule_type=" + std::to_string(capsuleType);
}

// ---------------------------------------------------------------------------------------------
// What the service received.

inline std::shared_ptr<AAFwk::WantParams> ExtraInfoOf(const NotificationRequest& request) {
    auto content = LiveViewContentOf(request);
    return content == nullptr ? nullptr : content->GetExtraInfo();
}

// The value under key as "bool:true", "int:3", "long:5" or "string:text"; "<absent>" when the
// map has no such key, "<other>" for a value of another kind.
inline std::string Describe(const std::shared_ptr<AAFwk::WantParams>& params,
                            const std::string& key) {
    if (params == nullptr || !params->HasParam(key)) {
        return "<absent>";
    }
    const auto value = params->GetParam(key);
    if (auto* flag = AAFwk::IBoolean::Query(value)) {
        return std::string("bool:") + (AAFwk::Boolean::Unbox(flag) ? "true" : "false");
    }
    if (auto* number = AAFwk::IInteger::Query(value)) {
        return "int:" + std::to_string(AAFwk::Integer::Unbox(number));
    }
    if (auto* number = AAFwk::ILong::Query(value)) {
        return "long:" + std::to_string(AAFwk::Long::Unbox(number));
    }
    if (auto* text = AAFwk::IString::Query(value)) {
        return "string:" + AAFwk::String::Unbox(text);
    }
    return "<other>";
}

inline std::string DescribePublished(const Host::PublishRecord& record, const std::string& key) {
    return record.request == nullptr ? "<no request>" : Describe(ExtraInfoOf(*record.request), key);
}

// ---------------------------------------------------------------------------------------------
// Record builders of the client suites; those shared with other suites are in record_builders.h.

// A plain layout of the given type (-1 carries no further rules).
inline std::shared_ptr<LayoutData> BareLayout(LayoutData::LayoutType type) {
    auto layout = std::make_shared<LayoutData>();
    layout->SetLayoutType(type);
    return layout;
}

// An update or stop record: id, event and an empty primary data, which an update accepts.
inline LiveView ChangeRecord(int id, const std::string& event) {
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(std::make_shared<PrimaryData>());
    LiveView liveView;
    liveView.SetId(Int(id));
    liveView.SetEvent(event);
    liveView.SetLiveViewData(data);
    return liveView;
}

inline std::shared_ptr<LiveViewTimer> TimerWithTime(long millis) {
    auto timer = std::make_shared<LiveViewTimer>();
    timer->SetTime(Long(millis));
    return timer;
}

// ---------------------------------------------------------------------------------------------
// The fixture: a fresh host, everything captured, the food app calling, a manual clock.

class ClientTest : public ::testing::Test {
protected:
    void SetUp() override { FreshHost(); }

    // Starts over within a test: a fresh host as at the start of every test.
    static void FreshHost() {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::CAPTURE);
        Host::SetCallingApp(kBundle, kUid);
        Host::SetClockMillis(kStartMillis);
    }

    // Forgets what the host captured so far (the set-up calls of a test).
    static void ForgetCaptured() {
        Host::TakeLogLines();
        Host::TakeSysEvents();
        Host::TakeAppEvents();
    }

    // Starts a live view as a step of a test's set-up and forgets what it wrote.
    BaseRsp StartQuietly(LiveView liveView) {
        LiveViewClient::LiveViewResult result;
        BaseRsp rsp = client_.StartLiveView(liveView, result);
        ForgetCaptured();
        return rsp;
    }

    // Stops a live view as a step of a test's set-up and forgets what it wrote.
    BaseRsp StopQuietly(LiveView liveView) {
        LiveViewClient::LiveViewResult result;
        BaseRsp rsp = client_.StopLiveView(liveView, result);
        ForgetCaptured();
        return rsp;
    }

    LiveViewTest::HostCapture capture_;
    LiveViewClient client_;
};

}  // namespace ClientTesting
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TESTS_CLIENT_CLIENT_TEST_SUPPORT_H
