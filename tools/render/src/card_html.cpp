#include "card_html.h"

#include "clock_html.h"
#include "field_value.h"
#include "html.h"
#include "layout_html.h"
#include "render_presentations.h"
#include "rich_text_html.h"

namespace LiveViewRender {

using namespace Tavi::Wisp::LiveView;

namespace {

std::string Head(const LiveView& liveView, const CardHead& head) {
    std::string out = "<span class=\"app-icon\" aria-hidden=\"true\"></span>";
    if (!head.app.empty()) {
        out += Element("span", "app", "app", Escape(head.app));
    }
    if (!liveView.GetEvent().empty()) {
        out += Element("span", "event", "event", Escape(liveView.GetEvent()));
    }
    std::string badges;
    if (head.ended) {
        badges += Element("span", "badge ended", "ended", "Ended");
    }
    if (ValueOr(liveView.GetIsMute(), false)) {
        badges += Element("span", "badge", "mute", "Silent");
    }
    if (!badges.empty()) {
        out += Element("span", "badges", "", badges);
    }
    return Element("header", "card-head", "", out);
}

std::string TimerLine(const LiveView& liveView) {
    const auto timer = liveView.GetTimer();
    if (timer == nullptr || timer->GetTime() == nullptr) {
        return "";
    }
    const bool countdown = ValueOr(timer->GetIsCountdown(), false);
    const bool paused = ValueOr(timer->GetIsPaused(), false);
    std::string inner = "<span class=\"stopwatch\" aria-hidden=\"true\"></span>" +
                        ClockElement("clock", *timer->GetTime(), countdown, paused) +
                        Element("span", "clock-label", "", countdown ? "remaining" : "elapsed");
    if (paused) {
        inner += Element("span", "badge", "paused", "Paused");
    }
    return Element("div", "timer-line", "timerLine", inner);
}

// Title, content, timer line and immersive picture.
std::string Primary(const LiveView& liveView, PictureDrawer& pictures, bool withColors) {
    const auto primary = LiveView::GetPrimaryData(liveView);
    std::string text;
    std::string picture;
    if (primary != nullptr) {
        text = TextField("div", "title", "title", primary->GetTitle()) +
               RunsField("div", "content", "content", primary->GetContent(), withColors);
        picture = pictures.Pair("immersivePic", "pic-l", primary->GetImmersivePicStr(),
                                primary->GetImmersivePic());
    }
    text += TimerLine(liveView);
    if (text.empty() && picture.empty()) {
        return "";
    }
    return Element("div", "primary", "primary", Element("div", "primary-text", "", text) + picture);
}

std::string Extension(const LiveView& liveView, PictureDrawer& pictures) {
    const auto extension = LiveView::GetExtensionData(liveView);
    if (extension == nullptr) {
        return "";
    }
    const std::string inner =
        pictures.Pair("pic", "pic-m", extension->GetPicStr(), extension->GetPic()) +
        TextField("span", "ext-text", "text", extension->GetText());
    if (inner.empty()) {
        return "";
    }
    const auto action = extension->GetClickAction();
    return Element("div", "extension", "extension", inner,
                   Attr("data-type", std::to_string(static_cast<int>(extension->GetType()))) +
                       (action == nullptr ? std::string() : Attr("title", action->GetTarget())));
}

std::string Buttons(const Tavi::Notification::NotificationRequest& request) {
    std::string out;
    for (const auto& button : request.GetActionButtons()) {
        if (button == nullptr) {
            continue;
        }
        const auto action = button->GetWantAgent();
        const std::string target = action == nullptr ? std::string() : action->GetTarget();
        out += Element("span", "button", "button", Escape(ButtonLabel(*button)),
                       target.empty() ? std::string() : Attr("title", target));
    }
    return out.empty() ? out : Element("div", "buttons", "buttons", out);
}

}  // namespace

std::string ButtonLabel(const Tavi::Notification::NotificationActionButton& button) {
    const auto action = button.GetWantAgent();
    const std::string target = action == nullptr ? std::string() : action->GetTarget();
    return !button.GetTitle().empty() ? button.GetTitle() : !target.empty() ? target : "Action";
}

std::string ShadeCardHtml(const LiveView& liveView, const CardHead& head,
                          const Tavi::Notification::NotificationRequest& request,
                          PictureDrawer& pictures) {
    return Element("article", "card", "card",
                   Head(liveView, head) + Primary(liveView, pictures, true) +
                       LayoutHtml(LiveView::GetLayoutData(liveView), pictures, true) +
                       Extension(liveView, pictures) + Buttons(request));
}

std::string LockScreenCardHtml(const LiveView& liveView, const CardHead& head,
                               PictureDrawer& pictures) {
    return Element("article", "card dark", "lockscreen",
                   Head(liveView, head) + Primary(liveView, pictures, false) +
                       LayoutHtml(LiveView::GetLayoutData(liveView), pictures, false));
}

}  // namespace LiveViewRender
