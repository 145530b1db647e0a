// Test support: resets the host platform and captures its log lines, system events and end events
// for the lifetime of the object, so that a test can assert on them.
#ifndef LIVE_VIEW_TESTS_LOG_CAPTURE_H
#define LIVE_VIEW_TESTS_LOG_CAPTURE_H

#include <string>
#include <vector>

#include "host_control.h"

namespace LiveViewTest {

// The texts of the log lines written since the last take.
inline std::vector<std::string> TakeLogTexts() {
    std::vector<std::string> texts;
    for (const auto& line : Tavi::Host::TakeLogLines()) {
        texts.push_back(line.text);
    }
    return texts;
}

class HostCapture {
public:
    HostCapture() {
        Tavi::Host::ResetAll();
        Tavi::Host::SetAllModes(Tavi::Host::SinkMode::CAPTURE);
    }
    ~HostCapture() { Tavi::Host::ResetAll(); }

    // The texts of the log lines written since the last call.
    std::vector<std::string> LogTexts() { return TakeLogTexts(); }
};

}  // namespace LiveViewTest

#endif  // LIVE_VIEW_TESTS_LOG_CAPTURE_H
