// EventReport and AppEventReport: what each records through the platform's event facilities.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "app_event_report.h"
#include "event_info.h"
#include "event_report.h"
#include "host_control.h"
#include "live_view_event.h"
#include "time_helper.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

class EventReportTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::CAPTURE);
    }
    void TearDown() override { Host::ResetAll(); }
};

TEST_F(EventReportTest, SendEventWritesTheKindsNameAndTypeWithTheCallsParameters) {
    const struct {
        const char* label;
        LiveViewEvent kind;
        EventInfo info;
        const char* name;
        int type;
        std::vector<std::string> params;
    } rows[] = {
        {"service call",
         INVOKE_LIVE_VIEW_SERVICE,
         EventInfo("StartLiveView", 0, 12),
         "INVOKE_LIVE_VIEW_SERVICE",
         4,
         {"API_NAME=StartLiveView", "ERROR_CODE=0", "COST_TIME=12"}},
        {"notification error",
         INVOKE_NOTIFICATION_ERROR,
         EventInfo("UpdateLiveView", 1003500009, 1700000000123),
         "INVOKE_NOTIFICATION_ERROR",
         1,
         {"API_NAME=UpdateLiveView", "ERROR_CODE=1003500009", "COST_TIME=1700000000123"}},
        {"negative code, empty name",
         INVOKE_NOTIFICATION_ERROR,
         EventInfo("", -1, 0),
         "INVOKE_NOTIFICATION_ERROR",
         1,
         {"API_NAME=", "ERROR_CODE=-1", "COST_TIME=0"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EventReport::SendEvent(row.kind, row.info);
        const auto events = Host::TakeSysEvents();
        ASSERT_EQ(events.size(), 1u);
        EXPECT_EQ(events[0].domain, "LIVE_VIEW");
        EXPECT_EQ(events[0].name, row.name);
        EXPECT_EQ(events[0].type, row.type);
        std::vector<std::string> params;
        for (const auto& param : events[0].params) {
            params.push_back(param.key + "=" + param.value);
        }
        EXPECT_EQ(params, row.params);
    }
}

TEST_F(EventReportTest, SendEventOfAKindWithoutEntryWritesNothing) {
    EventReport::SendEvent(static_cast<LiveViewEvent>(2), EventInfo("StartLiveView", 0, 1));
    EventReport::SendEvent(static_cast<LiveViewEvent>(-1), EventInfo("StartLiveView", 0, 1));
    EXPECT_TRUE(Host::TakeSysEvents().empty());
}

TEST_F(EventReportTest, EventLevelMapHasOneEntryPerKind) {
    ASSERT_EQ(EVENT_LEVEL_MAP.size(), 2u);
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_LIVE_VIEW_SERVICE).name, "INVOKE_LIVE_VIEW_SERVICE");
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_LIVE_VIEW_SERVICE).type, HiviewDFX::HiSysEvent::BEHAVIOR);
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_NOTIFICATION_ERROR).name, "INVOKE_NOTIFICATION_ERROR");
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_NOTIFICATION_ERROR).type, HiviewDFX::HiSysEvent::FAULT);
}

TEST_F(EventReportTest, WriteEndEventRecordsItsParametersInOrder) {
    const int64_t before = TimeHelper::GetCurrentTimeMillis();
    AppEventReport::WriteEndEvent("trans-1", "StartLiveView", "LiveViewKit", 1700000000000, 1,
                                  "1003500006", "TAXI", 3, 2);
    const int64_t after = TimeHelper::GetCurrentTimeMillis();

    const auto events = Host::TakeAppEvents();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].GetDomain(), "api_diagnostic");
    EXPECT_EQ(events[0].GetName(), "api_exec_end");
    EXPECT_EQ(events[0].GetType(), HiviewDFX::HiAppEvent::BEHAVIOR);
    const auto& params = events[0].GetParams();
    ASSERT_EQ(params.size(), 10u);
    const struct {
        const char* key;
        const char* value;  // null where the value is checked separately
    } expected[] = {
        {"trans_id", "trans-1"},      {"api_name", "StartLiveView"},
        {"sdk_name", "LiveViewKit"},  {"begin_time", "1700000000000"},
        {"end_time", nullptr},        {"result", "1"},
        {"error_code", "1003500006"}, {"event", "TAXI"},
        {"layout_type", "3"},         {"capsule_type", "2"},
    };
    for (size_t i = 0; i < params.size(); ++i) {
        SCOPED_TRACE(expected[i].key);
        EXPECT_EQ(params[i].key, expected[i].key);
        if (expected[i].value != nullptr) {
            EXPECT_EQ(params[i].value, expected[i].value);
        }
    }
    const int64_t endTime = std::stoll(params[4].value);
    EXPECT_GE(endTime, before);
    EXPECT_LE(endTime, after);
}

TEST_F(EventReportTest, WriteEndEventKeepsNegativeAndEmptyValues) {
    AppEventReport::WriteEndEvent("", "", "", -1, 0, "", "", -1, -1);
    const auto events = Host::TakeAppEvents();
    ASSERT_EQ(events.size(), 1u);
    std::vector<std::string> params;
    for (const auto& param : events[0].GetParams()) {
        if (param.key != "end_time") {
            params.push_back(param.key + "=" + param.value);
        }
    }
    EXPECT_EQ(params, (std::vector<std::string>{
                          "trans_id=", "api_name=", "sdk_name=", "begin_time=-1", "result=0",
                          "error_code=", "event=", "layout_type=-1", "capsule_type=-1"}));
}

TEST(TimeHelperTest, CurrentTimeIsTheSystemClockInMilliseconds) {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    using std::chrono::system_clock;
    const int64_t before =
        duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    const int64_t now = TimeHelper::GetCurrentTimeMillis();
    const int64_t after =
        duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    EXPECT_GE(now, before);
    EXPECT_LE(now, after);
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
