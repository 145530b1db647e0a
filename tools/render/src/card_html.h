// The card of a live view, in the notification shade or on the lock screen: a head naming the app
// and event (with "Ended" and "Silent" marks), the title, the rich-text content, the timer line,
// the immersive picture and the layout area; in the shade also the extension area and the
// request's action buttons. The lock screen card is dark and draws text runs in its own colour so
// that every run stays readable.
//
// Thread safety: none beyond the drawer's; one call per rendering at a time.
#ifndef LIVEVIEW_RENDER_CARD_HTML_H
#define LIVEVIEW_RENDER_CARD_HTML_H

#include <string>

#include "live_view.h"
#include "notification_request.h"
#include "picture_html.h"

namespace LiveViewRender {

// What the card says about the live view besides its record.
struct CardHead {
    std::string app;  // the owning app's bundle name; empty when unknown
    bool ended = false;
};

// <article data-part="card">.
std::string ShadeCardHtml(const Tavi::Wisp::LiveView::LiveView& liveView, const CardHead& head,
                          const Tavi::Notification::NotificationRequest& request,
                          PictureDrawer& pictures);

// <article data-part="lockscreen">.
std::string LockScreenCardHtml(const Tavi::Wisp::LiveView::LiveView& liveView, const CardHead& head,
                               PictureDrawer& pictures);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_CARD_HTML_H
