// Hostile requests handed in by the service to the read-back: rich-text JSON nested to the
// parser's limit and far beyond, JSON of megabytes and of 100,000 elements, and members of every
// JSON type. The read-back stays lenient: what it cannot take leaves its field unset, logs why,
// and the conversion succeeds.
#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <vector>

#include "log_capture.h"
#include "robustness_support.h"

namespace Tavi::Wisp::LiveView::Robustness {
namespace {

const std::string kParseFailed =
    "[notification_request_conversion.cpp:98] ParseContentJson# Failed to parse json string.\n";
const std::string kNotObject =
    "[notification_request_conversion.cpp:108] ParseContentJson# The element is not object.\n";
const std::string kNotArray =
    "[notification_request_conversion.cpp:103] ParseContentJson# The json object is not array.\n";

// A rich-text list as one text: "<unset>", or each run's text and colour.
std::string Describe(const std::vector<std::shared_ptr<RichText>>& runs) {
    std::string text = runs.empty() ? "<unset>" : "";
    for (const auto& run : runs) {
        text += "(" + Text(run->GetText()) + "|" + Text(run->GetTextColor()) + ")";
    }
    return text;
}

// Two of the places where the read-back parses rich-text JSON: the key and the list read back.
struct Place {
    std::string key;
    std::function<std::string(const LiveView&)> list;
};

const std::vector<Place> kPlaces = {
    {LiveViewConstant::PRIMARY_DATA_CONTENT,
     [](const LiveView& v) { return Describe(PrimaryOf(v)->GetContent()); }},
    {LiveViewConstant::EXTERNAL_DATA_CONTENT,
     [](const LiveView& v) { return Describe(LiveView::GetExternalData(v)->GetContent()); }},
};

class HostileReadBackTest : public RobustnessTest {
protected:
    void SetUp() override {
        RobustnessTest::SetUp();
        Host::SetLogMode(Host::SinkMode::CAPTURE);
    }

    static LiveView ReadBack(RequestParts& parts) {
        LiveView liveView;
        ExpectAnswer(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
                     kOk);
        return liveView;
    }
};

std::string Arrays(size_t depth) {
    return Repeat("[", depth) + Repeat("]", depth);
}
// An array holding one object whose members nest objects down to depth levels in all.
std::string Objects(size_t depth) {
    return "[" + Repeat("{\"a\":", depth - 1) + "1" + Repeat("}", depth - 1) + "]";
}

TEST_F(HostileReadBackTest, RichTextJsonAtEveryDepthSizeAndType) {
    const std::string big = Repeat("x", kMegabytes);
    const std::string many = "[" + Repeat("{\"text\":\"a\"},", kManyRuns - 1) + "{\"text\":\"b\"}]";
    const std::string brackets = Repeat("[{", 100000);
    const struct {
        std::string name, json, expected, logs;  // logs: the lines logged, each ending in \n
    } rows[] = {
        {"arrays 64 deep", Arrays(64), "(<unset>|<unset>)", kNotObject},
        {"arrays 65 deep", Arrays(65), "<unset>", kParseFailed},
        {"a million openers", Repeat("[", 1000000), "<unset>", kParseFailed},
        {"objects 64 deep", Objects(64), "(<unset>|<unset>)", ""},
        {"objects 65 deep", Objects(65), "<unset>", kParseFailed},
        {"brackets in a text", "[{\"text\":\"a\\\"" + brackets + "\"}]",
         "(a\"" + brackets + "|<unset>)", ""},
        {"a megabyte text", "[{\"text\":\"" + big + "\"}]", "(" + big + "|<unset>)", ""},
        {"100,000 runs", many, Repeat("(a|<unset>)", kManyRuns - 1) + "(b|<unset>)", ""},
        {"100,000 numbers", "[" + Repeat("5,", kManyRuns - 1) + "5]",
         Repeat("(<unset>|<unset>)", kManyRuns), Repeat(kNotObject, kManyRuns)},
        {"names in any case", "[{\"TeXt\":\"a\",\"TEXTCOLOR\":\"#FF000000\"}]", "(a|#FF000000)",
         ""},
        {"bytes not UTF-8", "[{\"text\":\"\xff\xfe\"}]", "(\xff\xfe|<unset>)", ""},
        {"a repeated member", "[{\"text\":\"a\",\"text\":\"b\"}]", "(a|<unset>)", ""},
        {"an object", "{}", "<unset>", kNotArray},
        {"empty", "", "<unset>", kParseFailed},
    };
    for (const Place& place : kPlaces) {
        for (const auto& row : rows) {
            SCOPED_TRACE(place.key + ": " + row.name);
            RequestParts parts;
            parts.extra->SetParam(place.key, AAFwk::String::Box(row.json));
            ExpectAnswer(place.list(ReadBack(parts)), row.expected);
            std::string logs;
            for (const std::string& line : LiveViewTest::TakeLogTexts()) {
                logs += line + "\n";
            }
            ExpectAnswer(logs, row.logs);
        }
    }
}

// The line type is read back as the indicator type, at its extreme too.
TEST_F(HostileReadBackTest, TheLineTypeIsReadBackAsTheIndicatorType) {
    RequestParts parts;
    parts.extra->SetParam(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE,
                          AAFwk::Integer::Box(LayoutData::PROGRESS));
    parts.extra->SetParam(LiveViewConstant::PROGRESS_LAYOUT_LINE_TYPE,
                          AAFwk::Integer::Box(INT_MAX));
    const auto layout = AsProgressLayout(LiveView::GetLayoutData(ReadBack(parts)));
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(Text(layout->GetIndicatorType()), std::to_string(INT_MAX));
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::Robustness
