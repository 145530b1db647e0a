// Reading a live view back and asking whether live views are enabled: the answers, the record
// left behind, and what each path reports.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "client_test_support.h"

namespace Tavi::Wisp::LiveView::ClientTesting {
namespace {

using QueryTest = ClientTest;

const std::string kBeginGetActive =
    "I [live_view_client.cpp:756] GetActiveLiveView# Begin get active liveView.";

TEST_F(QueryTest, ReadBackFillsTheRecordOrLeavesItAsItWas) {
    const struct {
        const char* label;
        int id;
        bool withBundle;
        int32_t code;
        std::string failure;  // the log line before the last, if any
    } rows[] = {
        {"held", 7, true, 0, ""},
        {"unknown id", 9, true, 1003500009, ""},
        {"caller without bundle name", 7, false, 1003500001,
         "E [live_view_client.cpp:439] GetActiveNotification# Get current bundle name fail: Get "
         "current bundle name failed, uid is -1."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FreshHost();
        LiveView start = StartRecord(7);
        SetCapsule(start, TextCapsuleForStart());
        ASSERT_EQ(Quietly(start), 0);
        if (!row.withBundle) {
            Host::ClearCallingApp();
        }
        LiveView record;
        record.SetId(Int(99));
        record.SetEvent("KEPT");

        EXPECT_EQ(client_.GetActiveLiveView(row.id, record), row.code);

        Lines logs = {kBeginGetActive};
        Lines events = {ServiceEvent("GetActiveLiveView", row.code)};
        if (!row.failure.empty()) {
            logs.push_back(row.failure);
        } else if (row.code != 0) {
            // The read's error event names the failing call but carries 0.
            events.insert(events.begin(),
                          NotificationErrorEvent("GetActiveNotificationByFilter", 0));
        }
        if (row.code != 0) {
            logs.push_back(
                "E [live_view_client.cpp:769] GetActiveLiveView# PublishNotification error, code "
                "is " +
                std::to_string(row.code));
        }
        // The end event's event and kinds are those of the record as it is after the call.
        ExpectReports(logs, events,
                      row.code == 0 ? EndEvent("getActiveLiveView", 0, "DELIVERY", 4, 1)
                                    : EndEvent("getActiveLiveView", row.code, "KEPT", -1, -1));
        EXPECT_EQ(Text(record.GetId()), row.code == 0 ? "7" : "99");
        EXPECT_EQ(record.GetEvent(), row.code == 0 ? "DELIVERY" : "KEPT");
        EXPECT_EQ(record.GetLiveViewData() == nullptr, row.code != 0);
    }
}

TEST_F(QueryTest, EnabledFollowsTheSlotAndTheServiceAnswers) {
    const struct {
        const char* label;
        int slot;          // -1 never switched, else whether it is switched on
        int32_t injected;  // the service's answer forced on the call; 0 for none
        int32_t code;
        bool enabled;  // looked at only on success
    } rows[] = {
        {"slot disabled", 0, 0, 0, false},
        {"slot never switched", -1, 0, 0, true},
        {"not allowed", 1, 67108898, 1003500004, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FreshHost();
        if (row.slot >= 0) {
            Host::SetLiveViewSlotEnabled(kBundle, kUid, row.slot == 1);
        }
        if (row.injected != 0) {
            Host::FailNextCalls(ServiceCall::GET_ENABLED, row.injected);
        }
        bool enabled = !row.enabled;

        EXPECT_EQ(client_.IsLiveViewEnabled(enabled), row.code);

        if (row.code == 0) {
            EXPECT_EQ(enabled, row.enabled);
        }
        const int32_t answer = row.slot < 0 ? 67108888 : row.injected;
        Lines events = {ServiceEvent("IsLiveViewEnabled", row.code)};
        if (row.code != 0) {
            events.insert(events.begin(),
                          NotificationErrorEvent("GetEnabledForBundleSlotSelf", answer));
        }
        // There is no record: the end event's event names the call and both kinds are -1.
        ExpectReports(answer == 0 ? Lines{}
                                  : Lines{"I [live_view_client.cpp:571] IsLiveViewEnabled# "
                                          "GetEnabledForBundleSlot ret is " +
                                          std::to_string(answer)},
                      events, EndEvent("isLiveViewEnabled", row.code, "isLiveViewEnabled", -1, -1));
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::ClientTesting
