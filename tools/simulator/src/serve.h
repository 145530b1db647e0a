// `liveview serve`: the simulator on 127.0.0.1 with its HTTP API, its page and its store, until
// the process is told to stop (SIGINT or SIGTERM).
//
// Thread safety: Serve is called once per process, from its main thread, before any other thread
// is started (it blocks SIGINT and SIGTERM for every thread it starts and waits for them itself).
#ifndef LIVEVIEW_SIMULATOR_SERVE_H
#define LIVEVIEW_SIMULATOR_SERVE_H

#include <ostream>
#include <string>

namespace LiveViewSimulator {

struct ServeOptions {
    int port = 7007;           // 0: any free port
    std::string databasePath;  // empty: nothing survives a restart
    std::string resourceDir;   // the folder of "res://" pictures
    std::string tokenFile;     // empty: $HOME/.liveview/serve-PORT.token
};

// Prints "liveview serve: http://127.0.0.1:PORT/?token=TOKEN" on out once it listens, then runs
// until stopped. Returns the exit status: 0 after a stop, 2 when it could not start (the reason on
// err).
int Serve(const ServeOptions& options, std::ostream& out, std::ostream& err);

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_SERVE_H
