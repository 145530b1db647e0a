// A member of the wrong JSON type, anywhere in a live view, reaches validation as code 401 with
// a message in the library's pattern that names the member's path.
#include <gtest/gtest.h>

#include <string>

#include "live_view_param_validate.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using Tavi::Wisp::LiveView::BaseRsp;
using Tavi::Wisp::LiveView::LiveView;
using Tavi::Wisp::LiveView::LiveViewParamValidate;

// The checks in the client's order for a start.
BaseRsp StartVerdict(const LiveView& liveView) {
    BaseRsp rsp = LiveViewParamValidate::CommonDataParamValidate(liveView);
    if (rsp.Succeed()) {
        rsp = LiveViewParamValidate::TimerDataParamValidate(liveView);
    }
    if (rsp.Succeed()) {
        rsp = LiveViewParamValidate::ValidateStartLiveViewParam(liveView, LiveView::START);
    }
    return rsp;
}

// An example live view with the member at path replaced by value.
BaseRsp VerdictOfPatched(const std::string& example, const std::string& path,
                         const std::string& value) {
    Tree tree = ParseTree(ReadText(ExamplePath("liveviews/" + example)));
    Patch(tree.get(), path, value);
    char* text = cJSON_PrintUnformatted(tree.get());
    LiveView liveView;
    const bool usable = ReadFromText(text, liveView);
    cJSON_free(text);
    EXPECT_TRUE(usable);
    return StartVerdict(liveView);
}

std::string Message(const std::string& pathAndType) {
    return "Parameter error. The type of " + pathAndType + ".";
}

struct Row {
    const char* example;
    std::string member;  // dotted path in the file
    const char* value;   // JSON text of the wrong value
    std::string message;
};

void ExpectRows(const std::vector<Row>& rows) {
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.example) + " " + row.member + " = " + row.value);
        const BaseRsp rsp = VerdictOfPatched(row.example, row.member, row.value);
        EXPECT_EQ(rsp.GetErrAsInt32(), 401);
        EXPECT_EQ(rsp.GetInfo(), row.message);
    }
}

const char* const PICKUP = "pickup-layout.json";
const char* const PROGRESS = "progress-layout.json";
const char* const FLIGHT = "flight-layout.json";
const char* const SCORE = "score-layout.json";
const char* const NAVIGATION = "navigation-layout.json";
const char* const WORKOUT = "timer-capsule.json";
const char* const PRIMARY = "liveViewData.primary.";
const char* const LAYOUT = "liveViewData.primary.layoutData.";

std::string In(const char* prefix, const std::string& member) {
    return prefix + member;
}

TEST(FrontEndTypeErrorTest, RootTimerAndSectionMembers) {
    ExpectRows({
        {PICKUP, "id", "\"101\"", Message("liveView.id mustbe number")},
        {PICKUP, "event", "5", Message("liveView.event mustbe string")},
        {PICKUP, "sequence", "\"1\"", Message("liveView.sequence mustbe number")},
        {PICKUP, "isMute", "\"no\"", Message("liveView.isMute mustbe boolean")},
        {PICKUP, "timer", "[]", Message("liveView.timer mustbe LiveViewTimer")},
        {WORKOUT, "timer.time", "\"0\"", Message("liveView.timer.time mustbe number")},
        {WORKOUT, "timer.isCountdown", "0", Message("liveView.timer.isCountdown mustbe boolean")},
        {WORKOUT, "timer.isPaused", "{}", Message("liveView.timer.isPaused mustbe boolean")},
        {PICKUP, "liveViewData", "\"x\"", Message("liveView.liveViewData mustbe LiveViewData")},
        {PICKUP, "liveViewData.primary", "3", Message("liveViewData.primary mustbe PrimaryData")},
        {PICKUP, "liveViewData.capsule", "true",
         Message("liveViewData.capsule mustbe CapsuleData")},
        {SCORE, "liveViewData.external", "[]",
         Message("liveViewData.external mustbe ExternalData")},
    });
}

TEST(FrontEndTypeErrorTest, PrimaryAndExtensionMembers) {
    const std::string extension = In(PRIMARY, "extensionData.");
    ExpectRows({
        {PICKUP, In(PRIMARY, "title"), "1", Message("primary.title mustbe string")},
        {PICKUP, In(PRIMARY, "content"), "\"x\"",
         Message("primary.content mustbe Array<RichText>")},
        {PICKUP, In(PRIMARY, "content.1"), "\"x\"", Message("primary.content[1] mustbe RichText")},
        {PICKUP, In(PRIMARY, "content.0.text"), "7",
         Message("primary.content[0].text mustbe string")},
        {PICKUP, In(PRIMARY, "content.0.textColor"), "false",
         Message("primary.content[0].textColor mustbe string")},
        {PICKUP, In(PRIMARY, "keepTime"), "\"60\"", Message("primary.keepTime mustbe number")},
        {PICKUP, In(PRIMARY, "clickAction"), "\"page\"",
         Message("primary.clickAction mustbe WantAgent")},
        {PICKUP, In(PRIMARY, "clickAction.target"), "1",
         Message("primary.clickAction.target mustbe string")},
        {PICKUP, In(PRIMARY, "immersivePic"), "5",
         Message("primary.immersivePic mustbe string | image.PixelMap")},
        {PICKUP, In(PRIMARY, "immersiveAbilityName"), "{}",
         Message("primary.immersiveAbilityName mustbe string")},
        {PICKUP, In(PRIMARY, "immersiveParameters"), "[]",
         Message("primary.immersiveParameters mustbe Record<string, string>")},
        {WORKOUT, In(PRIMARY, "immersiveParameters.mode"), "[1]",
         Message("primary.immersiveParameters.mode mustbe string | number | boolean")},
        {PICKUP, In(PRIMARY, "extensionData"), "1",
         Message("primary.extensionData mustbe ExtensionData")},
        {PICKUP, In(PRIMARY, "layoutData"), "[]", Message("primary.layoutData mustbe LayoutData")},
        {FLIGHT, (extension + "type"), "\"1\"", Message("extensionData.type mustbe number")},
        {FLIGHT, (extension + "text"), "1", Message("extensionData.text mustbe string")},
        {FLIGHT, (extension + "pic"), "true",
         Message("extensionData.pic mustbe string | image.PixelMap")},
        {FLIGHT, (extension + "clickAction"), "[]",
         Message("extensionData.clickAction mustbe WantAgent")},
        {FLIGHT, (extension + "isCoverClickAction"), "\"yes\"",
         Message("extensionData.isCoverClickAction mustbe boolean")},
    });
}

TEST(FrontEndTypeErrorTest, LayoutMembersOfEveryKind) {
    const std::vector<std::pair<const char*, const char*>> stringMembers = {
        {PICKUP, "title"},          {PICKUP, "content"},           {PICKUP, "underlineColor"},
        {PROGRESS, "color"},        {PROGRESS, "backgroundColor"}, {FLIGHT, "firstTitle"},
        {FLIGHT, "firstContent"},   {FLIGHT, "lastTitle"},         {FLIGHT, "lastContent"},
        {FLIGHT, "additionalText"}, {SCORE, "hostName"},           {SCORE, "hostScore"},
        {SCORE, "guestName"},       {SCORE, "guestScore"},         {SCORE, "competitionDesc"},
        {SCORE, "competitionTime"},
    };
    std::vector<Row> rows;
    for (const auto& [example, member] : stringMembers) {
        rows.push_back({example, In(LAYOUT, member), "12",
                        Message(std::string("layoutData.") + member + " mustbe string")});
    }
    ExpectRows(rows);
}

TEST(FrontEndTypeErrorTest, LayoutNumbersFlagsPicturesAndLists) {
    const auto path = [](const char* member) { return In(LAYOUT, member); };
    const std::string picture = " mustbe string | image.PixelMap";
    ExpectRows({
        {PICKUP, path("layoutType"), "\"4\"", Message("layoutData.layoutType mustbe number")},
        {PROGRESS, path("progress"), "\"34\"", Message("layoutData.progress mustbe number")},
        {PROGRESS, path("indicatorType"), "true",
         Message("layoutData.indicatorType mustbe number")},
        {PROGRESS, path("lineType"), "[]", Message("layoutData.lineType mustbe number")},
        {FLIGHT, path("isHorizontalLineDisplayed"), "1",
         Message("layoutData.isHorizontalLineDisplayed mustbe boolean")},
        {SCORE, path("isHorizontalLineDisplayed"), "\"no\"",
         Message("layoutData.isHorizontalLineDisplayed mustbe boolean")},
        {PICKUP, path("descPic"), "5", Message("layoutData.descPic" + picture)},
        {PROGRESS, path("indicatorIcon"), "[]", Message("layoutData.indicatorIcon" + picture)},
        {FLIGHT, path("spaceIcon"), "false", Message("layoutData.spaceIcon" + picture)},
        {SCORE, path("hostIcon"), "1", Message("layoutData.hostIcon" + picture)},
        {SCORE, path("guestIcon"), "1", Message("layoutData.guestIcon" + picture)},
        {NAVIGATION, path("currentNavigationIcon"), "1",
         Message("layoutData.currentNavigationIcon" + picture)},
        {PROGRESS, path("nodeIcons"), "\"x\"",
         Message("layoutData.nodeIcons mustbe Array<string | image.PixelMap>")},
        {PROGRESS, path("nodeIcons.1"), "5", Message("layoutData.nodeIcons[1]" + picture)},
        {NAVIGATION, path("navigationIcons"), "{}",
         Message("layoutData.navigationIcons mustbe Array<string | image.PixelMap>")},
        {NAVIGATION, path("navigationIcons.2"), "false",
         Message("layoutData.navigationIcons[2]" + picture)},
        {SCORE, path("competitionDescVector"), "{}",
         Message("layoutData.competitionDescVector mustbe Array<RichText>")},
        {SCORE, path("competitionDescVector.0.text"), "1",
         Message("layoutData.competitionDescVector[0].text mustbe string")},
    });
}

TEST(FrontEndTypeErrorTest, PictureDescriptions) {
    const std::string descPic = In(LAYOUT, "descPic");
    ExpectRows({
        {PICKUP, descPic, R"({"width": "48", "height": 48})",
         Message("layoutData.descPic.width mustbe number")},
        {PICKUP, descPic, R"({"width": 4, "height": 4, "format": "RGB_888"})",
         Message("layoutData.descPic.format mustbe ALPHA_8 | RGB_565 | RGBA_8888 | ARGB_8888 | "
                 "BGRA_8888")},
        {PICKUP, descPic, R"({"width": 0, "height": 4})",
         "Parameter error. The type of layoutData.descPic mustbe image.PixelMap [or the "
         "parameter range is incorrect]."},
        {PICKUP, descPic, R"({"file": 3})", Message("layoutData.descPic.file mustbe string")},
    });
}

TEST(FrontEndTypeErrorTest, CapsuleMembersOfEveryKind) {
    const auto path = [](const char* member) { return In("liveViewData.capsule.", member); };
    ExpectRows({
        // The capsule check asks for the status before it reads the param-failed text.
        {PICKUP, path("status"), "\"1\"",
         "Parameter error. The type of capsule.status mustbe number [or the parameter is "
         "mandatory]."},
        {PICKUP, path("type"), "\"3\"", Message("capsule.type mustbe number")},
        {PICKUP, path("icon"), "1", Message("capsule.icon mustbe string | image.PixelMap")},
        {PICKUP, path("backgroundColor"), "1", Message("capsule.backgroundColor mustbe string")},
        {PICKUP, path("max"), "\"100\"", Message("capsule.max mustbe number")},
        {PICKUP, path("progress"), "[]", Message("capsule.progress mustbe number")},
        {PICKUP, path("indeterminate"), "\"no\"", Message("capsule.indeterminate mustbe boolean")},
        {SCORE, path("title"), "1", Message("capsule.title mustbe string")},
        {SCORE, path("content"), "{}", Message("capsule.content mustbe string")},
        {FLIGHT, path("content"), "2", Message("capsule.content mustbe string")},
        {FLIGHT, path("time"), "\"0\"", Message("capsule.time mustbe number")},
        {FLIGHT, path("isCountdown"), "1", Message("capsule.isCountdown mustbe boolean")},
        {FLIGHT, path("isPaused"), "\"no\"", Message("capsule.isPaused mustbe boolean")},
    });
}

TEST(FrontEndTypeErrorTest, ExternalMembers) {
    ExpectRows({
        {SCORE, "liveViewData.external.title", "1", Message("external.title mustbe string")},
        {SCORE, "liveViewData.external.content", "\"x\"",
         Message("external.content mustbe Array<RichText>")},
        {SCORE, "liveViewData.external.content.0.text", "1",
         Message("external.content[0].text mustbe string")},
        {SCORE, "liveViewData.external.backgroundColor", "[]",
         Message("external.backgroundColor mustbe string")},
    });
}

TEST(FrontEndTypeErrorTest, NumbersMustBeWholeAndInRange) {
    const std::string range = " mustbe number [or the parameter range is incorrect].";
    ExpectRows({
        {PICKUP, "id", "1.5", "Parameter error. The type of liveView.id" + range},
        {PICKUP, "id", "2147483648", "Parameter error. The type of liveView.id" + range},
        {PICKUP, "sequence", "-2147483649",
         "Parameter error. The type of liveView.sequence" + range},
        {PICKUP, In(PRIMARY, "keepTime"), "1e300",
         "Parameter error. The type of primary.keepTime" + range},
        {WORKOUT, "timer.time", "1e19", "Parameter error. The type of liveView.timer.time" + range},
        {FLIGHT, "liveViewData.capsule.time", "0.25",
         "Parameter error. The type of capsule.time" + range},
        {WORKOUT, In(PRIMARY, "immersiveParameters.mode"), "1.5",
         "Parameter error. The type of primary.immersiveParameters.mode" + range},
    });
}

TEST(FrontEndTypeErrorTest, FirstErrorOfARecordIsKept) {
    Tree tree = ParseTree(ReadText(ExamplePath("liveviews/pickup-layout.json")));
    Patch(tree.get(), In(PRIMARY, "title"), "1");
    Patch(tree.get(), In(PRIMARY, "keepTime"), "\"1\"");
    Patch(tree.get(), In(LAYOUT, "title"), "2");
    char* text = cJSON_PrintUnformatted(tree.get());
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(text, liveView));
    cJSON_free(text);
    EXPECT_EQ(LiveView::GetPrimaryData(liveView)->GetParamFailed(),
              Message("primary.title mustbe string"));
    EXPECT_EQ(LiveView::GetLayoutData(liveView)->GetParamFailed(),
              Message("layoutData.title mustbe string"));
    EXPECT_EQ(liveView.GetParamFailed(), "");
}

}  // namespace
}  // namespace LiveViewToolsTest
