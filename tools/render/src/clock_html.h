// A clock that the page's script moves: it shows a time in milliseconds as [H:]MM:SS and, unless
// paused, counts up or down from it once a second, stopping at zero. The text written here is
// what the script would show at its first tick, so a page without scripts still reads right.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_CLOCK_HTML_H
#define LIVEVIEW_RENDER_CLOCK_HTML_H

#include <cstdint>
#include <string>

namespace LiveViewRender {

// "MM:SS" below an hour, else "H:MM:SS"; a negative time shows as zero.
std::string FormatClock(std::int64_t millis);

// <span class="cls" data-part="timer" data-clock-ms=... data-countdown=0|1 data-paused=0|1>.
std::string ClockElement(const char* cls, std::int64_t millis, bool countdown, bool paused);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_CLOCK_HTML_H
