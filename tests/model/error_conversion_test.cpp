// The service's error numbers as the public codes that reach the application.
#include <gtest/gtest.h>

#include "live_view_error_conversion.h"

namespace Tavi::Wisp::LiveView {
namespace {

// Public codes pass through unchanged; any other number is an internal error.
TEST(ErrorConversionTest, ServiceNumbersBecomePublicCodesAndPublicCodesPass) {
    // Pairs of the service's number and the code that the application gets.
    const int rows[] = {0,          0,          67108865,   1003500003, 67108866,   1003500003,
                        67108873,   1003500002, 67108874,   1003500002, 67108880,   1003500009,
                        67108882,   1003500008, 67108898,   1003500004, 67108900,   1003500005,
                        67108903,   1003500005, 67108904,   1003500006, 67108905,   1003500010,
                        67108906,   1003500011, 67108907,   1003500007, 401,        401,
                        1003500001, 1003500001, 1003500011, 1003500011, -1,         1003500001,
                        67108867,   1003500001, 67108888,   1003500001, 1003500000, 1003500001,
                        1003500012, 1003500001};
    for (size_t i = 0; i < sizeof(rows) / sizeof(rows[0]); i += 2) {
        SCOPED_TRACE(rows[i]);
        EXPECT_EQ(LiveViewErrorConversion::ReturnLiveViewError(rows[i]), rows[i + 1]);
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView
