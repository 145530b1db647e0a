// Sizes in the reasons that the front end gives: whole mebibytes as "16 MiB", other sizes in
// bytes.
//
// Thread safety: keeps no state.
#ifndef LIVEVIEW_JSON_BYTE_SIZE_H
#define LIVEVIEW_JSON_BYTE_SIZE_H

#include <cstdint>
#include <string>

namespace LiveViewJson {

inline std::string ByteSizeText(uint64_t bytes) {
    constexpr uint64_t MIB = 1024u * 1024u;
    return bytes % MIB == 0 ? std::to_string(bytes / MIB) + " MiB"
                            : std::to_string(bytes) + " bytes";
}

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_BYTE_SIZE_H
