// Reference counting and URIs.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "refbase.h"
#include "uri.h"

namespace Tavi {
namespace {

// Counts its own destructions.
class Tracked : public RefBase {
public:
    explicit Tracked(int* destroyed) : destroyed_(destroyed) {}
    ~Tracked() override { ++*destroyed_; }

private:
    int* destroyed_;
};

class Derived : public Tracked {
public:
    using Tracked::Tracked;
};

TEST(SptrTest, LastStrongReferenceDeletesTheObjectOnce) {
    int destroyed = 0;
    {
        sptr<Tracked> first(new Tracked(&destroyed));
        EXPECT_EQ(first->GetSptrRefCount(), 1);
        {
            sptr<Tracked> second = first;
            sptr<Tracked> third;
            third = second;
            EXPECT_EQ(first->GetSptrRefCount(), 3);
        }
        EXPECT_EQ(first->GetSptrRefCount(), 1);
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(destroyed, 1);
}

TEST(SptrTest, MoveTransfersWithoutCountingAndClearReleases) {
    int destroyed = 0;
    sptr<Tracked> source = sptr<Tracked>::MakeSptr(&destroyed);
    sptr<Tracked> target(std::move(source));
    EXPECT_EQ(source.GetRefPtr(), nullptr);  // a moved-from sptr is empty
    EXPECT_EQ(target->GetSptrRefCount(), 1);
    sptr<Tracked> assigned;
    assigned = std::move(target);
    EXPECT_EQ(assigned->GetSptrRefCount(), 1);
    EXPECT_FALSE(static_cast<bool>(target));
    assigned.clear();
    EXPECT_EQ(assigned.GetRefPtr(), nullptr);
    EXPECT_EQ(destroyed, 1);
}

TEST(SptrTest, ReassigningReleasesTheOldObjectAndSelfAssignmentKeepsIt) {
    int firstDestroyed = 0;
    int secondDestroyed = 0;
    sptr<Tracked> pointer(new Tracked(&firstDestroyed));
    sptr<Tracked>& alias = pointer;
    pointer = alias;
    EXPECT_EQ(firstDestroyed, 0);
    EXPECT_EQ(pointer->GetSptrRefCount(), 1);
    pointer = new Tracked(&secondDestroyed);
    EXPECT_EQ(firstDestroyed, 1);
    pointer = nullptr;
    EXPECT_EQ(secondDestroyed, 1);
}

TEST(SptrTest, ConvertsToABaseAndComparesByObject) {
    int destroyed = 0;
    {
        sptr<Derived> derived(new Derived(&destroyed));
        sptr<Tracked> base = derived;
        sptr<RefBase> root = base;
        EXPECT_EQ(derived->GetSptrRefCount(), 3);
        EXPECT_TRUE(base == derived);
        EXPECT_TRUE(base != nullptr);
        EXPECT_TRUE(nullptr != base);
        sptr<Tracked> empty;
        EXPECT_TRUE(empty == nullptr);
        EXPECT_TRUE(nullptr == empty);
        EXPECT_FALSE(empty == base);
    }
    EXPECT_EQ(destroyed, 1);
}

TEST(RefBaseTest, CopyingAnObjectDoesNotCopyItsCount) {
    int destroyed = 0;
    sptr<Tracked> held(new Tracked(&destroyed));
    Tracked copy(*held);
    EXPECT_EQ(copy.GetSptrRefCount(), 0);
    copy = *held;
    EXPECT_EQ(copy.GetSptrRefCount(), 0);
    EXPECT_EQ(held->GetSptrRefCount(), 1);
}

TEST(SptrTest, CopiesMadeAndDroppedOnSeveralThreadsDeleteOnce) {
    int destroyed = 0;
    sptr<Tracked> shared(new Tracked(&destroyed));
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([shared] {
            for (int i = 0; i < 20000; ++i) {
                sptr<Tracked> copy = shared;
                sptr<Tracked> another(copy);
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(shared->GetSptrRefCount(), 1);
    shared = nullptr;
    EXPECT_EQ(destroyed, 1);
}

TEST(UriTest, PartsOfTheText) {
    const struct {
        const char* text;
        const char* scheme;
        const char* authority;
        const char* path;
        const char* query;
        const char* fragment;
    } rows[] = {
        {"https://example.com/a/b?x=1&y=2#top", "https", "example.com", "/a/b", "x=1&y=2", "top"},
        {"file:///data/storage/icon.png", "file", "", "/data/storage/icon.png", "", ""},
        {"resource://base/media/icon", "resource", "base", "/media/icon", "", ""},
        {"https://example.com", "https", "example.com", "", "", ""},
        {"mailto:someone@example.com", "mailto", "", "someone@example.com", "", ""},
        {"//host:8080/p", "", "host:8080", "/p", "", ""},
        {"relative/path", "", "", "relative/path", "", ""},
        {"/a:b", "", "", "/a:b", "", ""},
        {"a?b#c?d", "", "", "a", "b", "c?d"},
        {"?only", "", "", "", "only", ""},
        {"#only", "", "", "", "", "only"},
        {"", "", "", "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Uri uri(row.text);
        EXPECT_EQ(uri.ToString(), row.text);
        EXPECT_EQ(uri.GetScheme(), row.scheme);
        EXPECT_EQ(uri.GetAuthority(), row.authority);
        EXPECT_EQ(uri.GetPath(), row.path);
        EXPECT_EQ(uri.GetQuery(), row.query);
        EXPECT_EQ(uri.GetFragment(), row.fragment);
    }
}

TEST(UriTest, EqualityIsByText) {
    EXPECT_TRUE(Uri("https://a/b") == Uri("https://a/b"));
    EXPECT_FALSE(Uri("https://a/b") == Uri("https://a/b/"));
}

}  // namespace
}  // namespace Tavi
