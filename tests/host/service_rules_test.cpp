// The embedded notification service's rules, one group per rule, with the exact error number
// each situation answers; app isolation; injected failures; the enablement query; unusable
// input.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "service_test_support.h"

namespace Tavi::Host::Testing {
namespace {

// One publish of a table and the number it must answer.
struct Call {
    const char* label;
    Status status;
    ErrCode expected;
    int32_t id = kId;
    uint32_t version = kNoVersion;
};

void ExpectAnswers(const std::vector<Call>& calls) {
    for (const auto& call : calls) {
        SCOPED_TRACE(call.label);
        EXPECT_EQ(Publish(call.id, call.status, call.version), call.expected);
    }
}

// "active", "ended" or "none": what the service holds under id for kBundle/kUid.
std::string HeldAs(int32_t id) {
    HeldLiveView held;
    return !HeldLiveViewOf(kBundle, kUid, id, held) ? "none" : held.ended ? "ended" : "active";
}

class ServiceRulesTest : public ServiceTest {};

TEST_F(ServiceRulesTest, DisabledSlotRefusesEveryPublishOfThatAppOnly) {
    ASSERT_EQ(Publish(kId, kCreate), 0);
    SetLiveViewSlotEnabled(kBundle, kUid, false);
    ExpectAnswers({{"create", kCreate, kSlotDisabled, kId + 1},
                   {"update", kUpdate, kSlotDisabled},
                   {"full update", kFull, kSlotDisabled},
                   {"end", kEnd, kSlotDisabled}});
    EXPECT_EQ(HeldAs(kId), "active");
    SetCallingApp(kBundle, kUid + 1);
    EXPECT_EQ(Publish(kId, kCreate), 0);
    SetCallingApp(kBundle, kUid);
    SetLiveViewSlotEnabled(kBundle, kUid, true);
    EXPECT_EQ(Publish(kId, kUpdate), 0);
}

TEST_F(ServiceRulesTest, TenAcceptedPublishesPerAppWithinOneSecond) {
    ASSERT_EQ(Publish(kId, kCreate), 0);
    ASSERT_EQ(Publish(kId + 1, kEnd), kNotExists);  // a refused publish does not count
    for (uint32_t version = 1; version <= 8; ++version) {
        ASSERT_EQ(Publish(kId, kUpdate, version), 0);
    }
    ExpectAnswers({{"tenth, an end", kEnd, 0, kId, 9}, {"eleventh", kCreate, kOverRate, 1}});
    AdvanceClock(999);
    ExpectAnswers({{"999 ms after the first", kCreate, kOverRate, 1}});
    SetCallingApp("com.example.food", kUid);
    ExpectAnswers({{"another app", kCreate, 0, 1}});
    SetCallingApp(kBundle, kUid);
    AdvanceClock(1);
    ExpectAnswers({{"1000 ms after the first", kCreate, 0, 1}});
}

TEST_F(ServiceRulesTest, CreateIsRefusedWhileTheIdIsActiveAndReplacesAnEndedOne) {
    ASSERT_EQ(Send(MakeLiveView(kId, kCreate, 3, {{"title", "first"}})), 0);
    EXPECT_EQ(Send(MakeLiveView(kId, kCreate, kNoVersion, {{"title", "second"}})), kRepeatCreate);
    ExpectAnswers(
        {{"update", kUpdate, 0, kId, 4}, {"create after an update", kCreate, kRepeatCreate}});
    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(ExtraInfo(*held), "title=first");

    ExpectAnswers({{"end", kEnd, 0, kId, 5},
                   {"create after the end", kCreate, 0, kId, 1},
                   {"the new one has its own versions", kUpdate, 0, kId, 2}});
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(ExtraInfo(*held), "<none>");
    EXPECT_EQ(HeldAs(kId), "active");
}

TEST_F(ServiceRulesTest, IdWithoutLiveViewIsUnknownToUpdateEndAndReadBack) {
    ASSERT_EQ(Publish(kId, kCreate), 0);
    ExpectAnswers({{"update", kUpdate, kNotExists, kId + 1},
                   {"update with a version", kUpdate, kNotExists, kId + 1, 5},
                   {"full update", kFull, kNotExists, kId + 1},
                   {"end", kEnd, kNotExists, kId + 1}});
    EXPECT_EQ(HeldLiveViews().size(), 1u);

    const auto untouched = MakeLiveView(12345, kCreate);
    sptr<NotificationRequest> out = untouched;
    EXPECT_EQ(ReadBack(kBundle, kUid, kId + 1, out), kNotExists);
    EXPECT_EQ(out.GetRefPtr(), untouched.GetRefPtr());
    SetCallingApp("com.example.empty", kUid);  // an app that holds nothing
    EXPECT_EQ(ReadBack("com.example.empty", kUid, kId, out), kNotExists);
    EXPECT_EQ(out.GetRefPtr(), untouched.GetRefPtr());
}

TEST_F(ServiceRulesTest, EndedLiveViewRefusesUpdatesAndEndsWhateverTheVersion) {
    ASSERT_EQ(Publish(kId, kCreate, 1), 0);
    ASSERT_EQ(Publish(kId, kEnd, 2), 0);
    ExpectAnswers({{"update, higher version", kUpdate, kEnded, kId, 10},
                   {"update, no version", kUpdate, kEnded},
                   {"full update", kFull, kEnded, kId, 11},
                   {"end again", kEnd, kEnded, kId, 12},
                   {"end again, stale version", kEnd, kEnded, kId, 1}});
    HeldLiveView held;
    ASSERT_TRUE(HeldLiveViewOf(kBundle, kUid, kId, held));
    EXPECT_TRUE(held.ended);
    EXPECT_EQ(LiveViewContentOf(*held.request)->GetVersion(), 2u);
}

TEST_F(ServiceRulesTest, SetVersionMustRiseAboveTheStoredOne) {
    constexpr int32_t kUnversioned = kId + 1;
    ASSERT_EQ(Publish(kId, kCreate, 5), 0);
    ASSERT_EQ(Publish(kUnversioned, kCreate), 0);
    ExpectAnswers({{"below", kUpdate, kStale, kId, 4},
                   {"equal", kUpdate, kStale, kId, 5},
                   {"zero", kUpdate, kStale, kId, 0},
                   {"full update, equal", kFull, kStale, kId, 5},
                   {"end, equal", kEnd, kStale, kId, 5},
                   {"above", kUpdate, 0, kId, 6},
                   {"the same again", kUpdate, kStale, kId, 6},
                   {"unset: accepted", kUpdate, 0},
                   {"unset kept the stored 6", kUpdate, kStale, kId, 6},
                   {"stored unset: any is accepted", kUpdate, 0, kUnversioned, 0},
                   {"and becomes the stored one", kUpdate, kStale, kUnversioned, 0},
                   {"end, above", kEnd, 0, kId, 7}});
    EXPECT_EQ(HeldAs(kId), "ended");
}

TEST_F(ServiceRulesTest, AppsNeverSeeEachOthersLiveViews) {
    const struct App {
        const char* label;
        std::string bundle;
        int32_t uid;
    } apps[] = {{"rides", kBundle, kUid},
                {"food", "com.example.food", kUid + 1},
                {"rides under another uid", kBundle, kUid + 1}};
    for (const auto& app : apps) {
        SetCallingApp(app.bundle, app.uid);
        ASSERT_EQ(Send(MakeLiveView(kId, kCreate, kNoVersion, {{"owner", app.label}})), 0);
    }
    for (const auto& caller : apps) {
        SetCallingApp(caller.bundle, caller.uid);
        for (const auto& asked : apps) {
            SCOPED_TRACE(std::string(caller.label) + " asking for " + asked.label);
            const bool own = &asked == &caller;
            sptr<NotificationRequest> out;
            EXPECT_EQ(ReadBack(asked.bundle, asked.uid, kId, out), own ? 0 : kNotExists);
            EXPECT_EQ(out ? ExtraInfo(*out) : "<nothing>",
                      own ? std::string("owner=") + caller.label : "<nothing>");
        }
    }
}

TEST_F(ServiceRulesTest, InjectedFailureIsAnsweredFirstForTheGivenNumberOfCalls) {
    SetLiveViewSlotEnabled(kBundle, kUid, false);
    bool enabled = true;
    sptr<NotificationRequest> out;
    const struct {
        const char* label;
        ServiceCall call;
        std::function<ErrCode()> invoke;
        ErrCode normally;
    } rows[] = {
        {"publish", ServiceCall::PUBLISH, [] { return Publish(kId, kCreate); }, kSlotDisabled},
        {"subscribe", ServiceCall::SUBSCRIBE,
         [] { return NotificationHelper::SubscribeLocalLiveViewNotification(nullptr); }, kInvalid},
        {"get active", ServiceCall::GET_ACTIVE, [&] { return ReadBack(kBundle, kUid, kId, out); },
         kNotExists},
        {"get enabled", ServiceCall::GET_ENABLED, [&] { return SlotEnabled(enabled); }, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FailNextCalls(row.call, 0x4000002);
        EXPECT_EQ(row.invoke(), 0x4000002);
        EXPECT_EQ(row.invoke(), row.normally);
    }
    FailNextCalls(ServiceCall::PUBLISH, 0x4000001, 5);
    FailNextCalls(ServiceCall::PUBLISH, 0x4000002, 2);  // replaces the pending fault
    ExpectAnswers({{"first", kCreate, 0x4000002}, {"second", kCreate, 0x4000002}});
    FailNextCalls(ServiceCall::PUBLISH, 0x4000001, 5);
    FailNextCalls(ServiceCall::PUBLISH, 0x4000001, 0);  // removes it
    ExpectAnswers({{"after the removal", kCreate, kSlotDisabled}});
}

TEST_F(ServiceRulesTest, EnablementIsNotConfiguredUntilTheAppsSlotIsSwitched) {
    bool enabled = true;
    EXPECT_EQ(SlotEnabled(enabled), kNotConfigured);
    EXPECT_TRUE(enabled);
    SetLiveViewSlotEnabled(kBundle, kUid, false);
    EXPECT_EQ(SlotEnabled(enabled), 0);
    EXPECT_FALSE(enabled);
    SetCallingApp(kBundle, kUid + 1);
    EXPECT_EQ(SlotEnabled(enabled), kNotConfigured);
}

TEST_F(ServiceRulesTest, UnusableCallsAreInvalidParameters) {
    sptr<NotificationRequest> out;
    EXPECT_EQ(ReadBack("", kUid, kId, out), kInvalid);
    EXPECT_EQ(NotificationHelper::PublishNotification(NotificationRequest(kId)), kInvalid);
    NotificationRequest emptyContent(kId);
    emptyContent.SetContent(std::make_shared<Notification::NotificationContent>(nullptr));
    EXPECT_EQ(NotificationHelper::PublishNotification(emptyContent), kInvalid);
    SetCallingApp("", kUid);  // an app without a bundle name
    EXPECT_EQ(Publish(kId, kCreate), kInvalid);
    ClearCallingApp();
    EXPECT_EQ(Publish(kId, kCreate), kInvalid);
    EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), kInvalid);
    EXPECT_EQ(out.GetRefPtr(), nullptr);
    EXPECT_TRUE(HeldLiveViews().empty());
}

}  // namespace
}  // namespace Tavi::Host::Testing
