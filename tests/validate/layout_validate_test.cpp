// The layout rules: the kind type, then each kind's texts, pictures and lists, each limit at its
// value and one past it, with the exact message and the rule hint.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "validate_test_util.h"

namespace Tavi::Wisp::LiveView::ValidateTest {
namespace {

const std::string LAYOUT = "liveViewData.primary.layoutData.";
const std::string ICONS = "Array<string | image.PixelMap>";

template <typename T>
using TextSetter = void (T::*)(const std::shared_ptr<std::string>&);

// A change that sets one text of the section.
template <typename T>
auto Setting(TextSetter<T> set, std::shared_ptr<std::string> value) {
    return [set, value](std::shared_ptr<T>& l) { ((*l).*set)(value); };
}

// Each text of a kind: 127 bytes on update, 128 bytes, and absent on start.
template <typename T>
std::vector<Row<T>> TextRows(const std::vector<std::pair<std::string, TextSetter<T>>>& texts) {
    std::vector<Row<T>> rows;
    for (const auto& [path, set] : texts) {
        rows.push_back({path + " 127 bytes", UPDATE, Setting<T>(set, Bytes(127)), OK});
        rows.push_back({path + " 128 bytes", START, Setting<T>(set, Bytes(128)), Len(path)});
        rows.push_back({path + " absent", START, Setting<T>(set, nullptr), Mand(path)});
    }
    return rows;
}

// A picture that a start requires, as a pixel map of 30,720 and 30,721 bytes, as an empty
// resource string, and absent.
template <typename T>
std::vector<Row<T>> PictureRows(const std::string& path, TextSetter<T> setString,
                                void (T::*setPicture)(const Pic&), const std::string& tooBig) {
    const auto picture = [=](int32_t bytes) {
        return [=](std::shared_ptr<T>& l) {
            ((*l).*setString)(nullptr), ((*l).*setPicture)(Image(bytes));
        };
    };
    const std::string hint = "liveViewData.primary." + path + ": ";
    return {{path + " 30720 bytes", START, picture(30720), OK},
            {path + " 30721 bytes", START, picture(30721), tooBig,
             hint + "30,721 bytes; at most 30,720 bytes"},
            {path + " empty", START, Setting<T>(setString, Str("")), Err(path, PIC),
             hint + "\"\" is empty; a resource name that is not empty"},
            {path + " absent", START, Setting<T>(setString, nullptr), Err(path, PIC, MAND),
             hint + "missing; required on start"}};
}

template <typename T>
std::vector<Row<T>> Join(std::vector<Row<T>> rows, const std::vector<Row<T>>& more) {
    rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

TEST(LayoutValidateTest, KindType) {
    std::vector<Row<LayoutData>> rows = {
        {"absent on start", START, [](auto& l) { l = nullptr; },
         Err("primary.layoutData", "LayoutData", MAND)},
        {"absent on stop", STOP, [](auto& l) { l = nullptr; }, OK},
        // clang-format off
        {"type -1, nothing else", START, [](auto& l) {
             l = std::make_shared<PickupLayout>();
             l->SetLayoutType(LayoutData::LAYOUT_TYPE_NONE); }, OK},
        // clang-format on
    };
    for (const int type : {0, 1, 2, 6, 9}) {
        rows.push_back({"type " + std::to_string(type), type == 1 ? UPDATE : START,
                        [type](auto& l) { l->SetLayoutType(LayoutData::LayoutType(type)); },
                        Err("layoutData.layoutType", "LayoutType"),
                        LAYOUT + "layoutType: " + std::to_string(type) + "; -1, 3, 4, 5, 7 or 8"});
    }
    RunRows<LayoutData>([] { return PickupLayoutForStart(); }, rows);
}

TEST(LayoutValidateTest, ProgressLayout) {
    const std::string range =
        Err("layoutData.progress", "number", " [or the parameter range is incorrect");
    const std::string nodes = "layoutData.nodeIcons";
    const std::string count = Err(nodes, ICONS, LEN);
    RunRows<ProgressLayout>(
        [] {  // only the fields that a start requires: two node icons, no indicator
            auto l = std::make_shared<ProgressLayout>();
            l->SetLayoutType(LayoutData::PROGRESS), l->SetProgress(Int(50));
            l->SetNodeIconsStr(Names(2));
            return l;
        },
        {
            // clang-format off
            {"upper bounds", START, [](auto& l) {
                 l->SetProgress(Int(100)), l->SetColor(Str("#FF00FF00")), l->SetLineType(Int(2));
                 l->SetIndicatorType(Int(1)), l->SetIndicatorIcon(Image(30720));
                 l->SetNodeIconsStr(Names(5)), l->SetNodeIcons(Images(5, 30720)); }, OK},
            // clang-format on
            {"progress 101", START, SET(SetProgress(Int(101))), range,
             LAYOUT + "progress: 101; 0 to 100"},
            {"progress -1", UPDATE, SET(SetProgress(Int(-1))), range},
            {"no progress on update", UPDATE, SET(SetProgress(nullptr)),
             Err("layoutData.progress", "number", MAND), LAYOUT + "progress: missing; required"},
            {"line type 3", START, SET(SetLineType(Int(3))),
             "Parameter error. The type of layoutData.lineType mustbe LineType",
             LAYOUT + "lineType: 3; 0 to 2"},
            {"indicator type -1", START, SET(SetIndicatorType(Int(-1))),
             "Parameter error. The type of layoutData.indicatorTypetype mustbe IndicatorType",
             LAYOUT + "indicatorType: -1; 0 to 2"},
            {"indicator type 2 without icon", START, SET(SetIndicatorType(Int(2))),
             Err("layoutData.indicatorIcon", PIC, MAND)},
            {"no node icons on start", START, SET(SetNodeIconsStr({})), Err(nodes, ICONS, MAND)},
            {"6 names", START, SET(SetNodeIconsStr(Names(6))), count,
             LAYOUT + "nodeIcons: 6 items; 2 to 5"},
            {"1 image beside 3 names", START,
             [](auto& l) { l->SetNodeIconsStr(Names(3)), l->SetNodeIcons(Images(1)); }, count,
             LAYOUT + "nodeIcons: 1 picture beside 3 resource strings; 2 to 5 of each form"},
            // clang-format off
            {"image of 30721 bytes", START,
             [](auto& l) { l->SetNodeIconsStr({}), l->SetNodeIcons({Image(1), Image(30721)}); },
             count, LAYOUT + "nodeIcons: picture 2 of 2 has 30,721 bytes; at most 30,720 bytes"},
            // clang-format on
        });
}

TEST(LayoutValidateTest, PickupFlightAndScoreLayouts) {
    using P = PickupLayout;
    const std::string pic = "layoutData.descPic";
    RunRows<P>(PickupLayoutForStart,
               Join(TextRows<P>({{"layoutData.title", &P::SetTitle},
                                 {"layoutData.content", &P::SetContent}}),
                    PictureRows<P>(pic, &P::SetDescPicStr, &P::SetDescPic, Len(pic))));
    using F = FlightLayout;
    const std::string icon = "layoutData.spaceIcon";
    RunRows<F>(
        FlightLayoutForStart,
        Join(TextRows<F>({{"layoutData.firstTitle", &F::SetFirstTitle},
                          {"layoutData.firstContent", &F::SetFirstContent},
                          {"layoutData.lastTitle", &F::SetLastTitle},
                          {"layoutData.lastContent", &F::SetLastContent}}),
             Join(PictureRows<F>(icon, &F::SetSpaceIconStr, &F::SetSpaceIcon, Len(icon)),
                  {{"additional text 1023 bytes", START, SET(SetAdditionalText(Bytes(1023))), OK},
                   {"additional text 1024 bytes", START, SET(SetAdditionalText(Bytes(1024))),
                    Len("layoutData.additionalText")}})));
    using S = ScoreLayout;
    const std::string host = "layoutData.hostIcon";
    const std::string guest = "layoutData.guestIcon";
    const std::string desc = "layoutData.competitionDesc";
    const std::string descTypes = "string | Array<RichText>";
    auto rows = TextRows<S>({{"layoutData.hostName", &S::SetHostName},
                             {"layoutData.hostScore", &S::SetHostScore},
                             {"layoutData.guestName", &S::SetGuestName},
                             {"layoutData.guestScore", &S::SetGuestScore},
                             {"layoutData.competitionTime", &S::SetCompetitionTime}});
    rows =
        Join(rows, PictureRows<S>(host, &S::SetHostIconStr, &S::SetHostIcon, Err(host, PIC, LEN)));
    rows = Join(rows,
                PictureRows<S>(guest, &S::SetGuestIconStr, &S::SetGuestIcon, Err(guest, PIC, LEN)));
    const auto list = [](size_t second) {
        return [second](auto& l) {
            l->SetCompetitionDesc(nullptr), l->SetCompetitionDescVector(Runs({100, second}));
        };
    };
    RunRows<S>(
        ScoreLayoutForStart,
        Join(rows,
             {{"description 128 bytes", START, SET(SetCompetitionDesc(Bytes(128))), Len(desc)},
              {"no description", START, SET(SetCompetitionDesc(nullptr)),
               Err(desc, descTypes, MAND)},
              {"description list of 127 bytes", START, list(27), OK},
              {"description list of 128 bytes", START, list(28), Err(desc, descTypes, LEN)}}));
}

TEST(LayoutValidateTest, NavigationLayout) {
    const std::string current = "layoutData.currentNavigationIcon";
    const std::string icons = "layoutData.navigationIcons";
    const std::string count = Err(icons, ICONS, LEN);
    RunRows<NavigationLayout>(
        NavigationLayoutForStart,
        {
            // clang-format off
            {"upper bounds", START, [](auto& l) {
                 l->SetCurrentNavigationIcon(Image(30720)), l->SetNavigationIconsStr(Names(6));
                 l->SetNavigationIcons(Images(6, 30720)); }, OK},
            // clang-format on
            {"empty current icon string", START, SET(SetCurrentNavigationIconStr(Str(""))),
             Err(current + "Str", PIC)},
            {"1 name", START, SET(SetNavigationIconsStr(Names(1))), count},
            {"7 names", START, SET(SetNavigationIconsStr(Names(7))), count},
            {"an empty name", START, SET(SetNavigationIconsStr({"icon", ""})),
             Err(icons, ICONS, ""),
             LAYOUT +
                 "navigationIcons: resource string 2 of 2 is empty; no resource string is empty"},
            {"7 images", START, SET(SetNavigationIcons(Images(7))), count},
        });
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::ValidateTest
