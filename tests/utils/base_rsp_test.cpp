// BaseRsp: success, the three failure forms, and the single error line of the located form.
#include <gtest/gtest.h>

#include <string>

#include "base_rsp.h"
#include "host_control.h"
#include "live_view_logger.h"
#include "log_template.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

constexpr const char* kClientPath =
    "live_activity_framework/frameworks/native/live_activity_manager/src/live_view_client";

class BaseRspTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::DISCARD);
        Host::SetLogMode(Host::SinkMode::CAPTURE);
    }
    void TearDown() override { Host::ResetAll(); }
};

TEST_F(BaseRspTest, DefaultIsSuccessWithNoText) {
    const BaseRsp rsp;
    EXPECT_TRUE(rsp.Succeed());
    EXPECT_EQ(rsp.GetErr(), SUCCESS);
    EXPECT_EQ(rsp.GetErrAsInt32(), 0);
    EXPECT_EQ(rsp.GetInfo(), "");
    EXPECT_TRUE(Host::TakeLogLines().empty());
}

TEST_F(BaseRspTest, TextFormKeepsTheTextVerbatimAndLogsNothing) {
    const BaseRsp rsp(ERR_PARAM_INVALID, std::string("50%d done %s"));
    EXPECT_FALSE(rsp.Succeed());
    EXPECT_EQ(rsp.GetErr(), ERR_PARAM_INVALID);
    EXPECT_EQ(rsp.GetErrAsInt32(), 401);
    EXPECT_EQ(rsp.GetInfo(), "50%d done %s");
    EXPECT_TRUE(Host::TakeLogLines().empty());
}

TEST_F(BaseRspTest, FormatFormFormatsPrintfStyleAndLogsNothing) {
    const std::string longText(400, 'y');
    const struct {
        const char* label;
        BaseRsp rsp;
        ErrorCode code;
        std::string info;
    } rows[] = {
        {"no arguments", BaseRsp(ERR_INTERNAL, "Internal error."), ERR_INTERNAL, "Internal error."},
        {"text and number", BaseRsp(ERR_INTERNAL, "Get current bundle name failed, uid is %d.", -1),
         ERR_INTERNAL, "Get current bundle name failed, uid is -1."},
        {"several conversions",
         BaseRsp(ERR_LIVE_VIEW_NOT_EXIST, "%s %s, id %d, %.1f%%", "liveView", "missing", 42, 99.5),
         ERR_LIVE_VIEW_NOT_EXIST, "liveView missing, id 42, 99.5%"},
        {"longer than the first buffer", BaseRsp(ERR_MARSHALLING, "<%s>", longText.c_str()),
         ERR_MARSHALLING, "<" + longText + ">"},
        {"exactly 255 characters", BaseRsp(ERR_MARSHALLING, "%s", std::string(255, 'z').c_str()),
         ERR_MARSHALLING, std::string(255, 'z')},
        {"exactly 256 characters", BaseRsp(ERR_MARSHALLING, "%s", std::string(256, 'z').c_str()),
         ERR_MARSHALLING, std::string(256, 'z')},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_FALSE(row.rsp.Succeed());
        EXPECT_EQ(row.rsp.GetErr(), row.code);
        EXPECT_EQ(row.rsp.GetErrAsInt32(), static_cast<int32_t>(row.code));
        EXPECT_EQ(row.rsp.GetInfo(), row.info);
    }
    EXPECT_TRUE(Host::TakeLogLines().empty());
}

TEST_F(BaseRspTest, LocatedFormLogsExactlyOneErrorLineNamingThePlace) {
    const LogTemplate where(LOGGER_HILOG, kClientPath, "StartLiveView", 636);
    const BaseRsp rsp(ERR_LIVE_VIEW_ALREADY_EXISTS, where,
                      "StartLiveView publishNotification error.");
    EXPECT_FALSE(rsp.Succeed());
    EXPECT_EQ(rsp.GetErr(), ERR_LIVE_VIEW_ALREADY_EXISTS);
    EXPECT_EQ(rsp.GetErrAsInt32(), 1003500006);
    EXPECT_EQ(rsp.GetInfo(), "StartLiveView publishNotification error.");

    const auto lines = Host::TakeLogLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text,
              "[live_view_client.cpp:636] StartLiveView# StartLiveView publishNotification error.");
    EXPECT_EQ(lines[0].type, 3);
    EXPECT_EQ(lines[0].level, 6);
    EXPECT_EQ(lines[0].domain, 0xD005301u);
    EXPECT_EQ(lines[0].tag, "live_view_manager");
}

TEST_F(BaseRspTest, LocatedFormFormatsItsTextOnceAndLogsItLiterally) {
    const LogTemplate where(LOGGER_HILOG, kClientPath, "UpdateLiveView", 700);
    const BaseRsp rsp(ERR_PARAM_INVALID, where, "value %s at %d", "100%d{private}", 3);
    EXPECT_EQ(rsp.GetInfo(), "value 100%d{private} at 3");
    const auto lines = Host::TakeLogLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text,
              "[live_view_client.cpp:700] UpdateLiveView# value 100%d{private} at 3");
}

TEST_F(BaseRspTest, LocatedFormNamesTheSourceFileByItsBaseNameWithExtension) {
    const struct {
        const char* label;
        const char* file;
        const char* func;
        unsigned int line;
        const char* expected;
    } rows[] = {
        {"path without extension", kClientPath, "StartLiveView", 636,
         "[live_view_client.cpp:636] StartLiveView# m"},
        {"path with extension", "src/live_view_subscriber.cpp", "OnDied", 29,
         "[live_view_subscriber.cpp:29] OnDied# m"},
        {"bare name", "live_view_param_validate", "Check", 1,
         "[live_view_param_validate.cpp:1] Check# m"},
        {"header keeps its extension", "include/live_view.h", "Get", 12, "[live_view.h:12] Get# m"},
        {"null file and function", nullptr, nullptr, 0, "[.cpp:0] # m"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const BaseRsp rsp(ERR_INTERNAL, LogTemplate(LOGGER_HILOG, row.file, row.func, row.line),
                          "m");
        const auto lines = Host::TakeLogLines();
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines[0].text, row.expected);
    }
}

TEST(LogTemplateTest, KeepsItsPartsAndTheCollectMarks) {
    const char* file = "src/live_view_client";
    const LogTemplate where(LOGGER_HILOG, file, "StopLiveView", 900);
    EXPECT_EQ(where.GetLoggerType(), LOGGER_HILOG);
    EXPECT_EQ(where.GetLoggerType(), 3);
    EXPECT_EQ(where.GetFile(), "src/live_view_client");
    EXPECT_EQ(where.GetFunc(), "StopLiveView");
    EXPECT_EQ(where.GetLine(), 900u);
    EXPECT_EQ(LogTemplate::COLLECT_MARK_, ":");
    EXPECT_EQ(Logger::COLLECT_MARK_, "@");
    EXPECT_EQ(Logger::TAG_, "live_view_manager");
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
