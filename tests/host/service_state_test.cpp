// What the embedded notification service holds and hands back: per-app isolation, merging of
// updates, auto-deletion of ended live views, read-back key lists, deep copies, subscriber
// notices, the publish record, the service clock and ResetAll.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <mutex>
#include <string>
#include <vector>

#include "hilog/log.h"
#include "service_test_support.h"

namespace Tavi {
namespace Host {
namespace Testing {
namespace {

constexpr int32_t kId = 7;

// Records every notice as one text, e.g. "response 7 cancel".
class RecordingSubscriber : public Notification::NotificationLocalLiveViewSubscriber {
public:
    void OnConnected() override { Add("connected"); }
    void OnDisconnected() override { Add("disconnected"); }
    void OnResponse(int32_t notificationId,
                    sptr<Notification::NotificationButtonOption> option) override {
        Add("response " + std::to_string(notificationId) + " " +
            (option == nullptr ? std::string("<null>") : option->GetButtonName()));
    }
    void OnDied() override { Add("died"); }

    std::vector<std::string> Notices() const {
        std::lock_guard<std::mutex> lock(mutex_);
        return notices_;
    }

private:
    void Add(const std::string& notice) {
        std::lock_guard<std::mutex> lock(mutex_);
        notices_.push_back(notice);
    }

    mutable std::mutex mutex_;
    std::vector<std::string> notices_;
};

using Notices = std::vector<std::string>;

class IsolationTest : public ServiceTest {};

TEST_F(IsolationTest, AppsWithTheSameIdNeverSeeEachOthersLiveViews) {
    const struct App {
        const char* label;
        std::string bundle;
        int32_t uid;
    } apps[] = {
        {"rides", kBundle, kUid},
        {"food", "com.example.food", 20010002},
        {"rides under another uid", kBundle, kUid + 1},
    };
    for (const auto& app : apps) {
        SCOPED_TRACE(app.label);
        SetCallingApp(app.bundle, app.uid);
        auto request = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
        LiveViewContentOf(*request)->SetExtraInfo(TextParams({{"owner", app.label}}));
        EXPECT_EQ(NotificationHelper::PublishNotification(*request), 0);
    }
    for (const auto& caller : apps) {
        SCOPED_TRACE(caller.label);
        SetCallingApp(caller.bundle, caller.uid);
        sptr<NotificationRequest> own;
        ASSERT_EQ(ReadBack(caller.bundle, caller.uid, kId, own), 0);
        EXPECT_EQ(TextParam(LiveViewContentOf(*own)->GetExtraInfo(), "owner"), caller.label);
        EXPECT_EQ(own->GetOwnerBundleName(), caller.bundle);
        EXPECT_EQ(own->GetOwnerUid(), caller.uid);
        for (const auto& other : apps) {
            if (&other == &caller) {
                continue;
            }
            SCOPED_TRACE(std::string("asking for ") + other.label);
            sptr<NotificationRequest> theirs;
            EXPECT_EQ(ReadBack(other.bundle, other.uid, kId, theirs), 0x4000010);
            EXPECT_EQ(theirs.GetRefPtr(), nullptr);
        }
    }

    // Ending one app's live view leaves the others active.
    SetCallingApp(kBundle, kUid);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0);
    SetCallingApp("com.example.food", 20010002);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE), 0);

    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 3u);
    const struct {
        std::string bundle;
        int32_t uid;
        bool ended;
    } expected[] = {
        {"com.example.food", 20010002, false},
        {kBundle, kUid, true},
        {kBundle, kUid + 1, false},
    };
    for (size_t i = 0; i < held.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(held[i].app.bundleName, expected[i].bundle);
        EXPECT_EQ(held[i].app.uid, expected[i].uid);
        EXPECT_EQ(held[i].id, kId);
        EXPECT_EQ(held[i].ended, expected[i].ended);
    }
}

TEST_F(IsolationTest, AnotherAppsIdIsUnknownToUpdateAndEnd) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    SetCallingApp(kBundle, kUid + 1);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE), 0x4000010);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0x4000010);
    SetCallingApp("com.example.food", kUid);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0x4000010);

    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_FALSE(held[0].ended);
}

class MergeTest : public ServiceTest {};

TEST_F(MergeTest, UpdateAndEndMergeExtraInfoAndPictures) {
    auto create = MakeLiveView(kId, Status::LIVE_VIEW_CREATE, 1);
    LiveViewContentOf(*create)->SetExtraInfo(TextParams({{"a", "1"}, {"b", "2"}}));
    LiveViewContentOf(*create)->SetPicture({{"p1", {Picture(1, 1)}}, {"p2", {Picture(2, 2)}}});
    ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);

    auto update = MakeLiveView(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2);
    LiveViewContentOf(*update)->SetExtraInfo(TextParams({{"b", "20"}, {"c", "3"}}));
    LiveViewContentOf(*update)->SetPicture(
        {{"p2", {Picture(3, 3), Picture(5, 5)}}, {"p3", {Picture(4, 4)}}});
    ASSERT_EQ(NotificationHelper::PublishNotification(*update), 0);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    auto content = LiveViewContentOf(*held);
    ASSERT_NE(content, nullptr);
    EXPECT_EQ(content->GetLiveViewStatus(), Status::LIVE_VIEW_INCREMENTAL_UPDATE);
    EXPECT_EQ(content->GetVersion(), 2u);
    ASSERT_NE(content->GetExtraInfo(), nullptr);
    EXPECT_EQ(content->GetExtraInfo()->Size(), 3);
    const struct {
        const char* key;
        const char* value;
    } texts[] = {{"a", "1"}, {"b", "20"}, {"c", "3"}};
    for (const auto& text : texts) {
        SCOPED_TRACE(text.key);
        EXPECT_EQ(TextParam(content->GetExtraInfo(), text.key), text.value);
    }
    const auto pictures = content->GetPicture();
    const struct {
        const char* key;
        std::vector<int32_t> widths;
    } expected[] = {{"p1", {1}}, {"p2", {3, 5}}, {"p3", {4}}};
    ASSERT_EQ(pictures.size(), 3u);
    for (const auto& row : expected) {
        SCOPED_TRACE(row.key);
        auto it = pictures.find(row.key);
        ASSERT_NE(it, pictures.end());
        std::vector<int32_t> widths;
        for (const auto& picture : it->second) {
            widths.push_back(picture == nullptr ? -1 : picture->GetWidth());
        }
        EXPECT_EQ(widths, row.widths);
    }

    auto end = MakeLiveView(kId, Status::LIVE_VIEW_END, 3);
    LiveViewContentOf(*end)->SetExtraInfo(TextParams({{"d", "4"}}));
    ASSERT_EQ(NotificationHelper::PublishNotification(*end), 0);
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    content = LiveViewContentOf(*held);
    EXPECT_EQ(content->GetLiveViewStatus(), Status::LIVE_VIEW_END);
    EXPECT_EQ(content->GetExtraInfo()->Size(), 4);
    EXPECT_EQ(TextParam(content->GetExtraInfo(), "b"), "20");
    EXPECT_EQ(TextParam(content->GetExtraInfo(), "d"), "4");
    EXPECT_EQ(content->GetPicture().size(), 3u);
}

TEST_F(MergeTest, UpdateWithoutExtraInfoOrPicturesKeepsTheStoredOnes) {
    auto create = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
    LiveViewContentOf(*create)->SetExtraInfo(TextParams({{"a", "1"}}));
    LiveViewContentOf(*create)->SetPicture({{"p1", {Picture(1, 1)}}});
    ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE), 0);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(TextParam(LiveViewContentOf(*held)->GetExtraInfo(), "a"), "1");
    EXPECT_EQ(LiveViewContentOf(*held)->GetPicture().count("p1"), 1u);
}

TEST_F(MergeTest, UpdateAddsExtraInfoToALiveViewCreatedWithout) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    auto update = MakeLiveView(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE);
    LiveViewContentOf(*update)->SetExtraInfo(TextParams({{"a", "1"}}));
    ASSERT_EQ(NotificationHelper::PublishNotification(*update), 0);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(TextParam(LiveViewContentOf(*held)->GetExtraInfo(), "a"), "1");
}

TEST_F(MergeTest, FullUpdateReplacesTheStoredRequest) {
    auto create = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
    LiveViewContentOf(*create)->SetExtraInfo(TextParams({{"a", "1"}, {"b", "2"}}));
    ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);
    auto full = MakeLiveView(kId, Status::LIVE_VIEW_FULL_UPDATE);
    LiveViewContentOf(*full)->SetExtraInfo(TextParams({{"c", "3"}}));
    ASSERT_EQ(NotificationHelper::PublishNotification(*full), 0);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    const auto extra = LiveViewContentOf(*held)->GetExtraInfo();
    ASSERT_NE(extra, nullptr);
    EXPECT_EQ(extra->Size(), 1);
    EXPECT_EQ(TextParam(extra, "c"), "3");
}

class AutoDeleteTest : public ServiceTest {};

TEST_F(AutoDeleteTest, EndedLiveViewStaysReadableUntilItsAutoDeletedTimePasses) {
    constexpr int64_t kUnset = NotificationRequest::DEFAULT_AUTO_DELETED_TIME;
    constexpr int64_t kNever = -1;
    const struct {
        const char* label;
        int64_t keepOnCreate;  // seconds; kUnset for none
        int64_t keepOnEnd;
        int64_t lastReadableMillis;  // after the end, on the service clock
        int64_t goneMillis;          // kNever when it is never removed
    } rows[] = {
        {"time given with the end", kUnset, 5, 4999, 5000},
        {"time given with the create", 3, kUnset, 2999, 3000},
        {"the end's time replaces the create's", 100, 2, 1999, 2000},
        {"zero: removed at once", kUnset, 0, -1, 0},
        {"unset: kept", kUnset, kUnset, 1000000000, kNever},
        {"larger than the clock can reach: kept", kUnset, std::numeric_limits<int64_t>::max(),
         1000000000, kNever},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        StartFresh();
        auto create = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
        create->SetAutoDeletedTime(row.keepOnCreate);
        ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);
        AdvanceClock(60000);  // time before the end does not count
        const int64_t endedAt = ClockMillis();
        auto end = MakeLiveView(kId, Status::LIVE_VIEW_END);
        end->SetAutoDeletedTime(row.keepOnEnd);
        ASSERT_EQ(NotificationHelper::PublishNotification(*end), 0);

        sptr<NotificationRequest> out;
        if (row.lastReadableMillis >= 0) {
            SetClockMillis(endedAt + row.lastReadableMillis);
            EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0);
            const auto held = HeldLiveViews();
            ASSERT_EQ(held.size(), 1u);
            EXPECT_TRUE(held[0].ended);
            EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_INCREMENTAL_UPDATE), 0x4000029);
        }
        if (row.goneMillis != kNever) {
            SetClockMillis(endedAt + row.goneMillis);
            EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0x4000010);
            EXPECT_TRUE(HeldLiveViews().empty());
            EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0x4000010);
            EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
        }
    }
}

TEST_F(AutoDeleteTest, ActiveLiveViewIsNeverRemovedByItsAutoDeletedTime) {
    auto create = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
    create->SetAutoDeletedTime(1);
    ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);
    AdvanceClock(3600 * 1000);
    sptr<NotificationRequest> out;
    EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0);
    EXPECT_EQ(HeldLiveViews().size(), 1u);
}

class ReadBackKeysTest : public ServiceTest {};

TEST_F(ReadBackKeysTest, KeyListSelectsExtraInfoAndEmptyListReturnsAll) {
    auto create = MakeLiveView(kId, Status::LIVE_VIEW_CREATE);
    LiveViewContentOf(*create)->SetExtraInfo(TextParams({{"a", "1"}, {"b", "2"}, {"c", "3"}}));
    ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);

    const struct {
        const char* label;
        std::vector<std::string> keys;
        std::vector<std::string> expected;
    } rows[] = {
        {"empty list", {}, {"a", "b", "c"}},
        {"subset", {"c", "a"}, {"a", "c"}},
        {"unknown key ignored", {"b", "zz"}, {"b"}},
        {"only unknown keys", {"zz"}, {}},
        {"repeated key", {"a", "a"}, {"a"}},
        {"empty list again: the held map is whole", {}, {"a", "b", "c"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        sptr<NotificationRequest> out;
        ASSERT_EQ(ReadBack(kBundle, kUid, kId, out, row.keys), 0);
        const auto extra = LiveViewContentOf(*out)->GetExtraInfo();
        ASSERT_NE(extra, nullptr);
        std::vector<std::string> keys;
        for (const auto& entry : extra->GetParams()) {
            keys.push_back(entry.first);
        }
        EXPECT_EQ(keys, row.expected);
        for (const auto& key : keys) {
            EXPECT_EQ(TextParam(extra, key),
                      std::string(1, static_cast<char>('1' + (key[0] - 'a'))));
        }
    }
}

TEST_F(ReadBackKeysTest, KeyListOnALiveViewWithoutExtraInfoGivesNone) {
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    sptr<NotificationRequest> out;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, out, {"a"}), 0);
    EXPECT_EQ(LiveViewContentOf(*out)->GetExtraInfo(), nullptr);
}

class DeepCopyTest : public ServiceTest {
protected:
    // Publishes a create whose parts are kept in the members for changing afterwards.
    void PublishOriginal() {
        request_ = MakeLiveView(kId, Status::LIVE_VIEW_CREATE, 1);
        content_ = LiveViewContentOf(*request_);
        extra_ = TextParams({{"title", "Pickup"}});
        list_ = sptr<AAFwk::Array>(new AAFwk::Array(1, AAFwk::g_IID_IString));
        ASSERT_EQ(list_->Set(0, AAFwk::String::Box("a")), AAFwk::ERR_OK);
        extra_->SetParam("list", list_);
        content_->SetExtraInfo(extra_);
        picture_ = Picture(2, 2);
        picture_->GetWritablePixels()[0] = 0x11;
        content_->SetPicture({{"icon", {picture_}}});
        single_ = Picture(1, 1);
        single_->GetWritablePixels()[0] = 0x22;
        content_->SetSinglePicture(single_);
        request_->SetAutoDeletedTime(30);
        ASSERT_EQ(NotificationHelper::PublishNotification(*request_), 0);
    }

    // Checks that what the service holds is exactly what PublishOriginal sent.
    static void ExpectHeldIsOriginal() {
        sptr<NotificationRequest> held;
        ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
        EXPECT_EQ(held->GetNotificationId(), kId);
        EXPECT_EQ(held->GetAutoDeletedTime(), 30);
        const auto content = LiveViewContentOf(*held);
        ASSERT_NE(content, nullptr);
        EXPECT_EQ(content->GetVersion(), 1u);
        EXPECT_EQ(content->GetLiveViewStatus(), Status::LIVE_VIEW_CREATE);
        const auto extra = content->GetExtraInfo();
        ASSERT_NE(extra, nullptr);
        EXPECT_EQ(extra->Size(), 2);
        EXPECT_EQ(TextParam(extra, "title"), "Pickup");
        auto list = AAFwk::IArray::Query(extra->GetParam("list"));
        ASSERT_NE(list, nullptr);
        sptr<AAFwk::IInterface> first;
        ASSERT_EQ(list->Get(0, first), AAFwk::ERR_OK);
        EXPECT_EQ(AAFwk::String::Unbox(AAFwk::IString::Query(first)), "a");
        const auto pictures = content->GetPicture();
        ASSERT_EQ(pictures.size(), 1u);
        ASSERT_EQ(pictures.count("icon"), 1u);
        ASSERT_EQ(pictures.at("icon").size(), 1u);
        EXPECT_EQ(pictures.at("icon")[0]->GetPixels()[0], 0x11);
        ASSERT_NE(content->GetSinglePicture(), nullptr);
        EXPECT_EQ(content->GetSinglePicture()->GetPixels()[0], 0x22);
    }

    sptr<NotificationRequest> request_;
    std::shared_ptr<NotificationLiveViewContent> content_;
    std::shared_ptr<AAFwk::WantParams> extra_;
    sptr<AAFwk::Array> list_;
    std::shared_ptr<Media::PixelMap> picture_;
    std::shared_ptr<Media::PixelMap> single_;
};

TEST_F(DeepCopyTest, ChangingTheCallersRequestAfterPublishingChangesNothingHeld) {
    PublishOriginal();
    extra_->SetParam("title", AAFwk::String::Box("Changed"));
    extra_->SetParam("added", AAFwk::String::Box("x"));
    ASSERT_EQ(list_->Set(0, AAFwk::String::Box("changed")), AAFwk::ERR_OK);
    picture_->GetWritablePixels()[0] = 0xAB;
    single_->GetWritablePixels()[0] = 0xCD;
    content_->SetVersion(9);
    content_->SetLiveViewStatus(Status::LIVE_VIEW_END);
    content_->SetPicture({});
    request_->SetNotificationId(kId + 1);
    request_->SetAutoDeletedTime(1);

    ExpectHeldIsOriginal();
}

TEST_F(DeepCopyTest, ChangingAReadBackCopyChangesNothingHeld) {
    PublishOriginal();
    sptr<NotificationRequest> copy;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, copy), 0);
    auto content = LiveViewContentOf(*copy);
    content->GetExtraInfo()->SetParam("title", AAFwk::String::Box("Changed"));
    content->GetExtraInfo()->Remove("list");
    content->GetPicture().at("icon")[0]->GetWritablePixels()[0] = 0xAB;
    content->GetSinglePicture()->GetWritablePixels()[0] = 0xCD;
    content->SetVersion(0);
    copy->SetAutoDeletedTime(1);

    ExpectHeldIsOriginal();
}

TEST_F(DeepCopyTest, ChangingAHeldOrPublishedListingChangesNothingHeld) {
    PublishOriginal();
    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    LiveViewContentOf(*held[0].request)
        ->GetExtraInfo()
        ->SetParam("title", AAFwk::String::Box("Changed"));
    LiveViewContentOf(*held[0].request)->GetPicture().at("icon")[0]->GetWritablePixels()[0] = 0xAB;
    const auto published = Published();
    ASSERT_EQ(published.size(), 1u);
    LiveViewContentOf(*published[0].request)
        ->GetExtraInfo()
        ->SetParam("title", AAFwk::String::Box("Other"));

    ExpectHeldIsOriginal();
}

class SubscriberTest : public ServiceTest {};

TEST_F(SubscriberTest, SubscribeConnectsAndSubscribingAgainKeepsOneRegistration) {
    RecordingSubscriber subscriber;
    EXPECT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(subscriber), 0);
    EXPECT_EQ(subscriber.Notices(), Notices({"connected"}));
    EXPECT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(&subscriber), 0);
    EXPECT_EQ(subscriber.Notices(), Notices({"connected", "connected"}));

    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    EXPECT_EQ(PressButton(kBundle, kUid, kId, "cancel"), 0);
    EXPECT_EQ(subscriber.Notices(), Notices({"connected", "connected", "response 7 cancel"}));
}

TEST_F(SubscriberTest, PressButtonTellsTheOwningAppsSubscribersOnly) {
    RecordingSubscriber first;
    RecordingSubscriber second;
    RecordingSubscriber otherApp;
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(first), 0);
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(second), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    SetCallingApp(kBundle, kUid + 1);
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(otherApp), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);

    EXPECT_EQ(PressButton(kBundle, kUid, kId, "Navigate"), 0);
    EXPECT_EQ(PressButton(kBundle, kUid, kId + 1, "Navigate"), 0x4000010);
    EXPECT_EQ(PressButton("com.example.food", kUid, kId, "Navigate"), 0x4000010);

    EXPECT_EQ(first.Notices(), Notices({"connected", "response 7 Navigate"}));
    EXPECT_EQ(second.Notices(), Notices({"connected", "response 7 Navigate"}));
    EXPECT_EQ(otherApp.Notices(), Notices({"connected"}));
}

TEST_F(SubscriberTest, PressButtonOfAnEndedLiveViewStillHeldIsDelivered) {
    RecordingSubscriber subscriber;
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(subscriber), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_END), 0);
    EXPECT_EQ(PressButton(kBundle, kUid, kId, ""), 0);
    EXPECT_EQ(subscriber.Notices(), Notices({"connected", "response 7 "}));
}

TEST_F(SubscriberTest, KillServiceTellsEverySubscriberOnceAndLosesTheLiveViews) {
    RecordingSubscriber mine;
    RecordingSubscriber theirs;
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(mine), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    SetCallingApp("com.example.food", 20010002);
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(theirs), 0);
    SetCallingApp(kBundle, kUid);
    SetLiveViewSlotEnabled(kBundle, kUid, true);
    FailNextCalls(ServiceCall::GET_ACTIVE, 0x4000001);

    KillService();
    EXPECT_EQ(mine.Notices(), Notices({"connected", "died"}));
    EXPECT_EQ(theirs.Notices(), Notices({"connected", "died"}));
    EXPECT_TRUE(HeldLiveViews().empty());
    EXPECT_EQ(PressButton(kBundle, kUid, kId, "cancel"), 0x4000010);

    KillService();
    EXPECT_EQ(mine.Notices(), Notices({"connected", "died"}));

    // A fresh service: the id is free again; slot switches and faults survived.
    sptr<NotificationRequest> out;
    EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0x4000001);
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    bool enabled = false;
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(
                  Notification::NotificationConstant::LIVE_VIEW, enabled),
              0);
    EXPECT_TRUE(enabled);
}

class PublishRecordTest : public ServiceTest {};

TEST_F(PublishRecordTest, EveryPublishIsRecordedInOrderWithAppResultAndTime) {
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    AdvanceClock(250);
    SetCallingApp("com.example.food", 20010002);
    ASSERT_EQ(Publish(2, Status::LIVE_VIEW_END), 0x4000010);
    ClearCallingApp();
    ASSERT_EQ(Publish(3, Status::LIVE_VIEW_CREATE), 0x4000003);

    const auto published = Published();
    ASSERT_EQ(published.size(), 3u);
    const struct {
        std::string bundle;
        int32_t uid;
        int32_t id;
        ErrCode result;
        int64_t atMillis;
    } expected[] = {
        {kBundle, kUid, 1, 0, kStartMillis},
        {"com.example.food", 20010002, 2, 0x4000010, kStartMillis + 250},
        {"", -1, 3, 0x4000003, kStartMillis + 250},
    };
    for (size_t i = 0; i < published.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(published[i].app.bundleName, expected[i].bundle);
        EXPECT_EQ(published[i].app.uid, expected[i].uid);
        ASSERT_NE(published[i].request.GetRefPtr(), nullptr);
        EXPECT_EQ(published[i].request->GetNotificationId(), expected[i].id);
        EXPECT_EQ(published[i].result, expected[i].result);
        EXPECT_EQ(published[i].atMillis, expected[i].atMillis);
    }
}

TEST_F(PublishRecordTest, TurningRecordingOffForgetsAndStopsRecording) {
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    SetPublishRecording(false);
    EXPECT_TRUE(Published().empty());
    ASSERT_EQ(Publish(2, Status::LIVE_VIEW_CREATE), 0);
    EXPECT_TRUE(Published().empty());
    EXPECT_EQ(HeldLiveViews().size(), 2u);

    SetPublishRecording(true);
    ASSERT_EQ(Publish(3, Status::LIVE_VIEW_CREATE), 0);
    const auto published = Published();
    ASSERT_EQ(published.size(), 1u);
    EXPECT_EQ(published[0].request->GetNotificationId(), 3);
}

class ServiceClockTest : public ServiceTest {};

TEST_F(ServiceClockTest, ManualClockMovesOnlyWhenTold) {
    SetClockMillis(5000);
    EXPECT_EQ(ClockMillis(), 5000);
    AdvanceClock(250);
    EXPECT_EQ(ClockMillis(), 5250);
    SetClockMillis(100);
    EXPECT_EQ(ClockMillis(), 100);
}

TEST_F(ServiceClockTest, AdvancingTheRealClockStartsAManualOneFromNow) {
    UseRealClock();
    const int64_t before = ClockMillis();
    AdvanceClock(1000000);
    const int64_t advanced = ClockMillis();
    EXPECT_GE(advanced, before + 1000000);
    EXPECT_EQ(ClockMillis(), advanced);
}

TEST(ResetAllTest, ForgetsEverythingAndRestoresDefaults) {
    ServiceTest::StartFresh();
    RecordingSubscriber subscriber;
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(subscriber), 0);
    ASSERT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0);
    SetLiveViewSlotEnabled(kBundle, kUid, false);
    SetRateLimit(1);
    FailNextCalls(ServiceCall::GET_ACTIVE, 0x4000001, 5);
    SetLogMode(SinkMode::CAPTURE);
    HiLogPrint(LOG_CORE, LOG_INFO, 1, "tag", "kept");

    ResetAll();
    SetLogMode(SinkMode::CAPTURE);
    EXPECT_TRUE(TakeLogLines().empty());
    EXPECT_TRUE(HeldLiveViews().empty());
    EXPECT_TRUE(Published().empty());
    EXPECT_EQ(Publish(kId, Status::LIVE_VIEW_CREATE), 0x4000003);  // no calling app

    SetCallingApp(kBundle, kUid);
    SetClockMillis(kStartMillis);
    sptr<NotificationRequest> out;
    EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0x4000010);  // no fault, nothing held
    for (int32_t id = 1; id <= 10; ++id) {
        SCOPED_TRACE(id);
        ASSERT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);  // slot not disabled, limit back at 10
    }
    EXPECT_EQ(Publish(11, Status::LIVE_VIEW_CREATE), 0x4000012);
    bool enabled = false;
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(
                  Notification::NotificationConstant::LIVE_VIEW, enabled),
              0x4000018);
    ASSERT_EQ(PressButton(kBundle, kUid, 1, "cancel"), 0);
    EXPECT_EQ(subscriber.Notices(), Notices({"connected"}));
    ResetAll();
}

}  // namespace
}  // namespace Testing
}  // namespace Host
}  // namespace Tavi
