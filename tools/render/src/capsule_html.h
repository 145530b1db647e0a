// The capsule in the status bar, by kind: a text capsule (icon, title, content), a timer capsule
// (icon, content, a clock counting from its time) or a progress capsule (icon in a ring filled to
// progress / max, turning when indeterminate), on the capsule's background colour.
//
// Thread safety: none beyond the drawer's; one call per rendering at a time.
#ifndef LIVEVIEW_RENDER_CAPSULE_HTML_H
#define LIVEVIEW_RENDER_CAPSULE_HTML_H

#include <memory>
#include <string>

#include "capsule_data.h"
#include "picture_html.h"

namespace LiveViewRender {

// <div data-part="capsule" data-kind="text|timer|progress">; empty when capsule is null or of no
// known kind.
std::string CapsuleHtml(const std::shared_ptr<Tavi::Wisp::LiveView::CapsuleData>& capsule,
                        PictureDrawer& pictures);

// The share of progress in max as a whole percentage, 0 to 100; 0 when max is not positive.
int Percent(long long progress, long long max);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_CAPSULE_HTML_H
