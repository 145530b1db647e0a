// `liveview validate` answers what the client answers before it publishes: for every example live
// view, and for records whose verdict depends on the client's own rules (the timer section, a
// changed layout kind, the sections of a stop), validate's answer is the answer that `play` gets
// from the client for the same record, code and message alike.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

struct Case {
    std::string file;
    std::string operation;  // start, update or stop
    std::string heldFile;   // update and stop: the live view started first
};

std::string DataPath(const std::string& name) {
    return std::string(TOOLS_TEST_DATA) + "/" + name;
}

// Runs validate on the case, then plays the same record through the client expecting validate's
// code; the play must meet that expectation and print validate's message. Returns validate's
// output.
std::string ExpectAgreement(const Case& c) {
    std::vector<std::string> args = {"validate", c.file, "--op", c.operation};
    if (!c.heldFile.empty()) {
        args.insert(args.end(), {"--held", c.heldFile});
    }
    const CliRun validate = RunCli(args);
    EXPECT_EQ(validate.err, "");
    const std::string firstLine = validate.out.substr(0, validate.out.find('\n'));
    const bool valid = firstLine == "0 valid for " + c.operation;
    EXPECT_EQ(validate.status, valid ? 0 : 1) << validate.out;
    const std::string code = valid ? "0" : firstLine.substr(0, firstLine.find(' '));

    std::string steps;
    if (c.operation != "start") {
        steps = R"({"start": {"file": ")" + c.heldFile + R"("}}, )";
    }
    steps += "{\"" + c.operation + R"(": {"file": ")" + c.file + R"("}, "expect": )" + code + "}";
    ScratchDir dir;
    const std::string scenario =
        dir.Write("agreement.json", R"({"app": {"bundle": "com.example.agree", "uid": 20010077},
            "steps": [)" + steps + "]}");
    const CliRun play = RunCli({"play", scenario});
    EXPECT_EQ(play.status, 0) << play.out;
    if (!valid) {
        EXPECT_NE(play.out.find(": " + firstLine + " (expected)\n"), std::string::npos)
            << "play:\n"
            << play.out << "validate:\n"
            << validate.out;
    }
    return validate.out;
}

TEST(ValidatePlayAgreementTest, EveryExampleLiveViewAsAStart) {
    const auto files = ExampleFiles("liveviews");
    ASSERT_GE(files.size(), 8u);
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        EXPECT_EQ(ExpectAgreement({file, "start", ""}), "0 valid for start\n");
    }
}

TEST(ValidatePlayAgreementTest, RecordsDecidedByTheClientsOwnRules) {
    const struct {
        const char* label;
        Case c;
        const char* validateOut;
    } rows[] = {
        {"a negative timer time",
         {DataPath("timer-negative.json"), "start", ""},
         "401 Parameter error. The type of liveView.timer.time mustbe larger than or equal 0\n"
         "section: timer\n"
         "hint: timer.time: -5; 0 or more\n"},
        {"a timer countdown flag given as a string",
         {DataPath("timer-countdown-string.json"), "start", ""},
         "401 Parameter error. The type of liveView.timer.isCountdown mustbe boolean.\n"
         "section: timer\n"},
        {"an update that changes the layout kind is checked as a start",
         {DataPath("pickup-becomes-flight.json"), "update",
          ExamplePath("liveviews/pickup-layout.json")},
         "401 Parameter error. The type of layoutData.firstContent mustbe string [or the "
         "parameter is mandatory].\n"
         "section: layout\n"
         "hint: liveViewData.primary.layoutData.firstContent: missing; required on start\n"},
        {"a navigation stop runs every section",
         {DataPath("navigation-stop-bad-capsule.json"), "stop",
          ExamplePath("liveviews/navigation-layout.json")},
         "401 Parameter error. The type of capsule.backgroundColor mustbe string [or the "
         "parameter length exceeds the limit].\n"
         "section: capsule\n"
         "hint: liveViewData.capsule.backgroundColor: \"#FF0000\" is not #AARRGGBB\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(ExpectAgreement(row.c), row.validateOut);
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
