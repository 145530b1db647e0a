// What the embedded notification service holds and hands back: the merge of updates, the
// auto-deletion of ended live views, key-filtered read-backs, copies in and out, subscriber
// notices.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pixel_map.h"
#include "service_test_support.h"

namespace Tavi::Host::Testing {
namespace {

std::shared_ptr<Media::PixelMap> Picture(int32_t width) {
    return Media::PixelMap::Create(
        Media::InitializationOptions{{width, 1}, Media::PixelFormat::ALPHA_8});
}

// Records every notice in one text, e.g. "connected; response 7 cancel; died".
class RecordingSubscriber : public Notification::NotificationLocalLiveViewSubscriber {
public:
    void OnConnected() override { Add("connected"); }
    void OnDisconnected() override { Add("disconnected"); }
    void OnResponse(int32_t id, sptr<Notification::NotificationButtonOption> option) override {
        Add("response " + std::to_string(id) + " " + option->GetButtonName());
    }
    void OnDied() override { Add("died"); }
    std::string notices;

private:
    void Add(const std::string& notice) { notices += (notices.empty() ? "" : "; ") + notice; }
};

class ServiceStateTest : public ServiceTest {};

TEST_F(ServiceStateTest, UpdateMergesIntoWhatIsHeldAndFullUpdateReplacesIt) {
    auto create = MakeLiveView(kId, kCreate, 1, {{"a", "1"}, {"b", "2"}});
    LiveViewContentOf(*create)->SetPicture({{"p1", {Picture(1)}}, {"p2", {Picture(2)}}});
    ASSERT_EQ(Send(create), 0);
    auto update = MakeLiveView(kId, kUpdate, 2, {{"b", "20"}, {"c", "3"}});
    LiveViewContentOf(*update)->SetPicture(
        {{"p2", {Picture(3), Picture(5)}}, {"p3", {Picture(4)}}});
    ASSERT_EQ(Send(update), 0);
    ASSERT_EQ(Publish(kId, kUpdate), 0);  // carries nothing: keeps everything
    ASSERT_EQ(Publish(kId + 1, kCreate), 0);
    ASSERT_EQ(Send(MakeLiveView(kId + 1, kEnd, kNoVersion, {{"a", "1"}})), 0);

    sptr<NotificationRequest> held;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(LiveViewContentOf(*held)->GetLiveViewStatus(), kUpdate);
    EXPECT_EQ(LiveViewContentOf(*held)->GetVersion(), 2u);
    EXPECT_EQ(ExtraInfo(*held), "a=1 b=20 c=3");
    const auto pictures = LiveViewContentOf(*held)->GetPicture();  // p1 kept, p2 replaced
    ASSERT_EQ(pictures.size(), 3u);
    EXPECT_EQ(pictures.at("p2").size(), 2u);
    ASSERT_EQ(ReadBack(kBundle, kUid, kId + 1, held), 0);
    EXPECT_EQ(LiveViewContentOf(*held)->GetLiveViewStatus(), kEnd);
    EXPECT_EQ(ExtraInfo(*held), "a=1");  // merged into a live view created without extra info

    ASSERT_EQ(Send(MakeLiveView(kId, kFull, 3, {{"d", "4"}})), 0);
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, held), 0);
    EXPECT_EQ(ExtraInfo(*held), "d=4");
    EXPECT_TRUE(LiveViewContentOf(*held)->GetPicture().empty());
}

TEST_F(ServiceStateTest, EndedLiveViewGoesWhenItsAutoDeletedTimePasses) {
    constexpr int64_t kUnset = NotificationRequest::DEFAULT_AUTO_DELETED_TIME;
    constexpr int64_t kNever = -1;
    const struct {
        const char* label;
        int64_t keepOnCreate;  // seconds
        int64_t keepOnEnd;
        int64_t lastHeldMillis;  // after the end; -1 for none
        int64_t goneMillis;      // kNever when it is kept
    } rows[] = {
        {"time given with the end", kUnset, 5, 4999, 5000},
        {"time given with the create", 3, kUnset, 2999, 3000},
        {"the end's time replaces the create's", 100, 2, 1999, 2000},
        {"zero: at once", kUnset, 0, -1, 0},
        {"unset: kept", kUnset, kUnset, 1000000000, kNever},
        {"beyond the clock: kept", kUnset, std::numeric_limits<int64_t>::max(), 1000000000, kNever},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        StartFresh();
        auto create = MakeLiveView(kId, kCreate);
        create->SetAutoDeletedTime(row.keepOnCreate);
        ASSERT_EQ(Send(create), 0);
        AdvanceClock(60000);  // time before the end does not count
        const int64_t endedAt = ClockMillis();
        auto end = MakeLiveView(kId, kEnd);
        end->SetAutoDeletedTime(row.keepOnEnd);
        ASSERT_EQ(Send(end), 0);
        sptr<NotificationRequest> out;
        if (row.lastHeldMillis >= 0) {
            SetClockMillis(endedAt + row.lastHeldMillis);
            EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), 0);
        }
        if (row.goneMillis != kNever) {
            SetClockMillis(endedAt + row.goneMillis);
            EXPECT_EQ(ReadBack(kBundle, kUid, kId, out), kNotExists);
            EXPECT_TRUE(HeldLiveViews().empty());
        }
    }
}

TEST_F(ServiceStateTest, ActiveLiveViewIsKeptWhateverItsAutoDeletedTime) {
    auto end = MakeLiveView(kId, kEnd);
    end->SetAutoDeletedTime(5);
    ASSERT_EQ(Publish(kId, kCreate), 0);
    ASSERT_EQ(Send(end), 0);
    auto create = MakeLiveView(kId, kCreate);  // replaces the ended one and its time
    create->SetAutoDeletedTime(1);
    ASSERT_EQ(Send(create), 0);
    AdvanceClock(3600 * 1000);
    HeldLiveView held;
    ASSERT_TRUE(HeldLiveViewOf(kBundle, kUid, kId, held));
    EXPECT_FALSE(held.ended);
}

TEST_F(ServiceStateTest, KeyListSelectsTheExtraInfoReadBack) {
    ASSERT_EQ(Send(MakeLiveView(kId, kCreate, kNoVersion, {{"a", "1"}, {"b", "2"}, {"c", "3"}})),
              0);
    ASSERT_EQ(Publish(kId + 1, kCreate), 0);
    const struct {
        const char* label;
        int32_t id;
        std::vector<std::string> keys;
        std::string expected;
    } rows[] = {
        {"no list: all", kId, {}, "a=1 b=2 c=3"},
        {"subset in any order", kId, {"c", "a"}, "a=1 c=3"},
        {"unknown key ignored", kId, {"b", "zz"}, "b=2"},
        {"only unknown keys", kId, {"zz"}, ""},
        {"live view without extra info", kId + 1, {"a"}, "<none>"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        sptr<NotificationRequest> out;
        ASSERT_EQ(ReadBack(kBundle, kUid, row.id, out, row.keys), 0);
        EXPECT_EQ(ExtraInfo(*out), row.expected);
    }
}

// What the service holds under kId in one line: extra info, the list's first element, the first
// byte of each picture, the version and the auto-deleted time.
std::string HeldSummary() {
    HeldLiveView held;
    if (!HeldLiveViewOf(kBundle, kUid, kId, held)) {
        return "<nothing>";
    }
    const auto content = LiveViewContentOf(*held.request);
    sptr<AAFwk::IInterface> first;
    AAFwk::IArray::Query(content->GetExtraInfo()->GetParam("list"))->Get(0, first);
    return ExtraInfo(*held.request) + " [" + AAFwk::String::Unbox(AAFwk::IString::Query(first)) +
           "] " + std::to_string(content->GetPicture().at("icon")[0]->GetPixels()[0]) + " " +
           std::to_string(content->GetSinglePicture()->GetPixels()[0]) + " v" +
           std::to_string(content->GetVersion()) + " " +
           std::to_string(held.request->GetAutoDeletedTime()) + "s";
}

TEST_F(ServiceStateTest, NothingHandedInOrOutSharesWhatIsHeld) {
    auto request = MakeLiveView(kId, kCreate, 1, {{"title", "Pickup"}});
    sptr<AAFwk::Array> list(new AAFwk::Array(1, AAFwk::g_IID_IString));
    ASSERT_EQ(list->Set(0, AAFwk::String::Box("a")), AAFwk::ERR_OK);
    LiveViewContentOf(*request)->GetExtraInfo()->SetParam("list", list);
    LiveViewContentOf(*request)->SetPicture({{"icon", {Picture(2)}}});
    LiveViewContentOf(*request)->SetSinglePicture(Picture(1));
    request->SetAutoDeletedTime(30);
    ASSERT_EQ(Send(request), 0);
    sptr<NotificationRequest> whole;
    sptr<NotificationRequest> filtered;
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, whole), 0);
    ASSERT_EQ(ReadBack(kBundle, kUid, kId, filtered, {"list", "title"}), 0);
    const std::pair<const char*, sptr<NotificationRequest>> copies[] = {
        {"what was sent", request},
        {"a read-back", whole},
        {"a filtered read-back", filtered},
        {"the held listing", HeldLiveViews().at(0).request},
        {"the publish record", Published().at(0).request},
    };
    for (const auto& [label, copy] : copies) {
        SCOPED_TRACE(label);
        const auto content = LiveViewContentOf(*copy);
        content->GetExtraInfo()->SetParam("title", AAFwk::String::Box("changed"));
        AAFwk::IArray::Query(content->GetExtraInfo()->GetParam("list"))
            ->Set(0, AAFwk::String::Box("changed"));
        content->GetPicture().at("icon")[0]->GetWritablePixels()[0] = 9;
        content->GetSinglePicture()->GetWritablePixels()[0] = 9;
        content->SetVersion(9);
        copy->SetAutoDeletedTime(9);
        EXPECT_EQ(HeldSummary(), "list title=Pickup [a] 0 0 v1 30s");
    }
}

TEST_F(ServiceStateTest, ButtonsReachTheOwningAppsSubscribersAndDeathReachesEveryone) {
    RecordingSubscriber mine;
    RecordingSubscriber theirs;
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(mine), 0);
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(&mine), 0);  // still once
    ASSERT_EQ(Publish(kId, kCreate), 0);
    ASSERT_EQ(Publish(kId, kEnd), 0);
    SetCallingApp(kBundle, kUid + 1);
    ASSERT_EQ(NotificationHelper::SubscribeLocalLiveViewNotification(theirs), 0);
    ASSERT_EQ(Publish(kId, kCreate), 0);
    SetLiveViewSlotEnabled(kBundle, kUid + 1, true);

    EXPECT_EQ(PressButton(kBundle, kUid, kId, "Navigate"), 0);  // ended, still held
    EXPECT_EQ(PressButton(kBundle, kUid, kId + 1, "Navigate"), kNotExists);
    EXPECT_EQ(PressButton("com.example.food", kUid, kId, "Navigate"), kNotExists);
    KillService();
    KillService();
    EXPECT_EQ(mine.notices, "connected; connected; response 7 Navigate; died");
    EXPECT_EQ(theirs.notices, "connected; died");
    EXPECT_TRUE(HeldLiveViews().empty());
    EXPECT_EQ(PressButton(kBundle, kUid, kId, "Navigate"), kNotExists);
    EXPECT_EQ(Publish(kId, kCreate), 0);
    bool enabled = false;  // slot switches outlive the service
    EXPECT_EQ(NotificationHelper::GetEnabledForBundleSlotSelf(
                  Notification::NotificationConstant::LIVE_VIEW, enabled),
              0);
    EXPECT_TRUE(enabled);
}

}  // namespace
}  // namespace Tavi::Host::Testing
