// Reference counting: an object shared by strong pointers on several threads is deleted once,
// when the last of them goes, also through a pointer to its base.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#include "refbase.h"

namespace Tavi {
namespace {

std::atomic<int> g_destroyed{0};

struct Tracked : RefBase {
    ~Tracked() override { ++g_destroyed; }
};

TEST(RefBaseConcurrencyTest, CopiesMadeAndDroppedOnSeveralThreadsDeleteOnce) {
    sptr<Tracked> shared(new Tracked());
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([shared] {
            for (int i = 0; i < 20000; ++i) {
                sptr<RefBase> base = shared;
                sptr<RefBase> moved(std::move(base));
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    sptr<RefBase> last = shared;
    shared = nullptr;
    EXPECT_EQ(last->GetSptrRefCount(), 1);
    EXPECT_EQ(g_destroyed, 0);
    last.clear();
    EXPECT_EQ(g_destroyed, 1);
}

}  // namespace
}  // namespace Tavi
