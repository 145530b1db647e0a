// The external screen: the external section's own title and rich-text content on its background
// colour ("#RRGGBB").
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_EXTERNAL_HTML_H
#define LIVEVIEW_RENDER_EXTERNAL_HTML_H

#include <memory>
#include <string>

#include "external_data.h"

namespace LiveViewRender {

// <div data-part="external">; empty when external is null or none of its fields is set. A
// background colour not of the form "#RRGGBB" leaves the screen's own colour.
std::string ExternalHtml(const std::shared_ptr<Tavi::Wisp::LiveView::ExternalData>& external);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_EXTERNAL_HTML_H
