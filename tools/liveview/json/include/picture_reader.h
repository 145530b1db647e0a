// The one reader of picture fields. A picture is given as one of
//   "res://icon"                                  a resource string: the field's ...Str form;
//   {"file": "icon.png"}                          a PNG relative to the input's folder: the
//                                                 pixel-map form;
//   {"width": 48, "height": 48, "format": "..."}  a blank pixel map: the pixel-map form (format
//                                                 ALPHA_8, RGB_565, RGBA_8888 (the default),
//                                                 ARGB_8888 or BGRA_8888).
// A picture list is an array of such items: strings go to the ...Str list, the others to the
// pixel-map list, each in its order; null items are skipped.
//
// A value of another type is recorded as a param-failed text; a picture file that cannot be
// used makes the input unusable (ReadContext::RefuseAt). The files of one input are read once
// each and their decoded pictures bounded together (MAX_INPUT_DECODED_BYTES).
//
// Thread safety: as FieldReader.
#ifndef LIVEVIEW_JSON_PICTURE_READER_H
#define LIVEVIEW_JSON_PICTURE_READER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "field_reader.h"
#include "pixel_map.h"

namespace LiveViewJson {

// A picture list with more items of one form than this (more than any list the library accepts)
// is refused by validation for its length whatever its pictures hold: its files are then checked
// and measured, not decoded.
constexpr size_t MAX_LIST_PICTURES = 6;
// The pictures decoded for one input (a live view, or a scenario with every live view it names)
// may take this many bytes together.
constexpr uint64_t MAX_INPUT_DECODED_BYTES = 128u * 1024u * 1024u;

struct Picture {
    std::shared_ptr<std::string> resource;
    std::shared_ptr<Tavi::Media::PixelMap> pixels;
};

// One picture value found at path; both members empty when value is absent or unusable.
Picture ReadPictureValue(const FieldReader& reader, const JsonValue* value,
                         const std::string& path);

// The picture member name.
Picture ReadPictureMember(const FieldReader& reader, const char* name);

// The picture list member name.
void ReadPictureList(const FieldReader& reader, const char* name,
                     std::vector<std::string>& resources,
                     std::vector<std::shared_ptr<Tavi::Media::PixelMap>>& pixels);

// Reads the picture member name into the record's pair of setters; a form not given is left
// unset.
template <typename Record, typename Base>
void ReadPicture(const FieldReader& reader, const char* name, Record& record,
                 void (Base::*setResource)(const std::shared_ptr<std::string>&),
                 void (Base::*setPixels)(const std::shared_ptr<Tavi::Media::PixelMap>&)) {
    const Picture picture = ReadPictureMember(reader, name);
    if (picture.resource != nullptr) {
        (record.*setResource)(picture.resource);
    }
    if (picture.pixels != nullptr) {
        (record.*setPixels)(picture.pixels);
    }
}

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_PICTURE_READER_H
