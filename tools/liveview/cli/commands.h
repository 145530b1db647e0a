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

// "start", "update" or "stop".
int RunValidate(const std::string& file, const std::string& operation, std::ostream& out,
                std::ostream& err);
int RunConvert(const std::string& file, const std::string& operation, std::ostream& out,
               std::ostream& err);
int RunPlay(const std::string& file, const PlayOptions& options, std::ostream& out,
            std::ostream& err);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_COMMANDS_H
