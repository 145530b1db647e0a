// The layout area of a card, by kind: progress (a bar in its colours with the node icons along it
// and the indicator at the progress), pickup (title over its underline colour, content,
// description picture), flight (the two ends, the space icon, the horizontal line, additional
// text), score (host and guest with name, icon and score, the competition description and time)
// and navigation (the current icon and the icon list).
//
// Thread safety: none beyond the drawer's; one call per rendering at a time.
#ifndef LIVEVIEW_RENDER_LAYOUT_HTML_H
#define LIVEVIEW_RENDER_LAYOUT_HTML_H

#include <memory>
#include <string>

#include "layout_data.h"
#include "picture_html.h"

namespace LiveViewRender {

// <div data-part="layout" data-kind="progress|pickup|flight|score|navigation">; empty when layout
// is null, of no kind with fields, or has no field set. withColors false draws rich-text runs in
// the surrounding colour.
std::string LayoutHtml(const std::shared_ptr<Tavi::Wisp::LiveView::LayoutData>& layout,
                       PictureDrawer& pictures, bool withColors);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_LAYOUT_HTML_H
