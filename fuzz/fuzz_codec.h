// The byte format that the record and request harnesses read. The seeds in fuzz/corpus/ are
// inputs of this format; the reader below is its one definition.
//
// A harness input is read front to back as a stream of fields; a stream that ends early reads as
// zeros and empty texts, so every byte string decodes to some record or request. The format can
// express everything the library may be handed: every field present or absent, record kinds that
// disagree with their type fields, texts past every length limit (a text is a list of plain or
// repeated pieces, so that deep brackets and long texts cost a few bytes), lists with null
// entries, pictures of any size the host will make, and parameter maps holding every box type,
// nested.
//
// Thread safety: a reader belongs to one thread.
#ifndef LIVE_VIEW_FUZZ_FUZZ_CODEC_H
#define LIVE_VIEW_FUZZ_FUZZ_CODEC_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "live_view_manager.h"

namespace LiveViewFuzz {

using namespace Tavi::Wisp::LiveView;
using Tavi::sptr;
namespace AAFwk = Tavi::AAFwk;
namespace Media = Tavi::Media;
namespace Notification = Tavi::Notification;
using WantAgent = Tavi::AbilityRuntime::WantAgent::WantAgent;
using PictureList = std::vector<std::shared_ptr<Media::PixelMap>>;
using RichTextList = std::vector<std::shared_ptr<RichText>>;

// Bounds that keep one input's cost small: a repeated piece, list lengths, map sizes, nesting.
// A repeated piece reaches past every length limit (the longest is 1024 bytes) with room to
// spare; longer texts take the same paths and only cost copying.
constexpr uint32_t MAX_REPEAT = 2048;
constexpr uint8_t MAX_PIECES = 8;
constexpr uint16_t MAX_RICH_TEXTS = 64;
constexpr uint8_t MAX_ICONS = 64;
constexpr uint8_t MAX_PARAMS = 64;
constexpr uint8_t MAX_ARRAY = 32;
constexpr int MAX_PARAMS_DEPTH = 4;
constexpr uint8_t MAX_BUTTONS = 4;
constexpr uint8_t MAX_PICTURE_KEYS = 16;
constexpr uint8_t MAX_PICTURES = 8;
// The first byte of a request input that stands for no request at all.
constexpr uint8_t NULL_REQUEST = 0xFF;
// A key byte at or above the catalogue's size is followed by a key text.
constexpr uint8_t OTHER_KEY = 0xFF;

// Every key of the extra-info and picture catalogue, picture keys included.
const std::vector<std::string>& CatalogueKeys();

// Which class a layout or capsule object is made of, independently of its type field.
enum class LayoutKind : uint8_t { BASE, PROGRESS, PICKUP, FLIGHT, SCORE, NAVIGATION, COUNT };
enum class CapsuleKind : uint8_t { BASE, TEXT, TIMER, PROGRESS, COUNT };

// The value box kinds of the format.
enum class BoxKind : uint8_t { NONE, STRING, INTEGER, LONG, BOOLEAN, DOUBLE, PARAMS, ARRAY, COUNT };

// ---------------------------------------------------------------------------------------------
// Reading.

class ByteReader {
public:
    ByteReader(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    size_t Remaining() const { return size_ - pos_; }

    uint8_t Byte() { return pos_ < size_ ? data_[pos_++] : 0; }
    bool Flag() { return (Byte() & 1) != 0; }
    uint16_t U16() { return static_cast<uint16_t>(Byte() | (Byte() << 8)); }
    uint32_t U32() { return static_cast<uint32_t>(U16()) | (static_cast<uint32_t>(U16()) << 16); }
    uint64_t U64() { return static_cast<uint64_t>(U32()) | (static_cast<uint64_t>(U32()) << 32); }
    int32_t I32() { return static_cast<int32_t>(U32()); }
    int64_t I64() { return static_cast<int64_t>(U64()); }
    double F64() {
        const uint64_t bits = U64();
        double value = 0;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }

    // Pieces, each plain (a length and its bytes) or repeated (one byte, a count of times).
    std::string Text() {
        std::string text;
        const uint8_t pieces = Byte() % (MAX_PIECES + 1);
        for (uint8_t i = 0; i < pieces; ++i) {
            if (Flag()) {
                const char piece = static_cast<char>(Byte());
                text.append(U32() % (MAX_REPEAT + 1), piece);
            } else {
                const size_t length = std::min<size_t>(U16(), Remaining());
                text.append(reinterpret_cast<const char*>(data_ + pos_), length);
                pos_ += length;
            }
        }
        return text;
    }

    std::shared_ptr<std::string> OptText() {
        return Flag() ? std::make_shared<std::string>(Text()) : nullptr;
    }
    std::shared_ptr<int> OptI32() { return Flag() ? std::make_shared<int>(I32()) : nullptr; }
    std::shared_ptr<long> OptI64() { return Flag() ? std::make_shared<long>(I64()) : nullptr; }
    std::shared_ptr<bool> OptBool() {
        const uint8_t b = Byte();
        return (b & 1) != 0 ? std::make_shared<bool>((b & 2) != 0) : nullptr;
    }

private:
    const uint8_t* data_;
    size_t size_;
    size_t pos_ = 0;
};

// The record that the bytes of `in` stand for; reads as far as the record needs.
void ReadLiveView(ByteReader& in, LiveView& liveView);
// The request that the bytes of `in` stand for, null when they stand for no request.
sptr<Notification::NotificationRequest> ReadRequest(ByteReader& in);

}  // namespace LiveViewFuzz

#endif  // LIVE_VIEW_FUZZ_FUZZ_CODEC_H
