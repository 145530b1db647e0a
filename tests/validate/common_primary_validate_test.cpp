// Common, timer and primary checks, the rich-text list rule and the ARGB colour rule. A row
// labelled "upper bounds" sets every field it names to its largest valid value at once.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "validate_test_util.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ValidateTest {
namespace {

const std::string CONTENT = Err("primary.content", "Array<RichText>", LEN);
const std::string PARAMS = "primary.immersiveParameters";

BaseRsp CheckPrimary(const std::shared_ptr<PrimaryData>& primary, const LiveView::Operation& op) {
    LiveView v = StartRecord();
    v.GetLiveViewData()->SetPrimary(primary);
    return Validate::PrimaryDataParamValidate(v, op);
}
std::shared_ptr<AAFwk::WantParams> Params(int strings, bool withInteger = false) {
    auto params = std::make_shared<AAFwk::WantParams>();
    for (int i = 0; i < strings; ++i) {
        params->SetParam("k" + std::to_string(i), AAFwk::String::Box("v"));
    }
    if (withInteger) {
        params->SetParam("int", AAFwk::Integer::Box(1));
    }
    return params;
}
auto Content(const std::vector<RunPtr>& runs) {
    return [runs](std::shared_ptr<PrimaryData>& p) { p->SetContent(runs); };
}
auto Colors(std::shared_ptr<std::string> first, std::shared_ptr<std::string> second = nullptr) {
    return Content({Rich(Str("a"), first), Rich(Str("b"), second)});
}

TEST(CommonValidateTest, RulesInOrder) {
    const std::vector<Case<LiveView>> cases = {
        {"event 127 bytes within blanks",
         [](auto& v) { v->SetEvent(" " + std::string(127, 'e') + "\t"); }, START, OK},
        {"param-failed text first, verbatim",
         [](auto& v) { v->SetParamFailed("5%s"), v->SetId(nullptr); }, START, "5%s"},
        {"id before event", [](auto& v) { v->SetId(nullptr), v->SetEvent(""); }, UPDATE,
         Err("liveView.id", "number", MAND)},
        {"event 128 bytes", [](auto& v) { v->SetEvent(std::string(128, 'e')); }, START,
         Len("liveView.event")},
        {"event of blanks", [](auto& v) { v->SetEvent("  "); }, STOP, Len("liveView.event")},
        {"sequence -1 before data",
         [](auto& v) { v->SetSequence(Int(-1)), v->SetLiveViewData(nullptr); }, START,
         Err("liveView.sequence", "number", RANGE)},
        {"no data", [](auto& v) { v->SetLiveViewData(nullptr); }, START,
         Err("liveView.liveViewData", "LiveViewData", MAND)},
    };
    RunCases<LiveView>(
        cases, [] { return std::make_shared<LiveView>(StartRecord()); },
        [](const auto& v, const auto&) { return Validate::CommonDataParamValidate(*v); });
}

TEST(TimerValidateTest, TimeNotNegative) {
    const std::vector<Case<LiveViewTimer>> cases = {
        {"time 0", [](auto& t) { t->SetTime(std::make_shared<long>(0)); }, START, OK},
        {"no timer", [](auto& t) { t = nullptr; }, START, OK},
        {"time -1", [](auto& t) { t->SetTime(std::make_shared<long>(-1)); }, UPDATE,
         "Parameter error. The type of liveView.timer.time mustbe larger than or equal 0"},
        {"param-failed text before time",
         [](auto& t) { t->SetParamFailed("time"), t->SetTime(std::make_shared<long>(-1)); }, START,
         "time"},
    };
    RunCases<LiveViewTimer>(
        cases, [] { return std::make_shared<LiveViewTimer>(); },
        [](const auto& timer, const auto&) {
            LiveView v = StartRecord();
            v.SetTimer(timer);
            return Validate::TimerDataParamValidate(v);
        });
}

TEST(PrimaryValidateTest, RulesInOrder) {
    const std::string click = Err("primary.clickAction", "WantAgent", MAND);
    const std::vector<Case<PrimaryData>> cases = {
        {"upper bounds",
         [](auto& p) {
             p->SetTitle(Bytes(1023)), p->SetImmersivePicStr(Bytes(255));
             p->SetImmersiveAbilityName(Bytes(127)), p->SetImmersiveParameters(Params(50));
         },
         START, OK},
        {"absent", [](auto& p) { p = nullptr; }, UPDATE,
         Err("liveViewData.primary", "PrimaryData", MAND)},
        {"param-failed text before title",
         [](auto& p) { p->SetParamFailed("title"), p->SetTitle(nullptr); }, START, "title"},
        {"title 1024 bytes", [](auto& p) { p->SetTitle(Bytes(1024)); }, UPDATE,
         Len("primary.title")},
        {"title of blanks", [](auto& p) { p->SetTitle(Str("   ")); }, START, Len("primary.title")},
        {"empty on start: title first", [](auto& p) { p = std::make_shared<PrimaryData>(); }, START,
         Mand("primary.title")},
        {"content before click action",
         [](auto& p) { p->SetContent({}), p->SetClickAction(nullptr); }, START,
         Err("primary.content", "Array<RichText>", MAND)},
        {"click action before immersive",
         [](auto& p) { p->SetClickAction(nullptr), p->SetImmersivePicStr(Str("")); }, START, click},
        {"empty on update", [](auto& p) { p = std::make_shared<PrimaryData>(); }, UPDATE, OK},
        {"immersive picture 256 bytes", [](auto& p) { p->SetImmersivePicStr(Bytes(256)); }, STOP,
         Err("primary.immersivePic", PIC, LEN)},
        {"ability 128 bytes on start", [](auto& p) { p->SetImmersiveAbilityName(Bytes(128)); },
         START, Len("primary.immersiveAbilityName")},
        {"ability 128 bytes on update", [](auto& p) { p->SetImmersiveAbilityName(Bytes(128)); },
         UPDATE, OK},
        {"no parameters", [](auto& p) { p->SetImmersiveParameters(Params(0)); }, UPDATE,
         Err(PARAMS, "Record<string, string>", "." + LEN)},
        {"51 parameters", [](auto& p) { p->SetImmersiveParameters(Params(51)); }, START,
         Err(PARAMS, "Record<string, string>", "." + LEN)},
        {"integer parameter", [](auto& p) { p->SetImmersiveParameters(Params(2, true)); }, START,
         Err(PARAMS, "Record<string, string>")},
    };
    RunCases<PrimaryData>(cases, ValidPrimary, CheckPrimary);
}

// The list rule reaches the caller as the primary content message; the limit is 1024 there.
TEST(RichTextValidateTest, ItemsSumAndOneColour) {
    const auto red = Str("#FF000000");
    const std::vector<Case<PrimaryData>> cases = {
        {"upper bounds", Content({Rich(Bytes(600)), Rich(Bytes(423), Str("#ff00aa00"))}), START,
         OK},
        {"one item 1024 bytes", Content({Rich(Bytes(1024))}), START, CONTENT},
        {"sum 1024 bytes", Content({Rich(Bytes(600)), Rich(Bytes(424))}), STOP, CONTENT},
        {"null items skipped", Content({nullptr, Rich(Str("a")), nullptr}), START, OK},
        {"only null items", Content({nullptr}), UPDATE, CONTENT},
        {"item without text", Content({Rich(Str("a")), Rich(nullptr)}), START, CONTENT},
        {"blank item", Content({Rich(Str("  "))}), START, CONTENT},
        {"one colour and none", Content({Rich(Str("a"), red), Rich(Str("b")), Rich(Str("c"), red)}),
         START, OK},
        {"colours differ in case", Colors(red, Str("#ff000000")), START, CONTENT},
        {"six digits", Colors(Str("#FFFFFF")), START, CONTENT},
        {"no hash sign", Colors(Str("FF000000")), START, CONTENT},
        {"leading blank", Colors(Str(" #FF000000")), START, CONTENT},
        {"trailing newline", Colors(Str("#FF000000\n")), START, CONTENT},
        {"not hexadecimal", Colors(Str("#FF00000G")), START, CONTENT},
        {"one megabyte", Colors(Str("#" + std::string(1 << 20, 'F'))), START, CONTENT},
    };
    RunCases<PrimaryData>(cases, ValidPrimary, CheckPrimary);
}

TEST(PrimaryValidateTest, StopClampsKeepTimeIntoRecord) {
    struct Row {
        const char* label;
        int keepTime;
        LiveView::Operation operation;
        bool laterRuleFails;
        int expectedKeepTime;
    };
    const Row rows[] = {
        {"-5 on stop", -5, STOP, false, 0},
        {"3601 on stop", 3601, STOP, false, 3600},
        {"3600 on stop", 3600, STOP, false, 3600},
        {"-5 on update", -5, UPDATE, false, -5},
        {"4000 on start", 4000, START, false, 4000},
        {"before a failing rule", 4000, STOP, true, 3600},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        LiveView v = StartRecord();
        const auto primary = LiveView::GetPrimaryData(v);
        primary->SetKeepTime(Int(row.keepTime));
        primary->SetImmersivePicStr(row.laterRuleFails ? Str("") : nullptr);
        ExpectRsp(Validate::PrimaryDataParamValidate(v, row.operation),
                  row.laterRuleFails ? Err("primary.immersivePic", PIC, LEN) : OK);
        EXPECT_EQ(*primary->GetKeepTime(), row.expectedKeepTime);
    }
}

}  // namespace
}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
