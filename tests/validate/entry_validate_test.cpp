// The two entry points: section order on start, the update rule, and records on which no check
// may throw.
#include <gtest/gtest.h>

#include <climits>
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

using Change = std::function<void(std::shared_ptr<LiveView>&)>;

const std::string EXTENSION_TYPE = Err("extensionData.type", "ExtensionType");
const std::string CAPSULE_STATUS = Err("capsule.status", "number", MAND);

std::shared_ptr<PrimaryData> Primary(const std::shared_ptr<LiveView>& v) {
    return LiveView::GetPrimaryData(*v);
}
// Each optional section present and failing on every operation, or present and passing.
void BadExtension(std::shared_ptr<LiveView>& v) {
    Primary(v)->SetExtensionData(std::make_shared<ExtensionData>());
}
void GoodExtension(std::shared_ptr<LiveView>& v) {
    BadExtension(v), Primary(v)->GetExtensionData()->SetType(ExtensionData::EXTENSION_TYPE_BLANK);
}
void BadLayout(std::shared_ptr<LiveView>& v) {
    Primary(v)->SetLayoutData(Kind<LayoutData>(LayoutData::BASIC));
}
void NoLayout(std::shared_ptr<LiveView>& v) {
    Primary(v)->SetLayoutData(nullptr);
}
void BadCapsule(std::shared_ptr<LiveView>& v) {
    v->GetLiveViewData()->SetCapsule(std::make_shared<TextCapsule>());
}
void GoodCapsule(std::shared_ptr<LiveView>& v) {
    v->GetLiveViewData()->SetCapsule(TextCapsuleForStart());
}
void GoodExternal(std::shared_ptr<LiveView>& v) {
    v->GetLiveViewData()->SetExternal(ExternalForStart());
}
void BadExternal(std::shared_ptr<LiveView>& v) {
    GoodExternal(v), v->GetLiveViewData()->GetExternal()->SetTitle(Bytes(128));
}
void BadTimer(std::shared_ptr<LiveView>& v) {
    v->SetTimer(std::make_shared<LiveViewTimer>()), v->GetTimer()->SetParamFailed("timer");
}
void BadPrimary(std::shared_ptr<LiveView>& v) {
    Primary(v)->SetParamFailed("primary");
}
Change All(std::vector<Change> changes) {
    return [changes](std::shared_ptr<LiveView>& v) {
        for (const auto& change : changes) {
            change(v);
        }
    };
}
std::shared_ptr<LiveView> MakeValid() {
    return std::make_shared<LiveView>(StartRecord());
}

TEST(StartEntryTest, SectionsInOrder) {
    const std::vector<Case<LiveView>> cases = {
        {"every section valid, timer not examined",
         All({GoodExtension, GoodCapsule, GoodExternal, BadTimer}), START, OK},
        {"common before primary", All({BadPrimary, [](auto& v) { v->SetId(nullptr); }}), START,
         Err("liveView.id", "number", MAND)},
        {"primary before extension", All({BadExtension, BadPrimary}), START, "primary"},
        {"extension before layout", All({NoLayout, BadExtension}), START, EXTENSION_TYPE},
        {"layout before capsule", All({BadCapsule, NoLayout}), START,
         Err("primary.layoutData", "LayoutData", MAND)},
        {"capsule before external", All({BadExternal, BadCapsule}), START, CAPSULE_STATUS},
        {"external last", BadExternal, START, Len("external.title")},
        {"operation passed on", All({NoLayout, GoodCapsule}), UPDATE, OK},
    };
    RunCases<LiveView>(cases, MakeValid, [](const auto& v, const auto& op) {
        return Validate::ValidateStartLiveViewParam(*v, op);
    });
}

TEST(UpdateEntryTest, LaterSectionRescuesBadPrimary) {
    const std::vector<Case<LiveView>> cases = {
        {"good primary hides bad sections", All({BadLayout, BadCapsule}), UPDATE, OK},
        {"common first", All({BadPrimary, [](auto& v) { v->SetEvent(""); }}), UPDATE,
         Len("liveView.event")},
        {"bad primary alone", All({BadPrimary, NoLayout}), UPDATE, "primary"},
        {"bad primary, valid layout", BadPrimary, UPDATE, OK},
        {"bad primary, valid capsule", All({BadPrimary, NoLayout, GoodCapsule}), UPDATE, OK},
        {"valid extension before bad layout", All({BadPrimary, GoodExtension, BadLayout}), UPDATE,
         OK},
        {"bad layout, then valid external", All({BadPrimary, BadLayout, GoodExternal}), UPDATE, OK},
        {"last failure wins", All({BadPrimary, BadExtension, BadLayout, BadCapsule}), UPDATE,
         CAPSULE_STATUS},
        {"absent sections keep it", All({BadPrimary, BadExtension, NoLayout}), UPDATE,
         EXTENSION_TYPE},
    };
    RunCases<LiveView>(cases, MakeValid, [](const auto& v, const auto& op) {
        return Validate::ValidateUpdateLiveViewParam(*v, op);
    });
}

// Null entries, kinds that their types do not name, extreme numbers and huge strings: each check
// answers for every operation without throwing, and the start entry reports the first rule.
TEST(HostileRecordTest, NoCheckThrows) {
    const std::string huge(8 << 20, ' ');
    const std::vector<Case<LiveView>> cases = {
        {"empty record", [](auto& v) { v = std::make_shared<LiveView>(); }, START,
         Err("liveView.id", "number", MAND)},
        {"no primary", [](auto& v) { v->GetLiveViewData()->SetPrimary(nullptr); }, UPDATE,
         Err("liveViewData.primary", "PrimaryData", MAND)},
        {"extreme numbers",
         [](auto& v) {
             GoodCapsule(v), v->GetLiveViewData()->GetCapsule()->SetStatus(Int(INT_MAX));
             Primary(v)->SetKeepTime(Int(INT_MIN)), v->SetSequence(Int(INT_MIN));
         },
         STOP, Err("liveView.sequence", "number", RANGE)},
        {"null entries",
         [](auto& v) {
             auto score = ScoreLayoutForStart();
             score->SetCompetitionDescVector({nullptr, Rich(nullptr)});
             Primary(v)->SetLayoutData(score), Primary(v)->SetContent({nullptr, Rich(nullptr)});
         },
         START, Err("primary.content", "Array<RichText>", LEN)},
        {"huge texts and colour",
         [&huge](auto& v) {
             GoodCapsule(v);
             v->GetLiveViewData()->GetCapsule()->SetBackgroundColor(Str("#" + huge));
             Primary(v)->SetTitle(Str(huge + "t"));
         },
         UPDATE, Len("primary.title")},
        {"kinds that their types do not name",
         [](auto& v) {
             Primary(v)->SetLayoutData(Kind<NavigationLayout>(LayoutData::PROGRESS));
             auto plain =
                 std::make_shared<CapsuleData>(*CapsuleOf<TextCapsule>(CapsuleData::PROGRESS));
             v->GetLiveViewData()->SetCapsule(plain);
         },
         START, OK},
    };
    RunCases<LiveView>(cases, MakeValid, [](const auto& v, const auto& op) {
        LiveViewTest::HostCapture quiet;
        for (const auto each : {START, UPDATE, STOP}) {
            bool isPresent = false;
            EXPECT_NO_THROW({
                Validate::ValidateUpdateLiveViewParam(*v, each);
                Validate::TimerDataParamValidate(*v);
                Validate::ExtendDataParamValidate(*v, isPresent);
                Validate::LayoutDataParamValidate(*v, each, isPresent);
                Validate::CapsuleDataParamValidate(*v, each, isPresent);
                Validate::ExternalDataParamValidate(*v, each, isPresent);
            });
        }
        return Validate::ValidateStartLiveViewParam(*v, op);
    });
}

}  // namespace
}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
