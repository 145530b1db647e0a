// Decodes PNG files into pixel maps, for pictures that a live view names by file.
//
// Thread safety: distinct files may be read on distinct threads.
#ifndef LIVEVIEW_JSON_PNG_DECODER_H
#define LIVEVIEW_JSON_PNG_DECODER_H

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "pixel_map.h"

namespace LiveViewJson {

// A picture is refused when it would decode to more bytes than this.
constexpr uint64_t MAX_PICTURE_DECODED_BYTES = 64u * 1024u * 1024u;

enum class PngRead {
    SIZE,    // only the header: a pixel map of the picture's size whose pixels are not decoded
             // (they read as zero, and cost no memory until they are read)
    PIXELS,  // the whole picture
};

// An RGBA_8888 pixel map of the PNG read from file, from where the file stands. False with a
// one-line reason when it is not a PNG, is damaged, or would decode to more than maxDecodedBytes
// (the reason then names that bound in MiB). A SIZE read checks the header only.
bool ReadPng(FILE* file, PngRead what, uint64_t maxDecodedBytes,
             std::shared_ptr<Tavi::Media::PixelMap>& picture, std::string& reason);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_PNG_DECODER_H
