// Extension, external and capsule checks, and what each optional section does with its flag and
// the log when it is absent, failing, or not of the kind that its type names.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "log_capture.h"
#include "validate_test_util.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ValidateTest {
namespace {

using E = ExtensionData;

auto ExtensionType(int type) {
    return [type](auto& e) { e->SetType(static_cast<E::ExtensionType>(type)); };
}
std::shared_ptr<CapsuleData> Progress(int max, int progress) {
    auto c = CapsuleOf<ProgressCapsule>(CapsuleData::PROGRESS);
    c->SetMax(Int(max)), c->SetProgress(Int(progress));
    return c;
}
std::shared_ptr<CapsuleData> Timer(std::shared_ptr<std::string> content) {
    auto c = CapsuleOf<TimerCapsule>(CapsuleData::TIMER);
    c->SetContent(content);
    return c;
}

TEST(ExtensionValidateTest, RulesInOrder) {
    const std::string pic = "extensionData.pic";
    const std::string type = Err("extensionData.type", "ExtensionType");
    const std::vector<Case<E>> cases = {
        {"type 0, upper bounds", [](auto& e) { e->SetText(Bytes(127)), e->SetPic(Image(30720)); },
         START, OK},
        {"param-failed text before type",
         [](auto& e) { e->SetParamFailed("type"), ExtensionType(5)(e); }, UPDATE, "type"},
        {"type 5", ExtensionType(5), START, type},
        {"type -1", ExtensionType(-1), STOP, type},
        {"type 2 without text", ExtensionType(2), UPDATE, Mand("extensionData.text")},
        {"text 128 bytes", [](auto& e) { e->SetText(Bytes(128)); }, START,
         Len("extensionData.text")},
        {"type 3, picture string only",
         [](auto& e) { ExtensionType(3)(e), e->SetPicStr(Str("p")); }, START, OK},
        {"type 4 without picture", ExtensionType(4), UPDATE, Err(pic, PIC, MAND)},
        {"empty picture string", [](auto& e) { e->SetPicStr(Str("")); }, START, Err(pic, PIC)},
        {"image 30721 before empty string",
         [](auto& e) { e->SetPic(Image(30721)), e->SetPicStr(Str("")); }, START,
         Err(pic, PIC, LEN)},
    };
    RunCases<E>(
        cases,
        [] {
            auto e = std::make_shared<E>();
            e->SetType(E::EXTENSION_TYPE_BLANK);
            return e;
        },
        [](const auto& extension, const auto&) {
            LiveView v = StartRecord();
            LiveView::GetPrimaryData(v)->SetExtensionData(extension);
            bool isPresent = false;
            return Validate::ExtendDataParamValidate(v, isPresent);
        });
}

TEST(ExternalValidateTest, RulesInOrder) {
    const std::string background = Len("external.backgroundColor");
    const std::vector<Case<ExternalData>> cases = {
        {"upper bounds",
         [](auto& x) {
             x->SetTitle(Bytes(127)), x->SetContent({Rich(Bytes(100)), Rich(Bytes(27))});
         },
         START, OK},
        {"param-failed text before title",
         [](auto& x) { x->SetParamFailed("title"), x->SetTitle(nullptr); }, START, "title"},
        {"title 128 bytes", [](auto& x) { x->SetTitle(Bytes(128)); }, UPDATE,
         Len("external.title")},
        {"no title on start", [](auto& x) { x->SetTitle(nullptr); }, START, Mand("external.title")},
        {"no title, content, colour on update",
         [](auto& x) { x = std::make_shared<ExternalData>(); }, UPDATE, OK},
        {"no content on start", [](auto& x) { x->SetContent({}); }, START,
         Err("external.content", "Array<RichText>", MAND)},
        {"content of 100 and 100 bytes",
         [](auto& x) {
             x->SetContent({Rich(Bytes(100)), Rich(Bytes(100))});
         },
         STOP, Err("external.content", "Array<RichTxtt>", LEN)},
        {"eight-digit background", [](auto& x) { x->SetBackgroundColor(Str("#FF1A2B3C")); }, START,
         background},
        {"background with blank", [](auto& x) { x->SetBackgroundColor(Str(" #1A2B3C")); }, START,
         background},
    };
    RunCases<ExternalData>(cases, ExternalForStart, [](const auto& external, const auto& op) {
        LiveView v = StartRecord();
        v.GetLiveViewData()->SetExternal(external);
        bool isPresent = false;
        return Validate::ExternalDataParamValidate(v, op, isPresent);
    });
}

TEST(CapsuleValidateTest, RulesInOrder) {
    const std::string icon = "capsule.icon";
    const std::string type = Err("capsule.type", "capsuleType");
    const std::string content = Len("capsule.content");
    auto text = [](auto& c) { return AsTextCapsule(c); };
    const std::vector<Case<CapsuleData>> cases = {
        {"upper bounds",
         [text](auto& c) {
             c->SetIconStr(nullptr), c->SetIcon(Image(30720));
             text(c)->SetTitle(Bytes(127)), text(c)->SetContent(Bytes(127));
         },
         START, OK},
        {"status absent", [](auto& c) { c->SetStatus(nullptr); }, UPDATE,
         Err("capsule.status", "number", MAND)},
        {"status 0", [](auto& c) { c->SetStatus(Int(0)); }, START,
         Err("capsule.status", "number", RANGE)},
        {"status 2", [](auto& c) { c->SetStatus(Int(2)); }, START,
         Err("capsule.status", "number", RANGE)},
        {"status -1 takes anything",
         [](auto& c) {
             c->SetStatus(Int(-1)), c->SetType(static_cast<CapsuleData::CapsuleType>(9));
             c->SetBackgroundColor(Str("#FF0000")), c->SetParamFailed("ignored");
         },
         START, OK},
        {"param-failed text before type",
         [](auto& c) { c->SetParamFailed("max"), c->SetType(CapsuleData::CAPSULE_TYPE_NONE); },
         START, "max"},
        {"type 0", [](auto& c) { c->SetType(static_cast<CapsuleData::CapsuleType>(0)); }, START,
         type},
        {"type 4", [](auto& c) { c->SetType(static_cast<CapsuleData::CapsuleType>(4)); }, UPDATE,
         type},
        {"image 30721 before empty string",
         [](auto& c) { c->SetIcon(Image(30721)), c->SetIconStr(Str("")); }, START,
         Err(icon, PIC, LEN)},
        {"empty icon string on update", [](auto& c) { c->SetIconStr(Str("")); }, UPDATE,
         Err(icon, PIC)},
        {"no icon before bad colour",
         [](auto& c) { c->SetIconStr(nullptr), c->SetBackgroundColor(Str("#FF0000")); }, START,
         Err(icon, PIC, MAND)},
        {"no icon, colour, title on update",
         [text](auto& c) {
             c->SetIconStr(nullptr), c->SetBackgroundColor(nullptr), text(c)->SetTitle(nullptr);
         },
         UPDATE, OK},
        {"six-digit colour", [](auto& c) { c->SetBackgroundColor(Str("#FF0000")); }, UPDATE,
         Len("capsule.backgroundColor")},
        {"no colour on start", [](auto& c) { c->SetBackgroundColor(nullptr); }, START,
         Mand("capsule.backgroundColor")},
        {"title 128 bytes", [text](auto& c) { text(c)->SetTitle(Bytes(128)); }, START,
         Len("capsule.title")},
        {"no title on start", [text](auto& c) { text(c)->SetTitle(nullptr); }, START,
         Mand("capsule.title")},
        {"text content 128 bytes", [text](auto& c) { text(c)->SetContent(Bytes(128)); }, STOP,
         content},
        {"timer content 128 bytes", [](auto& c) { c = Timer(Bytes(128)); }, START, content},
        {"max 0 before progress -1", [](auto& c) { c = Progress(0, -1); }, START,
         Err("capsule.max", "number", RANGE)},
        {"progress -1", [](auto& c) { c = Progress(1, -1); }, START,
         Err("capsule.progress", "number", RANGE)},
        {"max 1, progress 0", [](auto& c) { c = Progress(1, 0); }, START, OK},
        {"progress 200 above max 100", [](auto& c) { c = Progress(100, 200); }, START, OK},
        {"text capsule typed as timer",
         [text](auto& c) { c->SetType(CapsuleData::TIMER), text(c)->SetTitle(Bytes(128)); }, START,
         OK},
    };
    RunCases<CapsuleData>(cases, TextCapsuleForStart, [](const auto& capsule, const auto& op) {
        LiveView v = StartRecord();
        v.GetLiveViewData()->SetCapsule(capsule);
        bool isPresent = false;
        return Validate::CapsuleDataParamValidate(v, op, isPresent);
    });
}

// A present section sets the flag before any rule; an absent one leaves it as it was.
TEST(SectionFlagTest, FlagAndLogPerSection) {
    using Section = std::function<BaseRsp(const LiveView&, bool&)>;
    const Section extension = [](auto& v, bool& f) {
        return Validate::ExtendDataParamValidate(v, f);
    };
    const Section external = [](auto& v, bool& f) {
        return Validate::ExternalDataParamValidate(v, START, f);
    };
    const Section capsule = [](auto& v, bool& f) {
        return Validate::CapsuleDataParamValidate(v, START, f);
    };
    const Section layout = [](auto& v, bool& f) {
        return Validate::LayoutDataParamValidate(v, UPDATE, f);
    };
    const std::string at = "[live_view_param_validate.cpp:";
    struct Row {
        const char* label;
        Section check;
        std::function<void(LiveView&)> change;
        std::string expected;
        bool present;
        std::string log;
    };
    const Row rows[] = {
        {"extension absent", extension, [](auto&) {}, OK, false,
         at + "240] ExtendDataParamValidate# The extensionData is nullptr"},
        {"extension failing", extension,
         [](auto& v) { LiveView::GetPrimaryData(v)->SetExtensionData(std::make_shared<E>()); },
         Err("extensionData.type", "ExtensionType"), true, ""},
        {"external absent", external, [](auto&) {}, OK, false,
         at + "280] ExternalDataParamValidate# The externalData is null"},
        {"external failing", external,
         [](auto& v) { v.GetLiveViewData()->SetExternal(std::make_shared<ExternalData>()); },
         Mand("external.title"), true, ""},
        {"capsule absent", capsule, [](auto&) {}, OK, false,
         at + "320] CapsuleDataParamValidate# The capsule is nullptr"},
        {"capsule of another kind", capsule,
         [](auto& v) {
             v.GetLiveViewData()->SetCapsule(CapsuleOf<TextCapsule>(CapsuleData::TIMER));
         },
         OK, true, at + "350] CapsuleDataParamValidate# The timerCapsule is nullptr"},
        {"layout absent on update", layout,
         [](auto& v) { LiveView::GetPrimaryData(v)->SetLayoutData(nullptr); }, OK, false, ""},
        {"layout failing on update", layout,
         [](auto& v) {
             LiveView::GetPrimaryData(v)->SetLayoutData(Kind<LayoutData>(LayoutData::BASIC));
         },
         Err("layoutData.layoutType", "LayoutType"), true, ""},
        {"flight layout typed pickup", layout,
         [](auto& v) {
             LiveView::GetPrimaryData(v)->SetLayoutData(Kind<FlightLayout>(LayoutData::PICKUP));
         },
         OK, true, at + "420] LayoutDataParamValidate# The pickupLayout is nullptr"},
    };
    for (const auto& row : rows) {
        for (const bool before : {false, true}) {
            SCOPED_TRACE(std::string(row.label) +
                         (before ? ", flag was true" : ", flag was false"));
            LiveViewTest::HostCapture capture;
            LiveView v = StartRecord();
            row.change(v);
            bool isPresent = before;
            ExpectRsp(row.check(v, isPresent), row.expected);
            EXPECT_EQ(isPresent, row.present || before);
            const auto logs = capture.LogTexts();
            EXPECT_EQ(logs, row.log.empty() ? std::vector<std::string>()
                                            : std::vector<std::string>{row.log});
        }
    }
}

}  // namespace
}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
