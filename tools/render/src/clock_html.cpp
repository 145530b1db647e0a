#include "clock_html.h"

#include <cstdio>

#include "html.h"

namespace LiveViewRender {

std::string FormatClock(std::int64_t millis) {
    const std::int64_t seconds = millis < 0 ? 0 : millis / 1000;
    const long long hours = seconds / 3600;
    const int minutes = static_cast<int>(seconds / 60 % 60);
    const int rest = static_cast<int>(seconds % 60);
    char out[40];
    if (hours > 0) {
        std::snprintf(out, sizeof(out), "%lld:%02d:%02d", hours, minutes, rest);
    } else {
        std::snprintf(out, sizeof(out), "%02d:%02d", minutes, rest);
    }
    return out;
}

std::string ClockElement(const char* cls, std::int64_t millis, bool countdown, bool paused) {
    return Element("span", cls, "timer", FormatClock(millis),
                   Attr("data-clock-ms", std::to_string(millis)) +
                       Attr("data-countdown", countdown ? "1" : "0") +
                       Attr("data-paused", paused ? "1" : "0"));
}

}  // namespace LiveViewRender
