#include "png_encoder.h"

#include <png.h>

#include <cstring>
#include <utility>
#include <vector>

namespace LiveViewRender {

using Tavi::Media::PixelFormat;

namespace {

// Widens 5 or 6 bits to 8 so that the largest value stays the largest.
std::uint8_t Widen(unsigned value, unsigned bits) {
    return static_cast<std::uint8_t>((value << (8 - bits)) | (value >> (2 * bits - 8)));
}

// One pixel of format at in, as R, G, B, A.
void ToRgba(PixelFormat format, const std::uint8_t* in, std::uint8_t* out) {
    switch (format) {
        case PixelFormat::ARGB_8888:
            out[0] = in[1];
            out[1] = in[2];
            out[2] = in[3];
            out[3] = in[0];
            break;
        case PixelFormat::BGRA_8888:
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
            out[3] = in[3];
            break;
        case PixelFormat::RGB_565: {
            // Stored in the machine's own byte order.
            std::uint16_t value = 0;
            std::memcpy(&value, in, sizeof(value));
            out[0] = Widen((value >> 11) & 31, 5);
            out[1] = Widen((value >> 5) & 63, 6);
            out[2] = Widen(value & 31, 5);
            out[3] = 255;
            break;
        }
        case PixelFormat::ALPHA_8:
            out[0] = out[1] = out[2] = 0;
            out[3] = in[0];
            break;
        default:
            std::memcpy(out, in, 4);
    }
}

}  // namespace

bool EncodePng(const Tavi::Media::PixelMap& picture, std::string& png, bool& blank) {
    const std::int64_t width = picture.GetWidth();
    const std::int64_t height = picture.GetHeight();
    const int bytes = picture.GetPixelBytes();
    if (bytes == 0 || width <= 0 || height <= 0 || width * height > MAX_ENCODED_PIXELS) {
        return false;
    }
    const std::uint8_t* pixels = picture.GetPixels();
    std::vector<std::uint8_t> rgba(static_cast<size_t>(width * height) * 4);
    bool transparent = true;
    for (size_t i = 0; i < static_cast<size_t>(width * height); ++i) {
        ToRgba(picture.GetPixelFormat(), pixels + i * bytes, &rgba[i * 4]);
        transparent = transparent && rgba[i * 4 + 3] == 0;
    }

    png_image image;
    std::memset(&image, 0, sizeof(image));
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 0;
    if (png_image_write_to_memory(&image, nullptr, &size, 0, rgba.data(), 0, nullptr) == 0) {
        png_image_free(&image);
        return false;
    }
    std::string out(size, '\0');
    const bool written =
        png_image_write_to_memory(&image, &out[0], &size, 0, rgba.data(), 0, nullptr) != 0;
    png_image_free(&image);
    if (!written) {
        return false;
    }
    out.resize(size);
    png = std::move(out);
    blank = transparent;
    return true;
}

}  // namespace LiveViewRender
