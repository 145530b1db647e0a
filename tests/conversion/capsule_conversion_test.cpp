// Capsule conversion: each kind read back key by key, the status -1 cut-off, types without a
// kind, and a capsule whose object is not of the kind its type names.
#include <gmock/gmock.h>

#include "conversion_test_util.h"
#include "progress_capsule.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Test {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::Pair;

template <typename Kind>
std::shared_ptr<Kind> NewCapsule(CapsuleData::CapsuleType type, int status = 1) {
    auto capsule = std::make_shared<Kind>();
    capsule->SetStatus(Int(status));
    capsule->SetType(type);
    return capsule;
}

class CapsuleConversionTest : public ConversionTest {
protected:
    Outputs Convert(const std::shared_ptr<CapsuleData>& capsule) {
        Outputs out;
        LiveViewParamConversion::CapsuleDataParamConversion(WithCapsule(capsule), out.extra,
                                                            out.pictures);
        return out;
    }
};

TEST_F(CapsuleConversionTest, FullRecordOfEachKind) {
    auto text = NewCapsule<TextCapsule>(CapsuleData::TEXT);
    text->SetIconStr(Str("media:car"));
    text->SetBackgroundColor(Str("#FF202020"));
    text->SetTitle(Str("Driver arriving"));
    text->SetContent(Str("Blue sedan"));
    Outputs out = Convert(text);
    ExpectParams(*out.extra, {{"CapsuleData.status", 1},
                              {"CapsuleData.type", 1},
                              {"CapsuleData.icon.res", "media:car"s},
                              {"CapsuleData.backgroundColor", "#FF202020"s},
                              {"TextCapsule.title", "Driver arriving"s},
                              {"TextCapsule.content", "Blue sedan"s}});
    EXPECT_TRUE(out.pictures.empty());

    const Pic icon = NewPic(2);
    auto timer = NewCapsule<TimerCapsule>(CapsuleData::TIMER);
    timer->SetIcon(icon);
    timer->SetContent(Str("Boarding"));
    timer->SetTime(Long(600000));
    timer->SetIsCountdown(Bool(true));
    timer->SetIsPaused(Bool(false));
    out = Convert(timer);
    ExpectParams(*out.extra, {{"CapsuleData.status", 1},
                              {"CapsuleData.type", 2},
                              {"CapsuleData.icon.res", ""s},
                              {"TimerCapsule.content", "Boarding"s},
                              {"TimerCapsule.time", 600000L},
                              {"TimerCapsule.isCountdown", true},
                              {"TimerCapsule.isPause", false}});
    EXPECT_EQ(out.pictures, (PictureMap{{"CapsuleData.icon", {icon}}}));

    auto progress = NewCapsule<ProgressCapsule>(CapsuleData::PROGRESS);
    progress->SetMax(Int(100));
    progress->SetProgress(Int(35));
    progress->SetIndeterminate(Bool(false));
    out = Convert(progress);
    ExpectParams(*out.extra, {{"CapsuleData.status", 1},
                              {"CapsuleData.type", 3},
                              {"ProgressCapsule.max", 100},
                              {"ProgressCapsule.progress", 35},
                              {"ProgressCapsule.indeterminate", false}});
    EXPECT_TRUE(Logs().empty());
}

TEST_F(CapsuleConversionTest, StatusMinusOneWritesOnlyTheStatus) {
    for (const auto type : {CapsuleData::TEXT, CapsuleData::TIMER, CapsuleData::PROGRESS,
                            static_cast<CapsuleData::CapsuleType>(0)}) {
        SCOPED_TRACE(type);
        auto capsule = NewCapsule<TextCapsule>(type, -1);
        capsule->SetIcon(NewPic());
        capsule->SetBackgroundColor(Str("#FF202020"));
        capsule->SetTitle(Str("title"));
        const Outputs out = Convert(capsule);
        ExpectParams(*out.extra, {{"CapsuleData.status", -1}});
        EXPECT_TRUE(out.pictures.empty());
    }
}

// Types without a kind, and a timer without fields: the common keys only, without a log line.
TEST_F(CapsuleConversionTest, CommonKeysOnly) {
    struct Row {
        const char* label;
        std::shared_ptr<CapsuleData> capsule;
        int type;
    };
    const Row rows[] = {
        {"type 0", NewCapsule<CapsuleData>(static_cast<CapsuleData::CapsuleType>(0)), 0},
        {"type 4", NewCapsule<TextCapsule>(static_cast<CapsuleData::CapsuleType>(4)), 4},
        {"type -1", NewCapsule<CapsuleData>(CapsuleData::CAPSULE_TYPE_NONE), -1},
        {"timer without fields", NewCapsule<TimerCapsule>(CapsuleData::TIMER), 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        row.capsule->SetIconStr(Str("media:icon"));
        row.capsule->SetBackgroundColor(Str("#FF000000"));
        const Outputs out = Convert(row.capsule);
        ExpectParams(*out.extra, {{"CapsuleData.status", 1},
                                  {"CapsuleData.type", row.type},
                                  {"CapsuleData.icon.res", "media:icon"s},
                                  {"CapsuleData.backgroundColor", "#FF000000"s}});
        EXPECT_TRUE(Logs().empty());
    }
}

// The common keys are written, then the kind step logs and stops.
TEST_F(CapsuleConversionTest, ObjectOfAnotherKindThanItsType) {
    struct Row {
        std::shared_ptr<CapsuleData> capsule;
        int type;
        const char* log;
    };
    const Row rows[] = {
        {NewCapsule<TextCapsule>(CapsuleData::TIMER), 2,
         "] TimerCapsuleParamConversion# The timerCapsule is nullptr"},
        {NewCapsule<TimerCapsule>(CapsuleData::TEXT), 1,
         "] TextCapsuleParamConversion# The textCapsule is nullptr"},
        {NewCapsule<CapsuleData>(CapsuleData::PROGRESS), 3,
         "] ProgressCapsuleParamConversion# The progressCapsule is nullptr"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.log);
        if (auto text = AsTextCapsule(row.capsule)) {
            text->SetTitle(Str("title"));
        }
        if (auto timer = AsTimerCapsule(row.capsule)) {
            timer->SetContent(Str("content"));
        }
        const Outputs out = Convert(row.capsule);
        ExpectParams(*out.extra, {{"CapsuleData.status", 1}, {"CapsuleData.type", row.type}});
        EXPECT_THAT(Logs(), OneConversionInfoLine(row.log));
    }
}

}  // namespace
}  // namespace Test
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
