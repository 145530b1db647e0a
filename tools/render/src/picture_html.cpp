#include "picture_html.h"

#include <cstring>

#include "base64.h"
#include "html.h"
#include "png_encoder.h"
#include "resource_picture.h"

namespace LiveViewRender {
namespace {

std::string DataUri(const std::string& png) {
    return "data:image/png;base64," + Tavi::Host::Base64Encode(png);
}

std::string Image(const char* part, const char* size, const std::string& uri,
                  const std::string& alt, const std::string& extra) {
    return std::string("<img") + Attr("class", std::string("pic ") + size) +
           Attr("data-part", part) + Attr("alt", alt) + extra + Attr("src", uri) + ">";
}

// The two smallest sizes have room for one letter of the label only.
std::string Placeholder(const char* part, const char* size, const std::string& label,
                        const std::string& extra) {
    const bool small = std::strcmp(size, "pic-xs") == 0 || std::strcmp(size, "pic-s") == 0;
    const std::string shown = small ? label.substr(0, 1) : label;
    return Element("span", (std::string("pic placeholder ") + size).c_str(), part, Escape(shown),
                   Attr("title", label) + extra);
}

}  // namespace

std::string PictureDrawer::Pair(const char* part, const char* size,
                                const std::shared_ptr<std::string>& resource,
                                const std::shared_ptr<Tavi::Media::PixelMap>& pixels) {
    if (resource != nullptr) {
        return Resource(part, size, *resource);
    }
    return pixels == nullptr ? std::string() : Pixels(part, size, *pixels);
}

std::vector<std::string> PictureDrawer::List(
    const char* part, const char* size, const std::vector<std::string>& resources,
    const std::vector<std::shared_ptr<Tavi::Media::PixelMap>>& pixels) {
    std::vector<std::string> out;
    if (!resources.empty()) {
        for (const auto& resource : resources) {
            out.push_back(Resource(part, size, resource));
        }
        return out;
    }
    for (const auto& picture : pixels) {
        if (picture != nullptr) {
            out.push_back(Pixels(part, size, *picture));
        }
    }
    return out;
}

std::string PictureDrawer::Resource(const char* part, const char* size,
                                    const std::string& resource) {
    const std::string name = ResourceName(resource);
    const std::string extra = Attr("data-res", resource);
    const std::string& uri = ResourceUri(name);
    if (uri.empty()) {
        return Placeholder(part, size, name.empty() ? resource : name, extra);
    }
    return Image(part, size, uri, name, extra);
}

std::string PictureDrawer::Pixels(const char* part, const char* size,
                                  const Tavi::Media::PixelMap& pixels) {
    const std::string dimensions =
        std::to_string(pixels.GetWidth()) + "x" + std::to_string(pixels.GetHeight());
    const std::string extra = Attr("data-size", dimensions);
    std::string png;
    bool blank = false;
    if (!EncodePng(pixels, png, blank)) {
        return Placeholder(part, size, dimensions, extra);
    }
    return Image(part, (std::string(size) + (blank ? " blank" : "")).c_str(), DataUri(png),
                 dimensions + (blank ? " blank picture" : " picture"), extra);
}

const std::string& PictureDrawer::ResourceUri(const std::string& name) {
    const auto found = uris_.find(name);
    if (found != uris_.end()) {
        return found->second;
    }
    std::string png;
    std::string uri;
    if (LoadResourcePng(options_.resourceDir, name, options_.maxResourceBytes, png)) {
        uri = DataUri(png);
    }
    return uris_.emplace(name, std::move(uri)).first->second;
}

}  // namespace LiveViewRender
