// The verbs of the liveview command. Each writes its result to out and the reason of an unusable
// input to err (one line), and answers the exit status.
#ifndef LIVEVIEW_CLI_COMMANDS_H
#define LIVEVIEW_CLI_COMMANDS_H

#include <ostream>
#include <string>

#include "scenario_runner.h"

namespace LiveViewCli {

// Exit statuses of every verb.
constexpr int STATUS_OK = 0;
constexpr int STATUS_REFUSED = 1;   // the library or a scenario's expectation said no
constexpr int STATUS_UNUSABLE = 2;  // an input could not be read or understood

// A live view file to build the request of an operation for.
struct BuildRequest {
    std::string file;
    std::string operation = "start";  // "start", "update" or "stop"
    // For update and stop: the live view as it was started, which decides what the service holds
    // (layout and capsule kinds, external title, timer). Empty: the file itself.
    std::string heldFile;
};

// What the client would answer for the file's live view before publishing it: "0 valid for
// <operation>", or the library's code and message and the section that failed.
int RunValidate(const BuildRequest& request, std::ostream& out, std::ostream& err);
// The notification request that the operation would publish, as JSON.
int RunConvert(const BuildRequest& request, std::ostream& out, std::ostream& err);
int RunPlay(const std::string& file, const PlayOptions& options, std::ostream& out,
            std::ostream& err);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_COMMANDS_H
