// An extra-info map as JSON: every key with its box type and value, {"key": ["Integer", 4], ...}.
// Nested maps are written the same way, arrays as ["Array<String>", [...]].
#ifndef LIVEVIEW_CLI_EXTRA_INFO_JSON_H
#define LIVEVIEW_CLI_EXTRA_INFO_JSON_H

#include <cjson/cJSON.h>

#include "want_params.h"

namespace LiveViewCli {

// A new tree, owned by the caller.
cJSON* ExtraInfoToJson(const Tavi::AAFwk::WantParams& params);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_EXTRA_INFO_JSON_H
