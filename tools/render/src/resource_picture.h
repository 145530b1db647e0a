// Finding the picture behind a resource string: "res://name" (or a bare name) is the file
// name.png of the resource folder.
//
// Thread safety: stateless; reads the file system only.
#ifndef LIVEVIEW_RENDER_RESOURCE_PICTURE_H
#define LIVEVIEW_RENDER_RESOURCE_PICTURE_H

#include <cstdint>
#include <string>

namespace LiveViewRender {

// The name that a resource string stands for: the text after "res://", or the whole text without
// that prefix.
std::string ResourceName(const std::string& resource);

// The bytes of folder/name.png. False, leaving png alone, when folder is empty, the name is not
// made of letters, digits, '_', '-' and '.' only (or starts with '.'), the file is not a regular
// file, holds more than maxBytes, or does not start with the PNG signature.
bool LoadResourcePng(const std::string& folder, const std::string& name, std::uint64_t maxBytes,
                     std::string& png);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_RESOURCE_PICTURE_H
