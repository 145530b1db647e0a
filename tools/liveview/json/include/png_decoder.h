// Decodes PNG files into pixel maps, for pictures that a live view names by file.
//
// Thread safety: distinct files may be decoded on distinct threads.
#ifndef LIVEVIEW_JSON_PNG_DECODER_H
#define LIVEVIEW_JSON_PNG_DECODER_H

#include <memory>
#include <string>

#include "pixel_map.h"

namespace LiveViewJson {

// An RGBA_8888 pixel map of the picture in the file at path. False with a one-line reason when
// the file cannot be read, is not a PNG, is damaged, or decodes to more than 64 MiB.
bool DecodePngFile(const std::string& path, std::shared_ptr<Tavi::Media::PixelMap>& picture,
                   std::string& reason);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_PNG_DECODER_H
