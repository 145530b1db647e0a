// Shared by the robustness suites: hostile values (megabyte texts, lists of 100,000 entries,
// pictures that report gigabytes, extreme numbers), record builders that pass every check of a
// start, the answer of a check as one comparable value, and a fixture on a fresh, silent host.
#ifndef LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H
#define LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "host_control.h"
#include "live_view_manager.h"
#include "record_builders.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Robustness {

using namespace Builders;

inline const std::string kBundle = "com.example.robust";
constexpr int32_t kUid = 20030003;
constexpr int64_t kStartMillis = 7000000;

// Sizes of the hostile inputs.
constexpr size_t kMegabytes = 4u * 1024u * 1024u;
constexpr size_t kManyRuns = 100000;

// ---------------------------------------------------------------------------------------------
// Answers.

// What a check or an operation answered: its code and its message.
struct Answer {
    int32_t code = 0;
    std::string message;

    bool operator==(const Answer& other) const {
        return code == other.code && message == other.message;
    }
};

inline void PrintTo(const Answer& answer, std::ostream* out) {
    // Megabyte messages are shown by their size and ends only.
    const std::string& m = answer.message;
    *out << answer.code << " \"";
    if (m.size() > 200) {
        *out << m.substr(0, 80) << "...<" << m.size() << " bytes>..." << m.substr(m.size() - 80);
    } else {
        *out << m;
    }
    *out << "\"";
}

inline Answer Of(const BaseRsp& rsp) {
    return {rsp.GetErrAsInt32(), rsp.GetInfo()};
}

inline Answer Success() {
    return {0, ""};
}

inline Answer Invalid(const std::string& message) {
    return {401, message};
}

// ---------------------------------------------------------------------------------------------
// Values.

inline std::string Repeat(const std::string& piece, size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (size_t i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

// count runs of text, all with the same colour when one is given.
inline std::vector<std::shared_ptr<RichText>> Runs(size_t count, const std::string& text,
                                                   const std::string& color = "") {
    std::vector<std::shared_ptr<RichText>> runs;
    runs.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        runs.push_back(TextRun(text, color));
    }
    return runs;
}

// 46340 x 46340 one-byte pixels: 2,147,395,600 bytes reported, the largest square the host makes.
inline std::shared_ptr<Media::PixelMap> HugePicture() {
    return Picture(46340, 46340, Media::PixelFormat::ALPHA_8);
}

// ---------------------------------------------------------------------------------------------
// Records: StartRecord() and the sections of record_builders.h pass every check of a start.

inline std::shared_ptr<PrimaryData> PrimaryOf(const LiveView& liveView) {
    return LiveView::GetPrimaryData(liveView);
}

// The start entry point's answer.
inline Answer ValidateStart(const LiveView& liveView) {
    return Of(LiveViewParamValidate::ValidateStartLiveViewParam(liveView, LiveView::START));
}

// One row of a table: a change to StartRecord() and the start entry point's answer to it.
struct Case {
    std::string name;
    std::function<void(LiveView&)> change;  // applied to StartRecord()
    Answer expected;                        // the start entry point's answer
};

inline void RunCases(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LiveView liveView = StartRecord();
        c.change(liveView);
        EXPECT_EQ(ValidateStart(liveView), c.expected);
    }
}

// ---------------------------------------------------------------------------------------------
// The fixture: a fresh host whose log, system events and end events are discarded, the test app
// calling, no rate limit and a manual clock.

class RobustnessTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::DISCARD);
        Host::SetCallingApp(kBundle, kUid);
        Host::SetRateLimit(0);
        Host::SetClockMillis(kStartMillis);
    }
    void TearDown() override { Host::ResetAll(); }

    LiveViewClient client_;
};

}  // namespace Robustness
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H
