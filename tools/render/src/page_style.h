// The style sheet and the clock script that every page of the renderer carries inline.
//
// Thread safety: constants.
#ifndef LIVEVIEW_RENDER_PAGE_STYLE_H
#define LIVEVIEW_RENDER_PAGE_STYLE_H

namespace LiveViewRender {

// The CSS of the frames, the presentations and the panels.
const char* StyleSheet();

// Moves every clock element (clock_html.h) once a second: from the moment it first sees an
// element, an unpaused clock shows its time plus (or, counting down, minus) the seconds passed,
// formatted as FormatClock does. Elements added later start from when they are first seen.
const char* ClockScript();

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_PAGE_STYLE_H
