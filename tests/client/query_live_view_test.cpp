// Reading a live view back and asking whether live views are enabled: the answers, the record
// left behind, and what each path reports.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "client_test_support.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ClientTesting {
namespace {

using Host::ServiceCall;

class GetActiveLiveViewTest : public ClientTest {};

TEST_F(GetActiveLiveViewTest, ReadBackReportsTheLiveViewAsRead) {
    LiveView start = StartRecord(7, "DELIVERY", PickupLayoutForStart());
    SetCapsule(start, TextCapsuleForStart());
    ASSERT_EQ(StartQuietly(start).GetErrAsInt32(), 0);
    LiveView readBack;

    EXPECT_EQ(client_.GetActiveLiveView(7, readBack), 0);

    EXPECT_EQ(Text(readBack.GetId()), "7");
    EXPECT_EQ(readBack.GetEvent(), "DELIVERY");
    EXPECT_EQ(TakeLogs(), std::vector<std::string>{kBeginGetActive});
    EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{ServiceEvent("GetActiveLiveView", 0)});
    // The event and kinds are those of the record as read back.
    EXPECT_EQ(TakeEndEvents(),
              std::vector<std::string>{EndEvent("getActiveLiveView", 0, 0, "DELIVERY", 4, 1)});
}

TEST_F(GetActiveLiveViewTest, LiveViewThatCannotBeReadLeavesTheRecordAsItWas) {
    struct Row {
        const char* label;
        std::function<void()> arrange;
        int32_t code;
        std::vector<std::string> logs;
        std::vector<std::string> sysEvents;
    };
    const std::string readFailed =
        "E [live_view_client.cpp:769] GetActiveLiveView# PublishNotification error, code is ";
    const std::vector<Row> rows = {
        {"unknown id",
         [] {},
         1003500009,
         {kBeginGetActive, readFailed + "1003500009"},
         {NotificationErrorEvent("GetActiveNotificationByFilter", 0),
          ServiceEvent("GetActiveLiveView", 1003500009)}},
        {"another app's live view",
         [this] {
             Host::SetCallingApp("com.example.rides", 20010002);
             ASSERT_EQ(
                 StartQuietly(StartRecord(9, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                 0);
             Host::SetCallingApp(kBundle, kUid);
         },
         1003500009,
         {kBeginGetActive, readFailed + "1003500009"},
         {NotificationErrorEvent("GetActiveNotificationByFilter", 0),
          ServiceEvent("GetActiveLiveView", 1003500009)}},
        {"read answered with a marshalling error",
         [] { Host::FailNextCalls(ServiceCall::GET_ACTIVE, 0x4000009); },
         1003500002,
         {kBeginGetActive, readFailed + "1003500002"},
         {NotificationErrorEvent("GetActiveNotificationByFilter", 0),
          ServiceEvent("GetActiveLiveView", 1003500002)}},
        {"caller without bundle name",
         [] { Host::ClearCallingApp(); },
         1003500001,
         {kBeginGetActive,
          "E [live_view_client.cpp:439] GetActiveNotification# Get current bundle name fail: "
          "Get current bundle name failed, uid is -1.",
          readFailed + "1003500001"},
         {ServiceEvent("GetActiveLiveView", 1003500001)}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FreshHost();
        ASSERT_NO_FATAL_FAILURE(row.arrange());
        LiveView record;
        record.SetId(Int(99));
        record.SetEvent("KEPT");
        auto data = std::make_shared<LiveViewData>();
        record.SetLiveViewData(data);

        EXPECT_EQ(client_.GetActiveLiveView(9, record), row.code);

        EXPECT_EQ(Text(record.GetId()), "99");
        EXPECT_EQ(record.GetEvent(), "KEPT");
        EXPECT_EQ(record.GetLiveViewData(), data);
        EXPECT_EQ(data->GetPrimary(), nullptr);
        EXPECT_EQ(record.GetTimer(), nullptr);
        EXPECT_EQ(TakeLogs(), row.logs);
        EXPECT_EQ(TakeSysEvents(), row.sysEvents);
        EXPECT_EQ(TakeEndEvents(), std::vector<std::string>{
                                       EndEvent("getActiveLiveView", 1, row.code, "KEPT", -1, -1)});
    }
}

class IsLiveViewEnabledTest : public ClientTest {};

TEST_F(IsLiveViewEnabledTest, AnswersFollowTheSlotAndTheServiceNumbers) {
    struct Row {
        const char* label;
        std::function<void()> arrange;
        int32_t code;
        bool enabled;  // read only on success
        std::vector<std::string> logs;
        std::vector<std::string> sysEvents;
    };
    const std::string retLine =
        "I [live_view_client.cpp:571] IsLiveViewEnabled# GetEnabledForBundleSlot ret is ";
    const std::vector<Row> rows = {
        {"slot enabled",
         [] { Host::SetLiveViewSlotEnabled(kBundle, kUid, true); },
         0,
         true,
         {},
         {ServiceEvent("IsLiveViewEnabled", 0)}},
        {"slot disabled",
         [] { Host::SetLiveViewSlotEnabled(kBundle, kUid, false); },
         0,
         false,
         {},
         {ServiceEvent("IsLiveViewEnabled", 0)}},
        {"slot never switched",
         [] {},
         0,
         true,
         {retLine + "67108888"},
         {ServiceEvent("IsLiveViewEnabled", 0)}},
        {"answer 67108888 injected",
         [] {
             Host::SetLiveViewSlotEnabled(kBundle, kUid, false);
             Host::FailNextCalls(ServiceCall::GET_ENABLED, 67108888);
         },
         0,
         true,
         {retLine + "67108888"},
         {ServiceEvent("IsLiveViewEnabled", 0)}},
        {"answer 67108898 injected",
         [] { Host::FailNextCalls(ServiceCall::GET_ENABLED, 67108898); },
         1003500004,
         false,
         {retLine + "67108898"},
         {NotificationErrorEvent("GetEnabledForBundleSlotSelf", 67108898),
          ServiceEvent("IsLiveViewEnabled", 1003500004)}},
        {"unknown answer injected",
         [] { Host::FailNextCalls(ServiceCall::GET_ENABLED, 17); },
         1003500001,
         false,
         {retLine + "17"},
         {NotificationErrorEvent("GetEnabledForBundleSlotSelf", 17),
          ServiceEvent("IsLiveViewEnabled", 1003500001)}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FreshHost();
        row.arrange();
        bool enabled = !row.enabled;

        const int code = client_.IsLiveViewEnabled(enabled);

        EXPECT_EQ(code, row.code);
        if (code == 0) {
            EXPECT_EQ(enabled, row.enabled);
        }
        EXPECT_EQ(TakeLogs(), row.logs);
        EXPECT_EQ(TakeSysEvents(), row.sysEvents);
        // There is no record: the event slot names the call and both kinds are -1.
        EXPECT_EQ(TakeEndEvents(),
                  std::vector<std::string>{EndEvent("isLiveViewEnabled", code == 0 ? 0 : 1,
                                                    row.code, "isLiveViewEnabled", -1, -1)});
    }
}

}  // namespace
}  // namespace ClientTesting
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
