// The renderer's entry: draws a live view, as the notification service holds it, in each place a
// person meets it (the capsule in the status bar, the card in the notification shade, the lock
// screen card and the external screen), each as an HTML fragment with inline styles.
//
// What is drawn is what the held request reads back to (NotificationRequestConversion), not what
// an application meant to send; the action buttons come from the request itself. Every text from
// the request is escaped, colours are checked before they reach CSS, and pictures become data:
// URIs or labelled placeholders, so a fragment loads nothing from outside and runs no script of
// its own. The fragments need the style sheet and the clock script of render_page.h.
//
// Thread safety: stateless; concurrent calls are safe. The request is only read.
#ifndef LIVEVIEW_RENDER_RENDER_PRESENTATIONS_H
#define LIVEVIEW_RENDER_RENDER_PRESENTATIONS_H

#include <cstdint>
#include <string>

#include "notification_action_button.h"
#include "notification_request.h"
#include "refbase.h"

namespace LiveViewRender {

struct RenderOptions {
    // The folder of resource pictures: "res://name" is drawn from resourceDir/name.png when that
    // is a regular PNG file of at most maxResourceBytes, otherwise as a placeholder labelled with
    // the name. Empty: every resource is a placeholder.
    std::string resourceDir;
    std::uint64_t maxResourceBytes = 1024 * 1024;
};

// A code and its message: the answer of a step, or why a live view could not be drawn. Code 0 is
// success.
struct Answer {
    std::int32_t code = 0;
    std::string message;
};

// The HTML of each presentation of one live view.
struct Presentations {
    // The read-back's answer; when its code is not 0 every fragment below is empty.
    Answer readBack;
    std::int32_t id = 0;
    std::string event;
    bool ended = false;      // the service holds the live view as ended
    std::string capsule;     // empty when the live view has no capsule
    std::string card;        // the card in the notification shade
    std::string lockScreen;  // the card on the lock screen
    std::string external;    // empty when the external section holds nothing
};

// Reads request back and draws each presentation. A null request, or one that does not read back,
// gives the read-back's failure in readBack and no fragment.
Presentations RenderPresentations(
    const Tavi::sptr<Tavi::Notification::NotificationRequest>& request,
    const RenderOptions& options);

// The label a card shows on button, which is also the name a press of it carries: its title, else
// its action's target, else "Action".
std::string ButtonLabel(const Tavi::Notification::NotificationActionButton& button);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_RENDER_PRESENTATIONS_H
