// Opening the files that an input names (live views, scenarios, pictures). Only a regular file is
// read: a name that is a folder, a device or a FIFO is refused at once instead of blocking, and
// the size is bounded before anything is read. The check is made on the opened file, so a name
// changed in between cannot slip past it.
//
// Thread safety: distinct files may be opened on distinct threads.
#ifndef LIVEVIEW_JSON_INPUT_FILE_H
#define LIVEVIEW_JSON_INPUT_FILE_H

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace LiveViewJson {

// Larger files are refused before they are read: no live view, scenario or picture comes near it.
constexpr uint64_t MAX_INPUT_FILE_BYTES = 16u * 1024u * 1024u;

struct FileCloser {
    void operator()(FILE* file) const { std::fclose(file); }
};
using InputFile = std::unique_ptr<FILE, FileCloser>;

// Which file an opened name is: two names of one file (links, "a/../b") have the same identity.
struct FileIdentity {
    uint64_t device = 0;
    uint64_t inode = 0;

    bool operator<(const FileIdentity& other) const {
        return device != other.device ? device < other.device : inode < other.inode;
    }
};

// Opens path for reading when it names a regular file of at most maxBytes, and tells its
// identity. Otherwise false with a one-line reason: "no such file", "not a regular file",
// "larger than N MiB" or "cannot be read: <why>".
bool OpenInputFile(const std::string& path, uint64_t maxBytes, InputFile& file,
                   FileIdentity& identity, std::string& reason);

// The whole content of such a file.
bool ReadInputFile(const std::string& path, uint64_t maxBytes, std::string& content,
                   std::string& reason);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_INPUT_FILE_H
