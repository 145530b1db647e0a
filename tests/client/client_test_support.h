// Shared by the client suites: a fixture that starts every test from a fresh host with the food
// app calling and a manual service clock, and readers that render what the host captured (log
// lines, system events, end events, the extra info last published) as exact texts.
//
// Thread safety: for the test's own thread; the host it drives is process-wide.
#ifndef TESTS_CLIENT_CLIENT_TEST_SUPPORT_H
#define TESTS_CLIENT_CLIENT_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <regex>
#include <string>
#include <vector>

#include "host_control.h"
#include "live_view_content.h"
#include "live_view_manager.h"
#include "record_builders.h"

namespace Tavi::Wisp::LiveView::ClientTesting {

using namespace Builders;
using Host::ServiceCall;
using LiveViewTest::LiveViewContentOf;
using Lines = std::vector<std::string>;

inline const std::string kBundle = "com.example.food";
constexpr int32_t kUid = 20010001;

inline const std::string kNoExtensionChecked =
    "I [live_view_param_validate.cpp:240] ExtendDataParamValidate# The extensionData is nullptr";
inline const std::string kNoCapsuleChecked =
    "I [live_view_param_validate.cpp:320] CapsuleDataParamValidate# The capsule is nullptr";
inline const std::string kNoExternalChecked =
    "I [live_view_param_validate.cpp:280] ExternalDataParamValidate# The externalData is null";

// The lines of a start without optional sections, up to publishing: an absent section is checked
// and, on start, converted.
inline Lines StartLines() {
    const std::string converted = "I [live_view_param_conversion.cpp:";
    return {"I [live_view_client.cpp:596] StartLiveView# Begin start liveView.",
            kNoExtensionChecked,
            converted + "398] ExtendDataParamConversion# The extensionData is nullptr",
            kNoCapsuleChecked,
            converted + "440] CapsuleDataParamConversion# The capsule is nullptr.",
            kNoExternalChecked,
            converted + "425] ExternalDataParamConversion# The externalData is null"};
}

// "I text" or "E text"; a line of another type, domain or tag than the library's says so.
inline Lines TakeLogs() {
    Lines texts;
    for (const auto& line : Host::TakeLogLines()) {
        const bool ours =
            line.type == 3 && line.domain == 0xD005301u && line.tag == "live_view_manager";
        texts.push_back(std::string(line.level == 4   ? "I "
                                    : line.level == 6 ? "E "
                                                      : "? ") +
                        (ours ? "" : "<not ours> ") + line.text);
    }
    return texts;
}

// " key=value ..." of an event's parameters, with whole-number times and a transaction id of
// "transId_" and digits as "*".
template <typename Params>
std::string ParamsText(const Params& params) {
    static const std::regex masked(
        "(COST_TIME|begin_time|end_time)=[0-9]+|trans_id=transId_[0-9]+");
    std::string text;
    for (const auto& param : params) {
        const std::string pair = param.key + "=" + param.value;
        text += " " + (std::regex_match(pair, masked) ? param.key + "=*" : pair);
    }
    return text;
}

inline std::string ServiceEvent(const std::string& apiName, int32_t code) {
    return "LIVE_VIEW/INVOKE_LIVE_VIEW_SERVICE type=4 API_NAME=" + apiName +
           " ERROR_CODE=" + std::to_string(code) + " COST_TIME=*";
}

inline std::string NotificationErrorEvent(const std::string& apiName, int32_t code) {
    return "LIVE_VIEW/INVOKE_NOTIFICATION_ERROR type=1 API_NAME=" + apiName +
           " ERROR_CODE=" + std::to_string(code) + " COST_TIME=*";
}

inline std::string EndEvent(const std::string& apiName, int32_t code, const std::string& event,
                            int layoutType, int capsuleType) {
    return "api_diagnostic/api_exec_end type=4 trans_id=* api_name=" + apiName +
           " sdk_name=Zembrak begin_time=* end_time=* result=" + (code == 0 ? "0" : "1") +
           " error_code=" + std::to_string(code) + " event=" + event +
           " layout_type=" + std::to_string(layoutType) +
           " capsule_type=" + std::to_string(capsuleType);
}

// Everything that one call reported, taken from the host.
inline void ExpectReports(const Lines& logs, const Lines& sysEvents, const std::string& endEvent) {
    EXPECT_EQ(TakeLogs(), logs);
    Lines events;
    for (const auto& event : Host::TakeSysEvents()) {
        events.push_back(event.domain + "/" + event.name + " type=" + std::to_string(event.type) +
                         ParamsText(event.params));
    }
    EXPECT_EQ(events, sysEvents);
    Lines endEvents;
    for (const auto& event : Host::TakeAppEvents()) {
        endEvents.push_back(event.GetDomain() + "/" + event.GetName() +
                            " type=" + std::to_string(static_cast<int>(event.GetType())) +
                            ParamsText(event.GetParams()));
    }
    EXPECT_EQ(endEvents, Lines{endEvent});
}

// The extra-info value under key of the last published request: "bool:true", "int:3",
// "long:5", "string:text", or "<absent>".
inline std::string LastSent(const std::string& key) {
    const auto published = Host::Published();
    const auto content = published.empty() ? nullptr : LiveViewContentOf(*published.back().request);
    const auto params = content == nullptr ? nullptr : content->GetExtraInfo();
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
    auto* text = AAFwk::IString::Query(value);
    return text == nullptr ? "<other>" : "string:" + AAFwk::String::Unbox(text);
}

// An update or stop record: a start record whose primary data is empty, which both accept.
inline LiveView ChangeRecord(int id) {
    LiveView liveView = StartRecord(id);
    liveView.GetLiveViewData()->SetPrimary(std::make_shared<PrimaryData>());
    return liveView;
}

class ClientTest : public ::testing::Test {
protected:
    void SetUp() override { FreshHost(); }
    void TearDown() override { Host::ResetAll(); }

    // A fresh host, everything captured, the food app calling, the manual clock at 5,000,000 ms.
    static void FreshHost() {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::CAPTURE);
        Host::SetCallingApp(kBundle, kUid);
        Host::SetClockMillis(5000000);
    }

    // Starts (or stops) as a step of a test's set-up and forgets what the call reported.
    int32_t Quietly(LiveView liveView, bool stop = false) {
        LiveViewClient::LiveViewResult result;
        const BaseRsp rsp =
            stop ? client_.StopLiveView(liveView, result) : client_.StartLiveView(liveView, result);
        Host::TakeLogLines();
        Host::TakeSysEvents();
        Host::TakeAppEvents();
        return rsp.GetErrAsInt32();
    }

    LiveViewClient client_;
};

}  // namespace Tavi::Wisp::LiveView::ClientTesting

#endif  // TESTS_CLIENT_CLIENT_TEST_SUPPORT_H
