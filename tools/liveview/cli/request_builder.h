// Builds the notification request that the client would publish for a live view, without a
// service: the client's sections in the client's order, each checked and, when it passes,
// converted.
//
// An update or stop is shaped by what the service holds for the id (layout kind, capsule kind,
// external title, timer). Without a service the held live view is taken to be of the record's
// own kinds, with external data and a timer when the record has them: an update that continues
// the live view as it is.
//
// Thread safety: none beyond that of the library's static operations.
#ifndef LIVEVIEW_CLI_REQUEST_BUILDER_H
#define LIVEVIEW_CLI_REQUEST_BUILDER_H

#include "base_rsp.h"
#include "live_view.h"
#include "notification_request.h"

namespace LiveViewCli {

// The first failing check's answer, or success with request filled. On stop the record's keep
// time is clamped as the client clamps it.
Tavi::Wisp::LiveView::BaseRsp BuildRequest(Tavi::Wisp::LiveView::LiveView& liveView,
                                           Tavi::Wisp::LiveView::LiveView::Operation operation,
                                           Tavi::Notification::NotificationRequest& request);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_REQUEST_BUILDER_H
