// The verbs of the liveview command. Each writes its result to out and the reason of an unusable
// input to err (one line), in text or as one JSON document (verb_report.h), and answers the exit
// status.
#ifndef LIVEVIEW_CLI_COMMANDS_H
#define LIVEVIEW_CLI_COMMANDS_H

#include <ostream>
#include <string>

#include "scenario_runner.h"
#include "verb_report.h"

namespace LiveViewCli {

// A live view file to build the request of an operation for.
struct BuildRequest {
    std::string file;
    std::string operation = "start";  // "start", "update" or "stop"
    // For update and stop: the live view as it was started, which decides what the service holds
    // (layout and capsule kinds, external title, timer). Empty: the file itself.
    std::string heldFile;
    VerbOptions verb;
};

// A scenario file to play.
struct PlayRequest {
    std::string file;
    PlayOptions play;
    VerbOptions verb;
};

// What the client would answer for the file's live view before publishing it: "0 valid for
// <operation>", or the library's code and message, the section that failed and a hint.
int RunValidate(const BuildRequest& request, std::ostream& out, std::ostream& err);
// The notification request that the operation would publish, as JSON.
int RunConvert(const BuildRequest& request, std::ostream& out, std::ostream& err);
// Plays the scenario: each step's answer and the live view held afterwards.
int RunPlay(const PlayRequest& request, std::ostream& out, std::ostream& err);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_COMMANDS_H
