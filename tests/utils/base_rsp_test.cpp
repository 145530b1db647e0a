// BaseRsp: the formatted text of the failure forms, and the one error line of the located form.
#include <gtest/gtest.h>

#include <string>

#include "base_rsp.h"
#include "host_control.h"
#include "log_template.h"

namespace Tavi::Wisp::LiveView {
namespace {

// The first buffer holds 255 characters and the terminator; longer texts take a second pass.
TEST(BaseRspTest, FormatFormKeepsTextsOnBothSidesOfTheFirstBuffer) {
    for (size_t length : {255u, 256u, 400u}) {
        SCOPED_TRACE(length);
        const std::string text(length - 3, 'z');
        const BaseRsp rsp(ERR_MARSHALLING, "%s %d", text.c_str(), 42);
        EXPECT_EQ(rsp.GetErrAsInt32(), 1003500002);
        EXPECT_EQ(rsp.GetInfo(), text + " 42");
    }
}

// The text is formatted once, then logged as it is, at error level, naming the source file.
TEST(BaseRspTest, LocatedFormLogsItsTextOnceAsAnErrorLine) {
    Host::ResetAll();
    Host::SetLogMode(Host::SinkMode::CAPTURE);
    const BaseRsp rsp(ERR_PARAM_INVALID, LogTemplate(LOGGER_HILOG, "src/live_view.h", "Fn", 12),
                      "value %s at %d", "100%d{private}", 3);
    EXPECT_EQ(rsp.GetInfo(), "value 100%d{private} at 3");
    const auto lines = Host::TakeLogLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, "[live_view.h:12] Fn# value 100%d{private} at 3");
    EXPECT_EQ(lines[0].level, 6);
    Host::ResetAll();
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView
