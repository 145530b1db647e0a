#include "token_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace LiveViewSimulator {

namespace {
constexpr size_t TOKEN_BYTES = 16;

std::string SystemError(const std::string& what) {
    return what + ": " + std::strerror(errno);
}
}  // namespace

bool DrawToken(std::string& token, std::string& error) {
    unsigned char bytes[TOKEN_BYTES];
    const int fd = ::open("/dev/urandom", O_RDONLY | O_CLOEXEC);
    const bool read =
        fd >= 0 && ::read(fd, bytes, sizeof bytes) == static_cast<ssize_t>(sizeof bytes);
    if (fd >= 0) {
        ::close(fd);
    }
    if (!read) {
        error = SystemError("cannot read /dev/urandom");
        return false;
    }
    static const char* const HEX = "0123456789abcdef";
    token.clear();
    for (unsigned char byte : bytes) {
        token += HEX[byte >> 4];
        token += HEX[byte & 0xF];
    }
    return true;
}

std::string DefaultTokenFile(int port) {
    const char* home = std::getenv("HOME");
    return std::string(home == nullptr ? "." : home) + "/.liveview/serve-" + std::to_string(port) +
           ".token";
}

bool WriteTokenFile(const std::string& path, const std::string& token, std::string& error) {
    const size_t slash = path.rfind('/');
    if (slash != std::string::npos && slash > 0) {
        const std::string dir = path.substr(0, slash);
        if (::mkdir(dir.c_str(), 0700) != 0 && errno != EEXIST) {
            error = SystemError("cannot create " + dir);
            return false;
        }
    }
    const int fd =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) {
        error = SystemError("cannot write " + path);
        return false;
    }
    const std::string line = token + "\n";
    // The file may have existed with wider rights: narrow them before the token goes in.
    const bool ok = ::fchmod(fd, 0600) == 0 &&
                    ::write(fd, line.data(), line.size()) == static_cast<ssize_t>(line.size());
    if (!ok) {
        error = SystemError("cannot write " + path);
    }
    ::close(fd);
    return ok;
}

bool SameToken(const std::string& given, const std::string& token) {
    unsigned char differ = given.size() == token.size() ? 0 : 1;
    for (size_t i = 0; i < given.size(); ++i) {
        differ |=
            static_cast<unsigned char>(given[i] ^ token[i % (token.empty() ? 1 : token.size())]);
    }
    return differ == 0 && !token.empty();
}

}  // namespace LiveViewSimulator
