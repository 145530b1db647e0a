// Layout conversion: each kind read back key by key, types without fields, the score description
// rule, the picture lists and the picture map's insert-if-absent.
#include <gmock/gmock.h>

#include <functional>

#include "conversion_test_util.h"
#include "flight_layout.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "progress_layout.h"
#include "score_layout.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Test {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::Pair;
using Strings = std::vector<std::string>;

template <typename Kind>
std::shared_ptr<Kind> NewLayout(LayoutData::LayoutType type) {
    auto layout = std::make_shared<Kind>();
    layout->SetLayoutType(type);
    return layout;
}

class LayoutConversionTest : public ConversionTest {
protected:
    static Outputs Convert(const std::shared_ptr<LayoutData>& layout, PictureMap pictures = {}) {
        Outputs out;
        out.pictures = std::move(pictures);
        LiveViewParamConversion::LayoutDataParamConversion(WithLayout(layout), out.extra,
                                                           out.pictures);
        return out;
    }
};

TEST_F(LayoutConversionTest, FullProgressLayout) {
    const Pic indicator = NewPic(4);
    auto layout = NewLayout<ProgressLayout>(LayoutData::PROGRESS);
    layout->SetProgress(Int(40));
    layout->SetColor(Str("#FF00FF00"));
    layout->SetBackgroundColor(Str("#FF000000"));
    layout->SetIndicatorType(Int(1));
    layout->SetIndicatorIcon(indicator);
    layout->SetLineType(Int(2));
    layout->SetNodeIconsStr({"media:a", "media:b", "media:c"});
    layout->SetNodeIcons({NewPic(5)});
    const Outputs out = Convert(layout);
    ExpectParams(*out.extra,
                 {{"LayoutData.layoutType", 3},
                  {"ProgressLayout.progress", 40},
                  {"ProgressLayout.color", "#FF00FF00"s},
                  {"ProgressLayout.backgroundColor", "#FF000000"s},
                  {"ProgressLayout.indicatorType", 1},
                  {"ProgressLayout.indicatorIcon.res", ""s},
                  {"ProgressLayout.lineType", 2},
                  {"ProgressLayout.nodeIcons.res", Strings{"media:a", "media:b", "media:c"}}});
    EXPECT_EQ(out.pictures, (PictureMap{{"ProgressLayout.indicatorIcon", {indicator}}}));
}

TEST_F(LayoutConversionTest, FullPickupAndFlightLayouts) {
    auto pickup = NewLayout<PickupLayout>(LayoutData::PICKUP);
    pickup->SetTitle(Str("Pickup code"));
    pickup->SetContent(Str("A17"));
    pickup->SetUnderlineColor(Str("#FFFF0000"));
    pickup->SetDescPicStr(Str("media:shop"));
    pickup->SetDescPic(NewPic());
    Outputs out = Convert(pickup);
    ExpectParams(*out.extra, {{"LayoutData.layoutType", 4},
                              {"PickupLayout.title", "Pickup code"s},
                              {"PickupLayout.content", "A17"s},
                              {"PickupLayout.underlineColor", "#FFFF0000"s},
                              {"PickupLayout.descPic.res", "media:shop"s}});
    EXPECT_TRUE(out.pictures.empty());

    const Pic plane = NewPic(6);
    auto flight = NewLayout<FlightLayout>(LayoutData::FLIGHT);
    flight->SetFirstTitle(Str("08:10"));
    flight->SetFirstContent(Str("Oslo"));
    flight->SetLastTitle(Str("10:45"));
    flight->SetLastContent(Str("Rome"));
    flight->SetSpaceIcon(plane);
    flight->SetIsHorizontalLineDisplayed(Bool(false));
    flight->SetAdditionalText(Str("Gate 12"));
    out = Convert(flight);
    ExpectParams(*out.extra, {{"LayoutData.layoutType", 5},
                              {"FlightLayout.firstTitle", "08:10"s},
                              {"FlightLayout.firstContent", "Oslo"s},
                              {"FlightLayout.lastTitle", "10:45"s},
                              {"FlightLayout.lastContent", "Rome"s},
                              {"FlightLayout.spaceIcon.res", ""s},
                              {"FlightLayout.isDisplayHorizontalLine", false},
                              {"FlightLayout.additionalText", "Gate 12"s}});
    EXPECT_EQ(out.pictures, (PictureMap{{"FlightLayout.spaceIcon", {plane}}}));
}

TEST_F(LayoutConversionTest, FullScoreAndNavigationLayouts) {
    const Pic guest = NewPic(7);
    auto score = NewLayout<ScoreLayout>(LayoutData::SCORE);
    score->SetHostName(Str("Lions"));
    score->SetHostIconStr(Str("media:lions"));
    score->SetHostScore(Str("2"));
    score->SetGuestName(Str("Bears"));
    score->SetGuestIcon(guest);
    score->SetGuestScore(Str("1"));
    score->SetCompetitionDescVector({Rich(Str("Final"), Str("#FFFFFFFF")), Rich(Str(" 2nd half"))});
    score->SetCompetitionTime(Str("67'"));
    score->SetIsHorizontalLineDisplayed(Bool(true));
    Outputs out = Convert(score);
    ExpectParams(*out.extra,
                 {{"LayoutData.layoutType", 7},
                  {"ScoreLayout.hostName", "Lions"s},
                  {"ScoreLayout.hostIcon.res", "media:lions"s},
                  {"ScoreLayout.hostScore", "2"s},
                  {"ScoreLayout.guestName", "Bears"s},
                  {"ScoreLayout.guestIcon.res", ""s},
                  {"ScoreLayout.guestScore", "1"s},
                  {"ScoreLayout.competitionDesc",
                   R"([{"text":"Final","textColor":"#FFFFFFFF"},{"text":" 2nd half"}])"s},
                  {"ScoreLayout.competitionTime", "67'"s},
                  {"ScoreLayout.isDisplayHorizontalLine", true}});
    EXPECT_EQ(out.pictures, (PictureMap{{"ScoreLayout.guestIcon", {guest}}}));

    const Pic left = NewPic(8);
    const Pic right = NewPic(9);
    auto navigation = NewLayout<NavigationLayout>(LayoutData::NAVIGATION);
    navigation->SetCurrentNavigationIconStr(Str("media:turn"));
    navigation->SetNavigationIcons({left, right});
    out = Convert(navigation);
    ExpectParams(*out.extra, {{"LayoutData.layoutType", 8},
                              {"NavigationLayout.currentNavigationIcon.res", "media:turn"s},
                              {"NavigationLayout.navigationIcons.res", Strings{}}});
    EXPECT_EQ(out.pictures, (PictureMap{{"NavigationLayout.navigationIcons", {left, right}}}));
}

TEST_F(LayoutConversionTest, PlainScoreDescriptionWinsOverTheVector) {
    auto score = NewLayout<ScoreLayout>(LayoutData::SCORE);
    score->SetCompetitionDesc(Str("Semi \"final\""));
    score->SetCompetitionDescVector({Rich(Str("ignored"), Str("#FF000000"))});
    ExpectParams(*Convert(score).extra,
                 {{"LayoutData.layoutType", 7},
                  {"ScoreLayout.competitionDesc", R"([{"text":"Semi \"final\""}])"s}});
}

// Types without a kind, and kinds without fields: the type key only, without a log line.
TEST_F(LayoutConversionTest, TypeKeyOnly) {
    const std::shared_ptr<LayoutData> rows[] = {
        NewLayout<LayoutData>(LayoutData::BASIC),
        NewLayout<LayoutData>(static_cast<LayoutData::LayoutType>(0)),
        NewLayout<LayoutData>(static_cast<LayoutData::LayoutType>(2)),
        NewLayout<LayoutData>(static_cast<LayoutData::LayoutType>(9)),
        NewLayout<ProgressLayout>(LayoutData::LAYOUT_TYPE_NONE),
        NewLayout<ProgressLayout>(LayoutData::PROGRESS),
        NewLayout<PickupLayout>(LayoutData::PICKUP),
        NewLayout<FlightLayout>(LayoutData::FLIGHT),
        NewLayout<ScoreLayout>(LayoutData::SCORE),
        NewLayout<NavigationLayout>(LayoutData::NAVIGATION),
    };
    for (const auto& layout : rows) {
        const int type = layout->GetLayoutType();
        SCOPED_TRACE(type);
        const Outputs out = Convert(layout);
        ExpectParams(*out.extra, {{"LayoutData.layoutType", type}});
        EXPECT_TRUE(out.pictures.empty());
        EXPECT_TRUE(Logs().empty());
    }
}

TEST_F(LayoutConversionTest, ObjectOfAnotherKindThanItsType) {
    struct Row {
        LayoutData::LayoutType type;
        std::shared_ptr<LayoutData> layout;
        const char* log;
    };
    const Row rows[] = {
        {LayoutData::PROGRESS, std::make_shared<PickupLayout>(),
         "] ProgressLayoutParamConversion# The progressLayout is nullptr"},
        {LayoutData::PICKUP, std::make_shared<LayoutData>(),
         "] PickupLayoutParamConversion# The pickupLayout is nullptr"},
        {LayoutData::FLIGHT, std::make_shared<ScoreLayout>(),
         "] FlightLayoutParamConversion# The flightLayout is nullptr"},
        {LayoutData::SCORE, std::make_shared<NavigationLayout>(),
         "] ScoreLayoutParamConversion# The scoreLayout is nullptr"},
        {LayoutData::NAVIGATION, std::make_shared<ProgressLayout>(),
         "] NavigationLayoutParamConversion# The navigationLayout is nullptr"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.log);
        row.layout->SetLayoutType(row.type);
        ExpectParams(*Convert(row.layout).extra, {{"LayoutData.layoutType", int{row.type}}});
        EXPECT_THAT(Logs(), ElementsAre(Pair(INFO, EndsWith(row.log))));
    }
}

// Both list owners, each way of giving the list.
TEST_F(LayoutConversionTest, PictureLists) {
    struct Owner {
        const char* label;
        std::function<std::shared_ptr<LayoutData>(const Strings&, const std::vector<Pic>&)> make;
        std::string key;
    };
    const Owner owners[] = {
        {"node icons",
         [](const Strings& strings, const std::vector<Pic>& pictures) {
             auto layout = NewLayout<ProgressLayout>(LayoutData::PROGRESS);
             layout->SetNodeIconsStr(strings);
             layout->SetNodeIcons(pictures);
             return std::shared_ptr<LayoutData>(layout);
         },
         "ProgressLayout.nodeIcons"},
        {"navigation icons",
         [](const Strings& strings, const std::vector<Pic>& pictures) {
             auto layout = NewLayout<NavigationLayout>(LayoutData::NAVIGATION);
             layout->SetNavigationIconsStr(strings);
             layout->SetNavigationIcons(pictures);
             return std::shared_ptr<LayoutData>(layout);
         },
         "NavigationLayout.navigationIcons"},
    };
    const std::vector<Pic> pictures = {NewPic(1), NewPic(2), NewPic(3)};
    struct Case {
        const char* label;
        Strings strings;
        std::vector<Pic> pictures;
        bool writesArray;
        Strings array;
        PictureMap::mapped_type pictureEntry;
    };
    const Case cases[] = {
        {"strings", {"media:1", "media:2"}, {}, true, {"media:1", "media:2"}, {}},
        {"pixel maps", {}, pictures, true, {}, pictures},
        {"both", {"media:1"}, pictures, true, {"media:1"}, {}},
        {"neither", {}, {}, false, {}, {}},
    };
    for (const auto& owner : owners) {
        for (const auto& row : cases) {
            SCOPED_TRACE(std::string(owner.label) + ", " + row.label);
            const Outputs out = Convert(owner.make(row.strings, row.pictures));
            ExpectedParams expected = {
                {"LayoutData.layoutType", int{owner.make({}, {})->GetLayoutType()}}};
            if (row.writesArray) {
                expected.emplace(owner.key + ".res", row.array);
            }
            ExpectParams(*out.extra, expected);
            PictureMap expectedPictures;
            if (!row.pictureEntry.empty()) {
                expectedPictures.emplace(owner.key, row.pictureEntry);
            }
            EXPECT_EQ(out.pictures, expectedPictures);
        }
    }
}

// An entry already in the picture map is kept; the resource key is still written.
TEST_F(LayoutConversionTest, PictureMapKeepsExistingEntries) {
    const Pic earlier = NewPic(10);
    auto navigation = NewLayout<NavigationLayout>(LayoutData::NAVIGATION);
    navigation->SetCurrentNavigationIcon(NewPic(11));
    navigation->SetNavigationIcons({NewPic(12), NewPic(13)});
    const PictureMap before = {{"NavigationLayout.currentNavigationIcon", {earlier}},
                               {"NavigationLayout.navigationIcons", {earlier, earlier}}};
    const Outputs out = Convert(navigation, before);
    EXPECT_EQ(out.pictures, before);
    ExpectParams(*out.extra, {{"LayoutData.layoutType", 8},
                              {"NavigationLayout.currentNavigationIcon.res", ""s},
                              {"NavigationLayout.navigationIcons.res", Strings{}}});
}

}  // namespace
}  // namespace Test
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
