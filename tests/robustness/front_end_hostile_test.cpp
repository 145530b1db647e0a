// Hostile JSON given to the command line's front end, followed all the way through the client:
// nesting far beyond cJSON's limit, texts of megabytes, lists of 100,000 runs, pictures that
// would report gigabytes, and numbers beyond every field's range. Built only with the tools.
#ifdef LV_WITH_JSON_FRONT_END

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "json_document.h"
#include "live_view_reader.h"
#include "robustness_support.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Robustness {
namespace {

using FrontEndHostileTest = RobustnessTest;

// A start record in JSON that passes every check; the parts can be replaced.
struct JsonRecord {
    std::string id = "1";
    std::string sequence;  // absent when empty
    std::string timer;     // absent when empty
    std::string title = "\"Your order\"";
    std::string content = "[{\"text\":\"On the way\"}]";
    std::string capsule;  // absent when empty

    std::string Text() const {
        std::string json = "{\"id\":" + id + ",\"event\":\"DELIVERY\"";
        if (!sequence.empty()) {
            json += ",\"sequence\":" + sequence;
        }
        if (!timer.empty()) {
            json += ",\"timer\":" + timer;
        }
        json += ",\"liveViewData\":{\"primary\":{\"title\":" + title + ",\"content\":" + content +
                ",\"clickAction\":{\"target\":\"com.example.robust/"
                "Page\"},\"layoutData\":{\"layoutType\":4,"
                "\"title\":\"Pickup\",\"content\":\"A-1\",\"descPic\":\"pic\"}}";
        if (!capsule.empty()) {
            json += ",\"capsule\":" + capsule;
        }
        return json + "}}";
    }
};

// What the front end and then the client's start answered: the front end's refusal as code -1
// and its one-line reason, or the client's answer.
Answer StartFromJson(LiveViewClient& client, const std::string& json) {
    LiveViewJson::JsonDocument document;
    LiveViewJson::InputError error;
    if (!LiveViewJson::ParseJson(json, "input.json", document, error)) {
        return {-1, error.ToString()};
    }
    LiveViewJson::ReadContext context{"input.json", "", {}};
    LiveView liveView;
    if (!LiveViewJson::ReadLiveView(document.Root(), context, liveView)) {
        return {-1, context.error.ToString()};
    }
    LiveViewClient::LiveViewResult result;
    return Of(client.StartLiveView(liveView, result));
}

std::string Nested(size_t depth) {
    return Repeat("[", depth) + Repeat("]", depth);
}

TEST_F(FrontEndHostileTest, InputNestedBeyondTheBoundIsRefusedWhereTheBoundIsCrossed) {
    const std::string tooDeep = "input.json:1:65: JSON nested deeper than 64 levels";
    struct Row {
        std::string name;
        std::string json;
        Answer expected;
    };
    JsonRecord deepTitle;
    deepTitle.title = Nested(100000);
    const std::string deepTitleText = deepTitle.Text();
    // The title sits three objects deep: its 62nd bracket opens level 65 (columns count from 1).
    const std::string deepTitleAt =
        "input.json:1:" + std::to_string(deepTitleText.find('[') + 61 + 1) +
        ": JSON nested deeper than 64 levels";
    const std::vector<Row> rows = {
        {"arrays 65 deep", Nested(65), {-1, tooDeep}},
        {"arrays 1000 deep", Nested(1000), {-1, tooDeep}},
        {"arrays 1001 deep", Nested(1001), {-1, tooDeep}},
        {"arrays 100,000 deep, never closed", Repeat("[", 100000), {-1, tooDeep}},
        {"objects 100,000 deep",
         Repeat("{\"a\":", 100000) + "1" + Repeat("}", 100000),
         {-1, "input.json:1:321: JSON nested deeper than 64 levels"}},
        {"a title nested 100,000 deep", deepTitleText, {-1, deepTitleAt}},
        {"brackets inside a text do not nest",
         [] {
             JsonRecord record;
             record.title = "\"" + Repeat("[", 100000) + "\"";
             return record.Text();
         }(),
         Invalid("Parameter error. The type of primary.title mustbe string [or the parameter "
                 "length exceeds the "
                 "limit].")},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(StartFromJson(client_, row.json), row.expected);
    }
    EXPECT_TRUE(Host::Published().empty());
}

TEST_F(FrontEndHostileTest, HostileSizesGetTheLibrarysAnswer) {
    struct Row {
        std::string name;
        JsonRecord record;
        Answer expected;
    };
    std::vector<Row> rows;
    {
        JsonRecord record;
        record.title = "\"" + Repeat("x", kMegabytes) + "\"";
        rows.push_back({"a megabyte title", record,
                        Invalid("Parameter error. The type of primary.title mustbe string [or the "
                                "parameter length "
                                "exceeds the limit].")});
    }
    {
        JsonRecord record;
        record.content = "[" + Repeat("{\"text\":\"a\"},", kManyRuns - 1) + "{\"text\":\"a\"}]";
        rows.push_back(
            {"100,000 content runs", record,
             Invalid("Parameter error. The type of primary.content mustbe Array<RichText> [or the "
                     "parameter length exceeds the limit].")});
    }
    {
        JsonRecord record;
        record.capsule =
            "{\"status\":1,\"type\":1,\"title\":\"t\",\"backgroundColor\":\"#FF00AA00\","
            "\"icon\":{\"width\":46340,\"height\":46340,\"format\":\"ALPHA_8\"}}";
        rows.push_back(
            {"a capsule icon of two gigabytes", record,
             Invalid(
                 "Parameter error. The type of capsule.icon mustbe string | image.PixelMap [or the "
                 "parameter length exceeds the limit].")});
    }
    {
        JsonRecord record;
        record.capsule =
            "{\"status\":1,\"type\":1,\"title\":\"t\",\"backgroundColor\":\"#FF00AA00\","
            "\"icon\":{\"width\":46340,\"height\":46340}}";
        rows.push_back({"a capsule icon of eight gigabytes", record,
                        Invalid("Parameter error. The type of capsule.icon mustbe image.PixelMap "
                                "[or the parameter "
                                "range is incorrect].")});
    }
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(StartFromJson(client_, row.record.Text()), row.expected);
    }
    EXPECT_TRUE(Host::Published().empty());
}

TEST_F(FrontEndHostileTest, NumbersBeyondTheirFieldsRange) {
    const std::string idRange =
        "Parameter error. The type of liveView.id mustbe number [or the parameter range is "
        "incorrect].";
    const std::string timeRange =
        "Parameter error. The type of liveView.timer.time mustbe number [or the parameter range is "
        "incorrect].";
    struct Row {
        std::string name;
        JsonRecord record;
        Answer expected;
    };
    std::vector<Row> rows;
    auto add = [&rows](const std::string& name, void (*change)(JsonRecord&),
                       const Answer& expected) {
        JsonRecord record;
        change(record);
        rows.push_back({name, record, expected});
    };
    add(
        "id 2^31", [](JsonRecord& r) { r.id = "2147483648"; }, Invalid(idRange));
    add(
        "id -2^31 - 1", [](JsonRecord& r) { r.id = "-2147483649"; }, Invalid(idRange));
    add(
        "id 1e400", [](JsonRecord& r) { r.id = "1e400"; }, Invalid(idRange));
    add(
        "id -1e400", [](JsonRecord& r) { r.id = "-1e400"; }, Invalid(idRange));
    add(
        "id 0.5", [](JsonRecord& r) { r.id = "0.5"; }, Invalid(idRange));
    add(
        "id INT_MIN", [](JsonRecord& r) { r.id = "-2147483648"; }, Success());
    add(
        "sequence INT_MIN", [](JsonRecord& r) { r.sequence = "-2147483648"; },
        Invalid("Parameter error. The type of liveView.sequence mustbe number [or the parameter "
                "range is incorrect]."));
    add(
        "timer time LONG_MIN", [](JsonRecord& r) { r.timer = "{\"time\":-9223372036854775808}"; },
        Invalid("Parameter error. The type of liveView.timer.time mustbe larger than or equal 0"));
    add(
        "timer time 2^63", [](JsonRecord& r) { r.timer = "{\"time\":9223372036854775808}"; },
        Invalid(timeRange));
    add(
        "timer time 1e308", [](JsonRecord& r) { r.timer = "{\"time\":1e308}"; },
        Invalid(timeRange));
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(StartFromJson(client_, row.record.Text()), row.expected);
    }
    // Only the record with id INT_MIN got through.
    const auto held = Host::HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_EQ(held.front().id, -2147483647 - 1);
}

}  // namespace
}  // namespace Robustness
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LV_WITH_JSON_FRONT_END
