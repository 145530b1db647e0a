#include "serve_process.h"

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace LiveViewBench {

namespace {

constexpr int ANNOUNCE_TIMEOUT_MS = 10000;
// The server waits for kept-alive connections to fall idle (five seconds) before it exits.
constexpr auto STOP_GRACE = std::chrono::seconds(15);
const std::string ANNOUNCE_PREFIX = "liveview serve: ";

// Reads one line from fd within the deadline; false when none arrived (end of file, timeout).
bool ReadLine(int fd, int timeoutMs, std::string& line) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    line.clear();
    while (true) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                              deadline - std::chrono::steady_clock::now())
                              .count();
        if (left <= 0) {
            return false;
        }
        pollfd entry{fd, POLLIN, 0};
        const int ready = ::poll(&entry, 1, static_cast<int>(left));
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return false;
        }
        char c = 0;
        const ssize_t got = ::read(fd, &c, 1);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return false;
        }
        if (c == '\n') {
            return true;
        }
        line += c;
    }
}

// Splits "http://HOST:PORT/?token=TOKEN".
bool ParseUrl(const std::string& url, std::string& host, int& port, std::string& token) {
    const std::string scheme = "http://";
    if (url.compare(0, scheme.size(), scheme) != 0) {
        return false;
    }
    const size_t colon = url.find(':', scheme.size());
    const size_t slash = url.find('/', scheme.size());
    const size_t tokenAt = url.find("token=");
    if (colon == std::string::npos || slash == std::string::npos || tokenAt == std::string::npos ||
        colon > slash) {
        return false;
    }
    host = url.substr(scheme.size(), colon - scheme.size());
    port = std::atoi(url.substr(colon + 1, slash - colon - 1).c_str());
    token = url.substr(tokenAt + 6);
    return !host.empty() && port > 0 && !token.empty();
}

}  // namespace

ServeProcess::~ServeProcess() {
    Stop();
}

bool ServeProcess::Start(const std::string& binary, const std::vector<std::string>& extraArgs,
                         std::string& error) {
    if (pid_ > 0) {
        error = "the server is already running";
        return false;
    }
    char folderTemplate[] = "/tmp/simulator_bench.XXXXXX";
    if (::mkdtemp(folderTemplate) == nullptr) {
        error = std::string("cannot make a temporary folder: ") + std::strerror(errno);
        return false;
    }
    folder_ = folderTemplate;
    std::vector<std::string> args = {binary, "serve",        "--port",
                                     "0",    "--token-file", folder_ + "/token"};
    args.insert(args.end(), extraArgs.begin(), extraArgs.end());
    std::vector<char*> argv;
    for (auto& arg : args) {
        argv.push_back(arg.data());
    }
    argv.push_back(nullptr);

    int pipeEnds[2];
    if (::pipe(pipeEnds) != 0) {
        error = std::string("pipe: ") + std::strerror(errno);
        Stop();
        return false;
    }
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child < 0) {
        error = std::string("fork: ") + std::strerror(errno);
        ::close(pipeEnds[0]);
        ::close(pipeEnds[1]);
        Stop();
        return false;
    }
    if (child == 0) {
        // Only async-signal-safe calls from here on.
        ::dup2(pipeEnds[1], STDOUT_FILENO);
        ::close(pipeEnds[0]);
        ::close(pipeEnds[1]);
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) {
            ::_exit(127);
        }
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    ::close(pipeEnds[1]);
    pid_ = child;
    output_ = pipeEnds[0];

    std::string line;
    if (!ReadLine(output_, ANNOUNCE_TIMEOUT_MS, line) ||
        line.compare(0, ANNOUNCE_PREFIX.size(), ANNOUNCE_PREFIX) != 0) {
        error =
            "`" + binary + " serve` did not announce its address (first line: \"" + line + "\")";
        Stop();
        return false;
    }
    url_ = line.substr(ANNOUNCE_PREFIX.size());
    if (!ParseUrl(url_, host_, port_, token_)) {
        error = "cannot read the server's address from \"" + line + "\"";
        Stop();
        return false;
    }
    return true;
}

bool ServeProcess::Stop() {
    bool clean = false;
    if (pid_ > 0) {
        ::kill(pid_, SIGTERM);
        const auto deadline = std::chrono::steady_clock::now() + STOP_GRACE;
        int status = 0;
        pid_t done = 0;
        while ((done = ::waitpid(pid_, &status, WNOHANG)) == 0 &&
               std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        if (done == 0) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, &status, 0);
        } else {
            clean = done == pid_ && WIFEXITED(status) && WEXITSTATUS(status) == 0;
        }
        pid_ = -1;
    }
    if (output_ >= 0) {
        ::close(output_);
        output_ = -1;
    }
    if (!folder_.empty()) {
        // The server removes its token file when it stops; after a SIGKILL it is still there.
        ::unlink((folder_ + "/token").c_str());
        ::rmdir(folder_.c_str());
        folder_.clear();
    }
    return clean;
}

}  // namespace LiveViewBench
