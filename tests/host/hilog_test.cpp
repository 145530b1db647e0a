// The platform log: formatting with visibility marks, and what each captured line records.
#include <gtest/gtest.h>

#include <string>

#include "hilog/log.h"
#include "host_control.h"

namespace Tavi::Host {
namespace {

// The text of the one line that the format and arguments log, or how many lines there were.
template <typename... Args>
std::string Logged(const char* format, Args... args) {
    HiLogPrint(LOG_CORE, LOG_INFO, 0xD005301, "live_view_manager", format, args...);
    const auto lines = TakeLogLines();
    return lines.size() == 1 ? lines[0].text : std::to_string(lines.size()) + " lines";
}

TEST(HiLogTest, ConversionsPrintByTheirVisibilityMark) {
    ResetAll();
    SetLogMode(SinkMode::CAPTURE);
    const std::string longText(300, 'x');
    int written = -1;
    EXPECT_EQ(Logged("[%{public}s:%{public}d] %{public}s# id %{private}d of %{public}s, 5%%",
                     "live_view_client.cpp", 636, "StartLiveView", 9, "com.example.rides"),
              "[live_view_client.cpp:636] StartLiveView# id <private> of com.example.rides, 5%");
    EXPECT_EQ(Logged("%{private}s then %{public}ld", "secret", -5L), "<private> then -5");
    EXPECT_EQ(Logged("%s=%d|%{public}5d|%{public}-4s|%{public}.2f", "k", 3, 42, "ab", 3.14159),
              "k=3|   42|ab  |3.14");
    EXPECT_EQ(Logged("%{public}s!", longText.c_str()), longText + "!");
    EXPECT_EQ(Logged("a%nb", &written), "ab");
    EXPECT_EQ(written, -1);
    EXPECT_EQ(Logged("abc%"), "abc");

    EXPECT_EQ(HiLogPrint(LOG_CORE, LOG_INFO, 1, "tag", nullptr), -1);
    EXPECT_EQ(HiLogPrint(LOG_CORE, LOG_INFO, 1, nullptr, "text"), -1);
    EXPECT_EQ(HiLogPrint(LOG_APP, LOG_WARN, 0x2A, "app", "n=%{public}d", 12), 4);
    const auto lines = TakeLogLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(std::to_string(lines[0].type) + " " + std::to_string(lines[0].level) + " " +
                  std::to_string(lines[0].domain) + " " + lines[0].tag + ": " + lines[0].text,
              "0 5 42 app: n=12");
    ResetAll();
}

}  // namespace
}  // namespace Tavi::Host
