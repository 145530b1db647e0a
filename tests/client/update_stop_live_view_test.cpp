// Updating and stopping live views: what each outcome (accepted, no id, unreadable live view,
// refused publish, failing section) answers and reports, and what is checked and sent given what
// the service says the live view shows.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "client_test_support.h"

namespace Tavi::Wisp::LiveView::ClientTesting {
namespace {

using Status = Notification::NotificationLiveViewContent::LiveViewStatus;
using Edit = std::function<void(LiveView&)>;

// What tells an update from a stop in what they report.
struct Kind {
    std::string function;  // "UpdateLiveView"
    std::string verb;      // "update"
    int beginLine;
    int publishErrorLine;  // the line after next writes the failure's text
    Status status;         // of the published request

    std::string ApiName() const { return verb + "LiveView"; }  // of the end event
    std::string Line(int line, const std::string& text) const {
        return "E [live_view_client.cpp:" + std::to_string(line) + "] " + function + "# " + text;
    }
};

const Kind kUpdate = {"UpdateLiveView", "update", 651, 692, Status::LIVE_VIEW_INCREMENTAL_UPDATE};
const Kind kStop = {"StopLiveView", "stop", 703, 745, Status::LIVE_VIEW_END};

class UpdateStopTest : public ClientTest {
protected:
    BaseRsp Change(const Kind& kind, LiveView& record, LiveViewClient::LiveViewResult& result) {
        return &kind == &kUpdate ? client_.UpdateLiveView(record, result)
                                 : client_.StopLiveView(record, result);
    }
};

TEST_F(UpdateStopTest, EachOutcomeAnswersAndReportsItsLinesAndEvents) {
    enum At { ACCEPTED, NO_ID, READ, PUBLISH, EXTERNAL_FAILS };
    struct Row {
        const char* label;
        At at;
        Edit arrange;  // the host and the change record (id 90, sequence 6; 5 was started)
        int32_t code;
        int32_t serviceAnswer;  // to the publish
    };
    const Edit nothing = [](LiveView&) {};
    const Edit noSequence = [](LiveView& change) { change.SetSequence(nullptr); };
    // A pending fault of the read would change the answer if the service were asked.
    const Edit noId = [](LiveView& change) {
        change.SetId(nullptr);
        Host::FailNextCalls(ServiceCall::GET_ACTIVE, 0x4000001);
    };
    const Edit unknownId = [](LiveView& change) { change.SetId(Int(91)); };
    const Edit sameSequence = [](LiveView& change) { change.SetSequence(Int(5)); };
    const Edit afterEnd = [this](LiveView& change) {
        LiveView stop = ChangeRecord(90);
        stop.SetSequence(Int(6));
        LiveView::GetPrimaryData(stop)->SetKeepTime(Int(60));
        ASSERT_EQ(Quietly(stop, true), 0);
        change.SetSequence(Int(7));
    };
    const Edit slotDisabled = [](LiveView&) { Host::SetLiveViewSlotEnabled(kBundle, kUid, false); };
    const Edit rateLimited = [](LiveView&) { Host::SetRateLimit(1); };
    const Edit externalArgb = [](LiveView& change) {
        SetExternal(change, ExternalForStart());
        LiveView::GetExternalData(change)->SetBackgroundColor(Str("#FF1A2B3C"));
    };
    const std::vector<Row> rows = {
        {"accepted", ACCEPTED, nothing, 0, 0},
        {"accepted without a sequence", ACCEPTED, noSequence, 0, 0},
        {"no id", NO_ID, noId, 401, 0},
        {"unknown id", READ, unknownId, 1003500009, 0},
        {"same sequence", PUBLISH, sameSequence, 1003500011, 67108906},
        {"after the end", PUBLISH, afterEnd, 1003500010, 67108905},
        {"slot disabled", PUBLISH, slotDisabled, 1003500004, 67108898},
        {"over the rate limit", PUBLISH, rateLimited, 1003500008, 67108882},
        {"external section fails", EXTERNAL_FAILS, externalArgb, 401, 0},
    };
    const Lines absent = {kNoExtensionChecked, kNoCapsuleChecked, kNoExternalChecked};
    for (const Kind* kind : {&kUpdate, &kStop}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(kind->function + ": " + row.label);
            FreshHost();
            LiveView start = StartRecord(90);
            start.SetSequence(Int(5));
            ASSERT_EQ(Quietly(start), 0);
            LiveView change = ChangeRecord(90);
            change.SetSequence(Int(6));
            ASSERT_NO_FATAL_FAILURE(row.arrange(change));
            const size_t publishedBefore = Host::Published().size();
            LiveViewClient::LiveViewResult result{7, "untouched"};

            const BaseRsp rsp = Change(*kind, change, result);

            Lines logs = {"I [live_view_client.cpp:" + std::to_string(kind->beginLine) + "] " +
                          kind->function + "# Begin " + kind->verb + " liveView."};
            Lines events = {ServiceEvent(kind->function, row.code)};
            std::string info;
            if (row.at == ACCEPTED) {
                logs.insert(logs.end(), absent.begin(), absent.end());
            } else if (row.at == NO_ID) {
                info =
                    "Parameter error. The type of liveView.id mustbe number [or the parameter is "
                    "mandatory].";
            } else if (row.at == READ) {
                info = "GetActiveNotificationByFilter error.";
                logs.push_back(
                    "E [live_view_client.cpp:479] GetLiveViewInfo# PublishNotification error, "
                    "code is " +
                    std::to_string(row.code));
                logs.push_back("E [live_view_client.cpp:480] GetLiveViewInfo# " + info);
                // The read's error event names the failing call but carries 0.
                events.insert(events.begin(),
                              NotificationErrorEvent("GetActiveNotificationByFilter", 0));
            } else if (row.at == PUBLISH) {
                info = "StartLiveView publishNotification error.";
                logs.insert(logs.end(), absent.begin(), absent.end());
                logs.push_back(kind->Line(
                    kind->publishErrorLine,
                    "PublishNotification error, code is " + std::to_string(row.serviceAnswer)));
                logs.push_back(kind->Line(kind->publishErrorLine + 3, info));
                events.push_back(NotificationErrorEvent("PublishNotification", row.code));
            } else if (row.at == EXTERNAL_FAILS) {
                info =
                    "Parameter error. The type of external.backgroundColor mustbe string [or "
                    "the parameter length exceeds the limit].";
                logs.insert(logs.end(),
                            {kNoExtensionChecked, kNoCapsuleChecked,
                             "E [live_view_client.cpp:356] UpdateExternalData# External "
                             "Data Param Validate fail: " +
                                 info});
                events = {};
            }
            EXPECT_EQ(rsp.GetErrAsInt32(), row.code);
            EXPECT_EQ(rsp.GetInfo(), info);
            EXPECT_EQ(result.code, row.at == EXTERNAL_FAILS ? 1 : 0);
            EXPECT_EQ(result.message, row.at == EXTERNAL_FAILS
                                          ? "The external data " + kind->verb + " failed"
                                          : "success");
            ExpectReports(logs, events, EndEvent(kind->ApiName(), row.code, "DELIVERY", -1, -1));
            const auto published = Host::Published();
            ASSERT_EQ(published.size(),
                      publishedBefore + (row.at == ACCEPTED || row.at == PUBLISH));
            EXPECT_EQ(published.back().result, row.serviceAnswer);
            if (row.at != ACCEPTED) {
                continue;
            }
            const auto content = LiveViewContentOf(*published.back().request);
            EXPECT_EQ(content->GetLiveViewStatus(), kind->status);
            EXPECT_EQ(content->GetVersion(),
                      change.GetSequence() == nullptr
                          ? Notification::NotificationLiveViewContent::MAX_VERSION
                          : 6u);
            // A stop without a keep time ends the live view at once; an update leaves what it
            // does not carry as it was: the layout, and the version when it has none.
            LiveView held;
            EXPECT_EQ(client_.GetActiveLiveView(90, held), kind == &kStop ? 1003500009 : 0);
            EXPECT_EQ(Text(held.GetSequence()), kind == &kStop         ? "<unset>"
                                                : change.GetSequence() ? "6"
                                                                       : "5");
            EXPECT_EQ(LiveView::GetLayoutType(held), kind == &kStop ? -1 : 4);
        }
    }
}

// The watched keys that the last published request holds, as "name=value ...".
std::string WatchedSent() {
    const char* const names[] = {"time",          "timerUpdate", "layout",
                                 "capsuleUpdate", "countdown",   "external"};
    const char* const keys[] = {"LiveViewTimer.time",       "LiveViewTimer.isUpdateTimer",
                                "LayoutData.layoutType",    "TimerCapsule.isUpdateTimer",
                                "TimerCapsule.isCountdown", "ExternalData.content"};
    std::string text;
    for (size_t i = 0; i < 6; ++i) {
        const std::string value = LastSent(keys[i]);
        text += value == "<absent>" ? "" : (text.empty() ? "" : " ") + (names[i] + ("=" + value));
    }
    return text;
}

TEST_F(UpdateStopTest, WhatIsCheckedAndSentFollowsWhatTheServiceHolds) {
    const Edit nothing = [](LiveView&) {};
    const Edit running = [](LiveView& record) {
        record.SetTimer(std::make_shared<LiveViewTimer>());
        record.GetTimer()->SetTime(Long(60000));
    };
    const Edit pause = [](LiveView& record) {
        record.SetTimer(std::make_shared<LiveViewTimer>());
        record.GetTimer()->SetIsPaused(Bool(true));
    };
    const Edit text = [](LiveView& record) { SetCapsule(record, TextCapsuleForStart()); };
    const Edit timerCapsule = [](LiveView& record) { SetCapsule(record, TimerCapsuleForStart()); };
    const Edit fullProgress = [](LiveView& record) { SetLayout(record, ProgressLayoutForStart()); };
    const Edit nodelessProgress = [](LiveView& record) {
        SetLayout(record, ProgressLayoutForStart());
        AsProgressLayout(LiveView::GetLayoutData(record))->SetNodeIconsStr({});
    };
    const Edit pickupWithoutContent = [](LiveView& record) {
        SetLayout(record, PickupLayoutForStart());
        AsPickupLayout(LiveView::GetLayoutData(record))->SetContent(nullptr);
    };
    const Edit external = [](LiveView& record) { SetExternal(record, ExternalForStart()); };
    const Edit untitledExternal = [](LiveView& record) {
        SetExternal(record, ExternalForStart());
        LiveView::GetExternalData(record)->SetTitle(nullptr);
    };
    const std::string mandatory = " [or the parameter is mandatory].";
    const std::string layoutFailed = "The layoutData data update failed | Parameter error. ";
    // On success the result's message and WatchedSent(), else the result's message and the
    // failure's text.
    const struct {
        const char* label;
        Edit shown;  // by the start
        Edit change;
        std::string expected;
    } rows[] = {
        {"pause of a running timer keeps its time", running, pause,
         "success | timerUpdate=bool:false capsuleUpdate=bool:false"},
        {"pause without a timer starts it at 0", nothing, pause,
         "success | time=long:0 timerUpdate=bool:true capsuleUpdate=bool:false"},
        {"text capsule becomes timer", text, timerCapsule,
         "success | timerUpdate=bool:false capsuleUpdate=bool:true countdown=bool:true"},
        {"timer capsule stays, no timer", timerCapsule, timerCapsule,
         "success | timerUpdate=bool:false capsuleUpdate=bool:false countdown=bool:true"},
        {"pickup becomes progress", nothing, nodelessProgress,
         layoutFailed + "The type of layoutData.nodeIcons mustbe Array<string | image.PixelMap>" +
             mandatory},
        {"progress stays progress", fullProgress, nodelessProgress,
         "success | timerUpdate=bool:false layout=int:3 capsuleUpdate=bool:false"},
        {"progress becomes pickup", fullProgress, pickupWithoutContent,
         layoutFailed + "The type of layoutData.content mustbe string" + mandatory},
        {"external data new to the live view", nothing, untitledExternal,
         "The external data update failed | Parameter error. The type of external.title mustbe "
         "string" +
             mandatory},
        {"external data shown before", external, untitledExternal,
         "success | timerUpdate=bool:false capsuleUpdate=bool:false "
         "external=string:[{\"text\":\"On the way\"}]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FreshHost();
        LiveView start = StartRecord(1);
        row.shown(start);
        ASSERT_EQ(Quietly(start), 0);
        LiveView change = ChangeRecord(1);
        row.change(change);
        LiveViewClient::LiveViewResult result;

        const BaseRsp rsp = client_.UpdateLiveView(change, result);

        EXPECT_EQ(result.message + " | " + (rsp.Succeed() ? WatchedSent() : rsp.GetInfo()),
                  row.expected);
        EXPECT_EQ(rsp.GetErrAsInt32(), rsp.Succeed() ? 0 : 401);
        EXPECT_EQ(Host::Published().size(), rsp.Succeed() ? 2u : 1u);
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::ClientTesting
