// Picture files as the front end reads them: a FIFO is refused with its place, not waited on; a
// file is decoded into its colours, and a file named again is read once and shared, so an
// overlong list of a big picture is not decoded again and again; the pictures of one input are
// bounded together.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <string>

#include "live_view_manager.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using namespace Tavi::Wisp::LiveView;

std::string BigEndian(uint32_t v) {
    return {static_cast<char>(v >> 24), static_cast<char>(v >> 16), static_cast<char>(v >> 8),
            static_cast<char>(v)};
}

std::string Chunk(const std::string& type, const std::string& data) {
    uint32_t crc = 0xFFFFFFFFu;
    for (const char byte : type + data) {
        crc ^= static_cast<unsigned char>(byte);
        for (int k = 0; k < 8; ++k) {
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
    }
    return BigEndian(static_cast<uint32_t>(data.size())) + type + data + BigEndian(~crc);
}

// A black grey PNG of width x height that compresses about a thousandfold: its image data is one
// fixed-Huffman deflate block of a zero byte and copies of 258 bytes at distance 1.
std::string BlackPng(uint32_t width, uint32_t height) {
    std::string bits = {1, 1, 0};  // the final block, fixed codes
    const auto code = [&bits](uint32_t value, int count) {
        while (count-- > 0) {
            bits += static_cast<char>((value >> count) & 1u);
        }
    };
    const uint64_t raw = static_cast<uint64_t>(height) * (width + 1);  // a filter byte a row
    code(0x30, 8);                                                     // the zero byte
    for (uint64_t left = raw - 1; left > 0;) {
        const bool copy = left >= 258;
        copy ? code(0xC5u << 5, 13) : code(0x30, 8);
        left -= copy ? 258 : 1;
    }
    code(0, 7);  // the end of the block
    std::string packed((bits.size() + 7) / 8, '\0');
    for (size_t i = 0; i < bits.size(); ++i) {
        packed[i / 8] = static_cast<char>(packed[i / 8] | bits[i] << (i % 8));
    }
    const std::string zlib = "\x78\x01" + packed + BigEndian((raw % 65521) << 16 | 1u);
    return std::string("\x89PNG\r\n\x1a\n", 8) +
           Chunk("IHDR", BigEndian(width) + BigEndian(height) + std::string("\x08\0\0\0\0", 5)) +
           Chunk("IDAT", zlib) + Chunk("IEND", "");
}

// A start record that passes every check up to its progress layout's node icons, the files.
std::string WithNodeIcons(const std::vector<std::string>& files) {
    std::string items;
    for (const auto& file : files) {
        items += (items.empty() ? "" : ", ") + std::string(R"({"file": ")") + file + "\"}";
    }
    return R"({"id": 1, "event": "E", "liveViewData": {"primary": {"title": "t",
        "content": [{"text": "x"}], "clickAction": {"target": "a/B"},
        "layoutData": {"layoutType": 3, "progress": 1, "nodeIcons": [)" +
           items + "]}}}}";
}

// The column of the last file item of a WithNodeIcons() text, on its third line.
std::string Column(const std::string& text) {
    return std::to_string(text.rfind("{\"file\"") - text.rfind('\n'));
}

// A FIFO named as a picture file is refused with its place, not waited on.
TEST(FrontEndPictureFileTest, AFifoIsRefusedNotWaitedOn) {
    ScratchDir dir;
    ASSERT_EQ(::mkfifo(dir.Path("fifo.png").c_str(), 0600), 0);
    const std::string text = WithNodeIcons({dir.Path("fifo.png")});
    LiveView liveView;
    LiveViewJson::InputError error;
    EXPECT_FALSE(ReadFromText(text, liveView, &error));
    EXPECT_EQ(error.ToString(), "test.json:3:" + Column(text) +
                                    ": layoutData.nodeIcons[0]: picture file " +
                                    dir.Path("fifo.png") + ": not a regular file");
}

TEST(FrontEndPictureFileTest, PicturesAreDecodedOnceAndBoundedTogether) {
    const std::string node = ExamplePath("images/node.png");
    LiveView small;
    ASSERT_TRUE(ReadFromText(WithNodeIcons({node, "../images/node.png"}), small));
    const auto nodes = AsProgressLayout(LiveView::GetLayoutData(small))->GetNodeIcons();
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[1], nodes[0]);
    const uint8_t* centre = nodes[0]->GetPixels() + nodes[0]->GetRowBytes() * 12 + 4 * 12;
    EXPECT_EQ(std::string(centre, centre + 4), "\x1E\x88\xE5\xFF");  // the disc's opaque blue
    EXPECT_EQ(nodes[0]->GetPixels()[3], 0);                          // a transparent corner

    ScratchDir dir;
    const std::string big = dir.Write("big.png", BlackPng(4000, 4000));  // 64,000,000 decoded
    LiveView liveView;
    LiveViewJson::InputError error;
    ASSERT_TRUE(ReadFromText(WithNodeIcons(std::vector<std::string>(64, big)), liveView, &error))
        << error.ToString();
    const auto icons = AsProgressLayout(LiveView::GetLayoutData(liveView))->GetNodeIcons();
    ASSERT_EQ(icons.size(), 64u);
    EXPECT_EQ(icons[63], icons[0]);
    EXPECT_EQ(icons[0]->GetByteCount(), 64000000);
    EXPECT_EQ(
        LiveViewParamValidate::ValidateStartLiveViewParam(liveView, LiveView::START).GetInfo(),
        "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | "
        "image.PixelMap> [or the parameter length exceeds the limit].");

    const std::string text = WithNodeIcons(
        {big, dir.Write("b.png", BlackPng(4000, 4000)), dir.Write("c.png", BlackPng(4000, 4000))});
    EXPECT_FALSE(ReadFromText(text, liveView, &error));
    EXPECT_EQ(error.ToString(),
              "test.json:3:" + Column(text) + ": layoutData.nodeIcons[2]: picture file " +
                  dir.Path("c.png") +
                  ": the pictures of this input would take more than 128 MiB decoded");
}

}  // namespace
}  // namespace LiveViewToolsTest
