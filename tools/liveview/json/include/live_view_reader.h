// The JSON front end of the live view record: member names are the record's field names
// ("id", "event", "sequence", "isMute", "timer", "liveViewData": {"primary", "capsule",
// "external"}, ...), pictures as picture_reader.h describes, click actions as {"target": ...}.
//
// A member of the wrong JSON type sets the param-failed text of the record that validation reads
// for it (the live view itself for the members of liveViewData), so that validation answers 401
// naming its path. A member that no reader knows gives a warning (or, strict, makes the input
// unusable).
//
// Thread safety: none; one reader per thread.
#ifndef LIVEVIEW_JSON_LIVE_VIEW_READER_H
#define LIVEVIEW_JSON_LIVE_VIEW_READER_H

#include <string>
#include <vector>

#include "field_reader.h"
#include "json_document.h"
#include "live_view.h"
#include "read_context.h"

namespace LiveViewJson {

// Fills liveView from object. False, with context.error set, when the input is unusable: object
// is not a JSON object, a picture file cannot be used, or memory ran out. Unknown members are
// not reported here (ReadContext::ReportUnknownMembers does, once the whole file is read).
bool ReadLiveView(const JsonValue* object, ReadContext& context,
                  Tavi::Wisp::LiveView::LiveView& liveView);

// Loads the live view file at path; picture files are relative to its folder. Unknown members
// are added to warnings (or, with options.strict, make the input unusable).
bool LoadLiveView(const std::string& path, const LoadOptions& options,
                  Tavi::Wisp::LiveView::LiveView& liveView, std::vector<InputWarning>& warnings,
                  InputError& error);
// The same with the default options and no warnings.
bool LoadLiveView(const std::string& path, Tavi::Wisp::LiveView::LiveView& liveView,
                  InputError& error);

// Loads the live view file at path as another file of the input that input reads: the options,
// the warnings and the picture files already read are shared. error names the file at path.
bool LoadLiveViewOf(const ReadContext& input, const std::string& path,
                    Tavi::Wisp::LiveView::LiveView& liveView, InputError& error);

// The folder that files named inside the file at path are relative to.
std::string FolderOf(const std::string& path);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_LIVE_VIEW_READER_H
