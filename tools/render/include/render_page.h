// Self-contained HTML pages around the renderer's fragments: the style sheet, the script that
// ticks timers once a second, and the frames in which a person meets a live view (a phone with
// its status bar and notification shade, a lock screen, an external screen).
//
// A page loads nothing from outside: styles are inline, pictures are data: URIs, and a content
// security policy allows only the page's own script (by a nonce drawn for each page). Texts
// given here (headings, step labels, messages, hints) are escaped.
//
// Thread safety: stateless; concurrent calls are safe.
#ifndef LIVEVIEW_RENDER_RENDER_PAGE_H
#define LIVEVIEW_RENDER_RENDER_PAGE_H

#include <optional>
#include <string>
#include <vector>

#include "render_presentations.h"

namespace LiveViewRender {

// The presentations side by side: the phone (status bar with the capsule, shade with the card),
// the lock screen and the external screen. A live view that did not read back gives a refusal
// panel with the read-back's code and message instead.
std::string PresentationsRow(const Presentations& presentations);

// A panel telling that something was refused: its code, its message and, when not empty, a hint
// line for what to do about it.
std::string RefusalPanel(std::int32_t code, const std::string& message, const std::string& hint);

// A whole page: heading, then body (HTML made by this renderer, inserted as it is).
std::string Page(const std::string& heading, const std::string& body);

// Page(heading, PresentationsRow(presentations)).
std::string PreviewPage(const std::string& heading, const Presentations& presentations);

// One step of a filmstrip: what was done, what it answered, and what the service held after it
// (empty: nothing held).
struct Frame {
    std::string step;
    Answer answer;
    std::optional<Presentations> held;
};

// The frames one under the other, each with its step label and answer beside the presentations,
// or "nothing held".
std::string FilmstripPage(const std::string& heading, const std::vector<Frame>& frames);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_RENDER_PAGE_H
