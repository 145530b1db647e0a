// The common, timer and primary rules, and the rich-text list rule of the primary content: each
// limit at its value and one past it, with the exact message and the rule hint. Then the update
// entry point outside the pipeline, under which a valid later section rescues bad primary data.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "validate_test_util.h"
#include "want_params.h"

namespace Tavi::Wisp::LiveView::ValidateTest {
namespace {

const std::string PRIMARY = "liveViewData.primary.";
const std::string CONTENT = Err("primary.content", "Array<RichText>", LEN);
const std::string PARAMS = Err("primary.immersiveParameters", "Record<string, string>", "." + LEN);

std::shared_ptr<AAFwk::WantParams> Params(int strings, bool withInteger = false) {
    auto params = std::make_shared<AAFwk::WantParams>();
    for (int i = 0; i < strings; ++i) {
        params->SetParam("k" + std::to_string(i), AAFwk::String::Box("v"));
    }
    if (withInteger) {
        params->SetParam("mode", AAFwk::Integer::Box(1));
    }
    return params;
}
auto Content(const std::vector<std::shared_ptr<RichText>>& runs) {
    return [runs](std::shared_ptr<PrimaryData>& p) { p->SetContent(runs); };
}
std::shared_ptr<PrimaryData> ValidPrimary() {
    return LiveView::GetPrimaryData(BaseRecord());
}

TEST(CommonValidateTest, Rules) {
    RunRows<LiveView>(
        [] { return std::make_shared<LiveView>(BaseRecord()); },
        {
            {"event 127 bytes between blanks", START,
             SET(SetEvent(" " + std::string(127, 'e') + "\t")), OK},
            {"event 128 bytes between blanks", START,
             SET(SetEvent(" " + std::string(128, 'e') + " ")), Len("liveView.event"),
             "event: 128 bytes once trimmed; at most 127 bytes, not blank"},
            {"event of blanks", STOP, SET(SetEvent(" \t\n")), Len("liveView.event"),
             "event: \" \\t\\n\" is blank; at most 127 bytes, not blank"},
            {"no id", UPDATE, SET(SetId(nullptr)), Err("liveView.id", "number", MAND)},
            {"sequence -1", START, SET(SetSequence(Int(-1))),
             Err("liveView.sequence", "number", RANGE), "sequence: -1; 0 or more"},
            {"no data", START, SET(SetLiveViewData(nullptr)),
             Err("liveView.liveViewData", "LiveViewData", MAND)},
            {"param-failed text, verbatim and without hint", START,
             [](auto& v) { v->SetParamFailed("5%s"), v->SetId(nullptr); }, "5%s", ""},
        });
}

TEST(TimerValidateTest, TimeNotNegative) {
    RunRows<LiveViewTimer>(
        [] { return std::make_shared<LiveViewTimer>(); },
        {
            {"time 0", START, SET(SetTime(Long(0))), OK},
            {"time -5000", UPDATE, SET(SetTime(Long(-5000))),
             "Parameter error. The type of liveView.timer.time mustbe larger than or equal 0",
             "timer.time: -5,000; 0 or more"},
        });
}

TEST(PrimaryValidateTest, Rules) {
    const std::string pic = Err("primary.immersivePic", PIC, LEN);
    RunRows<PrimaryData>(
        ValidPrimary,
        {
            // clang-format off
            {"upper bounds", START, [](auto& p) {
                 p->SetTitle(Bytes(1023)), p->SetImmersivePicStr(Bytes(255));
                 p->SetImmersiveAbilityName(Bytes(127));
                 p->SetImmersiveParameters(Params(50)); }, OK},
            // clang-format on
            {"title 1024 bytes", UPDATE, SET(SetTitle(Bytes(1024))), Len("primary.title"),
             PRIMARY + "title: 1,024 bytes; at most 1,023 bytes, not blank"},
            {"no primary", UPDATE, [](auto& p) { p = nullptr; },
             Err("liveViewData.primary", "PrimaryData", MAND)},
            {"no content", START, [](auto& p) { p->SetContent({}); },
             Err("primary.content", "Array<RichText>", MAND)},
            {"no click action", START, SET(SetClickAction(nullptr)),
             Err("primary.clickAction", "WantAgent", MAND),
             PRIMARY + "clickAction: missing; required on start"},
            {"immersive picture 256 bytes", STOP, SET(SetImmersivePicStr(Bytes(256))), pic},
            {"ability name 128 bytes on start", START, SET(SetImmersiveAbilityName(Bytes(128))),
             Len("primary.immersiveAbilityName")},
            {"ability name 128 bytes on update", UPDATE, SET(SetImmersiveAbilityName(Bytes(128))),
             OK},
            {"51 parameters", START, SET(SetImmersiveParameters(Params(51))), PARAMS,
             PRIMARY + "immersiveParameters: 51 parameters; 1 to 50"},
            {"a parameter that is not a string", START,
             SET(SetImmersiveParameters(Params(2, true))),
             Err("primary.immersiveParameters", "Record<string, string>"),
             PRIMARY + "immersiveParameters.mode: a number; every value is a string"},
        });
}

// The list rule reaches the caller as the primary content message.
TEST(PrimaryValidateTest, RichTextList) {
    const auto red = Str("#FF000000");
    RunRows<PrimaryData>(
        ValidPrimary,
        {
            {"1023 bytes in all, one colour", START,
             Content({Rich(Bytes(600), red), Rich(Bytes(422)), Rich(Str("c"), red)}), OK},
            {"1024 bytes in all", STOP, SET(SetContent(Runs({600, 424}))), CONTENT,
             PRIMARY + "content: 1,024 bytes in all; 1 to 1,023 bytes in all"},
            {"item without text", START, Content({Rich(Str("a")), Rich(nullptr)}), CONTENT,
             PRIMARY + "content[1].text: missing; every item has a text"},
            {"colours differ in case", START,
             Content({Rich(Str("a"), red), Rich(Str("b"), Str("#ff000000"))}), CONTENT,
             PRIMARY +
                 "content[1].textColor: \"#ff000000\" differs from \"#FF000000\"; every coloured "
                 "item of one list has the same colour"},
        });
}

// Under the update entry point a bad primary section is rescued by a later section that is
// present and valid; otherwise the last failure is the answer.
TEST(EntryValidateTest, UpdateRescuedByAValidLaterSection) {
    LiveView v = BaseRecord();
    const auto answer = [&v] {
        const BaseRsp rsp = Validate::ValidateUpdateLiveViewParam(v, UPDATE);
        return std::to_string(rsp.GetErrAsInt32()) + " " + rsp.GetInfo();
    };
    SetCapsule(v, std::make_shared<TextCapsule>());
    EXPECT_EQ(answer(), "0 ");  // a good primary section: later ones are not looked at
    LiveView::GetPrimaryData(v)->SetParamFailed("primary");
    EXPECT_EQ(answer(), "0 ");  // rescued by the extension
    SetExtension(v, nullptr), SetLayout(v, nullptr);
    EXPECT_EQ(answer(), "0 ");  // rescued by the external data, after the bad capsule
    v.GetLiveViewData()->GetExternal()->SetTitle(Bytes(128));
    EXPECT_EQ(answer(), "401 " + Len("external.title"));
    SetCapsule(v, nullptr), SetExternal(v, nullptr);
    EXPECT_EQ(answer(), "401 primary");
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::ValidateTest
