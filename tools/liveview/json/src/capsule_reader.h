// Reads the capsule member of the live view data.
#ifndef LIVEVIEW_JSON_CAPSULE_READER_H
#define LIVEVIEW_JSON_CAPSULE_READER_H

#include <memory>

#include "capsule_data.h"
#include "field_reader.h"

namespace LiveViewJson {

// The member name as the capsule kind that its type names (1 text, 2 timer, 3 progress, any
// other value a plain CapsuleData), its type set to the value given; null when the member is
// absent or not an object. Type errors of the capsule's members go to the capsule.
std::shared_ptr<Tavi::Wisp::LiveView::CapsuleData> ReadCapsule(const FieldReader& holder,
                                                               const char* name);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_CAPSULE_READER_H
