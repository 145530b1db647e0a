// What the JSON front end makes of well-typed input: the layout and capsule kinds chosen by their
// type, numbers, the three picture forms and picture lists, parameter boxes, and the members it
// leaves alone.
#include <gtest/gtest.h>

#include <string>

#include "flight_layout.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using namespace Tavi::Wisp::LiveView;
using Tavi::Media::PixelFormat;

std::string WithPrimary(const std::string& primaryMembers, const std::string& dataMembers = "") {
    return R"({"id": 1, "event": "E", "liveViewData": {"primary": {)" + primaryMembers + "}" +
           (dataMembers.empty() ? "" : ", " + dataMembers) + "}}";
}

std::string WithLayout(const std::string& layoutMembers) {
    return WithPrimary(R"("layoutData": {)" + layoutMembers + "}");
}

TEST(FrontEndKindTest, LayoutTypeChoosesTheKindAndIsKept) {
    const struct {
        const char* members;
        int type;
        bool (*isKind)(const std::shared_ptr<LayoutData>&);
    } rows[] = {
        {R"("layoutType": 3, "progress": 5)", 3,
         [](const std::shared_ptr<LayoutData>& l) { return AsProgressLayout(l) != nullptr; }},
        {R"("layoutType": 4, "title": "t")", 4,
         [](const std::shared_ptr<LayoutData>& l) { return AsPickupLayout(l) != nullptr; }},
        {R"("layoutType": 5, "firstTitle": "t")", 5,
         [](const std::shared_ptr<LayoutData>& l) { return AsFlightLayout(l) != nullptr; }},
        {R"("layoutType": 7, "hostName": "t")", 7,
         [](const std::shared_ptr<LayoutData>& l) { return AsScoreLayout(l) != nullptr; }},
        {R"("layoutType": 8, "navigationIcons": ["a", "b"])", 8,
         [](const std::shared_ptr<LayoutData>& l) { return AsNavigationLayout(l) != nullptr; }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.members);
        LiveView liveView;
        ASSERT_TRUE(ReadFromText(WithLayout(row.members), liveView));
        const auto layout = LiveView::GetLayoutData(liveView);
        ASSERT_NE(layout, nullptr);
        EXPECT_EQ(layout->GetLayoutType(), row.type);
        EXPECT_TRUE(row.isKind(layout));
        EXPECT_EQ(layout->GetParamFailed(), "");
    }
}

TEST(FrontEndKindTest, OtherLayoutTypesMakeAPlainLayout) {
    const struct {
        const char* members;
        int type;
    } rows[] = {{R"("layoutType": 6, "title": "t")", 6},
                {R"("layoutType": 9)", 9},
                {R"("layoutType": -1, "progress": 5)", -1},
                {R"("progress": 5)", -1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.members);
        LiveView liveView;
        ASSERT_TRUE(ReadFromText(WithLayout(row.members), liveView));
        const auto layout = LiveView::GetLayoutData(liveView);
        EXPECT_EQ(layout->GetLayoutType(), row.type);
        EXPECT_EQ(AsProgressLayout(layout), nullptr);
        EXPECT_EQ(AsPickupLayout(layout), nullptr);
    }
}

TEST(FrontEndKindTest, CapsuleTypeChoosesTheKindAndIsKept) {
    const struct {
        const char* capsule;
        int type;
        bool text, timer, progress;
    } rows[] = {
        {R"({"type": 1, "title": "t"})", 1, true, false, false},
        {R"({"type": 2, "time": 5})", 2, false, true, false},
        {R"({"type": 3, "max": 5})", 3, false, false, true},
        {R"({"type": 0, "status": -1})", 0, false, false, false},
        {R"({"status": 1})", -1, false, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.capsule);
        LiveView liveView;
        ASSERT_TRUE(
            ReadFromText(WithPrimary("", std::string(R"("capsule": )") + row.capsule), liveView));
        const auto capsule = LiveView::GetCapsuleData(liveView);
        ASSERT_NE(capsule, nullptr);
        EXPECT_EQ(capsule->GetType(), row.type);
        EXPECT_EQ(AsTextCapsule(capsule) != nullptr, row.text);
        EXPECT_EQ(AsTimerCapsule(capsule) != nullptr, row.timer);
        EXPECT_EQ(AsProgressCapsule(capsule) != nullptr, row.progress);
    }
}

TEST(FrontEndValueTest, KindMembersLandInTheirFields) {
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(
        WithPrimary(R"("title": "T", "keepTime": 30, "clickAction": {"target": "app/Page"},
                       "content": [{"text": "a", "textColor": "#FF000000"}, {"text": "b"}],
                       "layoutData": {"layoutType": 5, "lastContent": "12:00",
                                      "isHorizontalLineDisplayed": true})",
                    R"("capsule": {"type": 2, "status": 1, "time": 9007199254740992,
                                   "isCountdown": true, "backgroundColor": "#FF00FF00"})"),
        liveView));
    const auto primary = LiveView::GetPrimaryData(liveView);
    EXPECT_EQ(*primary->GetTitle(), "T");
    EXPECT_EQ(*primary->GetKeepTime(), 30);
    EXPECT_EQ(primary->GetClickAction()->GetTarget(), "app/Page");
    ASSERT_EQ(primary->GetContent().size(), 2u);
    EXPECT_EQ(*primary->GetContent()[0]->GetTextColor(), "#FF000000");
    EXPECT_EQ(primary->GetContent()[1]->GetTextColor(), nullptr);
    const auto flight = AsFlightLayout(primary->GetLayoutData());
    EXPECT_EQ(*flight->GetLastContent(), "12:00");
    EXPECT_TRUE(*flight->GetIsHorizontalLineDisplayed());
    EXPECT_EQ(flight->GetFirstTitle(), nullptr);
    const auto timer = AsTimerCapsule(LiveView::GetCapsuleData(liveView));
    EXPECT_EQ(*timer->GetTime(), 9007199254740992L);
    EXPECT_TRUE(*timer->GetIsCountdown());
    EXPECT_EQ(*timer->GetStatus(), 1);
    EXPECT_EQ(*timer->GetBackgroundColor(), "#FF00FF00");
}

TEST(FrontEndValueTest, NumbersAtTheEdgesOfTheirRange) {
    const struct {
        const char* text;
        int id;
    } rows[] = {
        {"2147483647", 2147483647}, {"-2147483648", -2147483647 - 1}, {"7.0", 7}, {"1e3", 1000}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        LiveView liveView;
        ASSERT_TRUE(ReadFromText(std::string(R"({"id": )") + row.text + "}", liveView));
        ASSERT_NE(liveView.GetId(), nullptr);
        EXPECT_EQ(*liveView.GetId(), row.id);
        EXPECT_EQ(liveView.GetParamFailed(), "");
    }
}

// 64-bit fields take every int64 exactly, beyond what a double holds.
TEST(FrontEndValueTest, SixtyFourBitNumbersAreExact) {
    const struct {
        const char* text;
        long time;
    } rows[] = {{"9223372036854775807", 9223372036854775807L},
                {"-9223372036854775808", -9223372036854775807L - 1},
                {"9007199254740993", 9007199254740993L},
                {"9007199254740993.0e0", 9007199254740993L}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        LiveView liveView;
        ASSERT_TRUE(ReadFromText(std::string(R"({"timer": {"time": )") + row.text +
                                     R"(}, "liveViewData": {"capsule": {"type": 2, "time": )" +
                                     row.text + "}}}",
                                 liveView));
        EXPECT_EQ(*liveView.GetTimer()->GetTime(), row.time);
        EXPECT_EQ(liveView.GetTimer()->GetParamFailed(), "");
        const auto capsule = AsTimerCapsule(LiveView::GetCapsuleData(liveView));
        EXPECT_EQ(*capsule->GetTime(), row.time);
        EXPECT_EQ(capsule->GetParamFailed(), "");
    }
}

TEST(FrontEndPictureTest, EachFormGoesToItsSetter) {
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(
        WithPrimary(R"("immersivePic": "res://wide",
                       "layoutData": {"layoutType": 7,
                                      "hostIcon": {"width": 4, "height": 3, "format": "RGB_565"},
                                      "guestIcon": {"width": 2, "height": 2}})",
                    R"("capsule": {"type": 1, "icon": {"file": "../images/node.png"}})"),
        liveView));
    const auto primary = LiveView::GetPrimaryData(liveView);
    EXPECT_EQ(*primary->GetImmersivePicStr(), "res://wide");
    EXPECT_EQ(primary->GetImmersivePic(), nullptr);

    const auto score = AsScoreLayout(primary->GetLayoutData());
    EXPECT_EQ(score->GetHostIconStr(), nullptr);
    ASSERT_NE(score->GetHostIcon(), nullptr);
    EXPECT_EQ(score->GetHostIcon()->GetPixelFormat(), PixelFormat::RGB_565);
    EXPECT_EQ(score->GetHostIcon()->GetByteCount(), 24);
    EXPECT_EQ(score->GetGuestIcon()->GetPixelFormat(), PixelFormat::RGBA_8888);

    const auto icon = LiveView::GetCapsuleData(liveView)->GetIcon();
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->GetWidth(), 24);
    EXPECT_EQ(icon->GetHeight(), 24);
    EXPECT_EQ(icon->GetPixelFormat(), PixelFormat::RGBA_8888);
    const uint8_t* pixels = icon->GetPixels();
    const uint8_t* centre = pixels + icon->GetRowBytes() * 12 + 4 * 12;
    EXPECT_EQ(centre[0], 0x1E);  // the disc's blue, opaque
    EXPECT_EQ(centre[1], 0x88);
    EXPECT_EQ(centre[2], 0xE5);
    EXPECT_EQ(centre[3], 0xFF);
    EXPECT_EQ(pixels[3], 0);  // a transparent corner
}

TEST(FrontEndPictureTest, ListItemsAreSortedIntoTheirListsInOrderAndNullsSkipped) {
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(
        WithLayout(R"("layoutType": 3, "nodeIcons": ["a", {"width": 1, "height": 2}, null, "b",
                                                     {"width": 3, "height": 4}])"),
        liveView));
    const auto progress = AsProgressLayout(LiveView::GetLayoutData(liveView));
    EXPECT_EQ(progress->GetParamFailed(), "");
    EXPECT_EQ(progress->GetNodeIconsStr(), (std::vector<std::string>{"a", "b"}));
    ASSERT_EQ(progress->GetNodeIcons().size(), 2u);
    EXPECT_EQ(progress->GetNodeIcons()[0]->GetHeight(), 2);
    EXPECT_EQ(progress->GetNodeIcons()[1]->GetWidth(), 3);
}

TEST(FrontEndValueTest, ImmersiveParametersAreBoxedByTheirJsonTypeAndNullIsNotGiven) {
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(
        WithPrimary(R"("immersiveParameters": {"s": "x", "i": -5, "l": 5000000000, "b": true,
                                               "n": null})"),
        liveView));
    const auto params = LiveView::GetPrimaryData(liveView)->GetImmersiveParameters();
    ASSERT_NE(params, nullptr);
    EXPECT_EQ(LiveView::GetPrimaryData(liveView)->GetParamFailed(), "");
    EXPECT_EQ(params->Size(), 4);
    EXPECT_FALSE(params->HasParam("n"));
    EXPECT_EQ(Tavi::AAFwk::String::Unbox(Tavi::AAFwk::IString::Query(params->GetParam("s"))), "x");
    EXPECT_EQ(Tavi::AAFwk::Integer::Unbox(Tavi::AAFwk::IInteger::Query(params->GetParam("i"))), -5);
    EXPECT_EQ(Tavi::AAFwk::Long::Unbox(Tavi::AAFwk::ILong::Query(params->GetParam("l"))),
              5000000000L);
    EXPECT_TRUE(Tavi::AAFwk::Boolean::Unbox(Tavi::AAFwk::IBoolean::Query(params->GetParam("b"))));
}

TEST(FrontEndValueTest, UnknownMembersNullsAndOtherCasesAreLeftAlone) {
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(
        R"({"ID": 5, "id": null, "colour": [1], "Event": 3,
            "liveViewData": {"primary": {"titel": 1, "title": "ok", "keepTime": null}}})",
        liveView));
    EXPECT_EQ(liveView.GetId(), nullptr);
    EXPECT_EQ(liveView.GetEvent(), "");
    EXPECT_EQ(liveView.GetParamFailed(), "");
    const auto primary = LiveView::GetPrimaryData(liveView);
    EXPECT_EQ(*primary->GetTitle(), "ok");
    EXPECT_EQ(primary->GetKeepTime(), nullptr);
    EXPECT_EQ(primary->GetParamFailed(), "");
}

TEST(FrontEndValueTest, ALiveViewMustBeAnObject) {
    for (const char* text : {"[]", "1", "\"x\""}) {
        SCOPED_TRACE(text);
        LiveView liveView;
        LiveViewJson::InputError error;
        EXPECT_FALSE(ReadFromText(text, liveView, &error));
        EXPECT_EQ(error.ToString(), "test.json: a live view must be a JSON object");
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
