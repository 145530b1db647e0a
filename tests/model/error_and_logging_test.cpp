#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "live_view_error_conversion.h"
#include "live_view_logger.h"
#include "live_view_manager.h"
#include "live_view_subscriber.h"
#include "log_capture.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

TEST(ReturnLiveViewErrorTest, MapsEveryServiceErrorAndPassesPublicCodes) {
    struct Row {
        int input;
        int expected;
    };
    const std::vector<Row> rows = {
        {0, 0},
        {67108865, 1003500003},
        {67108866, 1003500003},
        {67108873, 1003500002},
        {67108874, 1003500002},
        {67108880, 1003500009},
        {67108882, 1003500008},
        {67108898, 1003500004},
        {67108900, 1003500005},
        {67108903, 1003500005},
        {67108904, 1003500006},
        {67108905, 1003500010},
        {67108906, 1003500011},
        {67108907, 1003500007},
        // Public codes pass through unchanged.
        {401, 401},
        {1003500001, 1003500001},
        {1003500011, 1003500011},
        // Anything else is an internal error.
        {-1, 1003500001},
        {1, 1003500001},
        {67108867, 1003500001},
        {67108888, 1003500001},
        {1003500000, 1003500001},
        {1003500012, 1003500001},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.input);
        EXPECT_EQ(LiveViewErrorConversion::ReturnLiveViewError(row.input), row.expected);
    }
    EXPECT_EQ(LiveViewErrorConversion::INTERNAL_ERROR_MAP.size(), 14u);
    EXPECT_EQ(ErrorMessage::ERROR_MAP.size(), 12u);
}

TEST(ErrorMessageTest, KeepsTheTextsWordForWord) {
    EXPECT_EQ(ErrorMessage::ERROR_MAP.at(ERR_CONNECT_SERVER), "Couldn't to connect server.");
    EXPECT_EQ(ErrorMessage::ERROR_MAP.at(ERR_LIVE_VIEW_NOT_EXIST), "The liveView does not exists.");
    EXPECT_EQ(ErrorMessage::ERROR_MAP.count(SUCCESS), 0u);
}

TEST(EventLevelMapTest, NamesAndTypesBothEvents) {
    ASSERT_EQ(EVENT_LEVEL_MAP.size(), 2u);
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_LIVE_VIEW_SERVICE).name, "INVOKE_LIVE_VIEW_SERVICE");
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_LIVE_VIEW_SERVICE).type, 4);
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_NOTIFICATION_ERROR).name, "INVOKE_NOTIFICATION_ERROR");
    EXPECT_EQ(EVENT_LEVEL_MAP.at(INVOKE_NOTIFICATION_ERROR).type, 1);
}

TEST(LiveViewSubscriberTest, EachNoticeWritesItsExactLine) {
    LiveViewTest::HostCapture capture;
    LiveViewSubscriber& subscriber = LiveViewSubscriber::GetInstance();
    subscriber.OnConnected();
    subscriber.OnDisconnected();
    subscriber.OnResponse(42, sptr<Notification::NotificationButtonOption>());
    subscriber.OnDied();
    const auto lines = Host::TakeLogLines();
    ASSERT_EQ(lines.size(), 4u);
    const std::vector<std::string> expected = {
        "[live_view_subscriber.cpp:14] OnConnected# LiveViewSubscriber OnConnected.",
        "[live_view_subscriber.cpp:19] OnDisconnected# LiveViewSubscriber OnDisconnected.",
        "[live_view_subscriber.cpp:24] OnResponse# LiveViewSubscriber OnResponse, notificationId "
        "is 42",
        "[live_view_subscriber.cpp:29] OnDied# LiveViewSubscriber OnDied.",
    };
    for (size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(lines[i].text, expected[i]);
        EXPECT_EQ(lines[i].type, LOG_CORE);
        EXPECT_EQ(lines[i].level, LOG_INFO);
        EXPECT_EQ(lines[i].domain, 0xD005301u);
        EXPECT_EQ(lines[i].tag, "live_view_manager");
    }
}

TEST(LoggerTest, SourceNameKeepsOrAddsTheExtension) {
    EXPECT_EQ(Logger::SourceName(std::string("a/b/live_view_client")), "live_view_client.cpp");
    EXPECT_EQ(Logger::SourceName(std::string("live_view_client.cpp")), "live_view_client.cpp");
    EXPECT_STREQ(Logger::SourceName("x/y/z.cpp"), "z.cpp");
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
