// NotificationRequestConversion: rebuilds a live view record from a live-view notification request
// that the notification service holds; the inverse of LiveViewParamConversion.
//
// The read is lenient: apart from a missing request, live-view content or extra-info map, a value
// that is missing or of another box type than its key carries leaves its field as it was, without
// a log line.
//
// Thread safety: stateless; concurrent calls on distinct records are safe. The request is only
// read.
#ifndef TAVI_WISP_LIVE_VIEW_NOTIFICATION_REQUEST_CONVERSION_H
#define TAVI_WISP_LIVE_VIEW_NOTIFICATION_REQUEST_CONVERSION_H

#include "base_rsp.h"
#include "live_view.h"
#include "notification_request.h"
#include "refbase.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class NotificationRequestConversion {
public:
    // Fills liveView in place: id, event, sequence, mute flag, and new live view data, timer,
    // primary data and external data, plus extension data, layout and capsule when the request
    // carries them. Fails with ERR_INTERNAL, leaving liveView untouched, when the request, its
    // live-view content or its extra-info map is null. Sections read before a later failure stay.
    static BaseRsp ConvertToLiveView(
        const Tavi::sptr<Tavi::Notification::NotificationRequest>& request, LiveView& liveView);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_NOTIFICATION_REQUEST_CONVERSION_H
