// The picture files of one input (a live view, or a scenario with every live view it names): a
// file named by several fields is read once and its pixel map shared, and the pictures decoded
// for the input together stay within MAX_INPUT_DECODED_BYTES.
//
// Thread safety: none; an input is read on one thread.
#ifndef LIVEVIEW_JSON_PICTURE_FILES_H
#define LIVEVIEW_JSON_PICTURE_FILES_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "input_file.h"
#include "pixel_map.h"
#include "png_decoder.h"

namespace LiveViewJson {

class PictureFiles {
public:
    // The picture in the PNG file at path, decoded (PIXELS) or measured only (SIZE; a file
    // decoded before is shared as it is). False with a one-line reason when the file is not a
    // readable regular file, not a usable PNG, or would take the input's decoded pictures past
    // MAX_INPUT_DECODED_BYTES.
    bool Read(const std::string& path, PngRead what,
              std::shared_ptr<Tavi::Media::PixelMap>& picture, std::string& reason);

private:
    struct Entry {
        std::shared_ptr<Tavi::Media::PixelMap> picture;
        bool decoded = false;
    };

    std::map<FileIdentity, Entry> files_;
    uint64_t decodedBytes_ = 0;
};

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_PICTURE_FILES_H
