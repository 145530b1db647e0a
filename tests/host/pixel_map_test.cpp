// Pixel maps: the byte count by size and pixel format, and the refusal of every size whose byte
// count is not a positive 32-bit number.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "pixel_map.h"

namespace Tavi::Media {
namespace {

TEST(PixelMapTest, ByteCountFollowsSizeAndFormatAndUnusableSizesAreRefused) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
    constexpr int32_t kRefused = -1;
    const struct {
        const char* label;
        int32_t width;
        int32_t height;
        PixelFormat format;
        int32_t byteCount;
    } rows[] = {
        {"ALPHA_8", 7, 3, PixelFormat::ALPHA_8, 21},
        {"RGB_565", 7, 3, PixelFormat::RGB_565, 42},
        {"RGBA_8888", 7, 3, PixelFormat::RGBA_8888, 84},
        {"BGRA_8888", 7, 3, PixelFormat::BGRA_8888, 84},
        {"exactly INT32_MAX", kMax, 1, PixelFormat::ALPHA_8, kMax},
        {"largest four-byte row", 536870911, 1, PixelFormat::ARGB_8888, 2147483644},
        {"tall", 1, kMax / 2, PixelFormat::RGB_565, kMax - 1},
        {"zero width", 0, 5, PixelFormat::RGBA_8888, kRefused},
        {"negative width", -1, 5, PixelFormat::ALPHA_8, kRefused},
        {"both minimal", kMin, kMin, PixelFormat::ALPHA_8, kRefused},
        {"unknown format", 2, 2, PixelFormat::UNKNOWN, kRefused},
        {"over INT32_MAX by the pixel bytes", 536870912, 1, PixelFormat::RGBA_8888, kRefused},
        {"over INT32_MAX by the area", 65536, 32768, PixelFormat::ALPHA_8, kRefused},
        {"over INT32_MAX with two-byte pixels", kMax / 2 + 1, 1, PixelFormat::RGB_565, kRefused},
        {"both sides maximal", kMax, kMax, PixelFormat::BGRA_8888, kRefused},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const auto map =
            PixelMap::Create(InitializationOptions{{row.width, row.height}, row.format});
        if (row.byteCount == kRefused) {
            EXPECT_EQ(map, nullptr);
            continue;
        }
        ASSERT_NE(map, nullptr);  // nothing is allocated until the pixels are asked for
        EXPECT_EQ(map->GetByteCount(), row.byteCount);
        EXPECT_EQ(int64_t{map->GetRowBytes()} * row.height, row.byteCount);
    }
}

}  // namespace
}  // namespace Tavi::Media
