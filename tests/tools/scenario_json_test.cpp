// Scenarios and the live views they name, as the command reads them: a value that makes no sense
// is refused naming the scenario file, the step and its place, and so is a picture file missing
// behind a step; members that no reader knows at their place are warned about with their path,
// place and closest known name (names that are data are not unknown), or refused when strict.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scenario.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using LiveViewJson::InputError;

TEST(ScenarioJsonTest, SenselessValuesAndMissingPicturesNameTheStep) {
    ScratchDir dir;
    const std::string liveView = R"({"id": 1, "liveViewData": {"capsule": {"icon":
        {"file": "missing.png"}}}})";
    const std::string liveViewFile = dir.Write("lv.json", liveView);
    const std::string missing =
        ": capsule.icon: picture file " + dir.Path("missing.png") + ": no such file";
    const struct {
        std::string step, place, reason;  // place: in the scenario, after the first step
    } rows[] = {
        {R"({"enabled": 5})", "1:24",
         "Parameter error. The type of steps[1].enabled mustbe object."},
        {R"({"start": {"file": "lv.json"}})", "1:24",
         "steps[1].start: " + liveViewFile + ":2:9" + missing},
        {R"({"start": )" + liveView + "}", "2:9", "steps[1].start" + missing},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.step);
        const std::string scenario =
            dir.Write("s.json", R"({"steps": [{"get": 1}, )" + row.step + "]}");
        LiveViewCli::Scenario loaded;
        InputError error;
        EXPECT_FALSE(LiveViewCli::LoadScenario(scenario, loaded, error));
        EXPECT_EQ(error.ToString(), scenario + ":" + row.place + ": step #2: " + row.reason);
    }
}

TEST(ScenarioJsonTest, UnknownMembersOfEveryFileAreWarnedAboutOrRefused) {
    ScratchDir dir;
    const std::string node = ExamplePath("images/node.png");
    const std::string liveView = dir.Write("lv.json", R"({"id": 1, "Event": "E",
 "liveViewData": {"zzz": 1, "primary": {"immersiveParameters": {"any": "x"},
   "layoutData": {"layoutType": 4, "firstTitle": "F",
                  "descPic": {"file": ")" + node + R"(", "width": 4}}},
   "capsule": {"type": 1}}})");
    const std::string text = R"({"app": {"bundel": "com.example"},
  "steps": [{"start": {"file": "lv.json"}},
            {"update": {"id": 1, "liveViewData": {"primary": {"keeptime": 5}}}},
            {"enabled": {"now": true}}]})";
    const std::string scenario = dir.Write("s.json", text);
    LiveViewCli::Scenario loaded;
    std::vector<LiveViewJson::InputWarning> warnings;
    InputError error;
    ASSERT_TRUE(LiveViewCli::LoadScenario(scenario, {}, loaded, warnings, error))
        << error.ToString();
    std::vector<std::string> texts;
    for (const auto& warning : warnings) {
        texts.push_back(warning.ToString());
    }
    const std::string did = ": unknown member (did you mean ";
    EXPECT_EQ(texts,
              (std::vector<std::string>{
                  liveView + ":1:11: Event" + did + "\"event\"?)",
                  liveView + ":2:19: liveViewData.zzz: unknown member",
                  liveView + ":3:36: liveViewData.primary.layoutData.firstTitle: unknown member",
                  scenario + ":1:10: app.bundel" + did + "\"bundle\"?)",
                  scenario + ":3:63: steps[1].update.liveViewData.primary.keeptime" + did +
                      "\"keepTime\"?)",
                  scenario + ":4:26: steps[2].enabled.now: unknown member",
              }));

    LiveViewCli::Scenario strict;
    EXPECT_FALSE(LiveViewCli::LoadScenario(scenario, {true}, strict, warnings, error));
    EXPECT_EQ(error.ToString(), scenario + ":2:13: step #1: steps[0].start: " + texts[0]);
}

}  // namespace
}  // namespace LiveViewToolsTest
