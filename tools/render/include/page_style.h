// What every page that shows the renderer's fragments shares: the style sheet and the clock script
// it carries inline, and the markup of the device frames' own parts.
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

// The signal and battery icons at the end of a device's status bar (HTML, styled by StyleSheet).
const char* StatusIcons();

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_PAGE_STYLE_H
