// The JSON front end of the live view record: member names are the record's field names
// ("id", "event", "sequence", "isMute", "timer", "liveViewData": {"primary", "capsule",
// "external"}, ...), pictures as picture_reader.h describes, click actions as {"target": ...}.
//
// A member of the wrong JSON type sets the param-failed text of the record that validation reads
// for it (the live view itself for the members of liveViewData), so that validation answers 401
// naming its path. Unknown members are ignored.
//
// Thread safety: none; one reader per thread.
#ifndef LIVEVIEW_JSON_LIVE_VIEW_READER_H
#define LIVEVIEW_JSON_LIVE_VIEW_READER_H

#include <cjson/cJSON.h>

#include <string>

#include "field_reader.h"
#include "json_document.h"
#include "live_view.h"

namespace LiveViewJson {

// Fills liveView from object. False, with context.error set, when the input is unusable: object
// is not a JSON object, or a picture file cannot be decoded.
bool ReadLiveView(const cJSON* object, ReadContext& context,
                  Tavi::Wisp::LiveView::LiveView& liveView);

// Loads the live view file at path; picture files are relative to its folder.
bool LoadLiveView(const std::string& path, Tavi::Wisp::LiveView::LiveView& liveView,
                  InputError& error);

// The folder that files named inside the file at path are relative to.
std::string FolderOf(const std::string& path);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_LIVE_VIEW_READER_H
