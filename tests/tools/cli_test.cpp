// The liveview command, run as a program: every example validates, converts and plays; the
// library's refusals give exit status 1 with code and message; unusable input gives exit status
// 2 with a one-line reason; convert prints what the client publishes.
#include <gtest/gtest.h>

#include <string>

#include "host_control.h"
#include "live_view_client.h"
#include "live_view_content.h"
#include "notification_live_view_content.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using Tavi::Wisp::LiveView::LiveView;

TEST(CliExamplesTest, EveryLiveViewValidatesAndConverts) {
    const auto files = ExampleFiles("liveviews");
    ASSERT_GE(files.size(), 8u);
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        const CliRun validate = RunCli({"validate", file});
        EXPECT_EQ(validate.status, 0);
        EXPECT_EQ(validate.out, "0 valid for start\n");
        EXPECT_EQ(validate.err, "");

        const CliRun convert = RunCli({"convert", file});
        EXPECT_EQ(convert.status, 0);
        EXPECT_EQ(convert.err, "");
        const Tree printed = ParseTree(convert.out);
        const Tree source = ParseTree(ReadText(file));
        ASSERT_NE(printed, nullptr);
        EXPECT_EQ(cJSON_GetObjectItem(printed.get(), "notificationId")->valueint,
                  cJSON_GetObjectItem(source.get(), "id")->valueint);
    }
}

TEST(CliExamplesTest, EveryScenarioPlaysAsExpected) {
    const auto files = ExampleFiles("scenarios");
    ASSERT_GE(files.size(), 7u);
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        const CliRun play = RunCli({"play", file});
        EXPECT_EQ(play.status, 0) << play.out;
        EXPECT_EQ(play.err, "");
        EXPECT_NE(play.out.find("every answer as expected\n"), std::string::npos);
    }
}

TEST(CliExamplesTest, TheRefusalScenarioMeetsEachRefusalItExpects) {
    const CliRun play = RunCli({"play", ExamplePath("scenarios/refusals.json")});
    ASSERT_EQ(play.status, 0);
    for (const char* line : {
             "#2 start id 601 (../liveviews/text-capsule.json): 1003500006 StartLiveView "
             "publishNotification error. (expected)\n",
             "#3 update id 601 (inline): 1003500011 StartLiveView publishNotification error. "
             "(expected)\n",
             "#8 update id 601 (inline): 1003500010 StartLiveView publishNotification error. "
             "(expected)\n",
             "#13 start id 613 (inline): 1003500008 StartLiveView publishNotification error. "
             "(expected)\n",
             "#19 update id 611 (inline): 1003500004 StartLiveView publishNotification error. "
             "(expected)\n",
         }) {
        EXPECT_NE(play.out.find(line), std::string::npos) << line;
    }
}

TEST(CliRefusalTest, TheLibrarysVerdictIsPrintedWithExitStatusOne) {
    ScratchDir dir;
    const std::string badId = dir.Write("bad.json", R"({"id": "7", "event": "E"})");
    const std::string noLayout = dir.Write(
        "nolayout.json", R"({"id": 7, "event": "E", "liveViewData": {"primary": {"title": "t",
            "content": [{"text": "x"}], "clickAction": {"target": "a"}}}})");
    const struct {
        std::vector<std::string> args;
        std::string out;
    } rows[] = {
        {{"validate", badId},
         "401 Parameter error. The type of liveView.id mustbe number.\nsection: common\n"},
        {{"convert", badId},
         "401 Parameter error. The type of liveView.id mustbe number.\nsection: common\n"},
        {{"validate", noLayout},
         "401 Parameter error. The type of primary.layoutData mustbe LayoutData [or the "
         "parameter is mandatory].\nsection: layout\n"
         "hint: liveViewData.primary.layoutData: missing; required on start\n"},
        {{"validate", noLayout, "--op", "update"}, "0 valid for update\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.args[0] + " " + row.args[1]);
        const CliRun run = RunCli(row.args);
        EXPECT_EQ(run.status, row.out.rfind("0 ", 0) == 0 ? 0 : 1);
        EXPECT_EQ(run.out, row.out);
        EXPECT_EQ(run.err, "");
    }
}

TEST(CliRefusalTest, AnUnexpectedAnswerStopsThePlay) {
    ScratchDir dir;
    const std::string scenario = dir.Write("s.json", R"({"steps": [{"get": 4}, {"enabled": {}}]})");
    const CliRun play = RunCli({"play", scenario});
    EXPECT_EQ(play.status, 1);
    EXPECT_EQ(play.out,
              "#1 get id 4: 1003500009 The liveView does not exists.\n"
              "   held: none under id 4\n"
              "play: step #1 answered 1003500009, expected 0\n");
}

TEST(CliUnusableInputTest, EachGivesExitStatusTwoAndOneLine) {
    ScratchDir dir;
    const std::string malformed =
        dir.Write("malformed.json", "{\n  \"id\": 1,\n  \"event\" \"E\"\n}");
    const std::string empty = dir.Write("empty.json", "");
    dir.Write("fake.png", "this is text");
    const std::string fakePng =
        dir.Write("fakepng.json",
                  R"({"id": 1, "liveViewData": {"capsule": {"icon": {"file": "fake.png"}}}})");
    const std::string badStep = dir.Write("badstep.json", R"({"steps": [{"jump": 1}]})");
    const std::string badRef =
        dir.Write("badref.json", R"({"steps": [{"start": {"file": "malformed.json"}}]})");
    const std::string syntaxError =
        ":3:11: JSON syntax error: expected ':' after a member name, found '\"'";
    const struct {
        std::vector<std::string> args;
        std::string err;
    } rows[] = {
        {{"validate", malformed}, malformed + syntaxError},
        {{"convert", empty}, empty + ": the file is empty"},
        {{"validate", dir.Path("missing.json")}, dir.Path("missing.json") + ": no such file"},
        {{"validate", fakePng},
         fakePng + ":1:48: capsule.icon: picture file " + dir.Path("fake.png") +
             ": not a PNG file"},
        {{"play", badStep}, badStep + ":1:12: step #1: steps[0]: unknown member \"jump\""},
        {{"play", badRef}, badRef + ":1:12: step #1: steps[0].start: " + malformed + syntaxError},
        {{"play", dir.Path("missing.json")}, dir.Path("missing.json") + ": no such file"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.args[0] + " " + row.args[1]);
        const CliRun run = RunCli(row.args);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "liveview: " + row.err + "\n");
    }
}

TEST(CliUnusableInputTest, WrongArgumentsGiveExitStatusTwo) {
    for (const auto& args : std::vector<std::vector<std::string>>{
             {}, {"validate"}, {"fly", "x.json"}, {"validate", "x.json", "--op", "pause"}}) {
        const CliRun run = RunCli(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err, "");
    }
}

TEST(CliUnusableInputTest, AnUnknownVerbIsNamed) {
    const CliRun run = RunCli({"frobnicate", "x"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "liveview: unknown verb \"frobnicate\"; the verbs are validate, convert, play, "
              "preview, help (liveview --help)\n");
}

TEST(CliOutputTest, HelpOnEveryVerb) {
    for (const char* verb : {"validate", "convert", "play", "preview"}) {
        SCOPED_TRACE(verb);
        for (const auto& args :
             std::vector<std::vector<std::string>>{{verb, "--help"}, {"help", verb}}) {
            const CliRun run = RunCli(args);
            EXPECT_EQ(run.status, 0);
            EXPECT_NE(run.out.find(std::string("Usage: ")), std::string::npos) << run.out;
            EXPECT_NE(run.out.find(std::string(verb) + " [OPTIONS]"), std::string::npos) << run.out;
        }
    }
    const CliRun help = RunCli({"help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Exit status: 0 success"), std::string::npos) << help.out;
}

TEST(CliOutputTest, PlayPrintsEventsAndLogLinesOnlyWhenAsked) {
    const std::string scenario = ExamplePath("scenarios/navigation.json");
    const struct {
        std::vector<std::string> flags;
        bool events, logLines;
    } rows[] = {{{}, false, false},
                {{"--events"}, true, false},
                {{"-v"}, false, true},
                {{"--events", "--verbose"}, true, true}};
    for (const auto& row : rows) {
        std::vector<std::string> args = {"play", scenario};
        args.insert(args.end(), row.flags.begin(), row.flags.end());
        const CliRun run = RunCli(args);
        SCOPED_TRACE(args.size());
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out.find("   sysevent LIVE_VIEW/INVOKE_LIVE_VIEW_SERVICE type 4: "
                               "API_NAME=StartLiveView ERROR_CODE=0") != std::string::npos,
                  row.events);
        EXPECT_EQ(run.out.find("   endevent ") != std::string::npos, row.events);
        EXPECT_EQ(run.out.find("   log I live_view_manager: [live_view_subscriber.cpp:24] "
                               "OnResponse# LiveViewSubscriber OnResponse, notificationId is "
                               "501\n") != std::string::npos,
                  row.logLines);
    }
}

// convert builds the request without a service; the client publishes one through it. For a
// start both must be the same request.
TEST(CliOutputTest, ConvertPrintsWhatTheClientPublishes) {
    for (const auto& file : ExampleFiles("liveviews")) {
        SCOPED_TRACE(file);
        const Tree printed = ParseTree(RunCli({"convert", file}).out);
        ASSERT_NE(printed, nullptr);

        Tavi::Host::ResetAll();
        Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
        Tavi::Host::SetCallingApp("com.example.test", 20010001);
        LiveView liveView;
        LiveViewJson::InputError error;
        ASSERT_TRUE(LiveViewJson::LoadLiveView(file, liveView, error));
        Tavi::Wisp::LiveView::LiveViewClient::LiveViewResult result;
        ASSERT_TRUE(
            Tavi::Wisp::LiveView::LiveViewClient().StartLiveView(liveView, result).Succeed());
        const auto published = Tavi::Host::Published().back().request;
        const auto content = LiveViewTest::LiveViewContentOf(*published);
        Tavi::Host::ResetAll();

        const cJSON* printedContent = cJSON_GetObjectItem(printed.get(), "content");
        EXPECT_EQ(cJSON_IsTrue(cJSON_GetObjectItem(printedContent, "isOnlyLocalUpdate")),
                  content->GetIsOnlyLocalUpdate());
        EXPECT_EQ(cJSON_IsTrue(cJSON_GetObjectItem(printed.get(), "isCoverActionButtons")),
                  published->IsCoverActionButtons());
        std::vector<std::string> printedKeys;
        const cJSON* entry = nullptr;
        cJSON_ArrayForEach(entry, cJSON_GetObjectItem(printedContent, "extraInfo")) {
            printedKeys.push_back(entry->string);
        }
        std::vector<std::string> publishedKeys;
        for (const auto& param : content->GetExtraInfo()->GetParams()) {
            publishedKeys.push_back(param.first);
        }
        EXPECT_EQ(printedKeys, publishedKeys);
        EXPECT_EQ(cJSON_GetArraySize(cJSON_GetObjectItem(printedContent, "pictures")),
                  static_cast<int>(content->GetPicture().size()));
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
