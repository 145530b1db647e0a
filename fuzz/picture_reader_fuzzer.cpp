// Arbitrary bytes given to the front end's picture reader as a PNG file (with the checksum of every
// whole chunk made right first, so that mutations reach the decoder), two ways:
//   - straight to the decoder, measured and then decoded under a small bound: a refusal is one
//     line; a picture read is RGBA_8888, within the bound, of the same size measured or decoded;
//     a picture decoded is refused under a bound one byte smaller;
//   - as a file that a live view names three times (twice by one name, once by another) in a
//     picture list: the input is usable exactly when the decoder reads the file, a refusal is one
//     line, and the three items share one pixel map.
#include <unistd.h>
#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "fuzz_support.h"
#include "input_file.h"
#include "json_document.h"
#include "live_view_reader.h"
#include "png_decoder.h"
#include "progress_layout.h"

namespace {

using LiveViewFuzz::Expect;
using Tavi::Media::PixelMap;

// Small enough that the bound is met often, large enough for real pictures.
constexpr uint64_t FUZZ_DECODED_BOUND = 1024 * 1024;

constexpr size_t SIGNATURE_BYTES = 8;
constexpr size_t CHUNK_FRAME_BYTES = 12;  // length, type, checksum

uint32_t BigEndianAt(const std::string& bytes, size_t at) {
    uint32_t value = 0;
    for (size_t k = 0; k < 4; ++k) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + k]);
    }
    return value;
}

// data, with the checksum of each whole chunk after a PNG signature set to match the chunk.
std::string WithChunkChecksums(const uint8_t* data, size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (size < SIGNATURE_BYTES || std::memcmp(bytes.data(), "\x89PNG\r\n\x1a\n", 8) != 0) {
        return bytes;
    }
    for (size_t at = SIGNATURE_BYTES; at + CHUNK_FRAME_BYTES <= bytes.size();) {
        const uint32_t length = BigEndianAt(bytes, at);
        if (length > bytes.size() - at - CHUNK_FRAME_BYTES) {
            break;
        }
        const uLong crc = crc32(0L, reinterpret_cast<const Bytef*>(bytes.data() + at + 4),
                                static_cast<uInt>(length + 4));
        for (size_t k = 0; k < 4; ++k) {
            bytes[at + 8 + length + k] = static_cast<char>(crc >> (24 - 8 * k));
        }
        at += CHUNK_FRAME_BYTES + length;
    }
    return bytes;
}

bool IsOneLine(const std::string& text) {
    return !text.empty() && text.find('\n') == std::string::npos &&
           text.find('\r') == std::string::npos;
}

// The picture as the decoder reads bytes; false when it refuses them.
bool CheckDecoder(const uint8_t* data, size_t size) {
    LiveViewJson::InputFile file(fmemopen(const_cast<uint8_t*>(data), size, "rb"));
    if (file == nullptr) {
        return false;
    }
    std::shared_ptr<PixelMap> measured;
    std::string reason;
    const bool sized = LiveViewJson::ReadPng(file.get(), LiveViewJson::PngRead::SIZE,
                                             FUZZ_DECODED_BOUND, measured, reason);
    Expect(sized || IsOneLine(reason), "a refusal is one line", 0, reason);
    std::rewind(file.get());
    std::shared_ptr<PixelMap> decoded;
    const bool read = LiveViewJson::ReadPng(file.get(), LiveViewJson::PngRead::PIXELS,
                                            FUZZ_DECODED_BOUND, decoded, reason);
    Expect(read || IsOneLine(reason), "a refusal is one line", 0, reason);
    Expect(!read || sized, "what decodes can be measured");
    if (!read) {
        return false;
    }
    Expect(decoded->GetPixelFormat() == Tavi::Media::PixelFormat::RGBA_8888 &&
               decoded->GetWidth() == measured->GetWidth() &&
               decoded->GetHeight() == measured->GetHeight() &&
               static_cast<uint64_t>(decoded->GetByteCount()) <= FUZZ_DECODED_BOUND,
           "a decoded picture is the size measured, within the bound");
    std::rewind(file.get());
    std::shared_ptr<PixelMap> refused;
    Expect(
        !LiveViewJson::ReadPng(file.get(), LiveViewJson::PngRead::PIXELS,
                               static_cast<uint64_t>(decoded->GetByteCount()) - 1, refused, reason),
        "a bound one byte smaller refuses the picture");
    return true;
}

// A folder of this process's own for the picture file.
const std::filesystem::path& Folder() {
    static const std::filesystem::path folder = [] {
        auto path = std::filesystem::temp_directory_path() /
                    ("picture_reader_fuzzer_" + std::to_string(::getpid()));
        std::filesystem::create_directories(path);
        return path;
    }();
    return folder;
}

void CheckReader(const uint8_t* data, size_t size, bool decodable) {
    {
        std::ofstream out(Folder() / "p.png", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    const std::string json =
        R"({"liveViewData": {"primary": {"layoutData": {"layoutType": 3, "nodeIcons": [
            {"file": "p.png"}, "res://a", {"file": "p.png"}, {"file": "./p.png"}]}}}})";
    LiveViewJson::JsonDocument document;
    LiveViewJson::InputError error;
    Expect(LiveViewJson::ParseJson(json, "fuzz.json", document, error), "the live view parses");
    LiveViewJson::ReadContext context{"fuzz.json", Folder().string(), {}};
    Tavi::Wisp::LiveView::LiveView liveView;
    const bool usable = LiveViewJson::ReadLiveView(document.Root(), context, liveView);
    if (!usable) {
        Expect(IsOneLine(context.error.ToString()), "a refusal is one line", 0,
               context.error.ToString());
        return;
    }
    const auto layout = Tavi::Wisp::LiveView::AsProgressLayout(
        Tavi::Wisp::LiveView::LiveView::GetLayoutData(liveView));
    const auto& icons = layout->GetNodeIcons();
    Expect(icons.size() == 3 && icons[0] == icons[1] && icons[1] == icons[2],
           "a file named again is shared");
    // Whatever the small bound let through, the reader's own bounds let through too.
    Expect(!decodable || usable, "a picture the decoder reads is usable");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string png = WithChunkChecksums(data, size);
    const auto* bytes = reinterpret_cast<const uint8_t*>(png.data());
    const bool decodable = CheckDecoder(bytes, png.size());
    CheckReader(bytes, png.size(), decodable);
    return 0;
}
