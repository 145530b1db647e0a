// A notification request as readable JSON: the request's own fields, the live-view content's
// status and version, every extra-info key with its box type and value, and the picture map as
// keys with sizes ("48x48, 9216 bytes").
#ifndef LIVEVIEW_CLI_REQUEST_JSON_H
#define LIVEVIEW_CLI_REQUEST_JSON_H

#include <cjson/cJSON.h>

#include <string>

#include "notification_request.h"
#include "pixel_map.h"

namespace LiveViewCli {

// A new tree, owned by the caller.
cJSON* RequestToJson(const Tavi::Notification::NotificationRequest& request);

// "WxH, N bytes".
std::string DescribePicture(const Tavi::Media::PixelMap& picture);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_REQUEST_JSON_H
