// CommonUtils: trimming white space from both ends, and blank texts.
#include <gtest/gtest.h>

#include <string>

#include "common_utils.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

TEST(CommonUtilsTest, TrimStringRemovesLeadingAndTrailingWhiteSpaceOnly) {
    const struct {
        const char* label;
        std::string input;
        std::string expected;
    } rows[] = {
        {"empty", "", ""},
        {"nothing to trim", "pickup", "pickup"},
        {"spaces", "  pickup  ", "pickup"},
        {"tab", "\tpickup\t", "pickup"},
        {"carriage return", "\rpickup\r", "pickup"},
        {"line feed", "\npickup\n", "pickup"},
        {"vertical tab", "\vpickup\v", "pickup"},
        {"form feed", "\fpickup\f", "pickup"},
        {"all kinds mixed", " \t\r\n\v\fpickup \t\r\n\v\f", "pickup"},
        {"leading only", "   a", "a"},
        {"trailing only", "a   ", "a"},
        {"inner blanks kept", "  gate 3\t\tnorth  ", "gate 3\t\tnorth"},
        {"single character", " x ", "x"},
        {"all blank", " \t\r\n\v\f ", ""},
        {"single space", " ", ""},
        {"non-breaking space is not trimmed", "\xC2\xA0x\xC2\xA0", "\xC2\xA0x\xC2\xA0"},
        {"NUL is not white space", std::string("\0x", 2), std::string("\0x", 2)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(CommonUtils::TrimString(row.input), row.expected);
        EXPECT_EQ(CommonUtils::IsBlank(row.input), row.expected.empty());
    }
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
