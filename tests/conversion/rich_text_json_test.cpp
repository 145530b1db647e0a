// The rich-text content JSON: exact text, and no partial text when cJSON cannot allocate.
#include <cjson/cJSON.h>
#include <gmock/gmock.h>

#include <cstdlib>

#include "conversion_test_util.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Test {
namespace {

using namespace std::string_literals;

std::string ContentJsonOf(const Runs& runs) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetContent(runs);
    Outputs out;
    LiveViewParamConversion::PrimaryDataParamConversion(MakeLiveView(primary), out.request,
                                                        out.extra, out.content, LiveView::START);
    return AAFwk::String::Unbox(AAFwk::IString::Query(out.extra->GetParam("PrimaryData.content")));
}

TEST(RichTextJsonTest, ExactUnformattedText) {
    struct Row {
        const char* label;
        Runs runs;
        std::string json;
    };
    const Row rows[] = {
        {"text and colour, then text only",
         {Rich(Str("Arrives in "), Str("#FF000000")), Rich(Str("5 min"))},
         R"([{"text":"Arrives in ","textColor":"#FF000000"},{"text":"5 min"}])"},
        {"colour only", {Rich(nullptr, Str("#FF112233"))}, R"([{"textColor":"#FF112233"}])"},
        {"all-empty element", {Rich(nullptr)}, "[{}]"},
        {"empty text is kept", {Rich(Str(""))}, R"([{"text":""}])"},
        {"one empty pointer", {nullptr}, "[]"},
        {"empty pointers skipped", {nullptr, Rich(Str("a")), nullptr}, R"([{"text":"a"}])"},
        {"escapes",
         {Rich(Str("say \"hi\"\\\nGate \xC3\xA9t\xC3\xA9"))},
         "[{\"text\":\"say \\\"hi\\\"\\\\\\nGate \xC3\xA9t\xC3\xA9\"}]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(ContentJsonOf(row.runs), row.json);
    }
}

// Fails the allocation whose number (from 0) is failAt; counts every allocation.
struct FailingAllocator {
    static inline int failAt = -1;
    static inline int count = 0;
    static void* Allocate(size_t size) { return count++ == failAt ? nullptr : std::malloc(size); }
};

class RichTextJsonAllocationTest : public ConversionTest {
protected:
    void TearDown() override {
        cJSON_InitHooks(nullptr);
        ConversionTest::TearDown();
    }
};

// Whichever allocation fails, the key carries the untouched (empty) text and one error line of
// BuildContentJson is written; never a partial text.
TEST_F(RichTextJsonAllocationTest, AnyFailedAllocationLeavesTheTextUntouched) {
    const Runs runs = {Rich(Str("a"), Str("#FF000000")), Rich(Str("b"))};
    const std::string full = R"([{"text":"a","textColor":"#FF000000"},{"text":"b"}])";
    cJSON_Hooks hooks{&FailingAllocator::Allocate, &std::free};
    cJSON_InitHooks(&hooks);
    const std::string prefix = "[live_view_param_conversion.cpp:";
    bool completed = false;
    for (int failAt = 0; failAt < 64 && !completed; ++failAt) {
        SCOPED_TRACE(failAt);
        FailingAllocator::failAt = failAt;
        FailingAllocator::count = 0;
        const std::string json = ContentJsonOf(runs);
        const auto logs = Logs();
        completed = FailingAllocator::count <= failAt;
        if (completed) {
            EXPECT_EQ(json, full);
            EXPECT_TRUE(logs.empty());
            continue;
        }
        EXPECT_EQ(json, "");
        ASSERT_EQ(logs.size(), 1u);
        EXPECT_EQ(logs[0].first, ERROR);
        EXPECT_THAT(logs[0].second, ::testing::StartsWith(prefix));
        EXPECT_THAT(logs[0].second, ::testing::HasSubstr("] BuildContentJson# "));
        if (failAt == 0) {
            EXPECT_THAT(logs[0].second, ::testing::EndsWith("# Create json array nullptr"));
        } else if (failAt == 1) {
            EXPECT_THAT(logs[0].second, ::testing::EndsWith("# Create json object nullptr"));
        }
    }
    EXPECT_TRUE(completed) << "the text was never completed";
}

}  // namespace
}  // namespace Test
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
