// Encodes the picture that a pixel map holds as PNG, whatever its pixel format.
//
// Thread safety: distinct pictures may be encoded on distinct threads; a picture being encoded
// must not be written.
#ifndef LIVEVIEW_RENDER_PNG_ENCODER_H
#define LIVEVIEW_RENDER_PNG_ENCODER_H

#include <cstdint>
#include <string>

#include "pixel_map.h"

namespace LiveViewRender {

// Pictures with more pixels than this are not encoded.
constexpr std::int64_t MAX_ENCODED_PIXELS = 2048 * 2048;

// The PNG bytes of picture as RGBA, and whether every pixel of it is fully transparent (a blank
// picture, which a page can mark so that it is seen). False for an unknown pixel format, a
// picture larger than MAX_ENCODED_PIXELS, or a failure of the encoder.
bool EncodePng(const Tavi::Media::PixelMap& picture, std::string& png, bool& blank);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_PNG_ENCODER_H
