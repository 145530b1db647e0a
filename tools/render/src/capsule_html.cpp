#include "capsule_html.h"

#include "clock_html.h"
#include "css_color.h"
#include "field_value.h"
#include "html.h"
#include "progress_capsule.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace LiveViewRender {

using namespace Tavi::Wisp::LiveView;

namespace {

std::string TextInner(const TextCapsule& capsule) {
    return TextField("span", "c-title", "title", capsule.GetTitle()) +
           TextField("span", "c-content", "content", capsule.GetContent());
}

std::string TimerInner(const TimerCapsule& capsule) {
    std::string out = TextField("span", "c-content", "content", capsule.GetContent());
    if (capsule.GetTime() != nullptr) {
        out += ClockElement("c-timer", *capsule.GetTime(), ValueOr(capsule.GetIsCountdown(), false),
                            ValueOr(capsule.GetIsPaused(), false));
    }
    return out;
}

// The ring is drawn around the icon, so the icon goes inside it rather than before it.
std::string ProgressRing(const ProgressCapsule& capsule, const std::string& icon) {
    const bool indeterminate = ValueOr(capsule.GetIndeterminate(), false);
    const int percent = Percent(ValueOr(capsule.GetProgress(), 0), ValueOr(capsule.GetMax(), 0));
    const std::string dash = indeterminate ? "28 100" : std::to_string(percent) + " 100";
    const std::string ring =
        "<svg class=\"ring" + std::string(indeterminate ? " spin" : "") +
        "\" viewBox=\"0 0 36 36\" aria-hidden=\"true\">"
        "<circle class=\"ring-track\" cx=\"18\" cy=\"18\" r=\"15\"/>"
        "<circle class=\"ring-fill\" cx=\"18\" cy=\"18\" r=\"15\" pathLength=\"100\" "
        "stroke-dasharray=\"" +
        dash + "\" transform=\"rotate(-90 18 18)\"/></svg>";
    const std::string value = indeterminate ? "indeterminate" : std::to_string(percent);
    std::string out =
        Element("span", "ring-wrap", "progress", ring + icon, Attr("data-value", value));
    if (!indeterminate) {
        out += Element("span", "c-percent", "percent", std::to_string(percent) + "%");
    }
    return out;
}

}  // namespace

int Percent(long long progress, long long max) {
    if (max <= 0 || progress <= 0) {
        return 0;
    }
    return progress >= max ? 100 : static_cast<int>(progress * 100 / max);
}

std::string CapsuleHtml(const std::shared_ptr<CapsuleData>& capsule, PictureDrawer& pictures) {
    if (capsule == nullptr) {
        return "";
    }
    const std::string icon =
        pictures.Pair("icon", "pic-xs", capsule->GetIconStr(), capsule->GetIcon());
    const char* kind = nullptr;
    std::string inner;
    if (const auto text = AsTextCapsule(capsule)) {
        kind = "text";
        inner = icon + TextInner(*text);
    } else if (const auto timer = AsTimerCapsule(capsule)) {
        kind = "timer";
        inner = icon + TimerInner(*timer);
    } else if (const auto progress = AsProgressCapsule(capsule)) {
        kind = "progress";
        inner = ProgressRing(*progress, icon);
    } else {
        return "";
    }
    Rgba background;
    std::string cls = std::string("capsule kind-") + kind;
    std::string style;
    if (ParseArgb(capsule->GetBackgroundColor(), background)) {
        style = BackgroundAttrs(background, cls);
    }
    return Element("div", cls.c_str(), "capsule", inner, Attr("data-kind", kind) + style);
}

}  // namespace LiveViewRender
