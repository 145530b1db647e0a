// Hostile requests handed in by the service to the read-back: rich-text JSON nested to cJSON's
// limit and far beyond, JSON of megabytes and of 100,000 elements, members of every JSON type,
// and lists of 100,000 pictures or strings. The read-back stays lenient: a text it cannot take
// leaves its field unset, logs why, and the conversion succeeds.
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "log_capture.h"
#include "robustness_support.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Robustness {
namespace {

const std::string kParseFailedLine =
    "[notification_request_conversion.cpp:98] ParseContentJson# Failed to parse json string.";
const std::string kNotObjectLine =
    "[notification_request_conversion.cpp:108] ParseContentJson# The element is not object.";
const std::string kNotArrayLine =
    "[notification_request_conversion.cpp:103] ParseContentJson# The json object is not array.";

// Brackets of one kind nested depth deep.
std::string NestedArrays(size_t depth) {
    return Repeat("[", depth) + Repeat("]", depth);
}

// An array holding one object whose members nest objects down to depth levels in all.
std::string NestedObjects(size_t depth) {
    return "[" + Repeat("{\"a\":", depth - 1) + "1" + Repeat("}", depth - 1) + "]";
}

// The rich-text lists of a record as one text per list: "<unset>", or each run's text and
// colour.
std::string Describe(const std::vector<std::shared_ptr<RichText>>& runs) {
    std::string text = "[";
    for (const auto& run : runs) {
        text += run == nullptr ? "null"
                               : "(" + Text(run->GetText()) + "|" + Text(run->GetTextColor()) + ")";
    }
    return text + "]";
}

// The three places where the read-back parses rich-text JSON.
struct Place {
    std::string name;
    std::string key;
    // The list read back there; "<unset>" when it was not set.
    std::function<std::string(const LiveView&)> list;
    // Whatever the read-back needs besides the key to look at it.
    std::function<void(RequestParts&)> prepare;
};

std::vector<Place> Places() {
    return {
        {"primary content", LiveViewConstant::PRIMARY_DATA_CONTENT,
         [](const LiveView& v) {
             const auto content = PrimaryOf(v)->GetContent();
             return content.empty() ? std::string("<unset>") : Describe(content);
         },
         [](RequestParts&) {}},
        {"external content", LiveViewConstant::EXTERNAL_DATA_CONTENT,
         [](const LiveView& v) {
             const auto content = LiveView::GetExternalData(v)->GetContent();
             return content.empty() ? std::string("<unset>") : Describe(content);
         },
         [](RequestParts&) {}},
        {"score description", LiveViewConstant::SCORE_LAYOUT_COMPETITION_DESC,
         [](const LiveView& v) {
             const auto content =
                 AsScoreLayout(LiveView::GetLayoutData(v))->GetCompetitionDescVector();
             return content.empty() ? std::string("<unset>") : Describe(content);
         },
         [](RequestParts& parts) {
             parts.extra->SetParam(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE,
                                   AAFwk::Integer::Box(LayoutData::SCORE));
         }},
    };
}

class HostileReadBackTest : public RobustnessTest {
protected:
    void SetUp() override {
        RobustnessTest::SetUp();
        Host::SetLogMode(Host::SinkMode::CAPTURE);
    }

    // The texts of the log lines written since the last call.
    static std::vector<std::string> Logs() { return LiveViewTest::TakeLogTexts(); }
};

TEST_F(HostileReadBackTest, RichTextNestedBeyondTheBoundIsRefusedAtEveryDepth) {
    struct Row {
        std::string name;
        std::string json;
        std::string expected;           // the list read back
        std::vector<std::string> logs;  // what the read-back logged
    };
    const std::vector<Row> rows = {
        {"arrays 64 deep", NestedArrays(64), "[(<unset>|<unset>)]", {kNotObjectLine}},
        {"arrays 65 deep", NestedArrays(65), "<unset>", {kParseFailedLine}},
        {"arrays 999 deep", NestedArrays(999), "<unset>", {kParseFailedLine}},
        {"arrays 1000 deep", NestedArrays(1000), "<unset>", {kParseFailedLine}},
        {"arrays 1001 deep", NestedArrays(1001), "<unset>", {kParseFailedLine}},
        {"arrays 100,000 deep", NestedArrays(100000), "<unset>", {kParseFailedLine}},
        {"arrays 1,000,000 deep, never closed",
         Repeat("[", 1000000),
         "<unset>",
         {kParseFailedLine}},
        {"objects 64 deep", NestedObjects(64), "[(<unset>|<unset>)]", {}},
        {"objects 65 deep", NestedObjects(65), "<unset>", {kParseFailedLine}},
        {"objects 1001 deep", NestedObjects(1001), "<unset>", {kParseFailedLine}},
        {"objects 100,000 deep", NestedObjects(100000), "<unset>", {kParseFailedLine}},
        {"an object 100,000 deep at the root",
         Repeat("{\"a\":", 100000) + "1" + Repeat("}", 100000),
         "<unset>",
         {kParseFailedLine}},
        {"closers first", Repeat("]", 100000) + NestedArrays(3), "<unset>", {kParseFailedLine}},
        {"brackets inside a text do not nest",
         "[{\"text\":\"" + Repeat("[{", 100000) + "\",\"textColor\":\"#FF000000\"}]",
         "[(" + Repeat("[{", 100000) + "|#FF000000)]",
         {}},
        {"an escaped quote does not end the text",
         "[{\"text\":\"a\\\"" + Repeat("[", 100000) + "\"}]",
         "[(a\"" + Repeat("[", 100000) + "|<unset>)]",
         {}},
    };
    for (const Place& place : Places()) {
        for (const Row& row : rows) {
            SCOPED_TRACE(place.name + ": " + row.name);
            RequestParts parts;
            place.prepare(parts);
            parts.extra->SetParam(place.key, AAFwk::String::Box(row.json));
            LiveView liveView;
            ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
                      Success());
            EXPECT_EQ(place.list(liveView), row.expected);
            EXPECT_EQ(Logs(), row.logs);
        }
    }
}

TEST_F(HostileReadBackTest, RichTextOfMegabytesAndOf100000ElementsIsReadWhole) {
    const std::string bigText = Repeat("x", kMegabytes);
    std::string manyRuns = "[";
    std::string manyExpected = "[";
    for (size_t i = 0; i < kManyRuns; ++i) {
        manyRuns += (i == 0 ? "" : ",") + std::string("{\"text\":\"") + std::to_string(i) + "\"}";
        manyExpected += "(" + std::to_string(i) + "|<unset>)";
    }
    manyRuns += "]";
    manyExpected += "]";
    struct Row {
        std::string name;
        std::string json;
        std::string expected;
    };
    const std::vector<Row> rows = {
        {"one text of megabytes", "[{\"text\":\"" + bigText + "\"}]",
         "[(" + bigText + "|<unset>)]"},
        {"100,000 runs", manyRuns, manyExpected},
        {"100,000 numbers", "[" + Repeat("5,", kManyRuns - 1) + "5]",
         "[" + Repeat("(<unset>|<unset>)", kManyRuns) + "]"},
        {"an object of 100,000 members",
         [] {
             std::string json = "[{";
             for (size_t i = 0; i < kManyRuns; ++i) {
                 json += "\"m" + std::to_string(i) + "\":" + std::to_string(i) + ",";
             }
             return json + "\"TEXT\":\"last\"}]";
         }(),
         "[(last|<unset>)]"},
    };
    for (const Place& place : Places()) {
        for (const Row& row : rows) {
            SCOPED_TRACE(place.name + ": " + row.name);
            RequestParts parts;
            place.prepare(parts);
            parts.extra->SetParam(place.key, AAFwk::String::Box(row.json));
            LiveView liveView;
            ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
                      Success());
            const std::string list = place.list(liveView);
            EXPECT_EQ(list.size(), row.expected.size());
            EXPECT_TRUE(list == row.expected);
        }
        Logs();  // each element that is not an object logs a warning; counted elsewhere
    }
}

// Members of every JSON type where a text is expected: only a JSON string is taken.
TEST_F(HostileReadBackTest, RichTextMembersOfEveryJsonTypeAreTakenOnlyAsStrings) {
    struct Row {
        std::string json;
        std::string expected;
        std::vector<std::string> logs;
    };
    const std::vector<Row> rows = {
        {"[{\"text\":5,\"textColor\":-2147483649}]", "[(<unset>|<unset>)]", {}},
        {"[{\"text\":1e400}]", "[(<unset>|<unset>)]", {}},
        {"[{\"text\":null,\"textColor\":true}]", "[(<unset>|<unset>)]", {}},
        {"[{\"text\":[\"a\"],\"textColor\":{\"b\":\"c\"}}]", "[(<unset>|<unset>)]", {}},
        {"[{\"TeXt\":\"a\",\"TEXTCOLOR\":\"#FF000000\"}]", "[(a|#FF000000)]", {}},
        {"[{\"text\":\"\\u0000a\"}]", "[(|<unset>)]", {}},
        {"[{\"text\":\"\xff\xfe\"}]", "[(\xff\xfe|<unset>)]", {}},
        {"[{\"text\":\"a\",\"text\":\"b\"}]", "[(a|<unset>)]", {}},
        {"{}", "<unset>", {kNotArrayLine}},
        {"\"[]\"", "<unset>", {kNotArrayLine}},
        {"[1,2", "<unset>", {kParseFailedLine}},
        {"", "<unset>", {kParseFailedLine}},
    };
    const Place place = Places().front();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.json);
        RequestParts parts;
        parts.extra->SetParam(place.key, AAFwk::String::Box(row.json));
        LiveView liveView;
        ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
                  Success());
        EXPECT_EQ(place.list(liveView), row.expected);
        EXPECT_EQ(Logs(), row.logs);
    }
}

TEST_F(HostileReadBackTest, ListsOf100000PicturesOrStringsAreReadBackWhole) {
    RequestParts parts;
    parts.extra->SetParam(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE,
                          AAFwk::Integer::Box(LayoutData::NAVIGATION));
    std::vector<std::shared_ptr<Media::PixelMap>> pictures;
    for (size_t i = 0; i < kManyRuns; ++i) {
        pictures.push_back(Picture(static_cast<int32_t>(i + 1), 1));
    }
    parts.pictures[LiveViewConstant::NAVIGATION_LAYOUT_ICONS] = pictures;
    sptr<AAFwk::Array> strings(
        new AAFwk::Array(static_cast<long>(kManyRuns), AAFwk::g_IID_IString));
    for (size_t i = 0; i < kManyRuns; ++i) {
        // Every third element is left null: it reads back as the empty string.
        if (i % 3 != 0) {
            ASSERT_EQ(strings->Set(static_cast<long>(i), AAFwk::String::Box(std::to_string(i))),
                      AAFwk::ERR_OK);
        }
    }
    parts.extra->SetParam(LiveViewConstant::NAVIGATION_LAYOUT_ICONS_RES, strings);

    LiveView liveView;
    ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
              Success());
    const auto layout = AsNavigationLayout(LiveView::GetLayoutData(liveView));
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layout->GetNavigationIcons(), pictures);
    std::vector<std::string> expected;
    for (size_t i = 0; i < kManyRuns; ++i) {
        expected.push_back(i % 3 == 0 ? "" : std::to_string(i));
    }
    EXPECT_EQ(layout->GetNavigationIconsStr(), expected);
}

// 100,000 keys besides the catalogue's: only the catalogue's are read.
TEST_F(HostileReadBackTest, AnExtraInfoOf100000UnknownKeysIsIgnored) {
    RequestParts parts;
    for (size_t i = 0; i < kManyRuns; ++i) {
        parts.extra->SetParam("PrimaryData.title" + std::to_string(i),
                              AAFwk::String::Box("not the title"));
    }
    parts.extra->SetParam(LiveViewConstant::PRIMARY_DATA_TITLE, AAFwk::String::Box("the title"));
    LiveView liveView;
    ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
              Success());
    EXPECT_EQ(Text(PrimaryOf(liveView)->GetTitle()), "the title");
}

}  // namespace
}  // namespace Robustness
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
