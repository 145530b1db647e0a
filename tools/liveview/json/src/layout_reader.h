// Reads the layout member of the primary data.
#ifndef LIVEVIEW_JSON_LAYOUT_READER_H
#define LIVEVIEW_JSON_LAYOUT_READER_H

#include <memory>

#include "field_reader.h"
#include "layout_data.h"

namespace LiveViewJson {

// The member name as the layout kind that its layoutType names (3 progress, 4 pickup, 5 flight,
// 7 score, 8 navigation, any other value a plain LayoutData), its layoutType set to the value
// given; null when the member is absent or not an object.
std::shared_ptr<Tavi::Wisp::LiveView::LayoutData> ReadLayout(const FieldReader& primary,
                                                             const char* name);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_LAYOUT_READER_H
