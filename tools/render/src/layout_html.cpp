#include "layout_html.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "css_color.h"
#include "field_value.h"
#include "flight_layout.h"
#include "html.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "progress_layout.h"
#include "rich_text_html.h"
#include "score_layout.h"

namespace LiveViewRender {

using namespace Tavi::Wisp::LiveView;

namespace {

std::string Style(const std::string& declarations) {
    return declarations.empty() ? std::string() : Attr("style", declarations);
}

// "property:css;" for a valid ARGB colour text, else nothing.
std::string ColorDeclaration(const char* property, const std::shared_ptr<std::string>& color) {
    const std::string css = CssFromArgb(color);
    return css.empty() ? std::string() : std::string(property) + ":" + css + ";";
}

std::string LeftAt(double percent) {
    char out[32];
    std::snprintf(out, sizeof(out), "left:%.4g%%;", percent);
    return out;
}

std::string Progress(const ProgressLayout& layout, PictureDrawer& pictures, bool) {
    const int progress = std::clamp(ValueOr(layout.GetProgress(), 0), 0, 100);
    const std::string fill =
        Element("div", "fill", "progress", "",
                Attr("data-value", std::to_string(progress)) +
                    Style("width:" + std::to_string(progress) + "%;" +
                          ColorDeclaration("background-color", layout.GetColor())));
    std::string bar =
        Element("div", "track", "track", fill,
                Style(ColorDeclaration("background-color", layout.GetBackgroundColor())));
    const std::vector<std::string> nodes =
        pictures.List("nodeIcon", "pic-s", layout.GetNodeIconsStr(), layout.GetNodeIcons());
    for (size_t i = 0; i < nodes.size(); ++i) {
        const double at = nodes.size() == 1 ? 0.0 : 100.0 * i / (nodes.size() - 1);
        bar += Element("span", "node", "", nodes[i], Style(LeftAt(at)));
    }
    std::string indicator = pictures.Pair("indicatorIcon", "pic-s", layout.GetIndicatorIconStr(),
                                          layout.GetIndicatorIcon());
    if (indicator.empty()) {
        indicator = "<span class=\"dot\"></span>";
    }
    bar += Element("span", "indicator", "indicator", indicator,
                   Style(LeftAt(progress) + ColorDeclaration("color", layout.GetColor())));
    return Element("div", "bar", "", bar);
}

std::string Pickup(const PickupLayout& layout, PictureDrawer& pictures, bool) {
    std::string title;
    if (layout.GetTitle() != nullptr) {
        const std::string underline =
            ColorDeclaration("border-bottom-color", layout.GetUnderlineColor());
        title = Escape(*layout.GetTitle());
        if (!underline.empty()) {
            title = Element("span", "underline", "underline", title, Style(underline));
        }
        title = Element("div", "pickup-title", "title", title);
    }
    const std::string text =
        title + TextField("div", "pickup-content", "content", layout.GetContent());
    return (text.empty() ? std::string() : Element("div", "pickup-text", "", text)) +
           pictures.Pair("descPic", "pic-xl", layout.GetDescPicStr(), layout.GetDescPic());
}

std::string Flight(const FlightLayout& layout, PictureDrawer& pictures, bool) {
    const std::string first =
        TextField("div", "f-title", "firstTitle", layout.GetFirstTitle()) +
        TextField("div", "f-content", "firstContent", layout.GetFirstContent());
    const std::string last = TextField("div", "f-title", "lastTitle", layout.GetLastTitle()) +
                             TextField("div", "f-content", "lastContent", layout.GetLastContent());
    const std::string icon =
        pictures.Pair("spaceIcon", "pic-m", layout.GetSpaceIconStr(), layout.GetSpaceIcon());
    const bool line = ValueOr(layout.GetIsHorizontalLineDisplayed(), false);
    std::string route =
        Element("div", "end", "", first) +
        Element("div", line ? "middle with-line" : "middle", line ? "horizontalLine" : "", icon) +
        Element("div", "end right", "", last);
    if (first.empty() && last.empty() && icon.empty()) {
        route.clear();
    } else {
        route = Element("div", "route", "", route);
    }
    return route + TextField("div", "f-additional", "additionalText", layout.GetAdditionalText());
}

// A side of the match: its icon over its name, holding its place when neither is set.
std::string Team(const std::string& inner) {
    return Element("div", "team", "", inner.empty() ? "&nbsp;" : inner);
}

std::string Score(const ScoreLayout& layout, PictureDrawer& pictures, bool withColors) {
    const std::string host =
        pictures.Pair("hostIcon", "pic-l", layout.GetHostIconStr(), layout.GetHostIcon()) +
        TextField("div", "team-name", "hostName", layout.GetHostName());
    const std::string guest =
        pictures.Pair("guestIcon", "pic-l", layout.GetGuestIconStr(), layout.GetGuestIcon()) +
        TextField("div", "team-name", "guestName", layout.GetGuestName());
    std::string board;
    if (layout.GetHostScore() != nullptr || layout.GetGuestScore() != nullptr) {
        board = Element("div", "scores", "",
                        TextField("span", "", "hostScore", layout.GetHostScore()) +
                            "<span class=\"colon\">:</span>" +
                            TextField("span", "", "guestScore", layout.GetGuestScore()));
    }
    board += TextField("div", "competition-time", "competitionTime", layout.GetCompetitionTime());
    std::string teams;
    if (!host.empty() || !guest.empty() || !board.empty()) {
        teams = Element("div", "teams", "",
                        Team(host) + Element("div", "board", "", board) + Team(guest));
    }
    std::string desc = RunsField("div", "competition-desc", "competitionDesc",
                                 layout.GetCompetitionDescVector(), withColors);
    if (desc.empty()) {
        desc = TextField("div", "competition-desc", "competitionDesc", layout.GetCompetitionDesc());
    }
    const bool line = ValueOr(layout.GetIsHorizontalLineDisplayed(), false);
    if (teams.empty() && desc.empty()) {
        return "";
    }
    return teams + desc + (line ? "<hr class=\"hline\" data-part=\"horizontalLine\">" : "");
}

std::string Navigation(const NavigationLayout& layout, PictureDrawer& pictures, bool) {
    std::string icons;
    for (const auto& icon : pictures.List("navigationIcon", "pic-m", layout.GetNavigationIconsStr(),
                                          layout.GetNavigationIcons())) {
        icons += icon;
    }
    return pictures.Pair("currentNavigationIcon", "pic-xl", layout.GetCurrentNavigationIconStr(),
                         layout.GetCurrentNavigationIcon()) +
           (icons.empty() ? std::string() : Element("div", "nav-icons", "navigationIcons", icons));
}

// Draws the layout as Kind when it is one; false when it is not.
template <typename Kind>
bool Draw(const std::shared_ptr<Kind>& layout,
          std::string (*draw)(const Kind&, PictureDrawer&, bool), PictureDrawer& pictures,
          bool withColors, std::string& inner) {
    if (layout == nullptr) {
        return false;
    }
    inner = draw(*layout, pictures, withColors);
    return true;
}

}  // namespace

std::string LayoutHtml(const std::shared_ptr<LayoutData>& layout, PictureDrawer& pictures,
                       bool withColors) {
    std::string inner;
    const char* kind =
        Draw(AsProgressLayout(layout), Progress, pictures, withColors, inner)       ? "progress"
        : Draw(AsPickupLayout(layout), Pickup, pictures, withColors, inner)         ? "pickup"
        : Draw(AsFlightLayout(layout), Flight, pictures, withColors, inner)         ? "flight"
        : Draw(AsScoreLayout(layout), Score, pictures, withColors, inner)           ? "score"
        : Draw(AsNavigationLayout(layout), Navigation, pictures, withColors, inner) ? "navigation"
                                                                                    : "";
    if (inner.empty()) {
        return "";
    }
    return Element("div", (std::string("layout layout-") + kind).c_str(), "layout", inner,
                   Attr("data-kind", kind));
}

}  // namespace LiveViewRender
