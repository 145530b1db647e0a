// Paths of values inside a JSON tree ("liveViewData.primary.title", "steps[2].start"), built
// only when one is needed: while a tree is walked, each level links to the level that holds it.
//
// Thread safety: keeps no state.
#ifndef LIVEVIEW_JSON_JSON_PATH_H
#define LIVEVIEW_JSON_JSON_PATH_H

#include <cstddef>
#include <string>
#include <vector>

namespace LiveViewJson {

// One level: a member name, or an array index when name is null. parent is null at the top.
struct PathLink {
    const PathLink* parent;
    const std::string* name;
    size_t index;
};

// Member names joined by '.', indices as "[i]"; empty for the top itself.
inline std::string PathOf(const PathLink* link) {
    std::vector<const PathLink*> chain;
    for (; link != nullptr; link = link->parent) {
        chain.push_back(link);
    }
    std::string path;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        if ((*it)->name == nullptr) {
            path += "[" + std::to_string((*it)->index) + "]";
        } else {
            path += (path.empty() ? "" : ".") + *(*it)->name;
        }
    }
    return path;
}

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_JSON_PATH_H
