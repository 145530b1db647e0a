// Updating and stopping live views: what a success reports and leaves in the service; the keep
// time of a stop; a record without id or for an unknown live view; the service's refusals; the
// section that fails its check; checks guided by what the live view already shows (layout kind,
// external data, timers of the capsule and of the live view).
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

// The names that tell an update from a stop in what they report.
struct Kind {
    const char* label;
    LiveView::Operation operation;
    const char* function;  // of the log lines and the system event
    const char* apiName;   // of the end event
    std::string begin;
    int publishErrorLine;
    int publishTemplateLine;
    const char* word;  // ending of the caller's result message
    Status status;     // of the published request
};

const Kind kUpdate = {"update",
                      LiveView::UPDATE,
                      "UpdateLiveView",
                      "updateLiveView",
                      kBeginUpdate,
                      692,
                      695,
                      "update failed",
                      Status::LIVE_VIEW_INCREMENTAL_UPDATE};
const Kind kStop = {"stop", LiveView::STOP, "StopLiveView",       "stopLiveView", kBeginStop, 745,
                    748,    "stop failed",  Status::LIVE_VIEW_END};

class UpdateStopTest : public ClientTest {
protected:
    BaseRsp Change(const Kind& kind, LiveView& record, LiveViewClient::LiveViewResult& result) {
        return kind.operation == LiveView::UPDATE ? client_.UpdateLiveView(record, result)
                                                  : client_.StopLiveView(record, result);
    }
};

TEST_F(UpdateStopTest, SuccessReportsSuccessAndMergesIntoTheLiveView) {
    for (const Kind* kind : {&kUpdate, &kStop}) {
        SCOPED_TRACE(kind->label);
        Host::AdvanceClock(1000);
        LiveView start = StartRecord(60, "DELIVERY", PickupLayoutForStart());
        start.SetSequence(Int(1));
        ASSERT_EQ(StartQuietly(start).GetErrAsInt32(), 0);
        LiveView change = ChangeRecord(60, "DELIVERY");
        change.SetSequence(Int(2));
        LiveView::GetPrimaryData(change)->SetTitle(Str("Rider nearby"));
        LiveView::GetPrimaryData(change)->SetKeepTime(Int(60));
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = Change(*kind, change, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), 0);
        EXPECT_EQ(rsp.GetInfo(), "");
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.message, "success");
        const auto published = Host::Published();
        ASSERT_EQ(published.size(), 2u);
        EXPECT_EQ(published[1].result, 0);
        EXPECT_EQ(published[1].request->GetNotificationId(), 60);
        const auto content = LiveViewContentOf(*published[1].request);
        ASSERT_NE(content, nullptr);
        EXPECT_EQ(content->GetLiveViewStatus(), kind->status);
        EXPECT_EQ(content->GetVersion(), 2u);
        EXPECT_EQ(DescribePublished(published[1], "PrimaryData.title"), "string:Rider nearby");
        EXPECT_EQ(DescribePublished(published[1], "TimerCapsule.isUpdateTimer"), "bool:false");
        EXPECT_EQ(DescribePublished(published[1], "LiveViewTimer.isUpdateTimer"), "bool:false");
        EXPECT_EQ(DescribePublished(published[1], "LayoutData.layoutType"), "<absent>");
        EXPECT_EQ(TakeLogs(), UpdateLines(kind->begin));
        EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{ServiceEvent(kind->function, 0)});
        EXPECT_EQ(TakeEndEvents(),
                  std::vector<std::string>{EndEvent(kind->apiName, 0, 0, "DELIVERY", -1, -1)});

        // The service keeps what the change did not carry.
        LiveView readBack;
        ASSERT_EQ(client_.GetActiveLiveView(60, readBack), 0);
        EXPECT_EQ(Text(LiveView::GetPrimaryData(readBack)->GetTitle()), "Rider nearby");
        EXPECT_EQ(Text(readBack.GetSequence()), "2");
        EXPECT_EQ(LiveView::GetLayoutType(readBack), 4);
        auto pickup = AsPickupLayout(LiveView::GetLayoutData(readBack));
        ASSERT_NE(pickup, nullptr);
        EXPECT_EQ(Text(pickup->GetTitle()), "Pickup code");
        const auto held = Host::HeldLiveViews();
        ASSERT_EQ(held.size(), 1u);
        EXPECT_EQ(held[0].ended, kind->operation == LiveView::STOP);
        FreshHost();
    }
}

TEST_F(UpdateStopTest, StopClampsTheKeepTimeAndTheLiveViewGoesAfterIt) {
    struct Row {
        const char* label;
        std::shared_ptr<int> keepTime;
        std::string keptInRecord;
        int64_t autoDeletedSeconds;
    };
    const std::vector<Row> rows = {
        {"above the limit", Int(5000), "3600", 3600},
        {"one above the limit", Int(3601), "3600", 3600},
        {"at the limit", Int(3600), "3600", 3600},
        {"within", Int(60), "60", 60},
        {"zero", Int(0), "0", 0},
        {"negative", Int(-5), "0", 0},
        {"not given", nullptr, "<unset>", 0},
    };
    int id = 70;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ++id;
        Host::AdvanceClock(1000);
        ASSERT_EQ(StartQuietly(StartRecord(id, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                  0);
        LiveView stop = ChangeRecord(id, "DELIVERY");
        LiveView::GetPrimaryData(stop)->SetKeepTime(row.keepTime);
        LiveViewClient::LiveViewResult result;

        ASSERT_EQ(client_.StopLiveView(stop, result).GetErrAsInt32(), 0);

        EXPECT_EQ(Text(LiveView::GetPrimaryData(stop)->GetKeepTime()), row.keptInRecord);
        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        EXPECT_EQ(published.back().request->GetAutoDeletedTime(), row.autoDeletedSeconds);
        auto heldIds = [] {
            std::vector<int32_t> ids;
            for (const auto& held : Host::HeldLiveViews()) {
                ids.push_back(held.id);
            }
            return ids;
        };
        if (row.autoDeletedSeconds > 0) {
            LiveView readBack;
            ASSERT_EQ(client_.GetActiveLiveView(id, readBack), 0);
            EXPECT_EQ(Text(LiveView::GetPrimaryData(readBack)->GetKeepTime()),
                      std::to_string(row.autoDeletedSeconds));
            Host::AdvanceClock(row.autoDeletedSeconds * 1000 - 1);
            EXPECT_EQ(heldIds(), std::vector<int32_t>{id});
            Host::AdvanceClock(1);
        }
        EXPECT_EQ(heldIds(), std::vector<int32_t>{});
        LiveView gone;
        EXPECT_EQ(client_.GetActiveLiveView(id, gone), 1003500009);
        ForgetCaptured();
    }
}

TEST_F(UpdateStopTest, RecordWithoutIdFailsBeforeAskingTheService) {
    for (const Kind* kind : {&kUpdate, &kStop}) {
        SCOPED_TRACE(kind->label);
        // A pending fault of the read would change the answer if the service were asked.
        Host::FailNextCalls(ServiceCall::GET_ACTIVE, 0x4000001);
        LiveView record = ChangeRecord(0, "DELIVERY");
        record.SetId(nullptr);
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = Change(*kind, record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), 401);
        EXPECT_EQ(rsp.GetInfo(),
                  "Parameter error. The type of liveView.id mustbe number [or the parameter is "
                  "mandatory].");
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.message, "success");
        EXPECT_EQ(TakeLogs(), std::vector<std::string>{kind->begin});
        EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{ServiceEvent(kind->function, 401)});
        EXPECT_EQ(TakeEndEvents(),
                  std::vector<std::string>{EndEvent(kind->apiName, 1, 401, "DELIVERY", -1, -1)});
        Host::FailNextCalls(ServiceCall::GET_ACTIVE, 0, 0);
    }
    EXPECT_TRUE(Host::Published().empty());
}

TEST_F(UpdateStopTest, LiveViewThatCannotBeReadIsReportedWithTheReadError) {
    struct Row {
        const char* label;
        std::function<void()> arrange;
        int32_t code;
    };
    const std::vector<Row> rows = {
        {"unknown id", [] {}, 1003500009},
        {"another app's live view",
         [this] {
             Host::SetCallingApp("com.example.rides", 20010002);
             ASSERT_EQ(
                 StartQuietly(StartRecord(80, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                 0);
             Host::SetCallingApp(kBundle, kUid);
         },
         1003500009},
        {"service not reached",
         [this] {
             ASSERT_EQ(
                 StartQuietly(StartRecord(80, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                 0);
             Host::FailNextCalls(ServiceCall::GET_ACTIVE, 0x4000001);
         },
         1003500003},
    };
    for (const Kind* kind : {&kUpdate, &kStop}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(kind->label) + ": " + row.label);
            FreshHost();
            ASSERT_NO_FATAL_FAILURE(row.arrange());
            const size_t publishedBefore = Host::Published().size();
            LiveView record = ChangeRecord(80, "DELIVERY");
            LiveViewClient::LiveViewResult result{7, "untouched"};

            const BaseRsp rsp = Change(*kind, record, result);

            EXPECT_EQ(rsp.GetErrAsInt32(), row.code);
            EXPECT_EQ(rsp.GetInfo(), "GetActiveNotificationByFilter error.");
            EXPECT_EQ(result.code, 0);
            EXPECT_EQ(result.message, "success");
            EXPECT_EQ(Host::Published().size(), publishedBefore);
            EXPECT_EQ(TakeLogs(),
                      (std::vector<std::string>{
                          kind->begin,
                          "E [live_view_client.cpp:479] GetLiveViewInfo# PublishNotification "
                          "error, code is " +
                              std::to_string(row.code),
                          "E [live_view_client.cpp:480] GetLiveViewInfo# "
                          "GetActiveNotificationByFilter error."}));
            // The read's error event names the failing call but carries 0.
            EXPECT_EQ(TakeSysEvents(),
                      (std::vector<std::string>{
                          NotificationErrorEvent("GetActiveNotificationByFilter", 0),
                          ServiceEvent(kind->function, row.code)}));
            EXPECT_EQ(TakeEndEvents(), std::vector<std::string>{EndEvent(kind->apiName, 1, row.code,
                                                                         "DELIVERY", -1, -1)});
        }
    }
}

TEST_F(UpdateStopTest, ServiceRefusalsOfThePublishComeBackAsPublicCodes) {
    struct Row {
        const char* label;
        const Kind* kind;
        std::function<void()> arrange;  // after a start of live view 90 with sequence 5
        std::shared_ptr<int> sequence;
        int32_t serviceAnswer;
        int32_t code;
    };
    auto stopWithKeepTime = [this] {
        LiveView stop = ChangeRecord(90, "DELIVERY");
        LiveView::GetPrimaryData(stop)->SetKeepTime(Int(60));
        ASSERT_EQ(StopQuietly(stop).GetErrAsInt32(), 0);
    };
    const std::vector<Row> rows = {
        {"update with the same sequence", &kUpdate, [] {}, Int(5), 67108906, 1003500011},
        {"update with a lower sequence", &kUpdate, [] {}, Int(4), 67108906, 1003500011},
        {"stop with the same sequence", &kStop, [] {}, Int(5), 67108906, 1003500011},
        {"update after the end", &kUpdate, stopWithKeepTime, nullptr, 67108905, 1003500010},
        {"stop after the end", &kStop, stopWithKeepTime, nullptr, 67108905, 1003500010},
        {"update with the slot disabled", &kUpdate,
         [] { Host::SetLiveViewSlotEnabled(kBundle, kUid, false); }, Int(6), 67108898, 1003500004},
        {"stop over the rate limit", &kStop, [] { Host::SetRateLimit(1); }, Int(6), 67108882,
         1003500008},
        {"update answered not-exists", &kUpdate,
         [] { Host::FailNextCalls(ServiceCall::PUBLISH, 67108880); }, Int(6), 67108880, 1003500009},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const Kind& kind = *row.kind;
        FreshHost();
        LiveView start = StartRecord(90, "DELIVERY", PickupLayoutForStart());
        start.SetSequence(Int(5));
        ASSERT_EQ(StartQuietly(start).GetErrAsInt32(), 0);
        ASSERT_NO_FATAL_FAILURE(row.arrange());
        LiveView record = ChangeRecord(90, "DELIVERY");
        record.SetSequence(row.sequence);
        LiveViewClient::LiveViewResult result{7, "untouched"};

        const BaseRsp rsp = Change(kind, record, result);

        EXPECT_EQ(rsp.GetErrAsInt32(), row.code);
        EXPECT_EQ(rsp.GetInfo(), "StartLiveView publishNotification error.");
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.message, "success");
        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        EXPECT_EQ(published.back().result, row.serviceAnswer);
        const std::string line = "E [live_view_client.cpp:";
        EXPECT_EQ(
            TakeLogs(),
            Concat(UpdateLines(kind.begin),
                   {line + std::to_string(kind.publishErrorLine) + "] " + kind.function +
                        "# PublishNotification error, code is " + std::to_string(row.serviceAnswer),
                    line + std::to_string(kind.publishTemplateLine) + "] " + kind.function +
                        "# StartLiveView publishNotification error."}));
        EXPECT_EQ(TakeSysEvents(), (std::vector<std::string>{
                                       ServiceEvent(kind.function, row.code),
                                       NotificationErrorEvent("PublishNotification", row.code)}));
        EXPECT_EQ(TakeEndEvents(), std::vector<std::string>{
                                       EndEvent(kind.apiName, 1, row.code, "DELIVERY", -1, -1)});
    }
}

TEST_F(UpdateStopTest, FailingSectionNamesItselfInTheResult) {
    struct Row {
        const char* label;
        std::function<void(LiveView&)> spoil;
        std::string message;
        // Log lines between the opening line and the failure line.
        std::vector<std::string> between;
        std::string failure;  // "line] function# text: " of the failure line
        std::string prefix;   // of the result message
        int layoutType;
        int capsuleType;
    };
    const std::vector<Row> rows = {
        {"primary",
         [](LiveView& record) { record.GetLiveViewData()->SetPrimary(nullptr); },
         "Parameter error. The type of liveViewData.primary mustbe PrimaryData [or the "
         "parameter is mandatory].",
         {},
         "214] UpdatePrimaryData# Primary Data Param Validate fail: ",
         "The primary data ",
         -1,
         -1},
        {"extension",
         [](LiveView& record) {
             LiveView::GetPrimaryData(record)->SetExtensionData(std::make_shared<ExtensionData>());
         },
         "Parameter error. The type of extensionData.type mustbe ExtensionType.",
         {},
         "234] UpdateExtendData# Extension Data Param Validate fail: ",
         "The extensionData data ",
         -1,
         -1},
        {"layout",
         [](LiveView& record) { SetLayout(record, BareLayout(LayoutData::BASIC)); },
         "Parameter error. The type of layoutData.layoutType mustbe LayoutType.",
         {kNoExtensionChecked},
         "264] UpdateLayoutData# Layout Data Param Validate fail: ",
         "The layoutData data ",
         6,
         -1},
        {"capsule",
         [](LiveView& record) {
             auto capsule = TextCapsuleForStart();
             capsule->SetStatus(nullptr);
             SetCapsule(record, capsule);
         },
         "Parameter error. The type of capsule.status mustbe number [or the parameter is "
         "mandatory].",
         {kNoExtensionChecked},
         "329] UpdateCapsuleData# Capsule Data Param Validate fail: ",
         "The capsule data ",
         -1,
         1},
        {"external",
         [](LiveView& record) {
             auto external = std::make_shared<ExternalData>();
             external->SetTitle(Str("Order 1024"));
             external->SetBackgroundColor(Str("#FF1A2B3C"));
             external->AddContent(TextRun("Ready"));
             record.GetLiveViewData()->SetExternal(external);
         },
         "Parameter error. The type of external.backgroundColor mustbe string [or the parameter "
         "length exceeds the limit].",
         {kNoExtensionChecked, kNoCapsuleChecked},
         "356] UpdateExternalData# External Data Param Validate fail: ",
         "The external data ",
         -1,
         -1},
    };
    int id = 100;
    for (const Kind* kind : {&kUpdate, &kStop}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(kind->label) + ": " + row.label);
            ++id;
            Host::AdvanceClock(1000);
            ASSERT_EQ(
                StartQuietly(StartRecord(id, "DELIVERY", PickupLayoutForStart())).GetErrAsInt32(),
                0);
            LiveView record = ChangeRecord(id, "DELIVERY");
            row.spoil(record);
            LiveViewClient::LiveViewResult result{7, "untouched"};

            const BaseRsp rsp = Change(*kind, record, result);

            EXPECT_EQ(rsp.GetErrAsInt32(), 401);
            EXPECT_EQ(rsp.GetInfo(), row.message);
            EXPECT_EQ(result.code, 1);
            EXPECT_EQ(result.message, row.prefix + kind->word);
            EXPECT_EQ(Host::Published().size(), 1u);
            EXPECT_EQ(TakeLogs(), Concat(Concat({kind->begin}, row.between),
                                         {"E [live_view_client.cpp:" + row.failure + row.message}));
            EXPECT_EQ(TakeSysEvents(), std::vector<std::string>{});
            EXPECT_EQ(TakeEndEvents(),
                      std::vector<std::string>{EndEvent(kind->apiName, 1, 401, "DELIVERY",
                                                        row.layoutType, row.capsuleType)});
            FreshHost();
        }
    }
}

TEST_F(UpdateStopTest, ChangeOfLayoutKindIsCheckedAsAStart) {
    auto progressOnly = [] {
        auto layout = std::make_shared<ProgressLayout>();
        layout->SetLayoutType(LayoutData::PROGRESS);
        layout->SetProgress(Int(50));
        return std::shared_ptr<LayoutData>(layout);
    };
    auto pickupTitleOnly = [] {
        auto layout = std::make_shared<PickupLayout>();
        layout->SetLayoutType(LayoutData::PICKUP);
        layout->SetTitle(Str("Counter 3"));
        return std::shared_ptr<LayoutData>(layout);
    };
    struct Row {
        const char* label;
        std::function<std::shared_ptr<LayoutData>()> shown;
        std::function<std::shared_ptr<LayoutData>()> update;
        std::string message;  // empty for a success
    };
    const std::vector<Row> rows = {
        {"pickup becomes progress", PickupLayoutForStart, progressOnly,
         "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | image.PixelMap> "
         "[or the parameter is mandatory]."},
        {"progress stays progress", ProgressLayoutForStart, progressOnly, ""},
        {"progress becomes pickup", ProgressLayoutForStart, pickupTitleOnly,
         "Parameter error. The type of layoutData.content mustbe string [or the parameter is "
         "mandatory]."},
        {"pickup stays pickup", PickupLayoutForStart, pickupTitleOnly, ""},
    };
    int id = 200;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ++id;
        Host::AdvanceClock(1000);
        ASSERT_EQ(StartQuietly(StartRecord(id, "DELIVERY", row.shown())).GetErrAsInt32(), 0);
        LiveView record = ChangeRecord(id, "DELIVERY");
        SetLayout(record, row.update());
        LiveViewClient::LiveViewResult result;
        const size_t publishedBefore = Host::Published().size();

        const BaseRsp rsp = client_.UpdateLiveView(record, result);

        const auto published = Host::Published();
        ASSERT_EQ(published.size(), publishedBefore + (row.message.empty() ? 1 : 0));
        if (row.message.empty()) {
            EXPECT_EQ(rsp.GetErrAsInt32(), 0);
            EXPECT_EQ(result.code, 0);
            EXPECT_EQ(result.message, "success");
            EXPECT_EQ(DescribePublished(published.back(), "LayoutData.layoutType"),
                      "int:" + std::to_string(LiveView::GetLayoutType(record)));
        } else {
            EXPECT_EQ(rsp.GetErrAsInt32(), 401);
            EXPECT_EQ(rsp.GetInfo(), row.message);
            EXPECT_EQ(result.code, 1);
            EXPECT_EQ(result.message, "The layoutData data update failed");
        }
        ForgetCaptured();
    }
}

TEST_F(UpdateStopTest, ExternalDataIsCheckedAsAStartWhenTheLiveViewShowedNone) {
    struct Row {
        const char* label;
        bool shownWithExternal;
        std::string message;  // empty for a success
    };
    const std::vector<Row> rows = {
        {"live view without external data", false,
         "Parameter error. The type of external.title mustbe string [or the parameter is "
         "mandatory]."},
        {"live view with external data", true, ""},
    };
    int id = 300;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ++id;
        LiveView start = StartRecord(id, "DELIVERY", PickupLayoutForStart());
        if (row.shownWithExternal) {
            auto external = std::make_shared<ExternalData>();
            external->SetTitle(Str("Order 1024"));
            external->AddContent(TextRun("Being prepared"));
            start.GetLiveViewData()->SetExternal(external);
        }
        ASSERT_EQ(StartQuietly(start).GetErrAsInt32(), 0);
        LiveView record = ChangeRecord(id, "DELIVERY");
        auto external = std::make_shared<ExternalData>();
        external->AddContent(TextRun("Ready"));
        record.GetLiveViewData()->SetExternal(external);
        LiveViewClient::LiveViewResult result;

        const BaseRsp rsp = client_.UpdateLiveView(record, result);

        if (row.message.empty()) {
            EXPECT_EQ(rsp.GetErrAsInt32(), 0);
            EXPECT_EQ(result.message, "success");
            const auto published = Host::Published();
            ASSERT_FALSE(published.empty());
            EXPECT_EQ(DescribePublished(published.back(), "ExternalData.content"),
                      "string:[{\"text\":\"Ready\"}]");
        } else {
            EXPECT_EQ(rsp.GetErrAsInt32(), 401);
            EXPECT_EQ(rsp.GetInfo(), row.message);
            EXPECT_EQ(result.code, 1);
            EXPECT_EQ(result.message, "The external data update failed");
        }
        ForgetCaptured();
    }
}

TEST_F(UpdateStopTest, CapsuleUpdateTimerFlagFollowsTheCapsuleKinds) {
    auto timerCapsule = [] {
        auto capsule = std::make_shared<TimerCapsule>();
        capsule->SetStatus(Int(1));
        capsule->SetType(CapsuleData::TIMER);
        capsule->SetTime(Long(120000));
        return std::shared_ptr<CapsuleData>(capsule);
    };
    auto textCapsule = [] {
        auto capsule = std::make_shared<TextCapsule>();
        capsule->SetStatus(Int(1));
        capsule->SetType(CapsuleData::TEXT);
        capsule->SetTitle(Str("Almost there"));
        return std::shared_ptr<CapsuleData>(capsule);
    };
    using Factory = std::function<std::shared_ptr<CapsuleData>()>;
    const Factory none = [] { return std::shared_ptr<CapsuleData>(); };
    struct Row {
        const char* label;
        Factory shown;
        Factory update;
        bool recordTimer;
        std::string capsuleFlag;
        std::string timerFlag;
    };
    const std::vector<Row> rows = {
        {"text becomes timer", TextCapsuleForStart, timerCapsule, false, "bool:true", "bool:false"},
        {"none becomes timer", none, timerCapsule, false, "bool:true", "bool:false"},
        {"timer stays timer without a timer", TimerCapsuleForStart, timerCapsule, false,
         "bool:false", "bool:false"},
        {"timer stays timer with a timer", TimerCapsuleForStart, timerCapsule, true, "bool:true",
         "bool:true"},
        {"text stays text", TextCapsuleForStart, textCapsule, false, "bool:false", "bool:false"},
        {"timer becomes text", TimerCapsuleForStart, textCapsule, true, "bool:false", "bool:true"},
        {"timer without capsule in the update", TimerCapsuleForStart, none, false, "bool:false",
         "bool:false"},
    };
    int id = 400;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ++id;
        Host::AdvanceClock(1000);
        LiveView start = StartRecord(id, "DELIVERY", PickupLayoutForStart());
        SetCapsule(start, row.shown());
        ASSERT_EQ(StartQuietly(start).GetErrAsInt32(), 0);
        LiveView record = ChangeRecord(id, "DELIVERY");
        SetCapsule(record, row.update());
        if (row.recordTimer) {
            record.SetTimer(TimerWithTime(90000));
        }
        LiveViewClient::LiveViewResult result;

        ASSERT_EQ(client_.UpdateLiveView(record, result).GetErrAsInt32(), 0);

        const auto published = Host::Published();
        ASSERT_EQ(published.size(), 2u);
        EXPECT_EQ(published[1].result, 0);
        EXPECT_EQ(DescribePublished(published[1], "TimerCapsule.isUpdateTimer"), row.capsuleFlag);
        EXPECT_EQ(DescribePublished(published[1], "LiveViewTimer.isUpdateTimer"), row.timerFlag);
        FreshHost();
    }
}

TEST_F(UpdateStopTest, LiveViewTimerWithoutTimeKeepsTheShownTime) {
    struct Row {
        const char* label;
        bool shownWithTimer;
        std::string time;
        std::string isUpdateTimer;
    };
    // A timer that only pauses: a live view that shows a clock keeps its time; one that shows
    // none gets time 0, which restarts it.
    const std::vector<Row> rows = {
        {"live view with a timer", true, "<absent>", "bool:false"},
        {"live view without a timer", false, "long:0", "bool:true"},
    };
    int id = 500;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ++id;
        LiveView start = StartRecord(id, "DELIVERY", PickupLayoutForStart());
        if (row.shownWithTimer) {
            start.SetTimer(TimerWithTime(60000));
        }
        ASSERT_EQ(StartQuietly(start).GetErrAsInt32(), 0);
        LiveView record = ChangeRecord(id, "DELIVERY");
        auto pause = std::make_shared<LiveViewTimer>();
        pause->SetIsPaused(Bool(true));
        record.SetTimer(pause);
        LiveViewClient::LiveViewResult result;

        ASSERT_EQ(client_.UpdateLiveView(record, result).GetErrAsInt32(), 0);

        const auto published = Host::Published();
        ASSERT_FALSE(published.empty());
        EXPECT_EQ(DescribePublished(published.back(), "LiveViewTimer.isPaused"), "bool:true");
        EXPECT_EQ(DescribePublished(published.back(), "LiveViewTimer.time"), row.time);
        EXPECT_EQ(DescribePublished(published.back(), "LiveViewTimer.isUpdateTimer"),
                  row.isUpdateTimer);
        ForgetCaptured();
    }
}

}  // namespace
}  // namespace ClientTesting
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
