// The live view record: navigators over missing links, list and pointer sharing rules.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "live_view.h"
#include "pickup_layout.h"
#include "progress_capsule.h"
#include "record_builders.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

static_assert(sizeof(LiveView::Operation) == sizeof(int32_t), "operations travel as 32 bits");
static_assert(std::is_signed<std::underlying_type_t<CapsuleData::CapsuleType>>::value &&
                  sizeof(CapsuleData::CapsuleType) == sizeof(int32_t),
              "capsule types are signed 32 bits");
static_assert(std::is_signed<std::underlying_type_t<LayoutData::LayoutType>>::value &&
                  sizeof(LayoutData::LayoutType) == sizeof(int32_t),
              "layout types are signed 32 bits");

using Builders::TextRun;

// What a live view is built from; every link is optional.
struct Links {
    bool data = false;
    bool primary = false;
    bool extension = false;
    bool layout = false;
    bool capsule = false;
    bool external = false;
};

struct Built {
    LiveView view;
    std::shared_ptr<PrimaryData> primary;
    std::shared_ptr<CapsuleData> capsule;
    std::shared_ptr<ExternalData> external;
    std::shared_ptr<ExtensionData> extension;
    std::shared_ptr<LayoutData> layout;
};

Built Build(const Links& links) {
    Built built;
    if (links.primary) {
        built.primary = std::make_shared<PrimaryData>();
        if (links.extension) {
            built.extension = std::make_shared<ExtensionData>();
            built.primary->SetExtensionData(built.extension);
        }
        if (links.layout) {
            built.layout = std::make_shared<PickupLayout>();
            built.layout->SetLayoutType(LayoutData::PICKUP);
            built.primary->SetLayoutData(built.layout);
        }
    }
    if (links.capsule) {
        built.capsule = std::make_shared<TimerCapsule>();
        built.capsule->SetType(CapsuleData::TIMER);
    }
    if (links.external) {
        built.external = std::make_shared<ExternalData>();
    }
    if (links.data) {
        auto data = std::make_shared<LiveViewData>();
        data->SetPrimary(built.primary);
        data->SetCapsule(built.capsule);
        data->SetExternal(built.external);
        built.view.SetLiveViewData(data);
    }
    return built;
}

TEST(LiveViewNavigatorTest, FollowsLinksAndAnswersEmptyWhereOneIsMissing) {
    struct Row {
        const char* label;
        Links links;
        int layoutType;
        int capsuleType;
    };
    const Row rows[] = {
        {"no liveViewData, sections made but unlinked",
         {false, true, true, true, true, true},
         -1,
         -1},
        {"data without any section", {true, false, false, false, false, false}, -1, -1},
        {"capsule without primary", {true, false, false, false, true, false}, -1, 2},
        {"primary without layout, capsule set", {true, true, true, false, true, false}, -1, 2},
        {"layout without capsule", {true, true, false, true, false, true}, 4, -1},
        {"every link present", {true, true, true, true, true, true}, 4, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const Built built = Build(row.links);
        const bool data = row.links.data;
        const bool primary = data && row.links.primary;
        EXPECT_EQ(LiveView::GetPrimaryData(built.view), primary ? built.primary : nullptr);
        EXPECT_EQ(LiveView::GetExtensionData(built.view),
                  primary && row.links.extension ? built.extension : nullptr);
        EXPECT_EQ(LiveView::GetLayoutData(built.view),
                  primary && row.links.layout ? built.layout : nullptr);
        EXPECT_EQ(LiveView::GetCapsuleData(built.view),
                  data && row.links.capsule ? built.capsule : nullptr);
        EXPECT_EQ(LiveView::GetExternalData(built.view),
                  data && row.links.external ? built.external : nullptr);
        EXPECT_EQ(LiveView::GetLayoutType(built.view), row.layoutType);
        EXPECT_EQ(LiveView::GetCapsuleType(built.view), row.capsuleType);
    }
}

TEST(LiveViewNavigatorTest, TypeNavigatorsReportStoredValuesVerbatim) {
    Built built = Build({true, true, false, true, true, false});
    built.layout->SetLayoutType(static_cast<LayoutData::LayoutType>(42));
    built.capsule->SetType(static_cast<CapsuleData::CapsuleType>(-7));
    EXPECT_EQ(LiveView::GetLayoutType(built.view), 42);
    EXPECT_EQ(LiveView::GetCapsuleType(built.view), -7);
}

TEST(PrimaryDataTest, AddContentSkipsEmptyAndKeepsOrder) {
    PrimaryData primary;
    primary.AddContent(nullptr);
    EXPECT_TRUE(primary.GetContent().empty());

    const auto first = TextRun("first");
    const auto second = TextRun("second");
    primary.AddContent(first);
    primary.AddContent(nullptr);
    primary.AddContent(second);
    EXPECT_EQ(primary.GetContent(), (std::vector<std::shared_ptr<RichText>>{first, second}));
}

TEST(PrimaryDataTest, ListGettersHandOutCopies) {
    PrimaryData primary;
    primary.AddContent(TextRun("kept"));
    std::vector<std::shared_ptr<RichText>> copy = primary.GetContent();
    copy.push_back(TextRun("extra"));
    copy.front() = nullptr;
    ASSERT_EQ(primary.GetContent().size(), 1u);
    ASSERT_NE(primary.GetContent().front(), nullptr);
    EXPECT_EQ(*primary.GetContent().front()->GetText(), "kept");

    primary.SetContent({});
    EXPECT_TRUE(primary.GetContent().empty());
}

TEST(ExternalDataTest, AddContentKeepsEmptyPointers) {
    ExternalData external;
    external.AddContent(nullptr);
    ASSERT_EQ(external.GetContent().size(), 1u);
    EXPECT_EQ(external.GetContent().front(), nullptr);
    const auto run = TextRun("run");
    external.AddContent(run);
    EXPECT_EQ(external.GetContent(), (std::vector<std::shared_ptr<RichText>>{nullptr, run}));
}

TEST(RecordSharingTest, GettersSharePointeesAndSettersReplacePointers) {
    PrimaryData primary;
    primary.SetTitle(std::make_shared<std::string>("before"));
    *primary.GetTitle() = "after";
    EXPECT_EQ(*primary.GetTitle(), "after");

    // Two records handed the same pointer see each other's changes to the pointee.
    auto shared = std::make_shared<std::string>("#FF000000");
    TextCapsule text;
    ProgressCapsule progress;
    text.SetBackgroundColor(shared);
    progress.SetBackgroundColor(shared);
    *text.GetBackgroundColor() = "#FF112233";
    EXPECT_EQ(*progress.GetBackgroundColor(), "#FF112233");

    text.SetBackgroundColor(nullptr);
    EXPECT_EQ(text.GetBackgroundColor(), nullptr);
    EXPECT_EQ(progress.GetBackgroundColor(), shared);
}

TEST(RecordDefaultsTest, FreshRecordsHoldNothing) {
    const LiveView view;
    EXPECT_EQ(view.GetId(), nullptr);
    EXPECT_TRUE(view.GetEvent().empty());
    EXPECT_EQ(view.GetSequence(), nullptr);
    EXPECT_EQ(view.GetIsMute(), nullptr);
    EXPECT_EQ(view.GetLiveViewData(), nullptr);
    EXPECT_EQ(view.GetTimer(), nullptr);
    EXPECT_TRUE(view.GetParamFailed().empty());

    const ExtensionData extension;
    EXPECT_EQ(extension.GetType(), ExtensionData::EXTENSION_TYPE_NONE);
    EXPECT_FALSE(extension.GetIsCoverClickAction());
    EXPECT_EQ(extension.GetText(), nullptr);
    EXPECT_EQ(extension.GetPicStr(), nullptr);
    EXPECT_EQ(extension.GetPic(), nullptr);
    EXPECT_EQ(extension.GetClickAction(), nullptr);
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
