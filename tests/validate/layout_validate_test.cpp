// Layout checks: the entry rules, then one table per kind. Rows named "x before y" break two
// fields and show that the earlier rule, or the earlier group, is reported.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "validate_test_util.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ValidateTest {
namespace {

const std::string ICONS = "Array<string | image.PixelMap>";

auto SetType(int value) {
    return [value](auto& l) { l->SetLayoutType(static_cast<LayoutData::LayoutType>(value)); };
}

TEST(LayoutValidateTest, EntryRules) {
    const std::string type = Err("layoutData.layoutType", "LayoutType");
    const std::vector<Case<LayoutData>> cases = {
        {"absent on start", [](auto& l) { l = nullptr; }, START,
         Err("primary.layoutData", "LayoutData", MAND)},
        {"absent on stop", [](auto& l) { l = nullptr; }, STOP, OK},
        {"param-failed text before type", [](auto& l) { SetType(9)(l), l->SetParamFailed("x"); },
         START, "x"},
        {"type -1 on an empty pickup",
         [](auto& l) { l = Kind<PickupLayout>(LayoutData::LAYOUT_TYPE_NONE); }, START, OK},
        {"type 0", SetType(0), START, type},
        {"type 1", SetType(1), UPDATE, type},
        {"type 2", SetType(2), START, type},
        {"type 6", SetType(6), START, type},
        {"type 9", SetType(9), STOP, type},
        {"plain layout typed progress", [](auto& l) { l = Kind<LayoutData>(LayoutData::PROGRESS); },
         START, OK},
    };
    RunLayoutCases<LayoutData>(cases, PickupLayoutForStart);
}

TEST(LayoutValidateTest, ProgressLayout) {
    const std::string line = "Parameter error. The type of layoutData.lineType mustbe LineType";
    const std::string range =
        Err("layoutData.progress", "number", " [or the parameter range is incorrect");
    const std::string icon = "layoutData.indicatorIcon";
    const std::string count = Err("layoutData.nodeIcons", ICONS, LEN);
    const std::vector<Case<ProgressLayout>> cases = {
        {"upper bounds",
         [](auto& l) {
             l->SetProgress(Int(100)), l->SetColor(Str("#FF00FF00")), l->SetLineType(Int(2));
             l->SetIndicatorType(Int(1)), l->SetIndicatorIcon(Image(30720));
             l->SetNodeIconsStr(Names(5)), l->SetNodeIcons(Images(5, 30720));
         },
         START, OK},
        {"progress 101", [](auto& l) { l->SetProgress(Int(101)); }, START, range},
        {"progress -1", [](auto& l) { l->SetProgress(Int(-1)); }, UPDATE, range},
        {"no progress on update before colour",
         [](auto& l) { l->SetProgress(nullptr), l->SetColor(Str("#00FF00")); }, UPDATE,
         Err("layoutData.progress", "number", MAND)},
        {"six-digit colour", [](auto& l) { l->SetColor(Str("#00FF00")); }, START,
         Len("layoutData.color")},
        {"six-digit background", [](auto& l) { l->SetBackgroundColor(Str("#00FF00")); }, START,
         Len("layoutData.backgroundColor")},
        {"line type 3 before indicator type 3",
         [](auto& l) { l->SetLineType(Int(3)), l->SetIndicatorType(Int(3)); }, START, line},
        {"line type -1", [](auto& l) { l->SetLineType(Int(-1)); }, START, line},
        {"indicator type -1", [](auto& l) { l->SetIndicatorType(Int(-1)); }, START,
         "Parameter error. The type of layoutData.indicatorTypetype mustbe IndicatorType"},
        {"indicator type 0, no icon", [](auto& l) { l->SetIndicatorType(Int(0)); }, START, OK},
        {"indicator type 2, no icon", [](auto& l) { l->SetIndicatorType(Int(2)); }, START,
         Err(icon, PIC, MAND)},
        {"indicator type 2, no icon, update", [](auto& l) { l->SetIndicatorType(Int(2)); }, UPDATE,
         OK},
        {"empty icon string before image 30721",
         [](auto& l) { l->SetIndicatorIconStr(Str("")), l->SetIndicatorIcon(Image(30721)); }, START,
         Err(icon, PIC)},
        {"icon image 30721", [](auto& l) { l->SetIndicatorIcon(Image(30721)); }, START, Len(icon)},
        {"no node icons on start", [](auto& l) { l->SetNodeIconsStr({}); }, START,
         Err("layoutData.nodeIcons", ICONS, MAND)},
        {"no node icons on update", [](auto& l) { l->SetNodeIconsStr({}); }, UPDATE, OK},
        {"1 name", [](auto& l) { l->SetNodeIconsStr(Names(1)); }, START, count},
        {"6 names", [](auto& l) { l->SetNodeIconsStr(Names(6)); }, START, count},
        {"empty second name", [](auto& l) { l->SetNodeIconsStr(List<std::string>("a", "", "c")); },
         START, Err("layoutData.nodeIcons", ICONS, "")},
        {"1 image", [](auto& l) { l->SetNodeIcons(Images(1)); }, START, count},
        {"6 images", [](auto& l) { l->SetNodeIcons(Images(6)); }, START, count},
        {"image of 30721", [](auto& l) { l->SetNodeIcons(List<Pic>(Image(1), Image(30721))); },
         START, count},
        {"null image", [](auto& l) { l->SetNodeIcons(List<Pic>(Image(1), nullptr)); }, UPDATE,
         count},
    };
    RunLayoutCases<ProgressLayout>(cases, ValidProgress);
}

TEST(LayoutValidateTest, PickupLayout) {
    using L = PickupLayout;
    const std::string pic = "layoutData.descPic";
    auto cases =
        TextCases<L>({{"layoutData.title", &L::SetTitle}, {"layoutData.content", &L::SetContent}});
    cases.insert(
        cases.end(),
        {
            {"upper bounds",
             [](auto& l) {
                 l->SetTitle(Bytes(127)), l->SetContent(Bytes(127)), l->SetDescPicStr(nullptr);
                 l->SetUnderlineColor(Str("#FF00FF00")), l->SetDescPic(Image(30720));
             },
             START, OK},
            {"title before content", [](auto& l) { l->SetTitle(nullptr), l->SetContent(nullptr); },
             START, Mand("layoutData.title")},
            {"content of blanks", [](auto& l) { l->SetContent(Str(" ")); }, STOP,
             Len("layoutData.content")},
            {"six-digit underline before picture",
             [](auto& l) { l->SetUnderlineColor(Str("#00FF00")), l->SetDescPic(Image(30721)); },
             START, Len("layoutData.underlineColor")},
            {"image 30721", [](auto& l) { l->SetDescPic(Image(30721)); }, START, Len(pic)},
            {"no picture on start", [](auto& l) { l->SetDescPicStr(nullptr); }, START,
             Err(pic, PIC, MAND)},
            {"nothing on update", [](auto& l) { l = Kind<L>(LayoutData::PICKUP); }, UPDATE, OK},
            {"empty picture string", [](auto& l) { l->SetDescPicStr(Str("")); }, START,
             Err(pic, PIC)},
        });
    RunLayoutCases<L>(cases, PickupLayoutForStart);
}

TEST(LayoutValidateTest, FlightLayout) {
    using L = FlightLayout;
    const std::string icon = "layoutData.spaceIcon";
    auto cases = TextCases<L>({{"layoutData.firstTitle", &L::SetFirstTitle},
                               {"layoutData.firstContent", &L::SetFirstContent},
                               {"layoutData.lastTitle", &L::SetLastTitle},
                               {"layoutData.lastContent", &L::SetLastContent}});
    cases.insert(
        cases.end(),
        {
            {"upper bounds",
             [](auto& l) { l->SetAdditionalText(Bytes(1023)), l->SetSpaceIcon(Image(30720)); },
             START, OK},
            {"first title before the rest", [](auto& l) { l = Kind<L>(LayoutData::FLIGHT); }, START,
             Mand("layoutData.firstTitle")},
            {"image 30721", [](auto& l) { l->SetSpaceIcon(Image(30721)); }, START, Len(icon)},
            {"empty icon string", [](auto& l) { l->SetSpaceIconStr(Str("")); }, START,
             Err(icon, PIC)},
            {"additional text 1024 before no icon",
             [](auto& l) { l->SetAdditionalText(Bytes(1024)), l->SetSpaceIconStr(nullptr); }, START,
             Len("layoutData.additionalText")},
            {"no icon on start", [](auto& l) { l->SetSpaceIconStr(nullptr); }, START,
             Err(icon, PIC, MAND)},
            {"nothing on update", [](auto& l) { l = Kind<L>(LayoutData::FLIGHT); }, UPDATE, OK},
        });
    RunLayoutCases<L>(cases, FlightLayoutForStart);
}

TEST(LayoutValidateTest, ScoreLayout) {
    using L = ScoreLayout;
    const std::string desc = "layoutData.competitionDesc";
    const std::string descTypes = "string | Array<RichText>";
    auto cases = TextCases<L>({{"layoutData.hostName", &L::SetHostName},
                               {"layoutData.hostScore", &L::SetHostScore},
                               {"layoutData.guestName", &L::SetGuestName},
                               {"layoutData.guestScore", &L::SetGuestScore},
                               {"layoutData.competitionTime", &L::SetCompetitionTime}});
    cases.insert(
        cases.end(),
        {
            {"upper bounds, description list only",
             [](auto& l) {
                 l->SetCompetitionDesc(nullptr), l->AddCompetitionDescVector(Rich(Bytes(127)));
                 l->SetHostIcon(Image(30720)), l->SetHostName(Bytes(127));
             },
             START, OK},
            {"host before guest",
             [](auto& l) { l->SetHostName(nullptr), l->SetGuestName(nullptr); }, START,
             Mand("layoutData.hostName")},
            {"host image 30721", [](auto& l) { l->SetHostIcon(Image(30721)); }, START,
             Err("layoutData.hostIcon", PIC, LEN)},
            {"empty host icon string", [](auto& l) { l->SetHostIconStr(Str("")); }, UPDATE,
             Err("layoutData.hostIcon", PIC)},
            {"no host icon", [](auto& l) { l->SetHostIconStr(nullptr); }, START,
             Err("layoutData.hostIcon", PIC, MAND)},
            {"guest image 30721", [](auto& l) { l->SetGuestIcon(Image(30721)); }, START,
             Err("layoutData.guestIcon", PIC, LEN)},
            {"empty guest icon string", [](auto& l) { l->SetGuestIconStr(Str("")); }, START,
             Err("layoutData.guestIcon", PIC)},
            {"no guest icon", [](auto& l) { l->SetGuestIconStr(nullptr); }, START,
             Err("layoutData.guestIcon", PIC, MAND)},
            {"description 128", [](auto& l) { l->SetCompetitionDesc(Bytes(128)); }, START,
             Len(desc)},
            {"no description on start", [](auto& l) { l->SetCompetitionDesc(nullptr); }, START,
             Err(desc, descTypes, MAND)},
            {"list of 100 and 28 bytes",
             [](auto& l) {
                 l->SetCompetitionDescVector(List<RunPtr>(Rich(Bytes(100)), Rich(Bytes(28))));
             },
             START, Err(desc, descTypes, LEN)},
            {"nothing on update", [](auto& l) { l = Kind<L>(LayoutData::SCORE); }, UPDATE, OK},
        });
    RunLayoutCases<L>(cases, ScoreLayoutForStart);
}

TEST(LayoutValidateTest, NavigationLayout) {
    const std::string current = "layoutData.currentNavigationIcon";
    const std::string count = Err("layoutData.navigationIcons", ICONS, LEN);
    const std::vector<Case<NavigationLayout>> cases = {
        {"upper bounds",
         [](auto& l) {
             l->SetCurrentNavigationIcon(Image(30720)), l->SetNavigationIconsStr(Names(6));
             l->SetNavigationIcons(Images(6, 30720));
         },
         START, OK},
        {"2 names, 2 images",
         [](auto& l) { l->SetNavigationIconsStr(Names(2)), l->SetNavigationIcons(Images(2)); },
         START, OK},
        {"empty string before image 30721",
         [](auto& l) {
             l->SetCurrentNavigationIconStr(Str("")), l->SetCurrentNavigationIcon(Image(30721));
         },
         START, Err(current + "Str", PIC)},
        {"image 30721", [](auto& l) { l->SetCurrentNavigationIcon(Image(30721)); }, UPDATE,
         Err(current, PIC, LEN)},
        {"no icon on start", [](auto& l) { l->SetCurrentNavigationIconStr(nullptr); }, START,
         Err(current, PIC, MAND)},
        {"no icon on update", [](auto& l) { l->SetCurrentNavigationIconStr(nullptr); }, UPDATE, OK},
        {"1 name", [](auto& l) { l->SetNavigationIconsStr(Names(1)); }, START, count},
        {"7 names", [](auto& l) { l->SetNavigationIconsStr(Names(7)); }, START, count},
        {"empty name", [](auto& l) { l->SetNavigationIconsStr(List<std::string>("a", "")); }, START,
         Err("layoutData.navigationIcons", ICONS, "")},
        {"1 image", [](auto& l) { l->SetNavigationIcons(Images(1)); }, START, count},
        {"7 images", [](auto& l) { l->SetNavigationIcons(Images(7)); }, START, count},
        {"null image", [](auto& l) { l->SetNavigationIcons(List<Pic>(nullptr, Image(1))); }, START,
         count},
    };
    RunLayoutCases<NavigationLayout>(cases, NavigationLayoutForStart);
}

}  // namespace
}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
