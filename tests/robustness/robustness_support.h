// Shared by the robustness suites: hostile values, answers as one comparable value, changes to a
// start record that build one section, and a fixture on a fresh, silent host.
// Thread-safety: test-only helpers; use from the test's own thread.
#ifndef LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H
#define LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host_control.h"
#include "live_view_manager.h"
#include "record_builders.h"

namespace Tavi::Wisp::LiveView::Robustness {

using namespace Builders;

constexpr size_t kMegabytes = 4u * 1024u * 1024u;
constexpr size_t kManyRuns = 100000;

// What a check or an operation answered: its code, a space and its message.
using Answer = std::string;

inline Answer Of(const BaseRsp& rsp) {
    return std::to_string(rsp.GetErrAsInt32()) + " " + rsp.GetInfo();
}
inline Answer Invalid(const std::string& message) {
    return "401 " + message;
}
// The answer to a field over its length or count limit; what names the field and its type.
inline Answer TooLong(const std::string& what) {
    return Invalid("Parameter error. The type of " + what +
                   " [or the parameter length exceeds the limit].");
}
const Answer kOk = "0 ";

// Compares answers that may be megabytes long; a failure shows the start of the actual one.
inline void ExpectAnswer(const Answer& actual, const Answer& expected) {
    EXPECT_TRUE(actual == expected) << actual.substr(0, 300);
}

inline std::string Repeat(const std::string& piece, size_t times) {
    std::string text;
    while (times-- > 0) {
        text += piece;
    }
    return text;
}

inline std::shared_ptr<PrimaryData> PrimaryOf(const LiveView& v) {
    return LiveView::GetPrimaryData(v);
}

using Change = std::function<void(LiveView&)>;

// Puts a section into a record, chosen by the section's type.
struct Put {
    void operator()(LiveView& v, const std::shared_ptr<LayoutData>& s) const { SetLayout(v, s); }
    void operator()(LiveView& v, const std::shared_ptr<CapsuleData>& s) const { SetCapsule(v, s); }
    void operator()(LiveView& v, const std::shared_ptr<ExtensionData>& s) const {
        SetExtension(v, s);
    }
    void operator()(LiveView& v, const std::shared_ptr<ExternalData>& s) const {
        SetExternal(v, s);
    }
};

// A change that puts make()'s start section, altered by alter, into the record.
template <typename Make, typename Alter>
Change With(Make make, Alter alter) {
    return [make, alter](LiveView& v) {
        auto section = make();
        alter(*section);
        Put()(v, section);
    };
}

// One row of a table: a change to StartRecord() and the start entry point's answer to it.
struct Case {
    std::string name;
    Change change;
    Answer expected;
};

inline void RunCases(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LiveView liveView = StartRecord();
        c.change(liveView);
        ExpectAnswer(
            Of(LiveViewParamValidate::ValidateStartLiveViewParam(liveView, LiveView::START)),
            c.expected);
    }
}

// A fresh host whose sinks discard, the test app calling, no rate limit and a manual clock.
class RobustnessTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::DISCARD);
        Host::SetCallingApp("com.example.robust", 20030003);
        Host::SetRateLimit(0);
        Host::SetClockMillis(7000000);
    }
    void TearDown() override { Host::ResetAll(); }

    LiveViewClient client_;
};

}  // namespace Tavi::Wisp::LiveView::Robustness

#endif  // LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H
