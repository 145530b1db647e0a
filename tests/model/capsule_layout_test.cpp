// Capsule and layout records: fresh objects of every kind, and the list fields of the layouts.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "flight_layout.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "pixel_map.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

std::shared_ptr<Media::PixelMap> Picture() {
    return Media::PixelMap::Create(
        Media::InitializationOptions{{2, 2}, Media::PixelFormat::RGBA_8888});
}

TEST(FreshCapsuleTest, EveryKindStartsWithTypeNoneAndEmptyFields) {
    struct Row {
        const char* label;
        std::function<std::shared_ptr<CapsuleData>()> make;
        // True when every field of the kind's own is empty.
        std::function<bool(const std::shared_ptr<CapsuleData>&)> ownFieldsEmpty;
    };
    const Row rows[] = {
        {"plain", [] { return std::make_shared<CapsuleData>(); },
         [](const std::shared_ptr<CapsuleData>&) { return true; }},
        {"text", [] { return std::make_shared<TextCapsule>(); },
         [](const std::shared_ptr<CapsuleData>& capsule) {
             const auto text = AsTextCapsule(capsule);
             return text && !text->GetTitle() && !text->GetContent();
         }},
        {"timer", [] { return std::make_shared<TimerCapsule>(); },
         [](const std::shared_ptr<CapsuleData>& capsule) {
             const auto timer = AsTimerCapsule(capsule);
             return timer && !timer->GetContent() && !timer->GetTime() &&
                    !timer->GetIsCountdown() && !timer->GetIsPaused();
         }},
        {"progress", [] { return std::make_shared<ProgressCapsule>(); },
         [](const std::shared_ptr<CapsuleData>& capsule) {
             const auto progress = AsProgressCapsule(capsule);
             return progress && !progress->GetMax() && !progress->GetProgress() &&
                    !progress->GetIndeterminate();
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const std::shared_ptr<CapsuleData> capsule = row.make();
        EXPECT_EQ(capsule->GetType(), -1);
        EXPECT_EQ(capsule->GetStatus(), nullptr);
        EXPECT_EQ(capsule->GetIconStr(), nullptr);
        EXPECT_EQ(capsule->GetIcon(), nullptr);
        EXPECT_EQ(capsule->GetBackgroundColor(), nullptr);
        EXPECT_TRUE(capsule->GetParamFailed().empty());
        EXPECT_TRUE(row.ownFieldsEmpty(capsule));
    }
}

TEST(FreshLayoutTest, EveryKindStartsWithTypeNoneEmptyFieldsAndEmptyLists) {
    struct Row {
        const char* label;
        std::function<std::shared_ptr<LayoutData>()> make;
        std::function<bool(const std::shared_ptr<LayoutData>&)> ownFieldsEmpty;
    };
    const Row rows[] = {
        {"plain", [] { return std::make_shared<LayoutData>(); },
         [](const std::shared_ptr<LayoutData>&) { return true; }},
        {"progress", [] { return std::make_shared<ProgressLayout>(); },
         [](const std::shared_ptr<LayoutData>& layout) {
             const auto p = AsProgressLayout(layout);
             return p && !p->GetProgress() && !p->GetColor() && !p->GetBackgroundColor() &&
                    !p->GetIndicatorType() && !p->GetIndicatorIconStr() && !p->GetIndicatorIcon() &&
                    !p->GetLineType() && p->GetNodeIconsStr().empty() && p->GetNodeIcons().empty();
         }},
        {"pickup", [] { return std::make_shared<PickupLayout>(); },
         [](const std::shared_ptr<LayoutData>& layout) {
             const auto p = AsPickupLayout(layout);
             return p && !p->GetTitle() && !p->GetContent() && !p->GetUnderlineColor() &&
                    !p->GetDescPicStr() && !p->GetDescPic();
         }},
        {"flight", [] { return std::make_shared<FlightLayout>(); },
         [](const std::shared_ptr<LayoutData>& layout) {
             const auto f = AsFlightLayout(layout);
             return f && !f->GetFirstTitle() && !f->GetFirstContent() && !f->GetLastTitle() &&
                    !f->GetLastContent() && !f->GetSpaceIconStr() && !f->GetSpaceIcon() &&
                    !f->GetIsHorizontalLineDisplayed() && !f->GetAdditionalText();
         }},
        {"score", [] { return std::make_shared<ScoreLayout>(); },
         [](const std::shared_ptr<LayoutData>& layout) {
             const auto s = AsScoreLayout(layout);
             return s && !s->GetHostName() && !s->GetHostIconStr() && !s->GetHostIcon() &&
                    !s->GetHostScore() && !s->GetGuestName() && !s->GetGuestIconStr() &&
                    !s->GetGuestIcon() && !s->GetGuestScore() && !s->GetCompetitionDesc() &&
                    s->GetCompetitionDescVector().empty() && !s->GetCompetitionTime() &&
                    !s->GetIsHorizontalLineDisplayed();
         }},
        {"navigation", [] { return std::make_shared<NavigationLayout>(); },
         [](const std::shared_ptr<LayoutData>& layout) {
             const auto n = AsNavigationLayout(layout);
             return n && !n->GetCurrentNavigationIconStr() && !n->GetCurrentNavigationIcon() &&
                    n->GetNavigationIconsStr().empty() && n->GetNavigationIcons().empty();
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const std::shared_ptr<LayoutData> layout = row.make();
        EXPECT_EQ(layout->GetLayoutType(), -1);
        EXPECT_TRUE(layout->GetParamFailed().empty());
        EXPECT_TRUE(row.ownFieldsEmpty(layout));
    }
}

// Each row drives one list field through add, add, read-and-modify a copy, set empty.
TEST(LayoutListTest, AddAppendsGetCopiesAndSetReplaces) {
    struct Row {
        const char* label;
        std::function<void()> addOne;
        std::function<size_t()> size;
        // Appends an element to a copy obtained from the getter; returns the copy's new size.
        std::function<size_t()> growCopy;
        std::function<void()> setEmpty;
    };
    auto progress = std::make_shared<ProgressLayout>();
    auto navigation = std::make_shared<NavigationLayout>();
    auto score = std::make_shared<ScoreLayout>();
    const Row rows[] = {
        {"progress node icon strings", [&] { progress->AddNodeIconsStr("node"); },
         [&] { return progress->GetNodeIconsStr().size(); },
         [&] {
             auto copy = progress->GetNodeIconsStr();
             copy.push_back("extra");
             return copy.size();
         },
         [&] { progress->SetNodeIconsStr({}); }},
        {"progress node icons", [&] { progress->AddNodeIcons(Picture()); },
         [&] { return progress->GetNodeIcons().size(); },
         [&] {
             auto copy = progress->GetNodeIcons();
             copy.push_back(nullptr);
             return copy.size();
         },
         [&] { progress->SetNodeIcons({}); }},
        {"navigation icon strings", [&] { navigation->AddNavigationIconsStr("step"); },
         [&] { return navigation->GetNavigationIconsStr().size(); },
         [&] {
             auto copy = navigation->GetNavigationIconsStr();
             copy.push_back("extra");
             return copy.size();
         },
         [&] { navigation->SetNavigationIconsStr({}); }},
        {"navigation icons", [&] { navigation->AddNavigationIcons(Picture()); },
         [&] { return navigation->GetNavigationIcons().size(); },
         [&] {
             auto copy = navigation->GetNavigationIcons();
             copy.push_back(nullptr);
             return copy.size();
         },
         [&] { navigation->SetNavigationIcons({}); }},
        {"score competition description",
         [&] { score->AddCompetitionDescVector(std::make_shared<RichText>()); },
         [&] { return score->GetCompetitionDescVector().size(); },
         [&] {
             auto copy = score->GetCompetitionDescVector();
             copy.push_back(nullptr);
             return copy.size();
         },
         [&] { score->SetCompetitionDescVector({}); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        row.addOne();
        row.addOne();
        EXPECT_EQ(row.size(), 2u);
        EXPECT_EQ(row.growCopy(), 3u);
        EXPECT_EQ(row.size(), 2u);
        row.setEmpty();
        EXPECT_EQ(row.size(), 0u);
    }
}

TEST(LayoutListTest, ListsKeepOrderAndElements) {
    ProgressLayout layout;
    layout.AddNodeIconsStr("a");
    layout.AddNodeIconsStr("b");
    EXPECT_EQ(layout.GetNodeIconsStr(), (std::vector<std::string>{"a", "b"}));
    layout.SetNodeIconsStr({"c"});
    EXPECT_EQ(layout.GetNodeIconsStr(), (std::vector<std::string>{"c"}));

    const auto first = Picture();
    const auto second = Picture();
    NavigationLayout navigation;
    navigation.AddNavigationIcons(first);
    navigation.AddNavigationIcons(second);
    EXPECT_EQ(navigation.GetNavigationIcons(),
              (std::vector<std::shared_ptr<Media::PixelMap>>{first, second}));
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
