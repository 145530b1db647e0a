// A parsed URI text ("scheme://authority/path?query#fragment"), as platform APIs take it for
// sounds and resources.
//
// Thread safety: a const Uri may be read from several threads.
#ifndef TAVI_UTILS_URI_H
#define TAVI_UTILS_URI_H

#include <string>

namespace Tavi {

class Uri {
public:
    explicit Uri(const std::string& uriString);

    // The text the Uri was made from, unchanged.
    const std::string& ToString() const { return text_; }
    // Parts of the text; each is empty when the text has no such part.
    std::string GetScheme() const { return scheme_; }
    std::string GetAuthority() const { return authority_; }
    std::string GetPath() const { return path_; }
    std::string GetQuery() const { return query_; }
    std::string GetFragment() const { return fragment_; }

    bool operator==(const Uri& other) const { return text_ == other.text_; }

private:
    std::string text_;
    std::string scheme_;
    std::string authority_;
    std::string path_;
    std::string query_;
    std::string fragment_;
};

}  // namespace Tavi

#endif  // TAVI_UTILS_URI_H
