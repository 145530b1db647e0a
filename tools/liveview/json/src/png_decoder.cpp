#include "png_decoder.h"

#include <png.h>

#include <cstring>

#include "byte_size.h"

namespace LiveViewJson {

using Tavi::Media::PixelFormat;
using Tavi::Media::PixelMap;

namespace {

constexpr size_t SIGNATURE_BYTES = 8;
constexpr uint64_t RGBA_BYTES = 4;

// Frees what libpng holds for image on every exit.
struct ImageGuard {
    png_image& image;
    ~ImageGuard() { png_image_free(&image); }
};

}  // namespace

bool ReadPng(FILE* file, PngRead what, uint64_t maxDecodedBytes, std::shared_ptr<PixelMap>& picture,
             std::string& reason) {
    const long start = std::ftell(file);
    png_byte signature[SIGNATURE_BYTES] = {};
    if (std::fread(signature, 1, SIGNATURE_BYTES, file) != SIGNATURE_BYTES ||
        png_sig_cmp(signature, 0, SIGNATURE_BYTES) != 0) {
        reason = "not a PNG file";
        return false;
    }
    std::fseek(file, start, SEEK_SET);

    png_image image;
    std::memset(&image, 0, sizeof(image));
    image.version = PNG_IMAGE_VERSION;
    ImageGuard guard{image};
    if (png_image_begin_read_from_stdio(&image, file) == 0) {
        reason = std::string("damaged PNG: ") + image.message;
        return false;
    }
    image.format = PNG_FORMAT_RGBA;
    if (static_cast<uint64_t>(image.width) * image.height * RGBA_BYTES > maxDecodedBytes) {
        reason = "PNG larger than " + ByteSizeText(maxDecodedBytes) + " when decoded";
        return false;
    }
    Tavi::Media::InitializationOptions options;
    options.size = {static_cast<int32_t>(image.width), static_cast<int32_t>(image.height)};
    options.pixelFormat = PixelFormat::RGBA_8888;
    std::shared_ptr<PixelMap> read = PixelMap::Create(options);
    if (read == nullptr) {
        reason = "PNG of an unusable size";
        return false;
    }
    if (what == PngRead::PIXELS &&
        png_image_finish_read(&image, nullptr, read->GetWritablePixels(), 0, nullptr) == 0) {
        reason = std::string("damaged PNG: ") + image.message;
        return false;
    }
    picture = read;
    return true;
}

}  // namespace LiveViewJson
