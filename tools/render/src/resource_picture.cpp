#include "resource_picture.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace LiveViewRender {
namespace {

constexpr size_t MAX_NAME_LENGTH = 128;
const char RESOURCE_PREFIX[] = "res://";
const char PNG_SIGNATURE[] = "\x89PNG\r\n\x1a\n";

// A name that stays inside the folder: no separator, no leading dot.
bool SafeName(const std::string& name) {
    if (name.empty() || name.size() > MAX_NAME_LENGTH || name[0] == '.') {
        return false;
    }
    for (const char c : name) {
        const bool allowed = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
        if (!allowed) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::string ResourceName(const std::string& resource) {
    const std::string prefix = RESOURCE_PREFIX;
    return resource.compare(0, prefix.size(), prefix) == 0 ? resource.substr(prefix.size())
                                                           : resource;
}

bool LoadResourcePng(const std::string& folder, const std::string& name, std::uint64_t maxBytes,
                     std::string& png) {
    if (folder.empty() || !SafeName(name)) {
        return false;
    }
    const std::filesystem::path path = std::filesystem::path(folder) / (name + ".png");
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return false;
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > maxBytes) {
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    // One byte more than the size taken, so that a file that grew since is refused.
    std::string bytes(static_cast<size_t>(size) + 1, '\0');
    in.read(&bytes[0], static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(in.gcount()));
    const std::string signature(PNG_SIGNATURE, sizeof(PNG_SIGNATURE) - 1);
    if (bytes.size() > maxBytes || bytes.compare(0, signature.size(), signature) != 0) {
        return false;
    }
    png = std::move(bytes);
    return true;
}

}  // namespace LiveViewRender
