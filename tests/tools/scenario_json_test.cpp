// Scenarios as the command reads them: a value that makes no sense is refused naming the
// scenario file, the step and its place, and so is a picture file missing behind a step; unknown
// members of the scenario and of the live views it names are warned about, or refused when
// strict.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "scenario.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using LiveViewJson::InputError;
using LiveViewJson::InputWarning;

// "line:column" of the first needle in text.
std::string PlaceOf(const std::string& text, const std::string& needle) {
    const size_t at = text.find(needle);
    const size_t lineStart = text.rfind('\n', at);
    const size_t line = static_cast<size_t>(std::count(text.begin(), text.begin() + at, '\n')) + 1;
    return std::to_string(line) + ":" +
           std::to_string(lineStart == std::string::npos ? at + 1 : at - lineStart);
}

TEST(ScenarioJsonTest, SenselessValuesAndMissingPicturesNameTheStep) {
    ScratchDir dir;
    const std::string liveView = R"({"id": 1, "liveViewData": {"capsule": {"icon":
        {"file": "missing.png"}}}})";
    const std::string liveViewFile = dir.Write("lv.json", liveView);
    const std::string missing = dir.Path("missing.png");
    const std::string inlineStart = R"({"start": )" + liveView + "}";
    const struct {
        std::string step;
        std::string place;  // in the scenario, after the first step
        std::string reason;
    } rows[] = {
        {R"({"enabled": 5})", "1:24",
         "step #2: Parameter error. The type of steps[1].enabled mustbe object."},
        {R"({"enabled": null})", "1:24", "step #2: steps[1].enabled: an object ({}) required"},
        {R"({"advanceClock": -1})", "1:24",
         "step #2: steps[1].advanceClock: milliseconds of at least 0 required, not -1"},
        {R"({"setRateLimit": -5})", "1:24",
         "step #2: steps[1].setRateLimit: a limit of at least 0 required, not -5"},
        {R"({"failNext": {"call": "publish", "error": 3, "times": -1}})", "1:24",
         "step #2: steps[1].failNext.times: a count of at least 1 required, not -1"},
        {R"({"failNext": {"call": "publish", "error": 3, "times": 0}})", "1:24",
         "step #2: steps[1].failNext.times: a count of at least 1 required, not 0"},
        {R"({"start": {"file": "lv.json"}})", "1:24",
         "step #2: steps[1].start: " + liveViewFile + ":" + PlaceOf(liveView, "{\"file\"") +
             ": capsule.icon: picture file " + missing + ": no such file"},
        {inlineStart, "2:9",
         "step #2: steps[1].start: capsule.icon: picture file " + missing + ": no such file"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.step);
        const std::string scenario =
            dir.Write("s.json", R"({"steps": [{"get": 1}, )" + row.step + "]}");
        LiveViewCli::Scenario loaded;
        InputError error;
        EXPECT_FALSE(LiveViewCli::LoadScenario(scenario, loaded, error));
        EXPECT_EQ(error.ToString(), scenario + ":" + row.place + ": " + row.reason);
    }
}

TEST(ScenarioJsonTest, UnknownMembersOfEveryFileAreWarnedAboutOrRefused) {
    ScratchDir dir;
    const std::string liveView = R"({"id": 1, "Event": "E"})";
    const std::string liveViewFile = dir.Write("lv.json", liveView);
    const std::string text = R"({"app": {"bundel": "com.example"},
  "steps": [{"start": {"file": "lv.json"}},
            {"update": {"id": 1, "liveViewData": {"primary": {"keeptime": 5}}}},
            {"enabled": {"now": true}}]})";
    const std::string scenario = dir.Write("s.json", text);

    LiveViewCli::Scenario loaded;
    std::vector<InputWarning> warnings;
    InputError error;
    ASSERT_TRUE(LiveViewCli::LoadScenario(scenario, {}, loaded, warnings, error))
        << error.ToString();
    std::vector<std::string> texts;
    for (const auto& warning : warnings) {
        texts.push_back(warning.ToString());
    }
    EXPECT_EQ(
        texts,
        (std::vector<std::string>{
            liveViewFile + ":1:11: Event: unknown member (did you mean \"event\"?)",
            scenario + ":1:10: app.bundel: unknown member (did you mean \"bundle\"?)",
            scenario + ":" + PlaceOf(text, "\"keeptime\"") +
                ": steps[1].update.liveViewData.primary.keeptime: unknown member (did you "
                "mean \"keepTime\"?)",
            scenario + ":" + PlaceOf(text, "\"now\"") + ": steps[2].enabled.now: unknown member",
        }));

    LiveViewCli::Scenario strict;
    EXPECT_FALSE(LiveViewCli::LoadScenario(scenario, {true}, strict, warnings, error));
    EXPECT_EQ(error.ToString(), scenario + ":2:13: step #1: steps[0].start: " + liveViewFile +
                                    ":1:11: Event: unknown member (did you mean \"event\"?)");
}

}  // namespace
}  // namespace LiveViewToolsTest
