// The embedded notification service under publishes from several threads at once.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <thread>
#include <vector>

#include "service_test_support.h"

namespace Tavi {
namespace Host {
namespace Testing {
namespace {

class ServiceConcurrencyTest : public ServiceTest {};

TEST_F(ServiceConcurrencyTest, FourThreadsPublishingAThousandLiveViewsEachLoseAndDuplicateNone) {
    constexpr int32_t kThreads = 4;
    constexpr int32_t kPerThread = 1000;
    SetRateLimit(0);

    std::vector<std::vector<ErrCode>> results(kThreads);
    std::vector<std::thread> threads;
    for (int32_t t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &results] {
            results[t].reserve(kPerThread);
            for (int32_t i = 0; i < kPerThread; ++i) {
                results[t].push_back(Publish(t * kPerThread + i, Status::LIVE_VIEW_CREATE));
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }

    for (int32_t t = 0; t < kThreads; ++t) {
        SCOPED_TRACE(t);
        EXPECT_EQ(std::count(results[t].begin(), results[t].end(), 0), kPerThread);
    }
    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), static_cast<size_t>(kThreads * kPerThread));
    std::vector<int32_t> ids;
    for (const auto& view : held) {
        EXPECT_EQ(view.app.bundleName, kBundle);
        EXPECT_EQ(view.app.uid, kUid);
        EXPECT_FALSE(view.ended);
        ids.push_back(view.id);
        ASSERT_NE(view.request.GetRefPtr(), nullptr);
        EXPECT_EQ(view.request->GetNotificationId(), view.id);
    }
    std::vector<int32_t> expected(kThreads * kPerThread);
    for (int32_t i = 0; i < kThreads * kPerThread; ++i) {
        expected[i] = i;
    }
    EXPECT_EQ(ids, expected);  // held in id order: every id exactly once

    const auto published = Published();
    ASSERT_EQ(published.size(), static_cast<size_t>(kThreads * kPerThread));
    std::vector<int32_t> publishedIds;
    for (const auto& record : published) {
        EXPECT_EQ(record.result, 0);
        publishedIds.push_back(record.request->GetNotificationId());
    }
    std::sort(publishedIds.begin(), publishedIds.end());
    EXPECT_EQ(publishedIds, expected);
}

TEST_F(ServiceConcurrencyTest, ThreadsRunningWholeLifecyclesEndEveryLiveView) {
    constexpr int32_t kThreads = 4;
    constexpr int32_t kPerThread = 250;
    SetRateLimit(0);
    SetPublishRecording(false);

    std::vector<int32_t> failures(kThreads, 0);
    std::vector<std::thread> threads;
    for (int32_t t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &failures] {
            for (int32_t i = 0; i < kPerThread; ++i) {
                const int32_t id = t * kPerThread + i;
                sptr<NotificationRequest> out;
                if (Publish(id, Status::LIVE_VIEW_CREATE, 1) != 0 ||
                    Publish(id, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2) != 0 ||
                    ReadBack(kBundle, kUid, id, out) != 0 ||
                    LiveViewContentOf(*out)->GetVersion() != 2 ||
                    Publish(id, Status::LIVE_VIEW_END, 3) != 0) {
                    ++failures[t];
                }
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }

    EXPECT_EQ(failures, std::vector<int32_t>(kThreads, 0));
    const auto held = HeldLiveViews();
    ASSERT_EQ(held.size(), static_cast<size_t>(kThreads * kPerThread));
    EXPECT_TRUE(
        std::all_of(held.begin(), held.end(), [](const HeldLiveView& view) { return view.ended; }));
    EXPECT_TRUE(Published().empty());
}

}  // namespace
}  // namespace Testing
}  // namespace Host
}  // namespace Tavi
