#include "pixel_map.h"

#include <cstring>
#include <limits>

namespace Tavi {
namespace Media {

int32_t PixelMap::BytesPerPixel(PixelFormat format) {
    switch (format) {
        case PixelFormat::ALPHA_8:
            return 1;
        case PixelFormat::RGB_565:
            return 2;
        case PixelFormat::ARGB_8888:
        case PixelFormat::RGBA_8888:
        case PixelFormat::BGRA_8888:
            return 4;
        default:
            return 0;
    }
}

PixelMap::PixelMap(int32_t width, int32_t height, PixelFormat format)
    : width_(width), height_(height), format_(format) {}

PixelMap::PixelMap(const PixelMap& other)
    : width_(other.width_), height_(other.height_), format_(other.format_) {
    if (!other.pixels_.empty()) {
        std::call_once(allocated_, [this, &other] { pixels_ = other.pixels_; });
    }
}

std::unique_ptr<PixelMap> PixelMap::Create(const InitializationOptions& options) {
    const int64_t bytes = BytesPerPixel(options.pixelFormat);
    const int64_t width = options.size.width;
    const int64_t height = options.size.height;
    // width * height fits in 64 bits; multiplying by bytes as well might not.
    if (bytes == 0 || width <= 0 || height <= 0 ||
        width * height > std::numeric_limits<int32_t>::max() / bytes) {
        return nullptr;
    }
    return std::unique_ptr<PixelMap>(
        new PixelMap(options.size.width, options.size.height, options.pixelFormat));
}

std::unique_ptr<PixelMap> PixelMap::Create(const uint32_t* colors, uint32_t colorLength,
                                           const InitializationOptions& options) {
    auto map = Create(options);
    if (map == nullptr || colors == nullptr ||
        static_cast<int64_t>(colorLength) < static_cast<int64_t>(map->width_) * map->height_) {
        return nullptr;
    }
    uint8_t* out = map->GetWritablePixels();
    const size_t count = static_cast<size_t>(map->width_) * static_cast<size_t>(map->height_);
    for (size_t i = 0; i < count; ++i) {
        const uint32_t argb = colors[i];
        const uint8_t a = argb >> 24;
        const uint8_t r = (argb >> 16) & 0xFF;
        const uint8_t g = (argb >> 8) & 0xFF;
        const uint8_t b = argb & 0xFF;
        switch (map->format_) {
            case PixelFormat::ALPHA_8:
                out[i] = a;
                break;
            case PixelFormat::RGB_565: {
                const uint16_t v =
                    static_cast<uint16_t>(((r >> 3) << 11) | ((g >> 2) << 5) | (b >> 3));
                std::memcpy(out + 2 * i, &v, 2);
                break;
            }
            case PixelFormat::ARGB_8888: {
                const uint8_t px[4] = {a, r, g, b};
                std::memcpy(out + 4 * i, px, 4);
                break;
            }
            case PixelFormat::BGRA_8888: {
                const uint8_t px[4] = {b, g, r, a};
                std::memcpy(out + 4 * i, px, 4);
                break;
            }
            default: {
                const uint8_t px[4] = {r, g, b, a};
                std::memcpy(out + 4 * i, px, 4);
                break;
            }
        }
    }
    return map;
}

int32_t PixelMap::GetPixelBytes() const {
    return BytesPerPixel(format_);
}

void PixelMap::Allocate() const {
    std::call_once(allocated_, [this] {
        if (pixels_.empty()) {
            pixels_.assign(static_cast<size_t>(GetByteCount()), 0);
        }
    });
}

const uint8_t* PixelMap::GetPixels() const {
    Allocate();
    return pixels_.data();
}

uint8_t* PixelMap::GetWritablePixels() {
    Allocate();
    return pixels_.data();
}

}  // namespace Media
}  // namespace Tavi
