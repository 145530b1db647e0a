// Members that no reader knows at their place: each is a warning naming its path from the top of
// the file, its place and, when a known name is close, that name; strict loading refuses the
// first instead. Names that are data (immersive parameters) and the size members of a file
// picture are not unknown.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using LiveViewJson::InputError;
using LiveViewJson::InputWarning;
using Tavi::Wisp::LiveView::LiveView;

TEST(FrontEndUnknownMemberTest, EachIsAWarningWithItsPathPlaceAndClosestName) {
    ScratchDir dir;
    const std::string node = ExamplePath("images/node.png");
    const std::string file = dir.Write("lv.json", R"({"id": 1, "Event": "E",
 "timer": {"tiem": 5},
 "liveViewData": {"zzz": 1, "primary": {"keeptime": 30, "immersiveParameters": {"any": "x"},
   "layoutData": {"layoutType": 4, "titel": "T", "firstTitle": "F",
                  "descPic": {"file": ")" + node + R"(", "width": 4}}},
   "capsule": {"type": 1, "conent": "c"}}})");
    LiveView liveView;
    std::vector<InputWarning> warnings;
    InputError error;
    ASSERT_TRUE(LiveViewJson::LoadLiveView(file, {}, liveView, warnings, error))
        << error.ToString();
    std::vector<std::string> texts;
    for (const auto& warning : warnings) {
        texts.push_back(warning.ToString());
    }
    const std::string did = ": unknown member (did you mean ";
    EXPECT_EQ(texts,
              (std::vector<std::string>{
                  file + ":1:11: Event" + did + "\"event\"?)",
                  file + ":2:12: timer.tiem" + did + "\"time\"?)",
                  file + ":3:19: liveViewData.zzz: unknown member",
                  file + ":3:41: liveViewData.primary.keeptime" + did + "\"keepTime\"?)",
                  file + ":4:36: liveViewData.primary.layoutData.titel" + did + "\"title\"?)",
                  file + ":4:50: liveViewData.primary.layoutData.firstTitle: unknown member",
                  file + ":6:27: liveViewData.capsule.conent" + did + "\"content\"?)",
              }));
    EXPECT_EQ(warnings[0].suggestion, "event");
    EXPECT_EQ(*liveView.GetId(), 1);

    LiveView strict;
    EXPECT_FALSE(LiveViewJson::LoadLiveView(file, {true}, strict, warnings, error));
    EXPECT_EQ(error.ToString(), texts[0]);
}

}  // namespace
}  // namespace LiveViewToolsTest
