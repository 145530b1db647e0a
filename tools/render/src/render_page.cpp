#include "render_page.h"

#include <random>

#include "html.h"
#include "page_style.h"

namespace LiveViewRender {
namespace {

// The phone's and lock screen's own clock and date; the live view's timers do not depend on them.
const char* const DEVICE_TIME = "9:41";
const char* const DEVICE_DATE = "Monday 3 June";

std::string Panel(const char* head, std::int32_t code, const std::string& message,
                  const std::string& hint) {
    std::string inner = Element("div", "r-head", "", head) +
                        Element("div", "r-code", "code", std::to_string(code)) +
                        Element("div", "r-message", "message", Escape(message));
    if (!hint.empty()) {
        inner += Element("div", "r-hint", "hint", Escape(hint));
    }
    return Element("section", "refusal", "refusal", inner);
}

std::string Stage(const char* caption, const std::string& inner) {
    return Element("figure", "stage", "", inner + Element("figcaption", "", "", caption));
}

std::string StatusBar(const std::string& capsule) {
    return Element("div", "statusbar", "statusbar",
                   Element("span", "now", "", DEVICE_TIME) + capsule + StatusIcons());
}

std::string EmptyNote(const char* text) {
    return Element("div", "empty-note", "", text);
}

std::string Phone(const Presentations& presentations) {
    const std::string shade = Element("div", "shade-date", "", DEVICE_DATE) + presentations.card;
    return Element("div", "device phone", "",
                   Element("div", "screen", "",
                           StatusBar(presentations.capsule) + Element("div", "shade", "", shade)));
}

std::string LockScreen(const Presentations& presentations) {
    const std::string screen = StatusBar("") + Element("div", "lock-time", "", DEVICE_TIME) +
                               Element("div", "lock-date", "", DEVICE_DATE) +
                               Element("div", "cards", "", presentations.lockScreen);
    return Element("div", "device lock", "", Element("div", "screen", "", screen));
}

std::string ExternalScreen(const Presentations& presentations) {
    return Element("div", "external-frame", "",
                   presentations.external.empty() ? EmptyNote("Nothing for the external screen")
                                                  : presentations.external);
}

std::string Nonce() {
    std::random_device device;
    std::string out;
    for (int i = 0; i < 4; ++i) {
        static const char HEX[] = "0123456789abcdef";
        unsigned value = device();
        for (int digit = 0; digit < 8; ++digit, value >>= 4) {
            out += HEX[value & 15];
        }
    }
    return out;
}

}  // namespace

std::string PresentationsRow(const Presentations& presentations) {
    if (presentations.readBack.code != 0) {
        return Panel("Cannot be read back", presentations.readBack.code,
                     presentations.readBack.message, "");
    }
    return Element("div", "row", "presentations",
                   Stage("Status bar and notification shade", Phone(presentations)) +
                       Stage("Lock screen", LockScreen(presentations)) +
                       Stage("External screen", ExternalScreen(presentations)));
}

std::string RefusalPanel(std::int32_t code, const std::string& message, const std::string& hint) {
    return Panel("Refused", code, message, hint);
}

std::string Page(const std::string& heading, const std::string& body) {
    const std::string nonce = Nonce();
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
           "img-src data:; style-src 'unsafe-inline'; script-src 'nonce-" +
           nonce +
           "'; base-uri 'none'; form-action 'none'\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
           Escape(heading) + "</title>\n<style>" + StyleSheet() + "</style>\n</head>\n<body>\n" +
           Element("h1", "page-head", "heading", Escape(heading)) + "\n" + body + "\n<script" +
           Attr("nonce", nonce) + ">" + ClockScript() + "</script>\n</body>\n</html>\n";
}

std::string PreviewPage(const std::string& heading, const Presentations& presentations) {
    return Page(heading, PresentationsRow(presentations));
}

std::string FilmstripPage(const std::string& heading, const std::vector<Frame>& frames) {
    std::string body;
    int number = 0;
    for (const Frame& frame : frames) {
        ++number;
        const std::string answer = std::to_string(frame.answer.code) + " " + frame.answer.message;
        const std::string info =
            Element("div", "frame-step", "", "Step " + std::to_string(number)) +
            Element("div", "frame-label", "step", Escape(frame.step)) +
            Element("div", frame.answer.code == 0 ? "frame-answer" : "frame-answer failed",
                    "answer", Escape(answer));
        const std::string held =
            frame.held.has_value() ? PresentationsRow(*frame.held)
                                   : Element("div", "nothing-held", "nothingHeld", "Nothing held");
        body += Element("section", "frame", "frame", Element("div", "frame-info", "", info) + held);
    }
    return Page(heading, body);
}

}  // namespace LiveViewRender
