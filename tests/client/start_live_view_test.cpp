// Starting live views: what each outcome (published, refused by a check, refused by the service,
// navigation subscription made or failed) answers and reports, and what the subscriber hears.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "client_test_support.h"

namespace Tavi::Wisp::LiveView::ClientTesting {
namespace {

using StartLiveViewTest = ClientTest;
using Edit = std::function<void(LiveView&)>;

TEST_F(StartLiveViewTest, EachOutcomeAnswersAndReportsItsLinesAndEvents) {
    enum Outcome { PUBLISHED, SUBSCRIBED, NO_ID, REFUSED, SUBSCRIPTION_FAILS };
    struct Row {
        const char* label;
        Outcome outcome;
        const char* event;
        Edit arrange;  // the host and the record (id 5, a pickup layout) before the call
        int32_t code;
        int layoutType;  // of the end event, whose capsule type is -1
    };
    const Edit nothing = [](LiveView&) {};
    const Edit navigation = [](LiveView& record) { SetLayout(record, NavigationLayoutForStart()); };
    // A pending subscription fault would fail a start that subscribes.
    const Edit navigationUnsubscribed = [](LiveView& record) {
        SetLayout(record, NavigationLayoutForStart());
        Host::FailNextCalls(ServiceCall::SUBSCRIBE, 0x4000001);
    };
    const Edit noId = [](LiveView& record) { record.SetId(nullptr); };
    const Edit repeated = [this](LiveView&) { ASSERT_EQ(Quietly(StartRecord(5)), 0); };
    const Edit ended = [this](LiveView&) {
        ASSERT_EQ(Quietly(StartRecord(5)), 0);
        LiveView stop = StartRecord(5);
        LiveView::GetPrimaryData(stop)->SetKeepTime(Int(60));
        ASSERT_EQ(Quietly(stop, true), 0);
    };
    const Edit rateLimited = [this](LiveView&) {
        Host::SetRateLimit(1);
        ASSERT_EQ(Quietly(StartRecord(6)), 0);
    };
    const Edit slotDisabled = [](LiveView&) { Host::SetLiveViewSlotEnabled(kBundle, kUid, false); };
    const std::vector<Row> rows = {
        {"pickup", PUBLISHED, "DELIVERY", nothing, 0, 4},
        {"over an ended live view", PUBLISHED, "DELIVERY", ended, 0, 4},
        {"navigation", SUBSCRIBED, "NAVIGATION", navigation, 0, 8},
        {"workout", SUBSCRIBED, "WORKOUT", navigation, 0, 8},
        {"lower case", PUBLISHED, "navigation", navigationUnsubscribed, 0, 8},
        {"no id", NO_ID, "DELIVERY", noId, 401, 4},
        {"repeated start", REFUSED, "DELIVERY", repeated, 1003500006, 4},
        {"over the rate limit", REFUSED, "DELIVERY", rateLimited, 1003500008, 4},
        {"slot disabled", REFUSED, "DELIVERY", slotDisabled, 1003500004, 4},
        {"subscription, service not reached", SUBSCRIPTION_FAILS, "NAVIGATION", navigation,
         1003500003, 8},
    };
    const std::string subscribe =
        "I [live_view_client.cpp:530] NavigationSubScribe# Navigation layout subscribe.";
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.label) + " (" + row.event + ")");
        FreshHost();
        LiveView record = StartRecord(5, row.event);
        if (row.outcome == SUBSCRIPTION_FAILS) {
            Host::FailNextCalls(ServiceCall::SUBSCRIBE, 0x4000001);
        }
        ASSERT_NO_FATAL_FAILURE(row.arrange(record));
        const size_t publishedBefore = Host::Published().size();
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = client_.StartLiveView(record, result);

        Lines logs = StartLines();
        Lines events = {ServiceEvent("StartLiveView", row.code)};
        std::string info;
        const std::string e = "E [live_view_client.cpp:";
        if (row.outcome == SUBSCRIBED) {
            logs.insert(logs.end(), {subscribe,
                                     "I [live_view_subscriber.cpp:14] OnConnected# "
                                     "LiveViewSubscriber OnConnected."});
        } else if (row.outcome == NO_ID) {
            info =
                "Parameter error. The type of liveView.id mustbe number [or the parameter is "
                "mandatory].";
            logs.resize(1);
            logs.push_back(e + "604] StartLiveView# StartLiveViewParamParse fail: " + info);
            events = {};
        } else if (row.outcome == REFUSED) {
            info = "StartLiveView publishNotification error.";
            logs.insert(logs.end(), {e + "628] StartLiveView# PublishNotification error, code is " +
                                         std::to_string(row.code),
                                     e + "636] StartLiveView# " + info});
            events.push_back(NotificationErrorEvent("PublishNotification", row.code));
        } else if (row.outcome == SUBSCRIPTION_FAILS) {
            info = "Subscribe localLiveView notification error.";
            logs.insert(logs.end(), {subscribe,
                                     e +
                                         "550] NavigationSubScribe# Subscribe localLiveView "
                                         "notification ret is " +
                                         std::to_string(0x4000001),
                                     e + "551] NavigationSubScribe# " + info});
            events = {};
        }
        EXPECT_EQ(rsp.GetErrAsInt32(), row.code);
        EXPECT_EQ(rsp.GetInfo(), info);
        EXPECT_EQ(result.code, row.code == 0 ? 0 : 7);
        EXPECT_EQ(result.message, row.code == 0 ? "success." : "untouched");
        ExpectReports(logs, events,
                      EndEvent("startLiveView", row.code, row.event, row.layoutType, -1));
        const auto sent = Host::Published();
        const bool published = row.outcome != NO_ID && row.outcome != SUBSCRIPTION_FAILS;
        ASSERT_EQ(sent.size(), publishedBefore + (published ? 1 : 0));
        if (published) {
            EXPECT_EQ(sent.back().request->GetNotificationId(), 5);
            EXPECT_EQ(LiveViewContentOf(*sent.back().request)->GetIsOnlyLocalUpdate(),
                      row.outcome == SUBSCRIBED);
        }
        if (row.outcome == SUBSCRIBED) {
            // The subscriber hears the live view's buttons and the service dying.
            EXPECT_EQ(Host::PressButton(kBundle, kUid, 5, "reroute"), 0);
            Host::KillService();
            EXPECT_EQ(TakeLogs(),
                      (Lines{"I [live_view_subscriber.cpp:24] OnResponse# "
                             "LiveViewSubscriber OnResponse, notificationId is 5",
                             "I [live_view_subscriber.cpp:29] OnDied# LiveViewSubscriber "
                             "OnDied."}));
        }
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::ClientTesting
