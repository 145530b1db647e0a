#include "png_decoder.h"

#include <png.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace LiveViewJson {

using Tavi::Media::PixelFormat;
using Tavi::Media::PixelMap;

namespace {

constexpr uint64_t MAX_DECODED_BYTES = 64u * 1024u * 1024u;
constexpr size_t SIGNATURE_BYTES = 8;

struct FileCloser {
    void operator()(FILE* file) const { std::fclose(file); }
};

// Frees what libpng holds for image on every exit.
struct ImageGuard {
    png_image& image;
    ~ImageGuard() { png_image_free(&image); }
};

}  // namespace

bool DecodePngFile(const std::string& path, std::shared_ptr<PixelMap>& picture,
                   std::string& reason) {
    std::unique_ptr<FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
        reason = std::string("cannot be read: ") + std::strerror(errno);
        return false;
    }
    png_byte signature[SIGNATURE_BYTES] = {};
    if (std::fread(signature, 1, SIGNATURE_BYTES, file.get()) != SIGNATURE_BYTES ||
        png_sig_cmp(signature, 0, SIGNATURE_BYTES) != 0) {
        reason = "not a PNG file";
        return false;
    }
    std::rewind(file.get());

    png_image image;
    std::memset(&image, 0, sizeof(image));
    image.version = PNG_IMAGE_VERSION;
    ImageGuard guard{image};
    if (png_image_begin_read_from_stdio(&image, file.get()) == 0) {
        reason = std::string("damaged PNG: ") + image.message;
        return false;
    }
    image.format = PNG_FORMAT_RGBA;
    if (static_cast<uint64_t>(image.width) * image.height * 4u > MAX_DECODED_BYTES) {
        reason = "PNG larger than 64 MiB when decoded";
        return false;
    }
    Tavi::Media::InitializationOptions options;
    options.size = {static_cast<int32_t>(image.width), static_cast<int32_t>(image.height)};
    options.pixelFormat = PixelFormat::RGBA_8888;
    std::shared_ptr<PixelMap> decoded = PixelMap::Create(options);
    if (decoded == nullptr) {
        reason = "PNG of an unusable size";
        return false;
    }
    if (png_image_finish_read(&image, nullptr, decoded->GetWritablePixels(), 0, nullptr) == 0) {
        reason = std::string("damaged PNG: ") + image.message;
        return false;
    }
    picture = decoded;
    return true;
}

}  // namespace LiveViewJson
