// Taking a capsule or a layout as its kind: only the object's real class counts, never its type
// field, and copies take the class that they were constructed as.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "flight_layout.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

// A class of the application's own that derives from a kind is still that kind.
class TaggedTextCapsule : public TextCapsule {};

std::shared_ptr<TextCapsule> TitledText() {
    auto text = std::make_shared<TextCapsule>();
    text->SetType(CapsuleData::TEXT);
    text->SetTitle(std::make_shared<std::string>("title"));
    return text;
}

enum CapsuleKind { NOT_A_KIND, TEXT_KIND, TIMER_KIND, PROGRESS_KIND };

TEST(CapsuleKindTest, HelpersAnswerTheRealClassOnly) {
    struct Row {
        const char* label;
        std::function<std::shared_ptr<CapsuleData>()> make;
        CapsuleKind expected;
    };
    const Row rows[] = {
        {"empty pointer", [] { return std::shared_ptr<CapsuleData>(); }, NOT_A_KIND},
        {"plain capsule", [] { return std::make_shared<CapsuleData>(); }, NOT_A_KIND},
        {"plain capsule claiming text",
         [] {
             auto capsule = std::make_shared<CapsuleData>();
             capsule->SetType(CapsuleData::TEXT);
             return capsule;
         },
         NOT_A_KIND},
        {"text", [] { return TitledText(); }, TEXT_KIND},
        {"timer", [] { return std::make_shared<TimerCapsule>(); }, TIMER_KIND},
        {"progress", [] { return std::make_shared<ProgressCapsule>(); }, PROGRESS_KIND},
        {"text claiming timer",
         [] {
             auto text = TitledText();
             text->SetType(CapsuleData::TIMER);
             return text;
         },
         TEXT_KIND},
        {"progress claiming an undefined type",
         [] {
             auto progress = std::make_shared<ProgressCapsule>();
             progress->SetType(static_cast<CapsuleData::CapsuleType>(99));
             return progress;
         },
         PROGRESS_KIND},
        {"text sliced into a plain capsule",
         [] { return std::make_shared<CapsuleData>(*TitledText()); }, NOT_A_KIND},
        {"copy of a text capsule", [] { return std::make_shared<TextCapsule>(*TitledText()); },
         TEXT_KIND},
        {"application class derived from text",
         [] { return std::make_shared<TaggedTextCapsule>(); }, TEXT_KIND},
        {"text assigned over a plain capsule",
         [] {
             auto plain = std::make_shared<CapsuleData>();
             *plain = *TitledText();
             return plain;
         },
         NOT_A_KIND},
        {"plain capsule assigned over a text through its base",
         [] {
             auto text = TitledText();
             static_cast<CapsuleData&>(*text) = CapsuleData();
             return text;
         },
         TEXT_KIND},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const std::shared_ptr<CapsuleData> capsule = row.make();
        const auto text = AsTextCapsule(capsule);
        const auto timer = AsTimerCapsule(capsule);
        const auto progress = AsProgressCapsule(capsule);
        EXPECT_EQ(text != nullptr, row.expected == TEXT_KIND);
        EXPECT_EQ(timer != nullptr, row.expected == TIMER_KIND);
        EXPECT_EQ(progress != nullptr, row.expected == PROGRESS_KIND);
        if (text) {
            EXPECT_EQ(text.get(), capsule.get());
        }
        if (timer) {
            EXPECT_EQ(timer.get(), capsule.get());
        }
        if (progress) {
            EXPECT_EQ(progress.get(), capsule.get());
        }
    }
}

TEST(CapsuleKindTest, CopiesKeepFieldsAndShareOwnershipWhereTheyShould) {
    const auto text = TitledText();
    const CapsuleData sliced(*text);
    EXPECT_EQ(sliced.GetType(), CapsuleData::TEXT);

    const auto copy = std::make_shared<TextCapsule>(*text);
    EXPECT_EQ(copy->GetTitle(), text->GetTitle());

    std::shared_ptr<CapsuleData> base = text;
    const long before = text.use_count();
    const auto taken = AsTextCapsule(base);
    EXPECT_EQ(text.use_count(), before + 1);
    base.reset();
    EXPECT_EQ(*taken->GetTitle(), "title");
}

enum LayoutKind {
    NO_KIND,
    PROGRESS_LAYOUT,
    PICKUP_LAYOUT,
    FLIGHT_LAYOUT,
    SCORE_LAYOUT,
    NAV_LAYOUT
};

TEST(LayoutKindTest, HelpersAnswerTheRealClassOnly) {
    struct Row {
        const char* label;
        std::function<std::shared_ptr<LayoutData>()> make;
        LayoutKind expected;
    };
    const Row rows[] = {
        {"empty pointer", [] { return std::shared_ptr<LayoutData>(); }, NO_KIND},
        {"plain layout", [] { return std::make_shared<LayoutData>(); }, NO_KIND},
        {"plain layout claiming score",
         [] {
             auto layout = std::make_shared<LayoutData>();
             layout->SetLayoutType(LayoutData::SCORE);
             return layout;
         },
         NO_KIND},
        {"progress", [] { return std::make_shared<ProgressLayout>(); }, PROGRESS_LAYOUT},
        {"pickup", [] { return std::make_shared<PickupLayout>(); }, PICKUP_LAYOUT},
        {"flight", [] { return std::make_shared<FlightLayout>(); }, FLIGHT_LAYOUT},
        {"score", [] { return std::make_shared<ScoreLayout>(); }, SCORE_LAYOUT},
        {"navigation", [] { return std::make_shared<NavigationLayout>(); }, NAV_LAYOUT},
        {"pickup claiming navigation",
         [] {
             auto pickup = std::make_shared<PickupLayout>();
             pickup->SetLayoutType(LayoutData::NAVIGATION);
             return pickup;
         },
         PICKUP_LAYOUT},
        {"score sliced into a plain layout",
         [] { return std::make_shared<LayoutData>(ScoreLayout()); }, NO_KIND},
        {"copy of a flight layout", [] { return std::make_shared<FlightLayout>(FlightLayout()); },
         FLIGHT_LAYOUT},
        {"navigation assigned over a plain layout",
         [] {
             auto plain = std::make_shared<LayoutData>();
             *plain = NavigationLayout();
             return plain;
         },
         NO_KIND},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const std::shared_ptr<LayoutData> layout = row.make();
        const void* const taken[] = {
            AsProgressLayout(layout).get(),   AsPickupLayout(layout).get(),
            AsFlightLayout(layout).get(),     AsScoreLayout(layout).get(),
            AsNavigationLayout(layout).get(),
        };
        const LayoutKind kinds[] = {PROGRESS_LAYOUT, PICKUP_LAYOUT, FLIGHT_LAYOUT, SCORE_LAYOUT,
                                    NAV_LAYOUT};
        for (size_t i = 0; i < 5; ++i) {
            SCOPED_TRACE(i);
            EXPECT_EQ(taken[i], row.expected == kinds[i] ? layout.get() : nullptr);
        }
    }
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
