// What the pipeline sends for a record beyond copying its fields: the defaults, the rules that
// depend on the operation and on what the service holds, and which form of a picture travels.
// Each row lists lines that the request must hold, and "!name" for names that it must not.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "conversion_test_util.h"

namespace Tavi::Wisp::LiveView::Test {
namespace {

constexpr LiveView::Operation START = LiveView::START;
constexpr LiveView::Operation UPDATE = LiveView::UPDATE;
constexpr LiveView::Operation STOP = LiveView::STOP;
using Change = std::function<void(LiveView&)>;

Change CountdownTimer(std::shared_ptr<long> time) {
    return [time](LiveView& v) {
        v.SetTimer(std::make_shared<LiveViewTimer>());
        v.GetTimer()->SetTime(time), v.GetTimer()->SetIsCountdown(Bool(true));
    };
}
std::shared_ptr<ExtensionData> Extension(const LiveView& v) {
    return LiveView::GetExtensionData(v);
}
// Puts a section of the record and hands it back.
template <typename Section>
std::shared_ptr<Section> Put(LiveView& v, std::shared_ptr<Section> section) {
    if constexpr (std::is_base_of_v<CapsuleData, Section>) {
        SetCapsule(v, section);
    } else if constexpr (std::is_base_of_v<LayoutData, Section>) {
        SetLayout(v, section);
    } else {
        SetExtension(v, section);
    }
    return section;
}
Change KeepTime(std::shared_ptr<int> seconds) {
    return [seconds](LiveView& v) { LiveView::GetPrimaryData(v)->SetKeepTime(seconds); };
}
TEST(ConversionRulesTest, WhatTravels) {
    const HeldLiveView none;
    const HeldLiveView heldTimer{LayoutData::PICKUP, "", CapsuleData::TIMER, true};
    const HeldLiveView heldText{LayoutData::PICKUP, "", CapsuleData::TEXT, false};
    struct Rule {
        std::string label;
        LiveView::Operation operation;
        HeldLiveView held;
        Lines expected;
        Change change;
    };
    // clang-format off
    const Rule rules[] = {
        {"defaults", START, none,
         {"event=DELIVERY", "isMute=true", "@id=1", "@version=4294967295", "@slot=5",
          "@inProgress=1", "@autoDeletedTime=-1", "@wantAgent=com.example.app/Page",
          "LiveViewTimer.isUpdateTimer=false", "!LiveViewTimer.time", "!TimerCapsule.isUpdateTimer",
          R"(PrimaryData.content=[{"text":"The rider is on the way","textColor":"#FF000000"}])"},
         [](LiveView&) {}},
        {"event trimmed, not muted, id and sequence", START, none,
         {"event=NAVIGATION", "isMute=false", "@id=42", "@version=7"},
         [](LiveView& v) {
             v.SetEvent(" \tNAVIGATION\n "), v.SetIsMute(Bool(false));
             v.SetId(Int(42)), v.SetSequence(Int(7));
         }},
        {"timer flag only, start", START, none,
         {"LiveViewTimer.time=0L", "LiveViewTimer.isUpdateTimer=true"}, CountdownTimer(nullptr)},
        {"timer flag only, update of a held timer", UPDATE, heldTimer,
         {"!LiveViewTimer.time", "LiveViewTimer.isCountdown=true",
          "LiveViewTimer.isUpdateTimer=false"}, CountdownTimer(nullptr)},
        {"keep time on stop", STOP, none, {"@autoDeletedTime=30"}, KeepTime(Int(30))},
        {"no keep time on stop", STOP, none, {"@autoDeletedTime=0"}, KeepTime(nullptr)},
        {"keep time -5 on stop", STOP, none, {"@autoDeletedTime=0"}, KeepTime(Int(-5))},
        {"keep time 3601 on stop", STOP, none, {"@autoDeletedTime=3600"}, KeepTime(Int(3601))},
        {"capsule status -1 sends only its status", START, none,
         {"CapsuleData.status=-1", "!CapsuleData.type", "!CapsuleData.icon.res",
          "!TextCapsule.title"},
         [](LiveView& v) { Put(v, TextCapsuleForStart())->SetStatus(Int(-1)); }},
        {"capsule on update", UPDATE, heldText,
         {"CapsuleData.status=1", "TextCapsule.title=Arriving", "TimerCapsule.isUpdateTimer=false"},
         [](LiveView& v) { Put(v, TextCapsuleForStart()); }},
        {"capsule turned timer on update", UPDATE, heldText,
         {"TimerCapsule.isCountdown=true", "TimerCapsule.isUpdateTimer=true"},
         [](LiveView& v) { Put(v, TimerCapsuleForStart()); }},
        {"extension action: one covering button", START, none, {"@buttons=>app/Call;", "@cover=1"},
         [](LiveView& v) { Put(v, ExtensionForStart())->SetClickAction(ClickAction("app/Call")); }},
        {"extension picture in both forms", START, none,
         {"ExtendData.pic.res=p", "!@pictures.ExtendData.pic"},
         [](LiveView& v) {
             Put(v, ExtensionForStart())->SetPic(Picture(3)), Extension(v)->SetPicStr(Str("p"));
         }},
        {"plain score description wins over the list", START, none,
         {R"(ScoreLayout.competitionDesc=[{"text":"Second half"}])"},
         [](LiveView& v) {
             Put(v, ScoreLayoutForStart())->SetCompetitionDescVector({TextRun("list")});
         }},
    };
    // clang-format on
    for (const Rule& rule : rules) {
        SCOPED_TRACE(rule.label);
        LiveView record = StartRecord();
        rule.change(record);
        const Lines lines = Listing(*Built(record, rule.operation, rule.held));
        for (const std::string& entry : rule.expected) {
            const bool absent = entry[0] == '!';
            const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& l) {
                return absent ? l.rfind(entry.substr(1) + "=", 0) == 0 : l == entry;
            });
            EXPECT_EQ(found == lines.end(), absent) << entry;
        }
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::Test
