// Starting live views: every layout kind is published and reads back; what a successful start,
// a failed check and a refused publish report; the update-timer flag of the live view's timer;
// navigation and workout live views and their subscriber.
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

class StartLiveViewTest : public ClientTest {};

TEST_F(StartLiveViewTest, EachLayoutKindIsPublishedAndReadsBack) {
    struct Row {
        const char* label;
        std::function<std::shared_ptr<LayoutData>()> layout;
        int layoutType;
        // The layout's own fields as read back.
        std::function<std::string(const std::shared_ptr<LayoutData>&)> fields;
        std::string expectedFields;
    };
    const std::vector<Row> rows = {
        {"progress", ProgressLayoutForStart, 3,
         [](const std::shared_ptr<LayoutData>& layout) {
             auto progress = AsProgressLayout(layout);
             if (progress == nullptr) {
                 return std::string("<not a progress layout>");
             }
             return "progress=" + Text(progress->GetProgress()) +
                    " color=" + Text(progress->GetColor()) +
                    " indicatorIcon=" + Text(progress->GetIndicatorIconStr()) +
                    " nodes=" + std::to_string(progress->GetNodeIconsStr().size());
         },
         "progress=40 color=#FF0A59F7 indicatorIcon=icon_rider nodes=3"},
        {"pickup", PickupLayoutForStart, 4,
         [](const std::shared_ptr<LayoutData>& layout) {
             auto pickup = AsPickupLayout(layout);
             if (pickup == nullptr) {
                 return std::string("<not a pickup layout>");
             }
             return "title=" + Text(pickup->GetTitle()) + " content=" + Text(pickup->GetContent()) +
                    " underline=" + Text(pickup->GetUnderlineColor()) +
                    " descPic=" + Text(pickup->GetDescPicStr());
         },
         "title=Pickup code content=A-1024 underline=#FFFF0000 descPic=pic_counter"},
        {"flight", FlightLayoutForStart, 5,
         [](const std::shared_ptr<LayoutData>& layout) {
             auto flight = AsFlightLayout(layout);
             if (flight == nullptr) {
                 return std::string("<not a flight layout>");
             }
             return "first=" + Text(flight->GetFirstTitle()) + "/" +
                    Text(flight->GetFirstContent()) + " last=" + Text(flight->GetLastTitle()) +
                    "/" + Text(flight->GetLastContent()) +
                    " space=" + Text(flight->GetSpaceIconStr()) +
                    " additional=" + Text(flight->GetAdditionalText());
         },
         "first=08:30/Departure last=11:45/Arrival space=icon_plane additional=Gate 12"},
        {"score", ScoreLayoutForStart, 7,
         [](const std::shared_ptr<LayoutData>& layout) {
             auto score = AsScoreLayout(layout);
             if (score == nullptr) {
                 return std::string("<not a score layout>");
             }
             const auto desc = score->GetCompetitionDescVector();
             return "host=" + Text(score->GetHostName()) + ":" + Text(score->GetHostScore()) +
                    " guest=" + Text(score->GetGuestName()) + ":" + Text(score->GetGuestScore()) +
                    " time=" + Text(score->GetCompetitionTime()) + " desc=" +
                    (desc.size() == 1 && desc[0] != nullptr ? Text(desc[0]->GetText()) : "<list>");
         },
         "host=Harbour FC:2 guest=Valley United:1 time=67:12 desc=Second half"},
        {"navigation", NavigationLayoutForStart, 8,
         [](const std::shared_ptr<LayoutData>& layout) {
             auto navigation = AsNavigationLayout(layout);
             if (navigation == nullptr) {
                 return std::string("<not a navigation layout>");
             }
             std::string icons;
             for (const auto& icon : navigation->GetNavigationIconsStr()) {
                 icons += icons.empty() ? icon : "," + icon;
             }
             return "current=" + Text(navigation->GetCurrentNavigationIconStr()) +
                    " icons=" + icons;
         },
         "current=icon_turn_left icons=icon_straight,icon_turn_right"},
        {"type -1", [] { return BareLayout(LayoutData::LAYOUT_TYPE_NONE); }, -1,
         [](const std::shared_ptr<LayoutData>& layout) {
             return std::string(layout == nullptr ? "<no layout>" : "plain layout");
         },
         "plain layout"},
    };
    int id = 100;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ++id;
        Host::AdvanceClock(1000);
        LiveView record = StartRecord(id, "DELIVERY", row.layout());
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = client_.StartLiveView(record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), 0);
        EXPECT_EQ(rsp.GetInfo(), "");
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.message, "success.");
        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        const auto& sent = published.back();
        EXPECT_EQ(sent.result, 0);
        EXPECT_EQ(sent.request->GetNotificationId(), id);
        EXPECT_EQ(sent.request->GetSlotType(), Notification::NotificationConstant::LIVE_VIEW);
        ASSERT_NE(LiveViewContentOf(*sent.request), nullptr);
        EXPECT_EQ(LiveViewContentOf(*sent.request)->GetLiveViewStatus(), Status::LIVE_VIEW_CREATE);
        EXPECT_EQ(DescribePublished(sent, LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE),
                  "int:" + std::to_string(row.layoutType));
        EXPECT_EQ(DescribePublished(sent, LiveViewConstant::EVENT), "string:DELIVERY");

        LiveView readBack;
        ASSERT_EQ(client_.GetActiveLiveView(id, readBack), 0);
        EXPECT_EQ(Text(readBack.GetId()), std::to_string(id));
        EXPECT_EQ(readBack.GetEvent(), "DELIVERY");
        ASSERT_NE(LiveView::GetPrimaryData(readBack), nullptr);
        EXPECT_EQ(Text(LiveView::GetPrimaryData(readBack)->GetTitle()), "Your order");
        ASSERT_NE(LiveView::GetLayoutData(readBack), nullptr);
        EXPECT_EQ(LiveView::GetLayoutType(readBack), row.layoutType);
        EXPECT_EQ(row.fields(LiveView::GetLayoutData(readBack)), row.expectedFields);
        ForgetCaptured();
    }
    EXPECT_EQ(Host::HeldLiveViews().size(), rows.size());
}

TEST_F(StartLiveViewTest, CapsuleKindsArePublishedAndReadBack) {
    LiveView text = StartRecord(1, "DELIVERY", PickupLayoutForStart());
    SetCapsule(text, TextCapsuleForStart());
    LiveView timer = StartRecord(2, "DELIVERY", PickupLayoutForStart());
    SetCapsule(timer, TimerCapsuleForStart());
    LiveViewClient::LiveViewResult result;
    ASSERT_EQ(client_.StartLiveView(text, result).GetErrAsInt32(), 0);
    ASSERT_EQ(client_.StartLiveView(timer, result).GetErrAsInt32(), 0);

    const auto published = Host::Published();
    ASSERT_EQ(published.size(), 2u);
    const struct {
        size_t index;
        const char* key;
        const char* expected;
    } keys[] = {
        {0, "CapsuleData.status", "int:1"},
        {0, "CapsuleData.type", "int:1"},
        {0, "CapsuleData.icon.res", "string:icon_capsule"},
        {0, "TextCapsule.title", "string:Arriving"},
        {0, "TextCapsule.content", "string:5 min"},
        {1, "CapsuleData.type", "int:2"},
        {1, "TimerCapsule.time", "long:300000"},
        {1, "TimerCapsule.isCountdown", "bool:true"},
        {1, "TimerCapsule.content", "string:Remaining"},
    };
    for (const auto& key : keys) {
        SCOPED_TRACE(key.key);
        EXPECT_EQ(DescribePublished(published[key.index], key.key), key.expected);
    }

    LiveView readText;
    LiveView readTimer;
    ASSERT_EQ(client_.GetActiveLiveView(1, readText), 0);
    ASSERT_EQ(client_.GetActiveLiveView(2, readTimer), 0);
    EXPECT_EQ(LiveView::GetCapsuleType(readText), 1);
    auto textCapsule = AsTextCapsule(LiveView::GetCapsuleData(readText));
    ASSERT_NE(textCapsule, nullptr);
    EXPECT_EQ(Text(textCapsule->GetTitle()), "Arriving");
    EXPECT_EQ(LiveView::GetCapsuleType(readTimer), 2);
    auto timerCapsule = AsTimerCapsule(LiveView::GetCapsuleData(readTimer));
    ASSERT_NE(timerCapsule, nullptr);
    EXPECT_EQ(Text(timerCapsule->GetTime()), "300000");
}

TEST_F(StartLiveViewTest, SuccessfulStartReportsItsLinesAndEvents) {
    LiveView record = StartRecord(3, "DELIVERY", PickupLayoutForStart());
    SetCapsule(record, TextCapsuleForStart());
    LiveViewClient::LiveViewResult result;

    ASSERT_EQ(client_.StartLiveView(record, result).GetErrAsInt32(), 0);

    EXPECT_EQ(TakeLogs(), StartLines(/*hasCapsule=*/true));
    EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{ServiceEvent("StartLiveView", 0)});
    EXPECT_EQ(TakeEndEvents(),
              std::vector<std::string>{EndEvent("startLiveView", 0, 0, "DELIVERY", 4, 1)});
}

TEST_F(StartLiveViewTest, FailedCheckPublishesNothingAndLeavesResultUntouched) {
    struct Row {
        const char* label;
        std::function<void(LiveView&)> spoil;
        std::string message;
        // Log lines written before the failure line.
        std::vector<std::string> before;
        int layoutType;
        int capsuleType;
    };
    const std::vector<Row> rows = {
        {"no id",
         [](LiveView& record) { record.SetId(nullptr); },
         "Parameter error. The type of liveView.id mustbe number [or the parameter is "
         "mandatory].",
         {kBeginStart},
         4,
         -1},
        {"negative timer time",
         [](LiveView& record) { record.SetTimer(TimerWithTime(-1)); },
         "Parameter error. The type of liveView.timer.time mustbe larger than or equal 0",
         {kBeginStart},
         4,
         -1},
        {"no click action",
         [](LiveView& record) { LiveView::GetPrimaryData(record)->SetClickAction(nullptr); },
         "Parameter error. The type of primary.clickAction mustbe WantAgent [or the parameter "
         "is mandatory].",
         {kBeginStart},
         4,
         -1},
        {"no layout",
         [](LiveView& record) { SetLayout(record, nullptr); },
         "Parameter error. The type of primary.layoutData mustbe LayoutData [or the parameter "
         "is mandatory].",
         {kBeginStart, kNoExtensionChecked, kNoExtensionWritten},
         -1,
         -1},
        {"capsule without status",
         [](LiveView& record) {
             auto capsule = TextCapsuleForStart();
             capsule->SetStatus(nullptr);
             SetCapsule(record, capsule);
         },
         "Parameter error. The type of capsule.status mustbe number [or the parameter is "
         "mandatory].",
         {kBeginStart, kNoExtensionChecked, kNoExtensionWritten},
         4,
         1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        LiveView record = StartRecord(4, "DELIVERY", PickupLayoutForStart());
        row.spoil(record);
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = client_.StartLiveView(record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), 401);
        EXPECT_EQ(rsp.GetInfo(), row.message);
        EXPECT_EQ(result.code, 7);
        EXPECT_EQ(result.message, "untouched");
        EXPECT_EQ(TakeLogs(), Concat(row.before, {"E [live_view_client.cpp:604] StartLiveView# "
                                                  "StartLiveViewParamParse fail: " +
                                                  row.message}));
        EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{});
        EXPECT_EQ(TakeEndEvents(),
                  std::vector<std::string>{EndEvent("startLiveView", 1, 401, "DELIVERY",
                                                    row.layoutType, row.capsuleType)});
    }
    EXPECT_TRUE(Host::Published().empty());
}

TEST_F(StartLiveViewTest, ServiceRefusalsComeBackAsPublicCodes) {
    struct Row {
        const char* label;
        std::function<void()> arrange;
        int32_t code;
    };
    const std::vector<Row> rows = {
        {"repeated start",
         [this] {
             ASSERT_EQ(
                 StartQuietly(StartRecord(5, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                 0);
         },
         1003500006},
        {"over the rate limit",
         [this] {
             Host::SetRateLimit(1);
             ASSERT_EQ(
                 StartQuietly(StartRecord(6, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                 0);
         },
         1003500008},
        {"slot disabled", [] { Host::SetLiveViewSlotEnabled(kBundle, kUid, false); }, 1003500004},
        {"service not reached", [] { Host::FailNextCalls(ServiceCall::PUBLISH, 0x4000001); },
         1003500003},
        {"unknown service number", [] { Host::FailNextCalls(ServiceCall::PUBLISH, 0x4000003); },
         1003500001},
        {"injected not-exists", [] { Host::FailNextCalls(ServiceCall::PUBLISH, 67108880); },
         1003500009},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FreshHost();
        ASSERT_NO_FATAL_FAILURE(row.arrange());
        const size_t publishedBefore = Host::Published().size();
        LiveView record = StartRecord(5, "DELIVERY", PickupLayoutForStart());
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = client_.StartLiveView(record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), row.code);
        EXPECT_EQ(rsp.GetInfo(), "StartLiveView publishNotification error.");
        EXPECT_EQ(result.code, 7);
        EXPECT_EQ(result.message, "untouched");
        EXPECT_EQ(Host::Published().size(), publishedBefore + 1);
        EXPECT_EQ(TakeLogs(),
                  Concat(StartLines(false),
                         {"E [live_view_client.cpp:628] StartLiveView# PublishNotification error, "
                          "code is " +
                              std::to_string(row.code),
                          "E [live_view_client.cpp:636] StartLiveView# StartLiveView "
                          "publishNotification error."}));
        const auto sysEvents = Host::TakeSysEvents();
        std::vector<std::string> texts;
        for (const auto& event : sysEvents) {
            texts.push_back(SysEventText(event));
        }
        EXPECT_EQ(texts, (std::vector<std::string>{
                             ServiceEvent("StartLiveView", row.code),
                             NotificationErrorEvent("PublishNotification", row.code)}));
        // Both events report the one elapsed time of the call.
        ASSERT_EQ(sysEvents.size(), 2u);
        EXPECT_EQ(sysEvents[0].Get("COST_TIME"), sysEvents[1].Get("COST_TIME"));
        EXPECT_EQ(TakeEndEvents(), std::vector<std::string>{
                                       EndEvent("startLiveView", 1, row.code, "DELIVERY", 4, -1)});
    }
}

TEST_F(StartLiveViewTest, LiveViewTimerUpdateFlagFollowsAWrittenTime) {
    struct Row {
        const char* label;
        std::shared_ptr<LiveViewTimer> timer;
        std::string time;
        std::string isUpdateTimer;
    };
    auto countdownOnly = std::make_shared<LiveViewTimer>();
    countdownOnly->SetIsCountdown(Bool(true));
    const std::vector<Row> rows = {
        {"timer with a time", TimerWithTime(60000), "long:60000", "bool:true"},
        {"timer without a time but with a flag", countdownOnly, "long:0", "bool:true"},
        {"timer with nothing set", std::make_shared<LiveViewTimer>(), "<absent>", "bool:false"},
        {"no timer", nullptr, "<absent>", "bool:false"},
    };
    int id = 10;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        LiveView record = StartRecord(++id, "DELIVERY", PickupLayoutForStart());
        record.SetTimer(row.timer);
        LiveViewClient::LiveViewResult result;

        ASSERT_EQ(client_.StartLiveView(record, result).GetErrAsInt32(), 0);

        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        EXPECT_EQ(DescribePublished(published.back(), "LiveViewTimer.time"), row.time);
        EXPECT_EQ(DescribePublished(published.back(), "LiveViewTimer.isUpdateTimer"),
                  row.isUpdateTimer);
    }
}

class NavigationStartTest : public ClientTest {};

TEST_F(NavigationStartTest, NavigationAndWorkoutSubscribeAndPublishForLocalUpdate) {
    for (const char* event : {"NAVIGATION", "WORKOUT"}) {
        SCOPED_TRACE(event);
        Host::AdvanceClock(1000);
        LiveView record = StartRecord(20, event, NavigationLayoutForStart());
        LiveViewClient::LiveViewResult result;

        const BaseRsp rsp = client_.StartLiveView(record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), 0);
        EXPECT_EQ(result.message, "success.");
        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        ASSERT_NE(LiveViewContentOf(*published.back().request), nullptr);
        EXPECT_TRUE(LiveViewContentOf(*published.back().request)->GetIsOnlyLocalUpdate());
        EXPECT_EQ(TakeLogs(),
                  Concat(StartLines(false),
                         {"I [live_view_client.cpp:530] NavigationSubScribe# Navigation layout "
                          "subscribe.",
                          "I [live_view_subscriber.cpp:14] OnConnected# LiveViewSubscriber "
                          "OnConnected."}));
        EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{ServiceEvent("StartLiveView", 0)});
        EXPECT_EQ(TakeEndEvents(),
                  std::vector<std::string>{EndEvent("startLiveView", 0, 0, event, 8, -1)});
        ASSERT_EQ(Host::HeldLiveViews().size(), 1u);
        // The next kind's start may take the same id once this one has gone.
        Host::KillService();
        ForgetCaptured();
    }
}

TEST_F(NavigationStartTest, OtherSpellingsPublishWithoutSubscribing) {
    // A pending subscription fault would fail a start that subscribes.
    Host::FailNextCalls(ServiceCall::SUBSCRIBE, 0x4000001);
    int id = 30;
    for (const char* event : {"navigation", "Workout", "NAVIGATION ", "DELIVERY"}) {
        SCOPED_TRACE(event);
        LiveView record = StartRecord(++id, event, NavigationLayoutForStart());
        LiveViewClient::LiveViewResult result;

        EXPECT_EQ(client_.StartLiveView(record, result).GetErrAsInt32(), 0);

        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        ASSERT_NE(LiveViewContentOf(*published.back().request), nullptr);
        EXPECT_FALSE(LiveViewContentOf(*published.back().request)->GetIsOnlyLocalUpdate());
        EXPECT_EQ(TakeLogs(), StartLines(false));
    }
}

TEST_F(NavigationStartTest, SubscriptionFailurePublishesNothing) {
    struct Row {
        const char* event;
        int32_t serviceAnswer;
        int32_t code;
    };
    const Row rows[] = {
        {"NAVIGATION", 0x4000001, 1003500003},
        {"WORKOUT", 0x4000022, 1003500004},
        {"NAVIGATION", 0x4000003, 1003500001},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.event) + " " + std::to_string(row.serviceAnswer));
        Host::FailNextCalls(ServiceCall::SUBSCRIBE, row.serviceAnswer);
        LiveView record = StartRecord(40, row.event, NavigationLayoutForStart());
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = client_.StartLiveView(record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), row.code);
        EXPECT_EQ(rsp.GetInfo(), "Subscribe localLiveView notification error.");
        EXPECT_EQ(result.code, 7);
        EXPECT_EQ(result.message, "untouched");
        EXPECT_TRUE(Host::Published().empty());
        EXPECT_EQ(TakeLogs(),
                  Concat(StartLines(false),
                         {"I [live_view_client.cpp:530] NavigationSubScribe# Navigation layout "
                          "subscribe.",
                          "E [live_view_client.cpp:550] NavigationSubScribe# Subscribe "
                          "localLiveView notification ret is " +
                              std::to_string(row.serviceAnswer),
                          "E [live_view_client.cpp:551] NavigationSubScribe# Subscribe "
                          "localLiveView notification error."}));
        EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{});
        EXPECT_EQ(TakeEndEvents(), std::vector<std::string>{
                                       EndEvent("startLiveView", 1, row.code, row.event, 8, -1)});
    }
}

TEST_F(NavigationStartTest, SubscriberHearsButtonsAndTheServiceDying) {
    ASSERT_EQ(
        StartQuietly(StartRecord(50, "NAVIGATION", NavigationLayoutForStart())).GetErrAsInt32(), 0);

    EXPECT_EQ(Host::PressButton(kBundle, kUid, 50, "reroute"), 0);
    Host::KillService();

    EXPECT_EQ(TakeLogs(), (std::vector<std::string>{
                              "I [live_view_subscriber.cpp:24] OnResponse# LiveViewSubscriber "
                              "OnResponse, notificationId is 50",
                              "I [live_view_subscriber.cpp:29] OnDied# LiveViewSubscriber "
                              "OnDied."}));
}

}  // namespace
}  // namespace ClientTesting
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
