// The colour rules are matched by hand; every colour of an exhaustive set of short strings gets
// the answer of the patterns they stand for, ^#([A-Fa-f0-9]{8})$ (capsule colours, ARGB) and
// ^#([A-Fa-f0-9]{6})$ (external background, RGB), as std::regex gives it.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "validate_test_util.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ValidateTest {
namespace {

// Every string of length 0 to `maxLength` over an alphabet that has each class the matcher
// distinguishes: the hash sign, digits, both cases of valid and invalid letters, a blank, a
// line break and a byte above 127. Strings longer than 3 fix their middle to keep the set small.
std::vector<std::string> Candidates(size_t length) {
    static const std::string ALPHABET = "#0aFgG \n\x80";
    std::vector<std::string> out = {std::string(length, '0')};
    const std::string middle = length > 3 ? std::string(length - 3, 'A') : "";
    for (char first : ALPHABET) {
        for (char second : ALPHABET) {
            for (char last : ALPHABET) {
                std::string text = std::string(1, first) + middle + second + last;
                if (text.size() == length) {
                    out.push_back(text);
                }
            }
        }
    }
    return out;
}

TEST(ColorPatternTest, HandMatcherAgreesWithThePatterns) {
    const std::regex argb("^#([A-Fa-f0-9]{8})$");
    const std::regex rgb("^#([A-Fa-f0-9]{6})$");
    int valid = 0;
    for (size_t length = 0; length <= 10; ++length) {
        for (const std::string& color : Candidates(length)) {
            SCOPED_TRACE("colour \"" + color + "\"");
            LiveView capsuleRecord = StartRecord();
            auto capsule = TextCapsuleForStart();
            capsule->SetBackgroundColor(Str(color));
            SetCapsule(capsuleRecord, capsule);
            bool present = false;
            const bool argbAccepted =
                Validate::CapsuleDataParamValidate(capsuleRecord, START, present).Succeed();
            EXPECT_EQ(argbAccepted, std::regex_match(color, argb));

            LiveView externalRecord = StartRecord();
            auto external = ExternalForStart();
            external->SetBackgroundColor(Str(color));
            SetExternal(externalRecord, external);
            const bool rgbAccepted =
                Validate::ExternalDataParamValidate(externalRecord, START, present).Succeed();
            EXPECT_EQ(rgbAccepted, std::regex_match(color, rgb));
            valid += argbAccepted + rgbAccepted;
        }
    }
    EXPECT_GT(valid, 2);  // the set holds colours of both kinds, not only refusals
}

}  // namespace
}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
