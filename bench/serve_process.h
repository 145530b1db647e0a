// A `liveview serve` started as a child process for the length of a benchmark: on a port that the
// system picks, with its token file in a temporary folder of its own, stopped (SIGTERM, then
// SIGKILL after a grace period) when the object goes or Stop is called. The child is also told to
// stop when this process dies, so that no server outlives a crashed benchmark.
//
// Thread safety: one thread starts and stops it; the address may then be read from any thread.
#ifndef LIVE_VIEW_BENCH_SERVE_PROCESS_H
#define LIVE_VIEW_BENCH_SERVE_PROCESS_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace LiveViewBench {

class ServeProcess {
public:
    ServeProcess() = default;
    ServeProcess(const ServeProcess&) = delete;
    ServeProcess& operator=(const ServeProcess&) = delete;
    ~ServeProcess();

    // Runs `binary serve --port 0 --token-file <temporary> extraArgs...` and waits (up to ten
    // seconds) for the first line of its standard output, which names its address. False with
    // error set when it cannot be started or does not announce itself; nothing is left running.
    bool Start(const std::string& binary, const std::vector<std::string>& extraArgs,
               std::string& error);

    // Stops the server and waits for it; true when it exited by itself with status 0 after
    // SIGTERM. Does nothing when it is not running.
    bool Stop();

    // "http://127.0.0.1:PORT/?token=TOKEN", as the server printed it.
    const std::string& Url() const { return url_; }
    const std::string& Host() const { return host_; }
    int Port() const { return port_; }
    const std::string& Token() const { return token_; }
    pid_t Pid() const { return pid_; }

private:
    pid_t pid_ = -1;
    int output_ = -1;  // read end of the child's standard output
    std::string folder_;
    std::string url_;
    std::string host_;
    int port_ = 0;
    std::string token_;
};

}  // namespace LiveViewBench

#endif  // LIVE_VIEW_BENCH_SERVE_PROCESS_H
