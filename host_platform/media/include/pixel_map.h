// PixelMap: a picture of width x height pixels in one pixel format.
//
// The pixel store is allocated on first access to the pixels, so a picture that only reports its
// size (as most notification pictures on this host do) costs no memory. Copies are deep.
//
// Thread safety: a PixelMap whose pixels are not being written may be read from several threads.
#ifndef TAVI_MEDIA_PIXEL_MAP_H
#define TAVI_MEDIA_PIXEL_MAP_H

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace Tavi {
namespace Media {

// Bytes a pixel: ALPHA_8 1; RGB_565 2; ARGB_8888, RGBA_8888 and BGRA_8888 4.
enum class PixelFormat : int32_t {
    UNKNOWN = 0,
    ARGB_8888 = 1,
    RGB_565 = 2,
    RGBA_8888 = 3,
    BGRA_8888 = 4,
    ALPHA_8 = 6,
};

struct Size {
    int32_t width = 0;
    int32_t height = 0;
};

struct InitializationOptions {
    Size size;
    PixelFormat pixelFormat = PixelFormat::RGBA_8888;
};

class PixelMap {
public:
    // A picture of the given size and format with all pixels zero. Null when a side is not
    // positive, the format is UNKNOWN, or the byte count would not fit in 31 bits.
    static std::unique_ptr<PixelMap> Create(const InitializationOptions& options);
    // The same, filled from colorLength ARGB colours (one a pixel, row by row); null as above or
    // when colorLength is less than the pixel count.
    static std::unique_ptr<PixelMap> Create(const uint32_t* colors, uint32_t colorLength,
                                            const InitializationOptions& options);

    PixelMap(const PixelMap& other);
    PixelMap& operator=(const PixelMap& other) = delete;
    virtual ~PixelMap() = default;

    int32_t GetWidth() const { return width_; }
    int32_t GetHeight() const { return height_; }
    PixelFormat GetPixelFormat() const { return format_; }
    // Bytes of one pixel in this format (1, 2 or 4).
    int32_t GetPixelBytes() const;
    int32_t GetRowBytes() const { return width_ * GetPixelBytes(); }
    // The size of the picture in bytes: row bytes times height.
    int32_t GetByteCount() const { return GetRowBytes() * height_; }
    // The pixels, GetByteCount() bytes; allocated on first call.
    const uint8_t* GetPixels() const;
    uint8_t* GetWritablePixels();

    static int32_t BytesPerPixel(PixelFormat format);

private:
    PixelMap(int32_t width, int32_t height, PixelFormat format);
    void Allocate() const;

    int32_t width_;
    int32_t height_;
    PixelFormat format_;
    mutable std::once_flag allocated_;
    mutable std::vector<uint8_t> pixels_;
};

}  // namespace Media
}  // namespace Tavi

#endif  // TAVI_MEDIA_PIXEL_MAP_H
