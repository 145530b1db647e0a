// Base64 (the standard alphabet, padded), for pictures written as data: URIs.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_BASE64_H
#define LIVEVIEW_RENDER_BASE64_H

#include <string>

namespace LiveViewRender {

std::string Base64(const std::string& bytes);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_BASE64_H
