#include "layout_reader.h"

#include <string>
#include <vector>

#include "compound_readers.h"
#include "flight_layout.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "picture_reader.h"
#include "progress_layout.h"
#include "score_layout.h"

namespace LiveViewJson {

using namespace Tavi::Wisp::LiveView;
using Tavi::Media::PixelMap;

namespace {

const char* const LAYOUT_PATH = "layoutData";

void ReadProgress(const FieldReader& r, ProgressLayout& layout) {
    layout.SetProgress(r.Int("progress"));
    layout.SetColor(r.String("color"));
    layout.SetBackgroundColor(r.String("backgroundColor"));
    layout.SetIndicatorType(r.Int("indicatorType"));
    ReadPicture(r, "indicatorIcon", layout, &ProgressLayout::SetIndicatorIconStr,
                &ProgressLayout::SetIndicatorIcon);
    layout.SetLineType(r.Int("lineType"));
    std::vector<std::string> resources;
    std::vector<std::shared_ptr<PixelMap>> pixels;
    ReadPictureList(r, "nodeIcons", resources, pixels);
    layout.SetNodeIconsStr(resources);
    layout.SetNodeIcons(pixels);
}

void ReadPickup(const FieldReader& r, PickupLayout& layout) {
    layout.SetTitle(r.String("title"));
    layout.SetContent(r.String("content"));
    layout.SetUnderlineColor(r.String("underlineColor"));
    ReadPicture(r, "descPic", layout, &PickupLayout::SetDescPicStr, &PickupLayout::SetDescPic);
}

void ReadFlight(const FieldReader& r, FlightLayout& layout) {
    layout.SetFirstTitle(r.String("firstTitle"));
    layout.SetFirstContent(r.String("firstContent"));
    layout.SetLastTitle(r.String("lastTitle"));
    layout.SetLastContent(r.String("lastContent"));
    ReadPicture(r, "spaceIcon", layout, &FlightLayout::SetSpaceIconStr,
                &FlightLayout::SetSpaceIcon);
    layout.SetIsHorizontalLineDisplayed(r.Bool("isHorizontalLineDisplayed"));
    layout.SetAdditionalText(r.String("additionalText"));
}

void ReadScore(const FieldReader& r, ScoreLayout& layout) {
    layout.SetHostName(r.String("hostName"));
    ReadPicture(r, "hostIcon", layout, &ScoreLayout::SetHostIconStr, &ScoreLayout::SetHostIcon);
    layout.SetHostScore(r.String("hostScore"));
    layout.SetGuestName(r.String("guestName"));
    ReadPicture(r, "guestIcon", layout, &ScoreLayout::SetGuestIconStr, &ScoreLayout::SetGuestIcon);
    layout.SetGuestScore(r.String("guestScore"));
    layout.SetCompetitionDesc(r.String("competitionDesc"));
    std::vector<std::shared_ptr<RichText>> runs;
    if (ReadRichTexts(r, "competitionDescVector", runs)) {
        layout.SetCompetitionDescVector(runs);
    }
    layout.SetCompetitionTime(r.String("competitionTime"));
    layout.SetIsHorizontalLineDisplayed(r.Bool("isHorizontalLineDisplayed"));
}

void ReadNavigation(const FieldReader& r, NavigationLayout& layout) {
    ReadPicture(r, "currentNavigationIcon", layout, &NavigationLayout::SetCurrentNavigationIconStr,
                &NavigationLayout::SetCurrentNavigationIcon);
    std::vector<std::string> resources;
    std::vector<std::shared_ptr<PixelMap>> pixels;
    ReadPictureList(r, "navigationIcons", resources, pixels);
    layout.SetNavigationIconsStr(resources);
    layout.SetNavigationIcons(pixels);
}

// Makes the kind, then reads its own members into it.
template <typename Kind>
std::shared_ptr<LayoutData> Read(const FieldReader& primary, const JsonValue* object,
                                 void (*readKind)(const FieldReader&, Kind&)) {
    auto layout = std::make_shared<Kind>();
    readKind(primary.Nested(object, LAYOUT_PATH, *layout), *layout);
    return layout;
}

std::shared_ptr<LayoutData> MakeLayout(const FieldReader& primary, const JsonValue* object,
                                       int type) {
    switch (type) {
        case LayoutData::PROGRESS:
            return Read<ProgressLayout>(primary, object, ReadProgress);
        case LayoutData::PICKUP:
            return Read<PickupLayout>(primary, object, ReadPickup);
        case LayoutData::FLIGHT:
            return Read<FlightLayout>(primary, object, ReadFlight);
        case LayoutData::SCORE:
            return Read<ScoreLayout>(primary, object, ReadScore);
        case LayoutData::NAVIGATION:
            return Read<NavigationLayout>(primary, object, ReadNavigation);
        default:
            return std::make_shared<LayoutData>();
    }
}

}  // namespace

std::shared_ptr<LayoutData> ReadLayout(const FieldReader& primary, const char* name) {
    const JsonValue* object = primary.Member(name, JsonType::OBJECT, "LayoutData");
    if (object == nullptr) {
        return nullptr;
    }
    // The kind is not known before its type is read: a type error is held here, and then goes
    // to the plain layout that a missing type makes.
    LiveViewBase typeErrors;
    const auto type = primary.Nested(object, LAYOUT_PATH, typeErrors).Int("layoutType");
    auto layout =
        MakeLayout(primary, object, type == nullptr ? LayoutData::LAYOUT_TYPE_NONE : *type);
    if (type != nullptr) {
        layout->SetLayoutType(static_cast<LayoutData::LayoutType>(*type));
    }
    if (!typeErrors.GetParamFailed().empty()) {
        layout->SetParamFailed(typeErrors.GetParamFailed());
    }
    return layout;
}

}  // namespace LiveViewJson
