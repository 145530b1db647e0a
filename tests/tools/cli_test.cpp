// The liveview command, run as a program: the library's refusals and unexpected answers give exit
// status 1 with code, message and section, and validate agrees with what play gets from the
// client; unusable input and bad command lines give exit status 2 with a one-line reason naming
// the file, place and scenario step.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

TEST(CliTest, RefusalsAndUnexpectedAnswersExitOne) {
    ScratchDir dir;
    const std::string badId = dir.Write("bad.json", R"({"id": "7", "event": "E"})");
    const std::string noLayout = dir.Write("nolayout.json", R"({"id": 7, "event": "E",
        "liveViewData": {"primary": {"title": "t", "content": [{"text": "x"}],
        "clickAction": {"target": "a"}}}})");
    const std::string idType = "401 Parameter error. The type of liveView.id mustbe number.\n";
    const struct {
        std::vector<std::string> args;
        int status;
        std::string out;
    } rows[] = {
        {{"validate", badId}, 1, idType + "section: common\n"},
        {{"convert", badId}, 1, idType + "section: common\n"},
        {{"validate", noLayout},
         1,
         "401 Parameter error. The type of primary.layoutData mustbe LayoutData [or the "
         "parameter is mandatory].\nsection: layout\n"
         "hint: liveViewData.primary.layoutData: missing; required on start\n"},
        {{"validate", noLayout, "--op", "update"}, 0, "0 valid for update\n"},
        {{"play", dir.Write("s.json", R"({"steps": [{"get": 4}, {"enabled": {}}]})")},
         1,
         "#1 get id 4: 1003500009 The liveView does not exists.\n   held: none under id 4\n"
         "play: step #1 answered 1003500009, expected 0\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.args[0] + " " + row.args[1]);
        const CliRun run = RunCli(row.args);
        EXPECT_EQ(run.status, row.status);
        EXPECT_EQ(run.out, row.out);
        EXPECT_EQ(run.err, "");
    }
}

TEST(CliTest, UnusableInputExitsTwoWithOneLine) {
    ScratchDir dir;
    const std::string malformed =
        dir.Write("malformed.json", "{\n  \"id\": 1,\n  \"event\" \"E\"\n}");
    const std::string syntax =
        ":3:11: JSON syntax error: expected ':' after a member name, found '\"'";
    dir.Write("fake.png", "this is text");
    const std::string fakePng =
        dir.Write("fakepng.json",
                  R"({"id": 1, "liveViewData": {"capsule": {"icon": {"file": "fake.png"}}}})");
    const std::string badStep = dir.Write("badstep.json", R"({"steps": [{"jump": 1}]})");
    const std::string badRef =
        dir.Write("badref.json", R"({"steps": [{"start": {"file": "malformed.json"}}]})");
    const std::string missing = dir.Path("missing.json");
    const struct {
        std::vector<std::string> args;
        std::string err;
    } rows[] = {
        {{"validate", malformed}, malformed + syntax},
        {{"convert", dir.Write("empty.json", "")}, dir.Path("empty.json") + ": the file is empty"},
        {{"validate", missing}, missing + ": no such file"},
        {{"validate", fakePng},
         fakePng + ":1:48: capsule.icon: picture file " + dir.Path("fake.png") +
             ": not a PNG file"},
        {{"play", badStep}, badStep + ":1:12: step #1: steps[0]: unknown member \"jump\""},
        {{"play", badRef}, badRef + ":1:12: step #1: steps[0].start: " + malformed + syntax},
        {{"play", missing}, missing + ": no such file"},
        {{"frobnicate", "x"},
         "unknown verb \"frobnicate\"; the verbs are validate, convert, play, preview, serve, help "
         "(liveview --help)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.args[0] + " " + row.args[1]);
        const CliRun run = RunCli(row.args);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "liveview: " + row.err + "\n");
    }
    for (const auto& args : std::vector<std::vector<std::string>>{
             {}, {"validate"}, {"validate", "x.json", "--op", "pause"}}) {
        SCOPED_TRACE(args.size());
        const CliRun run = RunCli(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err, "");
    }
}

// validate answers what the client answers before it publishes: for records whose verdict depends
// on the client's own rules (the timer section, a changed layout kind, the sections of a stop),
// validate's answer is the one that play gets from the client for the same record.
TEST(CliTest, ValidateAgreesWithPlay) {
    const struct {
        std::string file, operation, held;  // held: the live view started first
        std::string out;                    // validate's output
    } rows[] = {
        {"timer-negative.json", "start", "",
         "401 Parameter error. The type of liveView.timer.time mustbe larger than or equal 0\n"
         "section: timer\nhint: timer.time: -5; 0 or more\n"},
        {"pickup-becomes-flight.json", "update", ExamplePath("liveviews/pickup-layout.json"),
         "401 Parameter error. The type of layoutData.firstContent mustbe string [or the "
         "parameter is mandatory].\nsection: layout\n"
         "hint: liveViewData.primary.layoutData.firstContent: missing; required on start\n"},
        {"navigation-stop-bad-capsule.json", "stop",
         ExamplePath("liveviews/navigation-layout.json"),
         "401 Parameter error. The type of capsule.backgroundColor mustbe string [or the "
         "parameter length exceeds the limit].\nsection: capsule\n"
         "hint: liveViewData.capsule.backgroundColor: \"#FF0000\" is not #AARRGGBB\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        const std::string file = std::string(TOOLS_TEST_DATA) + "/" + row.file;
        std::vector<std::string> args = {"validate", file, "--op", row.operation};
        if (!row.held.empty()) {
            args.insert(args.end(), {"--held", row.held});
        }
        const CliRun validate = RunCli(args);
        EXPECT_EQ(validate.out, row.out);
        EXPECT_EQ(validate.status, 1);

        std::string steps = row.held.empty() ? "" : R"({"start": {"file": ")" + row.held + "\"}}, ";
        steps += "{\"" + row.operation + R"(": {"file": ")" + file + R"("}, "expect": 401})";
        ScratchDir dir;
        const CliRun play = RunCli({"play", dir.Write("agreement.json", R"({"app": {"bundle":
            "com.example.agree", "uid": 20010077}, "steps": [)" + steps + "]}")});
        EXPECT_EQ(play.status, 0) << play.out;
        EXPECT_NE(play.out.find(": " + row.out.substr(0, row.out.find('\n')) + " (expected)\n"),
                  std::string::npos)
            << play.out;
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
