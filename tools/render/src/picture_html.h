// Pictures as HTML elements. A pixel map is drawn as the picture it holds (PNG in a data: URI); a
// resource string from the resource folder when its file is there (render_presentations.h),
// otherwise as a placeholder labelled with its name. Each element carries the data-part given and
// one size class of the style sheet (pic-xs, pic-s, pic-m, pic-l, pic-xl).
//
// Thread safety: none; one drawer serves one rendering.
#ifndef LIVEVIEW_RENDER_PICTURE_HTML_H
#define LIVEVIEW_RENDER_PICTURE_HTML_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "pixel_map.h"
#include "render_presentations.h"

namespace LiveViewRender {

class PictureDrawer {
public:
    // options must outlive the drawer.
    explicit PictureDrawer(const RenderOptions& options) : options_(options) {}

    // The picture of a pair: the resource string when set (the form the conversion prefers), else
    // the pixel map; empty when neither is set.
    std::string Pair(const char* part, const char* size,
                     const std::shared_ptr<std::string>& resource,
                     const std::shared_ptr<Tavi::Media::PixelMap>& pixels);

    // The pictures of a list, one element each: the resource strings when there are any, else the
    // pixel maps (empty pointers skipped).
    std::vector<std::string> List(
        const char* part, const char* size, const std::vector<std::string>& resources,
        const std::vector<std::shared_ptr<Tavi::Media::PixelMap>>& pixels);

    std::string Resource(const char* part, const char* size, const std::string& resource);
    std::string Pixels(const char* part, const char* size, const Tavi::Media::PixelMap& pixels);

private:
    // The data: URI of the resource's file, or empty; each name is looked up once.
    const std::string& ResourceUri(const std::string& name);

    const RenderOptions& options_;
    std::map<std::string, std::string> uris_;
};

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_PICTURE_HTML_H
