// The platform log: formatting with visibility marks, what each line records, and where lines
// go in each sink mode.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "hilog/log.h"
#include "host_control.h"

namespace Tavi {
namespace Host {
namespace {

constexpr unsigned int kDomain = 0xD005301;
constexpr const char* kTag = "live_view_manager";

// Redirects standard error into a temporary file until Finish, which returns what was written.
class StderrCapture {
public:
    StderrCapture() {
        std::fflush(stderr);
        saved_ = dup(STDERR_FILENO);
        file_ = std::tmpfile();
        dup2(fileno(file_), STDERR_FILENO);
    }
    ~StderrCapture() { Finish(); }

    std::string Finish() {
        if (file_ == nullptr) {
            return "";
        }
        std::fflush(stderr);
        dup2(saved_, STDERR_FILENO);
        close(saved_);
        std::string text;
        std::rewind(file_);
        char buffer[256];
        size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof(buffer), file_)) > 0) {
            text.append(buffer, n);
        }
        std::fclose(file_);
        file_ = nullptr;
        return text;
    }

private:
    int saved_ = -1;
    std::FILE* file_ = nullptr;
};

class HiLogTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetAll();
        SetAllModes(SinkMode::DISCARD);
        SetLogMode(SinkMode::CAPTURE);
    }
    void TearDown() override { ResetAll(); }
};

TEST_F(HiLogTest, FormatsConversionsByTheirVisibilityMark) {
    const std::string longText(300, 'x');
    int written = -1;
    const struct {
        const char* label;
        std::function<int()> print;
        std::string expected;
    } rows[] = {
        {"public string",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "name=%{public}s", "Ada"); },
         "name=Ada"},
        {"public int",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{public}d", -42); }, "-42"},
        {"private string",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "[%{private}s]", "secret"); },
         "[<private>]"},
        {"private int",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "id %{private}d", 7); },
         "id <private>"},
        {"percent sign", [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "100%% done"); },
         "100% done"},
        {"mixed",
         [] {
             return HiLogPrint(
                 LOG_CORE, LOG_ERROR, kDomain, kTag,
                 "[%{public}s:%{public}d] %{public}s# id %{private}d of %{public}s, 5%%",
                 "live_view_client.cpp", 636, "StartLiveView", 9, "com.example.rides");
         },
         "[live_view_client.cpp:636] StartLiveView# id <private> of com.example.rides, 5%"},
        {"private argument is consumed",
         [] {
             return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{private}s then %{public}d",
                               "x", 5);
         },
         "<private> then 5"},
        {"unmarked conversions print",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%s=%d", "k", 3); }, "k=3"},
        {"flags, width and precision",
         [] {
             return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag,
                               "%{public}5d|%{public}-4s|%{public}06.2f", 42, "ab", 3.14159);
         },
         "   42|ab  |003.14"},
        {"star width",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{public}*d", 4, 7); }, "   7"},
        {"long and long long",
         [] {
             return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{public}ld %{public}lld", -5L,
                               9007199254740993LL);
         },
         "-5 9007199254740993"},
        {"unsigned and hex",
         [] {
             return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag,
                               "%{public}u %{public}x %{public}X", 4000000000U, 255, 255);
         },
         "4000000000 ff FF"},
        {"char", [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "<%{public}c>", 'A'); },
         "<A>"},
        {"null text",
         [] {
             return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{public}s",
                               static_cast<const char*>(nullptr));
         },
         "(null)"},
        {"text longer than any small buffer",
         [&longText] {
             return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{public}s!", longText.c_str());
         },
         longText + "!"},
        {"%n writes nothing",
         [&written] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "a%nb", &written); },
         "ab"},
        {"trailing percent", [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "abc%"); },
         "abc"},
        {"unclosed mark is text",
         [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "%{public"); }, "%{public"},
        {"no conversions", [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "plain"); },
         "plain"},
        {"empty", [] { return HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, ""); }, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.print(), static_cast<int>(row.expected.size()));
        const auto lines = TakeLogLines();
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines[0].text, row.expected);
    }
    EXPECT_EQ(written, -1);
}

TEST_F(HiLogTest, RecordsTypeLevelDomainAndTag) {
    const struct {
        const char* label;
        LogType type;
        LogLevel level;
        unsigned int domain;
        const char* tag;
    } rows[] = {
        {"library error", LOG_CORE, LOG_ERROR, kDomain, kTag},
        {"library info", LOG_CORE, LOG_INFO, kDomain, kTag},
        {"app debug", LOG_APP, LOG_DEBUG, 0, "app"},
        {"fatal, empty tag", LOG_KMSG, LOG_FATAL, 0xFFFFFFFF, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        HiLogPrint(row.type, row.level, row.domain, row.tag, "text %{public}d", 1);
        const auto lines = TakeLogLines();
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines[0].type, row.type);
        EXPECT_EQ(lines[0].level, row.level);
        EXPECT_EQ(lines[0].domain, row.domain);
        EXPECT_EQ(lines[0].tag, row.tag);
        EXPECT_EQ(lines[0].text, "text 1");
    }
}

TEST_F(HiLogTest, NullFormatOrTagWritesNothing) {
    EXPECT_EQ(HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, nullptr), -1);
    EXPECT_EQ(HiLogPrint(LOG_CORE, LOG_INFO, kDomain, nullptr, "text"), -1);
    EXPECT_TRUE(TakeLogLines().empty());
}

int PrintThroughArgs(const char* format, ...) {
    va_list args;
    va_start(args, format);
    const int n = HiLogPrintArgs(LOG_CORE, LOG_WARN, kDomain, kTag, format, args);
    va_end(args);
    return n;
}

TEST_F(HiLogTest, ArgsFormFormatsLikeTheVariadicForm) {
    EXPECT_EQ(PrintThroughArgs("%{public}s %{private}d %{public}d", "a", 1, 2), 13);
    const auto lines = TakeLogLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, "a <private> 2");
    EXPECT_EQ(lines[0].level, LOG_WARN);
}

TEST_F(HiLogTest, TakeReturnsLinesOldestFirstAndForgetsThem) {
    for (int i = 0; i < 3; ++i) {
        HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "line %{public}d", i);
    }
    const auto lines = TakeLogLines();
    ASSERT_EQ(lines.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(lines[i].text, "line " + std::to_string(i));
    }
    EXPECT_TRUE(TakeLogLines().empty());
}

TEST_F(HiLogTest, LinesFromSeveralThreadsAreAllKeptWhole) {
    constexpr int kThreads = 4;
    constexpr int kLines = 500;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < kLines; ++i) {
                HiLogPrint(LOG_CORE, LOG_INFO, kDomain, kTag, "thread %{public}d line %{public}d",
                           t, i);
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    const auto lines = TakeLogLines();
    ASSERT_EQ(lines.size(), static_cast<size_t>(kThreads * kLines));
    std::vector<int> next(kThreads, 0);
    for (const auto& line : lines) {
        int thread = -1;
        int index = -1;
        ASSERT_EQ(std::sscanf(line.text.c_str(), "thread %d line %d", &thread, &index), 2)
            << line.text;
        ASSERT_GE(thread, 0);
        ASSERT_LT(thread, kThreads);
        EXPECT_EQ(index, next[thread]);  // each thread's lines in its own order
        next[thread] = index + 1;
        EXPECT_EQ(line.text, "thread " + std::to_string(thread) + " line " + std::to_string(index));
    }
}

TEST_F(HiLogTest, SinkModesDecideWhetherLinesArePrintedKeptBothOrNeither) {
    const struct {
        const char* label;
        SinkMode mode;
        bool printed;
        bool kept;
    } rows[] = {
        {"print", SinkMode::PRINT, true, false},
        {"capture", SinkMode::CAPTURE, false, true},
        {"capture and print", SinkMode::CAPTURE_AND_PRINT, true, true},
        {"discard", SinkMode::DISCARD, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        SetLogMode(row.mode);
        StderrCapture capture;
        HiLogPrint(LOG_CORE, LOG_ERROR, kDomain, kTag, "[%{public}s:%{public}d] Fn# %{private}s",
                   "f.cpp", 3, "x");
        const std::string printed = capture.Finish();
        EXPECT_EQ(printed,
                  row.printed ? "E 05301/live_view_manager: [f.cpp:3] Fn# <private>\n" : "");
        EXPECT_EQ(TakeLogLines().size(), row.kept ? 1u : 0u);
    }
}

TEST_F(HiLogTest, PrintedLinesNameTheLevelByLetter) {
    SetLogMode(SinkMode::PRINT);
    StderrCapture capture;
    const LogLevel levels[] = {LOG_DEBUG, LOG_INFO, LOG_WARN, LOG_ERROR, LOG_FATAL, LOG_LEVEL_MIN};
    for (LogLevel level : levels) {
        HiLogPrint(LOG_APP, level, 0x2A, "t", "m");
    }
    EXPECT_EQ(capture.Finish(),
              "D 0002A/t: m\n"
              "I 0002A/t: m\n"
              "W 0002A/t: m\n"
              "E 0002A/t: m\n"
              "F 0002A/t: m\n"
              "? 0002A/t: m\n");
}

}  // namespace
}  // namespace Host
}  // namespace Tavi
