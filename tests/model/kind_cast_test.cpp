// Taking a capsule or a layout as its kind: only the object's real class counts, never its type
// field, and copies take the class that they were constructed as.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "live_view_manager.h"

namespace Tavi::Wisp::LiveView {
namespace {

// A class of the application's own that derives from a kind is still that kind.
class TaggedTextCapsule : public TextCapsule {};

// The kinds that the helpers take the objects as, each checked to be the object itself.
std::string KindsOf(const std::shared_ptr<CapsuleData>& capsule,
                    const std::shared_ptr<LayoutData>& layout) {
    const char* const names[] = {"text",   "timer",  "progress", "progress",
                                 "pickup", "flight", "score",    "navigation"};
    const void* const taken[] = {
        AsTextCapsule(capsule).get(),     AsTimerCapsule(capsule).get(),
        AsProgressCapsule(capsule).get(), AsProgressLayout(layout).get(),
        AsPickupLayout(layout).get(),     AsFlightLayout(layout).get(),
        AsScoreLayout(layout).get(),      AsNavigationLayout(layout).get()};
    std::string kinds;
    for (size_t i = 0; i < 8; ++i) {
        if (taken[i] != nullptr) {
            kinds += taken[i] == capsule.get() || taken[i] == layout.get() ? names[i] : "<another>";
            kinds += " ";
        }
    }
    return kinds;
}

// made, with its type field set to type.
template <typename T>
std::shared_ptr<T> Claiming(std::shared_ptr<T> made, int type) {
    if constexpr (std::is_base_of_v<CapsuleData, T>) {
        made->SetType(static_cast<CapsuleData::CapsuleType>(type));
    } else {
        made->SetLayoutType(static_cast<LayoutData::LayoutType>(type));
    }
    return made;
}

// A Target whose Base part is assigned from source.
template <typename Target, typename Base, typename Source>
std::shared_ptr<Base> AssignedOver(const Source& source) {
    auto target = std::make_shared<Target>();
    static_cast<Base&>(*target) = source;
    return target;
}

TEST(KindCastTest, HelpersAnswerTheRealClassOnly) {
    const struct {
        const char* label;
        std::shared_ptr<CapsuleData> capsule;
        std::shared_ptr<LayoutData> layout;
        std::string expected;
    } rows[] = {
        {"empty pointers", nullptr, nullptr, ""},
        {"plain objects claiming a kind",
         Claiming(std::make_shared<CapsuleData>(), CapsuleData::TEXT),
         Claiming(std::make_shared<LayoutData>(), LayoutData::SCORE), ""},
        {"kinds claiming another kind",
         Claiming(std::make_shared<TextCapsule>(), CapsuleData::TIMER),
         Claiming(std::make_shared<PickupLayout>(), LayoutData::NAVIGATION), "text pickup "},
        {"application class, progress layout", std::make_shared<TaggedTextCapsule>(),
         std::make_shared<ProgressLayout>(), "text progress "},
        {"copies", std::make_shared<TimerCapsule>(TimerCapsule()),
         std::make_shared<ScoreLayout>(ScoreLayout()), "timer score "},
        {"kinds sliced into plain objects", std::make_shared<CapsuleData>(TextCapsule()),
         std::make_shared<LayoutData>(ScoreLayout()), ""},
        {"kinds assigned over plain objects",
         AssignedOver<CapsuleData, CapsuleData>(TimerCapsule()),
         AssignedOver<LayoutData, LayoutData>(NavigationLayout()), ""},
        {"plain objects assigned over kinds", AssignedOver<TextCapsule, CapsuleData>(CapsuleData()),
         AssignedOver<NavigationLayout, LayoutData>(LayoutData()), "text navigation "}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(KindsOf(row.capsule, row.layout), row.expected);
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView
