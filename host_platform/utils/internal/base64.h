// Host-internal: Base64 with the standard alphabet and padding, for pictures carried as text (the
// renderer's data: URIs, the pixels of a notification request on the wire).
//
// Thread safety: stateless; every function may be called from any thread.
#ifndef TAVI_HOST_BASE64_H
#define TAVI_HOST_BASE64_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace Tavi {
namespace Host {

// The text of size bytes; bytes may be null when size is 0.
std::string Base64Encode(const uint8_t* bytes, size_t size);

inline std::string Base64Encode(const std::string& bytes) {
    return Base64Encode(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

// Decodes text into bytes. Only the text that Base64Encode writes is accepted: a length that is a
// multiple of 4, alphabet characters only, at most two '=' and only at the end, and zero bits
// after the last byte. On failure returns false and leaves bytes alone.
bool Base64Decode(const std::string& text, std::string& bytes);

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_BASE64_H
