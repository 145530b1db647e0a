// The embedded notification service's rules, one group per rule, with the exact error number
// each situation answers; injected failures; the enablement query; unusable input.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "service_test_support.h"

namespace Tavi {
namespace Host {
namespace Testing {
namespace {

constexpr int32_t kId = 7;

class SlotDisabledTest : public ServiceTest {};

TEST_F(SlotDisabledTest, EveryPublishOfTheAppIsRefusedWhileDisabled) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    SetLiveViewSlotEnabled(kBundle, kUid, false);

    const struct {
        const char* label;
        int32_t id;
        Status status;
    } rows[] = {
        {"create", kId + 1, Status::LIVE_VIEW_CREATE},
        {"incremental update", kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE},
        {"full update", kId, Status::LIVE_VIEW_FULL_UPDATE},
        {"end", kId, Status::LIVE_VIEW_END},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Publish(row.id, row.status), 0x4000022);
    }
    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_FALSE(held[0].ended);
}

TEST_F(SlotDisabledTest, OnlyTheSwitchedAppIsAffectedAndEnablingAgainAccepts) {
    SetLiveViewSlotEnabled(kBundle, kUid, false);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0x4000022);

    SetCallingApp(kBundle, kUid + 1);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);

    SetCallingApp(kBundle, kUid);
    SetLiveViewSlotEnabled(kBundle, kUid, true);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
}

class RateLimitTest : public ServiceTest {};

TEST_F(RateLimitTest, EleventhPublishWithinOneSecondIsRefusedUntilTheWindowPasses) {
    for (int32_t id = 1; id <= 10; ++id) {
        SCOPED_TRACE(id);
        ASSERT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);
    }
    EXPECT_EQ(Publish(11, Status::LIVE_VIEW_CREATE), 0x4000012);
    AdvanceClock(999);
    EXPECT_EQ(Publish(11, Status::LIVE_VIEW_CREATE), 0x4000012);
    AdvanceClock(1);
    EXPECT_EQ(Publish(11, Status::LIVE_VIEW_CREATE), 0);
    EXPECT_EQ(HeldLiveViews().size(), 11u);
}

TEST_F(RateLimitTest, WindowSlidesWithEachAcceptedPublish) {
    for (int32_t id = 1; id <= 5; ++id) {
        ASSERT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);
    }
    AdvanceClock(500);
    for (int32_t id = 6; id <= 10; ++id) {
        ASSERT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);
    }
    AdvanceClock(500);  // the first five leave the window, the last five stay
    for (int32_t id = 11; id <= 15; ++id) {
        SCOPED_TRACE(id);
        EXPECT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);
    }
    EXPECT_EQ(Publish(16, Status::LIVE_VIEW_CREATE), 0x4000012);
}

TEST_F(RateLimitTest, UpdatesAndEndsCountAndRefusedPublishesDoNot) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    EXPECT_EQ(Publish(99, Status::LIVE_VIEW_END), 0x4000010);  // refused: not counted
    for (uint32_t version = 1; version <= 8; ++version) {
        ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE, version), 0);
    }
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_END, 9), 0);
    EXPECT_EQ(Publish(kId + 1, Status::LIVE_VIEW_CREATE), 0x4000012);
}

TEST_F(RateLimitTest, LimitIsPerApp) {
    for (int32_t id = 1; id <= 10; ++id) {
        ASSERT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);
    }
    ASSERT_EQ(Publish(11, Status::LIVE_VIEW_CREATE), 0x4000012);
    SetCallingApp("com.example.food", 20010002);
    EXPECT_EQ(Publish(11, Status::LIVE_VIEW_CREATE), 0);
}

TEST_F(RateLimitTest, SetRateLimitChangesTheCountAndZeroOrLessRemovesIt) {
    const struct {
        const char* label;
        int limit;
        int accepted;  // publishes accepted before the first refusal; -1 for none refused
    } rows[] = {
        {"three", 3, 3}, {"one", 1, 1}, {"twenty", 20, 20}, {"zero", 0, -1}, {"negative", -5, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        StartFresh();
        SetRateLimit(row.limit);
        const int attempts = 50;
        int accepted = 0;
        ErrCode firstRefusal = 0;
        for (int32_t id = 1; id <= attempts; ++id) {
            const ErrCode result = Publish(id, Status::LIVE_VIEW_CREATE);
            if (result != 0) {
                firstRefusal = result;
                break;
            }
            ++accepted;
        }
        if (row.accepted < 0) {
            EXPECT_EQ(accepted, attempts);
            EXPECT_EQ(firstRefusal, 0);
        } else {
            EXPECT_EQ(accepted, row.accepted);
            EXPECT_EQ(firstRefusal, 0x4000012);
        }
    }
}

class RepeatCreateTest : public ServiceTest {};

TEST_F(RepeatCreateTest, CreateForAnActiveIdIsRefusedAndKeepsTheHeldOne) {
    auto first = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
    LiveViewContentOf(*first)->SetExtraInfo(TextParams({{"title", "first"}}));
    ASSERT_EQ(NotificationHelper::PublishNotification(*first), 0);

    auto second = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
    LiveViewContentOf(*second)->SetExtraInfo(TextParams({{"title", "second"}}));
    EXPECT_EQ(NotificationHelper::PublishNotification(*second), 0x4000028);

    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE), 0);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0x4000028);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(TextParam(LiveViewContentOf(*held)->GetExtraInfo(), "title"), "first");
}

TEST_F(RepeatCreateTest, CreateIsAllowedAgainAfterThePreviousOneEnded) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE, 3), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_END, 4), 0);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE, 1), 0);

    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_FALSE(held[0].ended);
    // The new live view starts its own versions: 2 is above the new 1, though below the old 4.
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2), 0);
}

class UnknownIdTest : public ServiceTest {};

TEST_F(UnknownIdTest, UpdateAndEndOfAnIdWithoutLiveViewAreRefused) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    const struct {
        const char* label;
        Status status;
    } rows[] = {
        {"incremental update", Status::LIVE_VIEW_INCREMENTAL_UPDATE},
        {"full update", Status::LIVE_VIEW_FULL_UPDATE},
        {"end", Status::LIVE_VIEW_END},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Publish(kId + 1, row.status), 0x4000010);
        EXPECT_EQ(Publish(kId + 1, row.status, 5), 0x4000010);
    }
    EXPECT_EQ(HeldLiveViews().size(), 1u);
}

TEST_F(UnknownIdTest, ReadBackOfAnIdWithoutLiveViewIsRefusedAndLeavesTheOutputAlone) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    auto untouched = MakeLiveView(12345, Status::LIVE_VIEW_CREATE);
    sptr<NotificationRequest> out = untouched;
    EXPECT_EQ(ReadBack(kBundle, kUid, kId + 1, out), 0x4000010);
    EXPECT_EQ(out.GetRefPtr(), untouched.GetRefPtr());

    SetCallingApp("com.example.empty", 20010099);  // an app that never published
    EXPECT_EQ(ReadBack("com.example.empty", 20010099, kId, out), 0x4000010);
    EXPECT_EQ(out.GetRefPtr(), untouched.GetRefPtr());
}

class EndedTest : public ServiceTest {};

TEST_F(EndedTest, UpdateOrEndAfterEndIsRefusedWhateverTheVersion) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE, 1), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_END, 2), 0);
    const struct {
        const char* label;
        Status status;
        uint32_t version;
    } rows[] = {
        {"incremental update, higher version", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 10},
        {"incremental update, no version", Status::LIVE_VIEW_INCREMENTAL_UPDATE, kNoVersion},
        {"full update", Status::LIVE_VIEW_FULL_UPDATE, 11},
        {"end again, higher version", Status::LIVE_VIEW_END, 12},
        {"end again, stale version", Status::LIVE_VIEW_END, 1},
        {"end again, no version", Status::LIVE_VIEW_END, kNoVersion},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Publish(kId, row.status, row.version), 0x4000029);
    }
    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_TRUE(held[0].ended);
    EXPECT_EQ(LiveViewContentOf(*held[0].request)->GetVersion(), 2u);
}

class VersionTest : public ServiceTest {};

TEST_F(VersionTest, SetVersionMustBeAboveTheStoredOne) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE, 5), 0);
    const struct {
        const char* label;
        Status status;
        uint32_t version;
        ErrCode expected;
    } rows[] = {
        {"update below", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 4, 0x400002A},
        {"update equal", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 5, 0x400002A},
        {"update zero", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 0, 0x400002A},
        {"full update equal", Status::LIVE_VIEW_FULL_UPDATE, 5, 0x400002A},
        {"end equal", Status::LIVE_VIEW_END, 5, 0x400002A},
        {"update above", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 6, 0},
        {"update with the old one again", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 6, 0x400002A},
        {"update unset", Status::LIVE_VIEW_INCREMENTAL_UPDATE, kNoVersion, 0},
        {"unset kept the stored one", Status::LIVE_VIEW_INCREMENTAL_UPDATE, 6, 0x400002A},
        {"end below", Status::LIVE_VIEW_END, 2, 0x400002A},
        {"end above", Status::LIVE_VIEW_END, 7, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Publish(kId, row.status, row.version), row.expected);
    }
}

TEST_F(VersionTest, UnsetStoredVersionAcceptsAnyAndTheFirstSetOneBecomesStored) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 0), 0);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 0), 0x400002A);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 1), 0);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(LiveViewContentOf(*held)->GetVersion(), 1u);
}

class InjectedFailureTest : public ServiceTest {};

TEST_F(InjectedFailureTest, PublishAnswersTheNumberTheGivenTimesThenBehavesNormally) {
    FailNextCalls(ServiceCall::PUBLISH, 0x4000001, 2);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0x4000001);
    EXPECT_TRUE(HeldLiveViews().empty());
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0x4000001);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE), 0);

    const auto published = Published();
    ASSERT_EQ(published.size(), 4u);
    const ErrCode expected[] = {0x4000001, 0x4000001, 0, 0};
    for (size_t i = 0; i < published.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(published[i].result, expected[i]);
    }
}

TEST_F(InjectedFailureTest, InjectedFailureIsAnsweredBeforeAnyRule) {
    SetLiveViewSlotEnabled(kBundle, kUid, false);
    FailNextCalls(ServiceCall::PUBLISH, 0x400002B);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0x400002B);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0x4000022);
}

TEST_F(InjectedFailureTest, EachCallHasItsOwnFaultAndDefaultsToOnce) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    SetLiveViewSlotEnabled(kBundle, kUid, true);
    struct Subscriber : Notification::NotificationLocalLiveViewSubscriber {
        void OnConnected() override {}
        void OnDisconnected() override {}
        void OnResponse(int32_t, sptr<Notification::NotificationButtonOption>) override {}
        void OnDied() override {}
    } subscriber;
    bool enabled = false;
    sptr<NotificationRequest> out;
    const struct {
        const char* label;
        ServiceCall call;
        std::function<ErrCode()> invoke;
    } rows[] = {
        {"publish", ServiceCall::PUBLISH,
         [] { return Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE); }},
        {"subscribe", ServiceCall::SUBSCRIBE,
         [&] { return NotificationHelper::SubscribeLocalLiveViewNotification(subscriber); }},
        {"get active", ServiceCall::GET_ACTIVE, [&] { return ReadBack(kBundle, kUid, kId, out); }},
        {"get enabled", ServiceCall::GET_ENABLED,
         [&] {
             return NotificationHelper::GetEnabledForBundleSlotSelf(
                 Notification::NotificationConstant::LIVE_VIEW, enabled);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FailNextCalls(row.call, 0x4000002);
        EXPECT_EQ(row.invoke(), 0x4000002);
        EXPECT_EQ(row.invoke(), 0);
    }
}

TEST_F(InjectedFailureTest, ZeroOrNegativeTimesRemovesThePendingFault) {
    for (int times : {0, -1}) {
        SCOPED_TRACE(times);
        FailNextCalls(ServiceCall::PUBLISH, 0x4000001, 3);
        FailNextCalls(ServiceCall::PUBLISH, 0x4000001, times);
        EXPECT_EQ(Publish(kId + times, Status::LIVE_VIEW_CREATE), 0);
    }
}

TEST_F(InjectedFailureTest, ANewFaultReplacesThePendingOne) {
    FailNextCalls(ServiceCall::PUBLISH, 0x4000001, 3);
    FailNextCalls(ServiceCall::PUBLISH, 0x4000012, 1);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0x4000012);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
}

class SlotEnabledQueryTest : public ServiceTest {};

TEST_F(SlotEnabledQueryTest, NotConfiguredUntilSwitchedThenReportsTheSwitch) {
    const auto liveView = Notification::NotificationConstant::LIVE_VIEW;
    bool enabled = true;
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(liveView, enabled), 0x4000018);
    EXPECT_TRUE(enabled);  // left alone

    SetLiveViewSlotEnabled(kBundle, kUid, false);
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(liveView, enabled), 0);
    EXPECT_FALSE(enabled);

    SetLiveViewSlotEnabled(kBundle, kUid, true);
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(liveView, enabled), 0);
    EXPECT_TRUE(enabled);

    SetCallingApp(kBundle, kUid + 1);  // same bundle, another uid: its own switch
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(liveView, enabled), 0x4000018);
}

TEST_F(SlotEnabledQueryTest, OtherSlotTypesAreNotConfigured) {
    SetLiveViewSlotEnabled(kBundle, kUid, true);
    bool enabled = false;
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(
                  Notification::NotificationConstant::SOCIAL_COMMUNICATION, enabled),
              0x4000018);
    EXPECT_FALSE(enabled);
}

class BadInputTest : public ServiceTest {};

TEST_F(BadInputTest, NullSubscriberIsInvalid) {
    EXPECT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(nullptr), 0x4000003);
}

TEST_F(BadInputTest, FilterWithoutBundleNameIsInvalid) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    LiveViewFilter filter;
    filter.notificationKey.id = kId;
    sptr<NotificationRequest> out;
    EXPECT_EQ(NotificationHelper::GetActiveNotificationByFilter(filter, out), 0x4000003);
    EXPECT_EQ(out.GetRefPtr(), nullptr);

    filter.bundle.SetUid(kUid);
    EXPECT_EQ(NotificationHelper::GetActiveNotificationByFilter(filter, out), 0x4000003);
}

TEST_F(BadInputTest, RequestWithoutLiveViewContentIsInvalid) {
    NotificationRequest noContent(kId);
    EXPECT_EQ(NotificationHelper::PublishNotification(noContent), 0x4000003);

    NotificationRequest emptyContent(kId);
    emptyContent.SetContent(std::make_shared<NotificationContent>(nullptr));
    EXPECT_EQ(NotificationHelper::PublishNotification(emptyContent), 0x4000003);

    EXPECT_TRUE(HeldLiveViews().empty());
    const auto published = Published();
    ASSERT_EQ(published.size(), 2u);
    EXPECT_EQ(published[0].result, 0x4000003);
    EXPECT_EQ(published[1].result, 0x4000003);
}

TEST_F(BadInputTest, EveryCallWithoutCallingAppIsInvalid) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    struct Subscriber : Notification::NotificationLocalLiveViewSubscriber {
        int connected = 0;
        void OnConnected() override { ++connected; }
        void OnDisconnected() override {}
        void OnResponse(int32_t, sptr<Notification::NotificationButtonOption>) override {}
        void OnDied() override {}
    } subscriber;

    for (const char* how : {"cleared", "app without a bundle name"}) {
        SCOPED_TRACE(how);
        if (std::string(how) == "cleared") {
            ClearCallingApp();
        } else {
            SetCallingApp("", 20010050);
        }
        EXPECT_EQ(Publish(kId + 1, Status::LIVE_VIEW_CREATE), 0x4000003);
        EXPECT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(subscriber), 0x4000003);
        sptr<NotificationRequest> out;
        EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0x4000003);
        bool enabled = false;
        EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(
                      Notification::NotificationConstant::LIVE_VIEW, enabled),
                  0x4000003);
    }
    EXPECT_EQ(subscriber.connected, 0);
    EXPECT_EQ(HeldLiveViews().size(), 1u);
}

}  // namespace
}  // namespace Testing
}  // namespace Host
}  // namespace Tavi
