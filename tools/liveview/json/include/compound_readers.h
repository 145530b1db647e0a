// Readers of the compound values that records hold besides pictures: rich-text lists, click
// actions and immersive parameter maps. Type errors are recorded through the FieldReader, on the
// record that holds the member.
//
// Thread safety: as FieldReader.
#ifndef LIVEVIEW_JSON_COMPOUND_READERS_H
#define LIVEVIEW_JSON_COMPOUND_READERS_H

#include <memory>
#include <vector>

#include "field_reader.h"
#include "rich_text.h"
#include "want_agent.h"
#include "want_params.h"

namespace LiveViewJson {

// An array of {"text": string, "textColor": string}; false when the member is absent or not an
// array. Null elements are skipped; other elements that are not objects are left out (and
// recorded).
bool ReadRichTexts(const FieldReader& reader, const char* name,
                   std::vector<std::shared_ptr<Tavi::Wisp::LiveView::RichText>>& runs);

// {"target": string}; null when the member is absent or not an object.
std::shared_ptr<Tavi::AbilityRuntime::WantAgent::WantAgent> ReadClickAction(
    const FieldReader& reader, const char* name);

// An object whose values are strings, booleans or whole numbers, boxed as String, Boolean,
// Integer (when the number fits in 32 bits) or Long; null when the member is absent or not an
// object. A null value means the entry is not given; other values are left out (and recorded).
std::shared_ptr<Tavi::AAFwk::WantParams> ReadParameters(const FieldReader& reader,
                                                        const char* name);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_COMPOUND_READERS_H
