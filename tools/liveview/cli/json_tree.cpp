#include "json_tree.h"

#include <cstdlib>

namespace LiveViewCli {

std::string PrintTree(const cJSON* root) {
    char* printed = cJSON_Print(root);
    if (printed == nullptr) {
        return "null";
    }
    // cJSON indents with tabs and puts one after each colon; a tab inside a string is printed
    // escaped, so every raw tab is layout.
    std::string text;
    bool lineStart = true;
    for (const char* c = printed; *c != '\0'; ++c) {
        if (*c == '\t') {
            text += lineStart ? "  " : " ";
            continue;
        }
        text += *c;
        lineStart = *c == '\n';
    }
    std::free(printed);
    return text;
}

}  // namespace LiveViewCli
