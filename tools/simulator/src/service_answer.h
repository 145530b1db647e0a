// What a number that the notification service answers means, in words a developer reads in the
// simulator's history, and the member of the request it is about.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_SIMULATOR_SERVICE_ANSWER_H
#define LIVEVIEW_SIMULATOR_SERVICE_ANSWER_H

#include <cstdint>
#include <string>

namespace LiveViewSimulator {

struct ServiceAnswer {
    std::string message;
    std::string field;  // empty when the answer is not about one member
};

ServiceAnswer DescribeServiceAnswer(int32_t code);

// "create", "update", "end" or "full-update" for a live view status; "unknown" otherwise.
const char* OperationName(int32_t liveViewStatus);

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_SERVICE_ANSWER_H
