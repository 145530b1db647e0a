// Pixel maps: sizes by pixel format, refused sizes, colour filling and deep copies.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "pixel_map.h"

namespace Tavi {
namespace Media {
namespace {

InitializationOptions Options(int32_t width, int32_t height, PixelFormat format) {
    InitializationOptions options;
    options.size.width = width;
    options.size.height = height;
    options.pixelFormat = format;
    return options;
}

TEST(PixelMapTest, ByteCountFollowsTheBytesOfEachPixelFormat) {
    const struct {
        const char* label;
        PixelFormat format;
        int32_t bytesPerPixel;
    } rows[] = {
        {"ALPHA_8", PixelFormat::ALPHA_8, 1},     {"RGB_565", PixelFormat::RGB_565, 2},
        {"RGBA_8888", PixelFormat::RGBA_8888, 4}, {"ARGB_8888", PixelFormat::ARGB_8888, 4},
        {"BGRA_8888", PixelFormat::BGRA_8888, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        auto map = PixelMap::Create(Options(7, 3, row.format));
        ASSERT_NE(map, nullptr);
        EXPECT_EQ(map->GetWidth(), 7);
        EXPECT_EQ(map->GetHeight(), 3);
        EXPECT_EQ(map->GetPixelFormat(), row.format);
        EXPECT_EQ(map->GetPixelBytes(), row.bytesPerPixel);
        EXPECT_EQ(PixelMap::BytesPerPixel(row.format), row.bytesPerPixel);
        EXPECT_EQ(map->GetRowBytes(), 7 * row.bytesPerPixel);
        EXPECT_EQ(map->GetByteCount(), 21 * row.bytesPerPixel);
    }
}

TEST(PixelMapTest, AnyByteCountCanBeMade) {
    // One-byte pixels make every count; the count is what a caller checks against its limits.
    for (int32_t bytes : {1, 2, 3, 1023, 1024, 1025, 2 * 1024 * 1024 + 1}) {
        SCOPED_TRACE(bytes);
        auto map = PixelMap::Create(Options(bytes, 1, PixelFormat::ALPHA_8));
        ASSERT_NE(map, nullptr);
        EXPECT_EQ(map->GetByteCount(), bytes);
    }
}

TEST(PixelMapTest, CreateRefusesUnusableSizesAndFormats) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    const struct {
        const char* label;
        int32_t width;
        int32_t height;
        PixelFormat format;
    } rows[] = {
        {"zero width", 0, 5, PixelFormat::RGBA_8888},
        {"zero height", 5, 0, PixelFormat::RGBA_8888},
        {"negative width", -1, 5, PixelFormat::ALPHA_8},
        {"negative height", 5, -1, PixelFormat::ALPHA_8},
        {"both minimal", std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::min(),
         PixelFormat::ALPHA_8},
        {"unknown format", 2, 2, PixelFormat::UNKNOWN},
        {"over INT32_MAX by the pixel bytes", 536870912, 1, PixelFormat::RGBA_8888},
        {"over INT32_MAX by the area", 65536, 32768, PixelFormat::ALPHA_8},
        {"both sides maximal", kMax, kMax, PixelFormat::BGRA_8888},
        {"one over INT32_MAX with two-byte pixels", kMax / 2 + 1, 1, PixelFormat::RGB_565},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(PixelMap::Create(Options(row.width, row.height, row.format)), nullptr);
    }
}

TEST(PixelMapTest, ByteCountUpToInt32MaxIsAccepted) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    const struct {
        const char* label;
        int32_t width;
        int32_t height;
        PixelFormat format;
        int32_t expected;
    } rows[] = {
        {"exactly INT32_MAX", kMax, 1, PixelFormat::ALPHA_8, kMax},
        {"largest four-byte row", 536870911, 1, PixelFormat::ARGB_8888, 2147483644},
        {"tall", 1, kMax / 2, PixelFormat::RGB_565, kMax - 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        auto map = PixelMap::Create(Options(row.width, row.height, row.format));
        ASSERT_NE(map, nullptr);  // nothing is allocated until the pixels are asked for
        EXPECT_EQ(map->GetByteCount(), row.expected);
    }
}

TEST(PixelMapTest, PixelsStartZeroAndFillFromArgbColoursPerFormat) {
    const uint32_t colors[] = {0x11223344, 0xFF000000};
    uint16_t rgb565 = static_cast<uint16_t>(((0x22 >> 3) << 11) | ((0x33 >> 2) << 5) | (0x44 >> 3));
    uint8_t rgb565Bytes[2];
    std::memcpy(rgb565Bytes, &rgb565, 2);
    const struct {
        const char* label;
        PixelFormat format;
        std::vector<uint8_t> firstPixel;
    } rows[] = {
        {"ALPHA_8 keeps alpha", PixelFormat::ALPHA_8, {0x11}},
        {"RGB_565 packs 5-6-5", PixelFormat::RGB_565, {rgb565Bytes[0], rgb565Bytes[1]}},
        {"ARGB_8888", PixelFormat::ARGB_8888, {0x11, 0x22, 0x33, 0x44}},
        {"RGBA_8888", PixelFormat::RGBA_8888, {0x22, 0x33, 0x44, 0x11}},
        {"BGRA_8888", PixelFormat::BGRA_8888, {0x44, 0x33, 0x22, 0x11}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        auto blank = PixelMap::Create(Options(2, 1, row.format));
        ASSERT_NE(blank, nullptr);
        const uint8_t* zeros = blank->GetPixels();
        for (int32_t i = 0; i < blank->GetByteCount(); ++i) {
            EXPECT_EQ(zeros[i], 0) << "byte " << i;
        }

        auto filled = PixelMap::Create(colors, 2, Options(2, 1, row.format));
        ASSERT_NE(filled, nullptr);
        const uint8_t* pixels = filled->GetPixels();
        const std::vector<uint8_t> first(pixels, pixels + row.firstPixel.size());
        EXPECT_EQ(first, row.firstPixel);
    }
}

TEST(PixelMapTest, CreateFromColoursRefusesTooFewOrNoColours) {
    const uint32_t colors[] = {1, 2, 3};
    EXPECT_EQ(PixelMap::Create(colors, 3, Options(2, 2, PixelFormat::RGBA_8888)), nullptr);
    EXPECT_EQ(PixelMap::Create(nullptr, 4, Options(2, 2, PixelFormat::RGBA_8888)), nullptr);
    EXPECT_EQ(PixelMap::Create(colors, 3, Options(0, 2, PixelFormat::RGBA_8888)), nullptr);
    EXPECT_NE(PixelMap::Create(colors, 3, Options(3, 1, PixelFormat::RGBA_8888)), nullptr);
}

TEST(PixelMapTest, CopyIsDeepWhetherOrNotPixelsWereAllocated) {
    auto original = PixelMap::Create(Options(2, 2, PixelFormat::RGBA_8888));
    ASSERT_NE(original, nullptr);
    PixelMap untouchedCopy(*original);
    original->GetWritablePixels()[0] = 0x5A;
    PixelMap allocatedCopy(*original);
    original->GetWritablePixels()[0] = 0xA5;

    EXPECT_EQ(untouchedCopy.GetByteCount(), 16);
    EXPECT_EQ(untouchedCopy.GetPixelFormat(), PixelFormat::RGBA_8888);
    EXPECT_EQ(untouchedCopy.GetPixels()[0], 0);
    EXPECT_EQ(allocatedCopy.GetPixels()[0], 0x5A);
    allocatedCopy.GetWritablePixels()[1] = 0x77;
    EXPECT_EQ(original->GetPixels()[1], 0);
}

}  // namespace
}  // namespace Media
}  // namespace Tavi
