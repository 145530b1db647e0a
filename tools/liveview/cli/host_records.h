// Prints what the host platform captured during a step: log lines, system events and end events,
// one line each, indented under the step.
#ifndef LIVEVIEW_CLI_HOST_RECORDS_H
#define LIVEVIEW_CLI_HOST_RECORDS_H

#include <ostream>

namespace LiveViewCli {

// Takes every captured record (so that the next step starts empty) and prints the kinds asked.
void FlushHostRecords(std::ostream& out, bool events, bool logLines);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_HOST_RECORDS_H
