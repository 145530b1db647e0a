// Owning handle and printing of the JSON trees that the command line writes.
#ifndef LIVEVIEW_CLI_JSON_TREE_H
#define LIVEVIEW_CLI_JSON_TREE_H

#include <cjson/cJSON.h>

#include <memory>
#include <string>

namespace LiveViewCli {

using JsonTree = std::unique_ptr<cJSON, void (*)(cJSON*)>;

inline JsonTree MakeTree(cJSON* root) {
    return JsonTree(root, cJSON_Delete);
}

// The tree as indented text (two spaces a level), without a final line break; "null" when it
// cannot be printed.
std::string PrintTree(const cJSON* root);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_JSON_TREE_H
