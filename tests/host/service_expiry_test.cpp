// The embedded service's bookkeeping of ended live views and of key-filtered read-backs: an ended
// live view goes exactly when its own auto-deleted time passes, whatever else the service holds,
// and a read-back with a key list hands out copies of the asked values only, while the held
// request stays whole.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "service_test_support.h"

namespace Tavi {
namespace Host {
namespace Testing {
namespace {

// Publishes an end of id with the given auto-deleted time (seconds).
ErrCode EndWithKeep(int32_t id, int64_t keepSeconds) {
    auto end = MakeLiveView(id, Status::LIVE_VIEW_END);
    end->SetAutoDeletedTime(keepSeconds);
    return NotificationHelper::PublishNotification(*end);
}

std::vector<int32_t> HeldIds() {
    std::vector<int32_t> ids;
    for (const auto& held : HeldLiveViews()) {
        ids.push_back(held.id);
    }
    return ids;
}

class ExpiryTest : public ServiceTest {};

TEST_F(ExpiryTest, EachEndedLiveViewGoesAtItsOwnTimeAmongManyHeld) {
    for (int32_t id = 1; id <= 6; ++id) {
        ASSERT_EQ(Publish(id, Status::LIVE_VIEW_CREATE), 0);
    }
    const int64_t endedAt = ClockMillis();
    ASSERT_EQ(EndWithKeep(2, 3), 0);
    ASSERT_EQ(EndWithKeep(4, 1), 0);
    ASSERT_EQ(EndWithKeep(5, -1), 0);  // kept for ever
    ASSERT_EQ(EndWithKeep(6, 3), 0);   // the same time as 2

    SetClockMillis(endedAt + 999);
    EXPECT_EQ(HeldIds(), (std::vector<int32_t>{1, 2, 3, 4, 5, 6}));
    SetClockMillis(endedAt + 1000);
    EXPECT_EQ(HeldIds(), (std::vector<int32_t>{1, 2, 3, 5, 6}));
    SetClockMillis(endedAt + 2999);
    EXPECT_EQ(HeldIds(), (std::vector<int32_t>{1, 2, 3, 5, 6}));
    SetClockMillis(endedAt + 3000);
    EXPECT_EQ(HeldIds(), (std::vector<int32_t>{1, 3, 5}));
    SetClockMillis(endedAt + 1000000000);
    EXPECT_EQ(HeldIds(), (std::vector<int32_t>{1, 3, 5}));
}

TEST_F(ExpiryTest, ClockSetBeforeTheEndKeepsTheLiveViewUntilItsTimeComes) {
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    const int64_t endedAt = ClockMillis();
    ASSERT_EQ(EndWithKeep(1, 2), 0);
    SetClockMillis(endedAt - 5000);
    EXPECT_EQ(HeldIds(), std::vector<int32_t>{1});
    SetClockMillis(endedAt + 1999);
    EXPECT_EQ(HeldIds(), std::vector<int32_t>{1});
    SetClockMillis(endedAt + 2000);
    EXPECT_TRUE(HeldIds().empty());
}

TEST_F(ExpiryTest, ACreateOverAnEndedLiveViewIsNotRemovedByTheOldOnesTime) {
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    const int64_t endedAt = ClockMillis();
    ASSERT_EQ(EndWithKeep(1, 5), 0);
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);

    SetClockMillis(endedAt + 3600 * 1000);
    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_FALSE(held[0].ended);

    // Ended again, it goes at its new time.
    const int64_t endedAgainAt = ClockMillis();
    ASSERT_EQ(EndWithKeep(1, 1), 0);
    SetClockMillis(endedAgainAt + 999);
    EXPECT_EQ(HeldIds(), std::vector<int32_t>{1});
    SetClockMillis(endedAgainAt + 1000);
    EXPECT_TRUE(HeldIds().empty());
}

TEST_F(ExpiryTest, ResetAndServiceDeathForgetEndedLiveViews) {
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    ASSERT_EQ(EndWithKeep(1, 1), 0);
    KillService();
    SetClockMillis(kStartMillis);
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    AdvanceClock(10000);
    EXPECT_EQ(HeldIds(), std::vector<int32_t>{1});

    ASSERT_EQ(EndWithKeep(1, 1), 0);
    StartFresh();
    ASSERT_EQ(Publish(1, Status::LIVE_VIEW_CREATE), 0);
    AdvanceClock(10000);
    EXPECT_EQ(HeldIds(), std::vector<int32_t>{1});
}

class FilteredReadBackTest : public ServiceTest {};

TEST_F(FilteredReadBackTest, AskedValuesAreCopiesAndTheHeldRequestStaysWhole) {
    auto create = MakeLiveView(1, Status::LIVE_VIEW_CREATE, 1);
    auto extra = TextParams({{"title", "Pickup"}, {"other", "x"}});
    sptr<AAFwk::Array> list(new AAFwk::Array(1, AAFwk::g_IID_IString));
    ASSERT_EQ(list->Set(0, AAFwk::String::Box("a")), AAFwk::ERR_OK);
    extra->SetParam("list", list);
    extra->SetParam("none", nullptr);
    LiveViewContentOf(*create)->SetExtraInfo(extra);
    LiveViewContentOf(*create)->SetPicture({{"icon", {Picture(2, 2)}}});
    create->SetAutoDeletedTime(30);
    ASSERT_EQ(NotificationHelper::PublishNotification(*create), 0);

    sptr<NotificationRequest> out;
    ASSERT_EQ(ReadBack(kBundle, kUid, 1, out, {"list", "none", "title", "absent"}), 0);
    EXPECT_EQ(out->GetAutoDeletedTime(), 30);
    EXPECT_EQ(out->GetOwnerBundleName(), kBundle);
    EXPECT_EQ(out->GetOwnerUid(), kUid);
    const auto content = LiveViewContentOf(*out);
    ASSERT_NE(content, nullptr);
    EXPECT_EQ(content->GetVersion(), 1u);
    EXPECT_EQ(content->GetPicture().count("icon"), 1u);
    const auto outExtra = content->GetExtraInfo();
    ASSERT_NE(outExtra, nullptr);
    std::vector<std::string> keys;
    for (const auto& entry : outExtra->GetParams()) {
        keys.push_back(entry.first);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"list", "none", "title"}));
    EXPECT_EQ(outExtra->GetParam("none"), nullptr);
    EXPECT_EQ(TextParam(outExtra, "title"), "Pickup");

    // The read-back list is a copy: changing it leaves the held one alone.
    auto outList = AAFwk::IArray::Query(outExtra->GetParam("list"));
    ASSERT_NE(outList, nullptr);
    ASSERT_EQ(outList->Set(0, AAFwk::String::Box("changed")), AAFwk::ERR_OK);
    outExtra->SetParam("title", AAFwk::String::Box("Changed"));

    sptr<NotificationRequest> whole;
    ASSERT_EQ(ReadBack(kBundle, kUid, 1, whole), 0);
    const auto wholeExtra = LiveViewContentOf(*whole)->GetExtraInfo();
    ASSERT_NE(wholeExtra, nullptr);
    EXPECT_EQ(wholeExtra->Size(), 4);
    EXPECT_EQ(TextParam(wholeExtra, "title"), "Pickup");
    EXPECT_EQ(TextParam(wholeExtra, "other"), "x");
    auto heldList = AAFwk::IArray::Query(wholeExtra->GetParam("list"));
    ASSERT_NE(heldList, nullptr);
    sptr<AAFwk::IInterface> first;
    ASSERT_EQ(heldList->Get(0, first), AAFwk::ERR_OK);
    EXPECT_EQ(AAFwk::String::Unbox(AAFwk::IString::Query(first)), "a");
}

}  // namespace
}  // namespace Testing
}  // namespace Host
}  // namespace Tavi
