#include "uri.h"

namespace Tavi {

Uri::Uri(const std::string& uriString) : text_(uriString) {
    std::string rest = uriString;
    auto hash = rest.find('#');
    if (hash != std::string::npos) {
        fragment_ = rest.substr(hash + 1);
        rest.erase(hash);
    }
    auto question = rest.find('?');
    if (question != std::string::npos) {
        query_ = rest.substr(question + 1);
        rest.erase(question);
    }
    auto colon = rest.find(':');
    auto slash = rest.find('/');
    if (colon != std::string::npos && (slash == std::string::npos || colon < slash)) {
        scheme_ = rest.substr(0, colon);
        rest.erase(0, colon + 1);
    }
    if (rest.compare(0, 2, "//") == 0) {
        auto end = rest.find('/', 2);
        authority_ = rest.substr(2, end == std::string::npos ? std::string::npos : end - 2);
        rest = end == std::string::npos ? std::string() : rest.substr(end);
    }
    path_ = rest;
}

}  // namespace Tavi
