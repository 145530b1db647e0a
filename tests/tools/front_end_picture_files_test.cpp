// Picture files as the front end reads them: a file that cannot be used makes the input unusable
// with its place and reason (a FIFO is refused, not waited on); a file named again is read once
// and shared; a list that validation refuses for its length is not decoded, however big its
// pictures; the pictures of one input are bounded together.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <string>

#include "live_view_param_validate.h"
#include "progress_layout.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using Tavi::Wisp::LiveView::AsProgressLayout;
using Tavi::Wisp::LiveView::LiveView;

// The bits of a deflate stream, packed from the lowest bit of each byte.
class BitWriter {
public:
    // The count lowest bits of value, lowest first: header fields.
    void Bits(uint32_t value, int count) {
        for (int i = 0; i < count; ++i) {
            Bit((value >> i) & 1u);
        }
    }
    // A Huffman code of count bits, highest first.
    void Code(uint32_t code, int count) {
        for (int i = count - 1; i >= 0; --i) {
            Bit((code >> i) & 1u);
        }
    }
    const std::string& Bytes() const { return bytes_; }

private:
    void Bit(uint32_t bit) {
        if (used_ == 0) {
            bytes_ += '\0';
        }
        bytes_.back() = static_cast<char>(bytes_.back() | (bit << used_));
        used_ = (used_ + 1) % 8;
    }

    std::string bytes_;
    int used_ = 0;
};

std::string BigEndian(uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
            static_cast<char>(value >> 8), static_cast<char>(value)};
}

uint32_t Crc32(const std::string& bytes) {
    uint32_t crc = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int k = 0; k < 8; ++k) {
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
    }
    return ~crc;
}

std::string Chunk(const std::string& type, const std::string& data) {
    return BigEndian(static_cast<uint32_t>(data.size())) + type + data +
           BigEndian(Crc32(type + data));
}

// A black grey PNG of width x height that compresses about a thousandfold: its image data is one
// fixed-Huffman deflate block of a zero byte and back-references to it.
std::string BlackPng(uint32_t width, uint32_t height) {
    const uint64_t rawBytes = static_cast<uint64_t>(height) * (width + 1);  // a filter byte a row
    constexpr uint32_t LITERAL_ZERO = 0x30;                                 // 8 bits
    constexpr uint32_t LENGTH_258 = 0xC5;  // 8 bits, then distance code 0 (distance 1), 5 bits
    constexpr uint64_t LONGEST = 258;
    BitWriter bits;
    bits.Bits(1, 1);  // the final block
    bits.Bits(1, 2);  // fixed Huffman codes
    bits.Code(LITERAL_ZERO, 8);
    uint64_t left = rawBytes - 1;
    for (; left >= LONGEST; left -= LONGEST) {
        bits.Code(LENGTH_258, 8);
        bits.Code(0, 5);
    }
    for (; left > 0; --left) {
        bits.Code(LITERAL_ZERO, 8);
    }
    bits.Code(0, 7);  // end of block
    const uint32_t adler = static_cast<uint32_t>(rawBytes % 65521) << 16 | 1u;
    const std::string zlib = std::string("\x78\x01") + bits.Bytes() + BigEndian(adler);
    const std::string header =
        BigEndian(width) + BigEndian(height) + std::string("\x08\0\0\0\0", 5);
    return std::string("\x89PNG\r\n\x1a\n", 8) + Chunk("IHDR", header) + Chunk("IDAT", zlib) +
           Chunk("IEND", "");
}

std::string FileItems(const std::string& file, int count) {
    std::string items;
    for (int i = 0; i < count; ++i) {
        items += std::string(i == 0 ? "" : ", ") + R"({"file": ")" + file + "\"}";
    }
    return items;
}

// A start record that passes every check up to its progress layout's node icons.
std::string ProgressWithNodeIcons(const std::string& items) {
    return R"({"id": 1, "event": "E", "liveViewData": {"primary": {"title": "t",
        "content": [{"text": "x"}], "clickAction": {"target": "a/B"},
        "layoutData": {"layoutType": 3, "progress": 1, "nodeIcons": [)" +
           items + "]}}}}";
}

TEST(FrontEndPictureFileTest, AFileThatCannotBeUsedMakesTheInputUnusable) {
    ScratchDir dir;
    dir.Write("fake.png", "GIF89a, not a PNG at all");
    dir.Write("cut.png", std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16));
    ASSERT_EQ(::mkfifo(dir.Path("fifo.png").c_str(), 0600), 0);
    const struct {
        std::string file;
        std::string reason;
    } rows[] = {
        {dir.Path("fake.png"), "not a PNG file"},  {dir.Path("cut.png"), "damaged PNG: "},
        {dir.Path("missing.png"), "no such file"}, {dir.Path("fifo.png"), "not a regular file"},
        {dir.Path(""), "not a regular file"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        const std::string text = R"({"liveViewData": {"primary": {"layoutData": {"layoutType": 4,
            "descPic": {"file": ")" +
                                 row.file + "\"}}}}}";
        LiveView liveView;
        LiveViewJson::InputError error;
        EXPECT_FALSE(ReadFromText(text, liveView, &error));
        const std::string expected =
            "test.json:2:24: layoutData.descPic: picture file " + row.file + ": " + row.reason;
        EXPECT_EQ(error.ToString().substr(0, expected.size()), expected);
    }
}

TEST(FrontEndPictureFileTest, AFileNamedAgainIsReadOnceAndShared) {
    const std::string node = ExamplePath("images/node.png");
    LiveView liveView;
    ASSERT_TRUE(ReadFromText(
        ProgressWithNodeIcons(FileItems("../images/node.png", 2) + ", " + FileItems(node, 1) +
                              ", " + FileItems("../liveviews/../images/node.png", 1)),
        liveView));
    const auto icons = AsProgressLayout(LiveView::GetLayoutData(liveView))->GetNodeIcons();
    ASSERT_EQ(icons.size(), 4u);
    for (const auto& icon : icons) {
        EXPECT_EQ(icon, icons[0]);
    }
    EXPECT_EQ(icons[0]->GetByteCount(), 24 * 24 * 4);
    EXPECT_EQ(icons[0]->GetPixels()[3], 0);  // decoded: a transparent corner
}

TEST(FrontEndPictureFileTest, ABigPictureRepeatedInAnOverlongListIsNotDecoded) {
    ScratchDir dir;
    const std::string big = dir.Write("big.png", BlackPng(4000, 4000));  // 64,000,000 decoded
    LiveView liveView;
    LiveViewJson::InputError error;
    ASSERT_TRUE(ReadFromText(ProgressWithNodeIcons(FileItems(big, 64)), liveView, &error))
        << error.ToString();
    const auto icons = AsProgressLayout(LiveView::GetLayoutData(liveView))->GetNodeIcons();
    ASSERT_EQ(icons.size(), 64u);
    for (const auto& icon : icons) {
        EXPECT_EQ(icon, icons[0]);
    }
    EXPECT_EQ(icons[0]->GetByteCount(), 64000000);
    const auto rsp = Tavi::Wisp::LiveView::LiveViewParamValidate::ValidateStartLiveViewParam(
        liveView, LiveView::START);
    EXPECT_EQ(rsp.GetErrAsInt32(), 401);
    EXPECT_EQ(rsp.GetInfo(),
              "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | "
              "image.PixelMap> [or the parameter length exceeds the limit].");
}

TEST(FrontEndPictureFileTest, ThePicturesOfOneInputAreBoundedTogether) {
    ScratchDir dir;
    const std::string png = BlackPng(4000, 4000);
    std::string items;
    for (const char* name : {"a.png", "b.png", "c.png"}) {
        items += (items.empty() ? "" : ", ") + FileItems(dir.Write(name, png), 1);
    }
    const std::string text = ProgressWithNodeIcons(items);
    LiveView liveView;
    LiveViewJson::InputError error;
    EXPECT_FALSE(ReadFromText(text, liveView, &error));
    EXPECT_EQ(error.ToString(),
              "test.json:3:" + std::to_string(text.rfind("{\"file\"") - text.rfind('\n')) +
                  ": layoutData.nodeIcons[2]: picture file " + dir.Path("c.png") +
                  ": the pictures of this input would take more than 128 MiB decoded");
}

}  // namespace
}  // namespace LiveViewToolsTest
