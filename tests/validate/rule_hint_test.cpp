// Rule hints: for each kind of rule, the JSON path and the text that say how to fix a refused
// record; none for a passing record, a param-failed text, or checks run outside a scope.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "live_view_request_pipeline.h"
#include "live_view_rule_hint.h"
#include "validate_test_util.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ValidateTest {
namespace {

const std::string PRIMARY = "liveViewData.primary.";
const std::string LAYOUT = "liveViewData.primary.layoutData.";
const std::string CAPSULE = "liveViewData.capsule.";

std::shared_ptr<PrimaryData> Primary(LiveView& v) {
    return LiveView::GetPrimaryData(v);
}
template <typename T>
void WithCapsule(LiveView& v, std::shared_ptr<T> capsule, const std::function<void(T&)>& change) {
    change(*capsule);
    SetCapsule(v, capsule);
}
void WithProgress(LiveView& v, const std::function<void(ProgressLayout&)>& change) {
    auto layout = ValidProgress();
    change(*layout);
    SetLayout(v, layout);
}
void WithContent(LiveView& v, const std::vector<RunPtr>& runs) {
    Primary(v)->SetContent(runs);
}
void WithCapsuleColor(LiveView& v, const std::string& color) {
    WithCapsule<TextCapsule>(v, TextCapsuleForStart(),
                             [&color](TextCapsule& c) { c.SetBackgroundColor(Str(color)); });
}
std::shared_ptr<AAFwk::WantParams> Params(int strings) {
    auto params = std::make_shared<AAFwk::WantParams>();
    for (int i = 0; i < strings; ++i) {
        params->SetParam("k" + std::to_string(i), AAFwk::String::Box("v"));
    }
    return params;
}

struct HintCase {
    std::string label;
    std::function<void(LiveView&)> change;  // breaks one rule of a record that passes a start
    std::string path;                       // empty: no hint
    std::string text;
};

TEST(RuleHintTest, EachKindOfRuleNamesItsMemberRuleAndValue) {
    const std::vector<HintCase> cases = {
        {"length", [](LiveView& v) { Primary(v)->SetTitle(Bytes(1030)); }, PRIMARY + "title",
         "1,030 bytes; at most 1,023 bytes, not blank"},
        {"blank, control characters escaped", [](LiveView& v) { v.SetEvent(" \t\n"); }, "event",
         "\" \\t\\n\" is blank; at most 127 bytes, not blank"},
        {"event measured once trimmed",
         [](LiveView& v) { v.SetEvent(" " + std::string(130, 'e') + " "); }, "event",
         "130 bytes once trimmed; at most 127 bytes, not blank"},
        {"mandatory on start", [](LiveView& v) { Primary(v)->SetClickAction(nullptr); },
         PRIMARY + "clickAction", "missing; required on start"},
        {"mandatory on every operation",
         [](LiveView& v) { WithProgress(v, [](ProgressLayout& l) { l.SetProgress(nullptr); }); },
         LAYOUT + "progress", "missing; required"},
        {"ARGB colour", [](LiveView& v) { WithCapsuleColor(v, "#FF0000"); },
         CAPSULE + "backgroundColor", "\"#FF0000\" is not #AARRGGBB"},
        {"quoted value cut after 40 bytes",
         [](LiveView& v) { WithCapsuleColor(v, "\x1b" + std::string(44, 'a')); },
         CAPSULE + "backgroundColor",
         "\"\\u001b" + std::string(39, 'a') + "\"... is not #AARRGGBB"},
        {"cut never splits a character",
         [](LiveView& v) { WithCapsuleColor(v, std::string(39, 'a') + "\xc3\xa9z"); },
         CAPSULE + "backgroundColor", "\"" + std::string(39, 'a') + "\"... is not #AARRGGBB"},
        {"external RGB colour",
         [](LiveView& v) {
             auto external = ExternalForStart();
             external->SetBackgroundColor(Str("#FF000000"));
             SetExternal(v, external);
         },
         "liveViewData.external.backgroundColor", "\"#FF000000\" is not #RRGGBB"},
        {"picture bytes",
         [](LiveView& v) {
             WithCapsule<TextCapsule>(v, TextCapsuleForStart(),
                                      [](TextCapsule& c) { c.SetIcon(Image(30721)); });
         },
         CAPSULE + "icon", "30,721 bytes; at most 30,720 bytes"},
        {"empty resource string",
         [](LiveView& v) {
             auto layout = PickupLayoutForStart();
             layout->SetDescPicStr(Str(""));
             SetLayout(v, layout);
         },
         LAYOUT + "descPic", "\"\" is empty; a resource name that is not empty"},
        {"missing picture",
         [](LiveView& v) {
             auto extension = std::make_shared<ExtensionData>();
             extension->SetType(ExtensionData::EXTENSION_TYPE_PICTURE_1);
             SetExtension(v, extension);
         },
         PRIMARY + "extensionData.pic", "missing; required when type is 3 or 4"},
        {"icon count",
         [](LiveView& v) {
             WithProgress(v, [](ProgressLayout& l) { l.SetNodeIconsStr(Names(6)); });
         },
         LAYOUT + "nodeIcons", "6 items; 2 to 5"},
        {"icon count of one form beside the other",
         [](LiveView& v) {
             WithProgress(v, [](ProgressLayout& l) {
                 l.SetNodeIconsStr(Names(3)), l.SetNodeIcons(Images(1));
             });
         },
         LAYOUT + "nodeIcons", "1 picture beside 3 resource strings; 2 to 5 of each form"},
        {"empty icon string",
         [](LiveView& v) {
             auto layout = NavigationLayoutForStart();
             layout->SetNavigationIconsStr({"icon", ""});
             SetLayout(v, layout);
         },
         LAYOUT + "navigationIcons",
         "resource string 2 of 2 is empty; no resource string is empty"},
        {"icon image bytes",
         [](LiveView& v) {
             WithProgress(v, [](ProgressLayout& l) {
                 l.SetNodeIconsStr({}), l.SetNodeIcons({Image(1), Image(30721)});
             });
         },
         LAYOUT + "nodeIcons", "picture 2 of 2 has 30,721 bytes; at most 30,720 bytes"},
        {"rich text without text",
         [](LiveView& v) {
             WithContent(v, {TextRun("a"), Rich(nullptr)});
         },
         PRIMARY + "content[1].text", "missing; every item has a text"},
        {"rich text item length",
         [](LiveView& v) {
             auto external = ExternalForStart();
             external->SetContent({TextRun(std::string(128, 'x'))});
             SetExternal(v, external);
         },
         "liveViewData.external.content[0].text", "128 bytes; at most 127 bytes, not blank"},
        {"rich text colour", [](LiveView& v) { WithContent(v, {TextRun("a", "red")}); },
         PRIMARY + "content[0].textColor", "\"red\" is not #AARRGGBB"},
        {"rich text colour mismatch",
         [](LiveView& v) {
             WithContent(v, {TextRun("a", "#FF000000"), TextRun("b", "#ff000000")});
         },
         PRIMARY + "content[1].textColor",
         "\"#ff000000\" differs from \"#FF000000\"; every coloured item of one list has the same "
         "colour"},
        {"rich text total",
         [](LiveView& v) {
             WithContent(v, {TextRun(std::string(600, 'x')), TextRun(std::string(600, 'y'))});
         },
         PRIMARY + "content", "1,200 bytes in all; 1 to 1,023 bytes in all"},
        {"sequence", [](LiveView& v) { v.SetSequence(Int(-1)); }, "sequence", "-1; 0 or more"},
        {"timer time",
         [](LiveView& v) {
             auto timer = std::make_shared<LiveViewTimer>();
             timer->SetTime(Long(-5000));
             v.SetTimer(timer);
         },
         "timer.time", "-5,000; 0 or more"},
        {"progress",
         [](LiveView& v) { WithProgress(v, [](ProgressLayout& l) { l.SetProgress(Int(101)); }); },
         LAYOUT + "progress", "101; 0 to 100"},
        {"capsule max",
         [](LiveView& v) {
             WithCapsule<ProgressCapsule>(v, ProgressCapsuleForStart(),
                                          [](ProgressCapsule& c) { c.SetMax(Int(0)); });
         },
         CAPSULE + "max", "0; 1 or more"},
        {"capsule progress",
         [](LiveView& v) {
             WithCapsule<ProgressCapsule>(v, ProgressCapsuleForStart(),
                                          [](ProgressCapsule& c) { c.SetProgress(Int(-1)); });
         },
         CAPSULE + "progress", "-1; 0 or more"},
        {"capsule status",
         [](LiveView& v) {
             WithCapsule<TextCapsule>(v, TextCapsuleForStart(),
                                      [](TextCapsule& c) { c.SetStatus(Int(2)); });
         },
         CAPSULE + "status", "2; 1 or -1"},
        {"extension type",
         [](LiveView& v) {
             auto extension = std::make_shared<ExtensionData>();
             extension->SetType(static_cast<ExtensionData::ExtensionType>(7));
             SetExtension(v, extension);
         },
         PRIMARY + "extensionData.type", "7; 0 to 4"},
        {"layout type", [](LiveView& v) { SetLayout(v, Kind<LayoutData>(LayoutData::BASIC)); },
         LAYOUT + "layoutType", "6; -1, 3, 4, 5, 7 or 8"},
        {"capsule type",
         [](LiveView& v) {
             WithCapsule<TextCapsule>(v, TextCapsuleForStart(), [](TextCapsule& c) {
                 c.SetType(static_cast<CapsuleData::CapsuleType>(5));
             });
         },
         CAPSULE + "type", "5; 1, 2 or 3"},
        {"line type",
         [](LiveView& v) { WithProgress(v, [](ProgressLayout& l) { l.SetLineType(Int(3)); }); },
         LAYOUT + "lineType", "3; 0 to 2"},
        {"indicator type",
         [](LiveView& v) {
             WithProgress(v, [](ProgressLayout& l) { l.SetIndicatorType(Int(-1)); });
         },
         LAYOUT + "indicatorType", "-1; 0 to 2"},
        {"immersive parameter count",
         [](LiveView& v) { Primary(v)->SetImmersiveParameters(Params(51)); },
         PRIMARY + "immersiveParameters", "51 parameters; 1 to 50"},
        {"immersive parameter not a string",
         [](LiveView& v) {
             auto params = Params(1);
             params->SetParam("mode", AAFwk::Integer::Box(1));
             Primary(v)->SetImmersiveParameters(params);
         },
         PRIMARY + "immersiveParameters.mode", "a number; every value is a string"},
        {"param-failed text: no hint",
         [](LiveView& v) { Primary(v)->GetLayoutData()->SetParamFailed("wrong type"); }, "", ""},
    };
    for (const HintCase& row : cases) {
        SCOPED_TRACE(row.label);
        LiveView record = StartRecord();
        row.change(record);
        Notification::NotificationRequest request;
        RuleHint hint;
        const PipelineOutcome outcome =
            LiveViewRequestPipeline::Build(record, START, HeldLiveView(), request, &hint);
        EXPECT_EQ(outcome.rsp.GetErr(), ERR_PARAM_INVALID);
        EXPECT_EQ(hint.path, row.path);
        EXPECT_EQ(hint.text, row.text);
        EXPECT_EQ(hint.ToString(), row.path.empty() ? "" : row.path + ": " + row.text);
    }
}

TEST(RuleHintTest, PassingRecordClearsTheHint) {
    RuleHint hint{"stale", "stale"};
    Notification::NotificationRequest request;
    const PipelineOutcome outcome =
        LiveViewRequestPipeline::Build(StartRecord(), START, HeldLiveView(), request, &hint);
    EXPECT_TRUE(outcome.rsp.Succeed());
    EXPECT_FALSE(hint.IsSet());
    EXPECT_EQ(hint.text, "");
}

// An update answers its last failing section, or success when a present section passes.
TEST(RuleHintTest, UpdateHintFollowsTheAnswer) {
    LiveView record = StartRecord();
    Primary(record)->SetTitle(Bytes(1030));
    SetLayout(record, nullptr);
    WithCapsule<TextCapsule>(record, TextCapsuleForStart(),
                             [](TextCapsule& c) { c.SetStatus(Int(2)); });
    RuleHint hint;
    {
        const RuleHintScope scope(hint);
        ExpectRsp(Validate::ValidateUpdateLiveViewParam(record, UPDATE),
                  Err("capsule.status", "number", RANGE));
    }
    EXPECT_EQ(hint.ToString(), CAPSULE + "status: 2; 1 or -1");

    auto extension = std::make_shared<ExtensionData>();
    extension->SetType(ExtensionData::EXTENSION_TYPE_BLANK);
    SetExtension(record, extension);
    {
        const RuleHintScope scope(hint);
        ExpectRsp(Validate::ValidateUpdateLiveViewParam(record, UPDATE), OK);
    }
    EXPECT_FALSE(hint.IsSet());
}

TEST(RuleHintTest, NoHintOutsideAScope) {
    LiveView record = StartRecord();
    record.SetSequence(Int(-1));
    RuleHint outer;
    RuleHint inner;
    {
        const RuleHintScope outerScope(outer);
        { const RuleHintScope innerScope(inner); }
        EXPECT_EQ(RuleHintScope::Active(), &outer);
        EXPECT_FALSE(Validate::CommonDataParamValidate(record).Succeed());
    }
    EXPECT_EQ(outer.ToString(), "sequence: -1; 0 or more");
    EXPECT_FALSE(inner.IsSet());

    RuleHint closed;
    { const RuleHintScope scope(closed); }
    EXPECT_EQ(RuleHintScope::Active(), nullptr);
    EXPECT_FALSE(Validate::CommonDataParamValidate(record).Succeed());
    EXPECT_FALSE(closed.IsSet());
}

}  // namespace
}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
