// The extension, external and capsule rules: each limit at its value and one past it, with the
// exact message and the rule hint; and the colour matcher against the patterns it stands for.
#include <gtest/gtest.h>

#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "validate_test_util.h"

namespace Tavi::Wisp::LiveView::ValidateTest {
namespace {

const std::string CAPSULE = "liveViewData.capsule.";
const std::string EXTERNAL = "liveViewData.external.";

auto ExtensionType(int type) {
    return [type](auto& e) { e->SetType(static_cast<ExtensionData::ExtensionType>(type)); };
}
auto CapsuleType(int type) {
    return [type](auto& c) { c->SetType(static_cast<CapsuleData::CapsuleType>(type)); };
}
auto Color(const std::string& color) {
    return [color](auto& c) { c->SetBackgroundColor(Str(color)); };
}

TEST(ExtensionValidateTest, Rules) {
    const std::string pic = "extensionData.pic";
    const std::string type = Err("extensionData.type", "ExtensionType");
    RunRows<ExtensionData>(
        ExtensionForStart,
        {
            {"upper bounds", START,
             [](auto& e) { e->SetText(Bytes(127)), e->SetPic(Image(30720)); }, OK},
            {"text 128 bytes", UPDATE, SET(SetText(Bytes(128))), Len("extensionData.text"),
             "liveViewData.primary.extensionData.text: 128 bytes; at most 127 bytes, not blank"},
            {"type 2 without text", UPDATE,
             [](auto& e) { ExtensionType(2)(e), e->SetText(nullptr); }, Mand("extensionData.text")},
            {"type 5", START, ExtensionType(5), type,
             "liveViewData.primary.extensionData.type: 5; 0 to 4"},
            {"type 4 without picture", UPDATE, ExtensionType(4), Err(pic, PIC, MAND),
             "liveViewData.primary.extensionData.pic: missing; required when type is 3 or 4"},
            {"image 30721 bytes", START, SET(SetPic(Image(30721))), Err(pic, PIC, LEN)},
        });
}

TEST(ExternalValidateTest, Rules) {
    const std::string content = Err("external.content", "Array<RichTxtt>", LEN);
    RunRows<ExternalData>(
        ExternalForStart,
        {
            // clang-format off
            {"upper bounds", START,
             [](auto& x) { x->SetTitle(Bytes(127)), x->SetContent(Runs({100, 27})); }, OK},
            // clang-format on
            {"title 128 bytes", UPDATE, SET(SetTitle(Bytes(128))), Len("external.title")},
            {"no title on start", START, SET(SetTitle(nullptr)), Mand("external.title")},
            {"nothing on update", UPDATE, [](auto& x) { x = std::make_shared<ExternalData>(); },
             OK},
            {"no content on start", START, [](auto& x) { x->SetContent({}); },
             Err("external.content", "Array<RichText>", MAND)},
            {"content of 100 and 28 bytes", STOP, SET(SetContent(Runs({100, 28}))), content},
            {"content item of 128 bytes", START, SET(SetContent(Runs({128}))), content,
             EXTERNAL + "content[0].text: 128 bytes; at most 127 bytes, not blank"},
            {"eight-digit background", START, Color("#FF000000"), Len("external.backgroundColor"),
             EXTERNAL + "backgroundColor: \"#FF000000\" is not #RRGGBB"},
        });
}

TEST(CapsuleValidateTest, Rules) {
    const std::string icon = "capsule.icon";
    const std::string status = Err("capsule.status", "number", RANGE);
    const std::string type = Err("capsule.type", "capsuleType");
    const std::string content = Len("capsule.content");
    const std::string color = Len("capsule.backgroundColor");
    const std::string notArgb = "\" is not #AARRGGBB";
    RunRows<TextCapsule>(
        TextCapsuleForStart,
        {
            // clang-format off
            {"upper bounds", START, [](auto& c) {
                 c->SetIconStr(nullptr), c->SetIcon(Image(30720));
                 c->SetTitle(Bytes(127)), c->SetContent(Bytes(127)); }, OK},
            // clang-format on
            {"status 2", START, SET(SetStatus(Int(2))), status, CAPSULE + "status: 2; 1 or -1"},
            // clang-format off
            {"status -1 takes anything", START, [](auto& c) {
                 c->SetStatus(Int(-1)), CapsuleType(9)(c), c->SetParamFailed("ignored"); }, OK},
            // clang-format on
            {"type 4", UPDATE, CapsuleType(4), type, CAPSULE + "type: 4; 1, 2 or 3"},
            {"icon 30721 bytes", START, SET(SetIcon(Image(30721))), Err(icon, PIC, LEN),
             CAPSULE + "icon: 30,721 bytes; at most 30,720 bytes"},
            {"no icon on start", START, SET(SetIconStr(nullptr)), Err(icon, PIC, MAND)},
            {"six-digit colour", UPDATE, Color("#FF0000"), color,
             CAPSULE + "backgroundColor: \"#FF0000" + notArgb},
            {"cut never inside a character", START, Color(std::string(39, 'a') + "\xc3\xa9z"),
             color,
             CAPSULE + "backgroundColor: \"" + std::string(39, 'a') + "\"..." + notArgb.substr(1)},
            {"no colour on start", START, SET(SetBackgroundColor(nullptr)),
             Mand("capsule.backgroundColor")},
            {"title 128 bytes", START, SET(SetTitle(Bytes(128))), Len("capsule.title")},
            {"no title on start", START, SET(SetTitle(nullptr)), Mand("capsule.title")},
            {"text capsule typed as timer", START,
             [](auto& c) { CapsuleType(2)(c), c->SetTitle(Bytes(128)); }, OK},
        });
    RunRows<TimerCapsule>(
        TimerCapsuleForStart,
        {{"timer content 127 bytes", START, SET(SetContent(Bytes(127))), OK},
         {"timer content 128 bytes", START, SET(SetContent(Bytes(128))), content}});
    RunRows<ProgressCapsule>(
        ProgressCapsuleForStart,
        {{"progress above max", START, SET(SetProgress(Int(200))), OK},
         {"max 0", START, SET(SetMax(Int(0))), Err("capsule.max", "number", RANGE),
          CAPSULE + "max: 0; 1 or more"},
         {"progress -1", START, SET(SetProgress(Int(-1))), Err("capsule.progress", "number", RANGE),
          CAPSULE + "progress: -1; 0 or more"}});
}

// Every string of the given length over an alphabet that has each class the matcher
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

// The colours are matched by hand; each answer is the one of the pattern it stands for.
TEST(ColorPatternTest, HandMatcherAgreesWithThePatterns) {
    const std::regex argb("^#([A-Fa-f0-9]{8})$");
    const std::regex rgb("^#([A-Fa-f0-9]{6})$");
    int valid = 0;
    for (size_t length = 0; length <= 10; ++length) {
        for (const std::string& color : Candidates(length)) {
            SCOPED_TRACE("colour \"" + color + "\"");
            LiveView record = BaseRecord();
            record.GetLiveViewData()->GetCapsule()->SetBackgroundColor(Str(color));
            record.GetLiveViewData()->GetExternal()->SetBackgroundColor(Str(color));
            bool present = false;
            const bool argbAccepted =
                Validate::CapsuleDataParamValidate(record, START, present).Succeed();
            const bool rgbAccepted =
                Validate::ExternalDataParamValidate(record, START, present).Succeed();
            EXPECT_EQ(argbAccepted, std::regex_match(color, argb));
            EXPECT_EQ(rgbAccepted, std::regex_match(color, rgb));
            valid += argbAccepted + rgbAccepted;
        }
    }
    EXPECT_GT(valid, 2);  // the set holds colours of both kinds, not only refusals
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::ValidateTest
