#include "input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "byte_size.h"

namespace LiveViewJson {

namespace {

std::string CannotBeRead(int error) {
    return std::string("cannot be read: ") + std::strerror(error);
}

std::string TooLarge(uint64_t maxBytes) {
    return "larger than " + ByteSizeText(maxBytes);
}

}  // namespace

bool OpenInputFile(const std::string& path, uint64_t maxBytes, InputFile& file,
                   FileIdentity& identity, std::string& reason) {
    // Non-blocking, so that opening a FIFO with no writer returns at once; the opened file is
    // then refused for what it is.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        reason = errno == ENOENT || errno == ENOTDIR ? "no such file" : CannotBeRead(errno);
        return false;
    }
    struct stat status {};
    if (::fstat(fd, &status) != 0) {
        reason = CannotBeRead(errno);
        ::close(fd);
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        reason = "not a regular file";
        ::close(fd);
        return false;
    }
    if (static_cast<uint64_t>(status.st_size) > maxBytes) {
        reason = TooLarge(maxBytes);
        ::close(fd);
        return false;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    FILE* stream = ::fdopen(fd, "rb");
    if (stream == nullptr) {
        reason = CannotBeRead(errno);
        ::close(fd);
        return false;
    }
    file.reset(stream);
    identity =
        FileIdentity{static_cast<uint64_t>(status.st_dev), static_cast<uint64_t>(status.st_ino)};
    return true;
}

bool ReadInputFile(const std::string& path, uint64_t maxBytes, std::string& content,
                   std::string& reason) {
    InputFile file;
    FileIdentity identity;
    if (!OpenInputFile(path, maxBytes, file, identity, reason)) {
        return false;
    }
    std::string text;
    char buffer[65536];
    size_t got = 0;
    while ((got = std::fread(buffer, 1, sizeof(buffer), file.get())) > 0) {
        text.append(buffer, got);
        // The file may have grown since it was measured.
        if (text.size() > maxBytes) {
            reason = TooLarge(maxBytes);
            return false;
        }
    }
    if (std::ferror(file.get()) != 0) {
        reason = "cannot be read";
        return false;
    }
    content = std::move(text);
    return true;
}

}  // namespace LiveViewJson
