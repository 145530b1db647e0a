// The public result codes and their standard messages.
#include <gtest/gtest.h>

#include <string>

#include "error_code.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

TEST(ErrorMessageTest, MapHasExactlyTwelveEntriesAndNoneForSuccess) {
    EXPECT_EQ(ErrorMessage::ERROR_MAP.size(), 12u);
    EXPECT_EQ(ErrorMessage::ERROR_MAP.count(SUCCESS), 0u);
}

TEST(ErrorMessageTest, CodesAndMessagesAreKeptWordForWord) {
    const struct {
        ErrorCode code;
        int32_t value;
        const char* message;
    } rows[] = {
        {ERR_PARAM_INVALID, 401, "The parameter check failed."},
        {ERR_INTERNAL, 1003500001, "Internal error."},
        {ERR_MARSHALLING, 1003500002, "Marshalling or unmarshalling error."},
        {ERR_CONNECT_SERVICE, 1003500003, "Failed to connect service."},
        {ERR_LIVE_VIEW_NOT_ENABLED, 1003500004, "LiveView is not enabled."},
        {ERR_LIVE_VIEW_RIGHT_NOT_ENABLED, 1003500005, "The right of liveView is not enabled."},
        {ERR_LIVE_VIEW_ALREADY_EXISTS, 1003500006, "The liveView already exists."},
        {ERR_CONNECT_SERVER, 1003500007, "Couldn't to connect server."},
        {ERR_OVER_MAX_PER_SECOND, 1003500008, "Over max number liveViews per second."},
        {ERR_LIVE_VIEW_NOT_EXIST, 1003500009, "The liveView does not exists."},
        {ERR_LIVE_VIEW_ENDED, 1003500010, "The liveView has ended."},
        {ERR_SEQUENCE_INCORRECT, 1003500011, "The liveView sequence is incorrect."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(static_cast<int32_t>(row.code), row.value);
        auto it = ErrorMessage::ERROR_MAP.find(row.code);
        ASSERT_NE(it, ErrorMessage::ERROR_MAP.end());
        EXPECT_EQ(it->second, row.message);
    }
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
