// Hostile sizes handed in by an application: texts of megabytes, lists of 100,000 entries and
// pictures that report gigabytes. Each gets the answer of the rule it breaks (or is accepted
// when no rule bounds it), in bounded time and memory: no picture's pixels are ever allocated.
#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "robustness_support.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Robustness {
namespace {

const std::string kEventLength =
    "Parameter error. The type of liveView.event mustbe string [or the parameter length exceeds "
    "the limit].";
const std::string kTitleLength =
    "Parameter error. The type of primary.title mustbe string [or the parameter length exceeds the "
    "limit].";
const std::string kContentLength =
    "Parameter error. The type of primary.content mustbe Array<RichText> [or the parameter length "
    "exceeds the "
    "limit].";
const std::string kImmersivePicLength =
    "Parameter error. The type of primary.immersivePic mustbe string | image.PixelMap [or the "
    "parameter length "
    "exceeds the limit].";
const std::string kImmersiveAbilityNameLength =
    "Parameter error. The type of primary.immersiveAbilityName mustbe string [or the parameter "
    "length exceeds the "
    "limit].";
const std::string kImmersiveParametersCount =
    "Parameter error. The type of primary.immersiveParameters mustbe Record<string, string>. [or "
    "the parameter "
    "length exceeds the limit].";
const std::string kExtensionTextLength =
    "Parameter error. The type of extensionData.text mustbe string [or the parameter length "
    "exceeds the limit].";
const std::string kExtensionPicLength =
    "Parameter error. The type of extensionData.pic mustbe string | image.PixelMap [or the "
    "parameter length exceeds "
    "the limit].";
const std::string kExternalTitleLength =
    "Parameter error. The type of external.title mustbe string [or the parameter length exceeds "
    "the limit].";
const std::string kExternalContentLength =
    "Parameter error. The type of external.content mustbe Array<RichTxtt> [or the parameter length "
    "exceeds the "
    "limit].";
const std::string kExternalBackgroundColor =
    "Parameter error. The type of external.backgroundColor mustbe string [or the parameter length "
    "exceeds the "
    "limit].";
const std::string kCapsuleIconLength =
    "Parameter error. The type of capsule.icon mustbe string | image.PixelMap [or the parameter "
    "length exceeds the "
    "limit].";
const std::string kCapsuleBackgroundColor =
    "Parameter error. The type of capsule.backgroundColor mustbe string [or the parameter length "
    "exceeds the "
    "limit].";
const std::string kCapsuleTitleLength =
    "Parameter error. The type of capsule.title mustbe string [or the parameter length exceeds the "
    "limit].";
const std::string kCapsuleContentLength =
    "Parameter error. The type of capsule.content mustbe string [or the parameter length exceeds "
    "the limit].";
const std::string kProgressColor =
    "Parameter error. The type of layoutData.color mustbe string [or the parameter length exceeds "
    "the limit].";
const std::string kIndicatorIconLength =
    "Parameter error. The type of layoutData.indicatorIcon mustbe string [or the parameter length "
    "exceeds the "
    "limit].";
const std::string kNodeIconsCount =
    "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | image.PixelMap> [or "
    "the parameter "
    "length exceeds the limit].";
const std::string kPickupTitleLength =
    "Parameter error. The type of layoutData.title mustbe string [or the parameter length exceeds "
    "the limit].";
const std::string kDescPicLength =
    "Parameter error. The type of layoutData.descPic mustbe string [or the parameter length "
    "exceeds the limit].";
const std::string kSpaceIconLength =
    "Parameter error. The type of layoutData.spaceIcon mustbe string [or the parameter length "
    "exceeds the limit].";
const std::string kAdditionalTextLength =
    "Parameter error. The type of layoutData.additionalText mustbe string [or the parameter length "
    "exceeds the "
    "limit].";
const std::string kHostIconLength =
    "Parameter error. The type of layoutData.hostIcon mustbe string | image.PixelMap [or the "
    "parameter length "
    "exceeds the limit].";
const std::string kGuestIconLength =
    "Parameter error. The type of layoutData.guestIcon mustbe string | image.PixelMap [or the "
    "parameter length "
    "exceeds the limit].";
const std::string kCompetitionDescLength =
    "Parameter error. The type of layoutData.competitionDesc mustbe string [or the parameter "
    "length exceeds the "
    "limit].";
const std::string kCompetitionDescListLength =
    "Parameter error. The type of layoutData.competitionDesc mustbe string | Array<RichText> [or "
    "the parameter "
    "length exceeds the limit].";
const std::string kCurrentNavigationIconLength =
    "Parameter error. The type of layoutData.currentNavigationIcon mustbe string | image.PixelMap "
    "[or the "
    "parameter length exceeds the limit].";
const std::string kNavigationIconsCount =
    "Parameter error. The type of layoutData.navigationIcons mustbe Array<string | image.PixelMap> "
    "[or the "
    "parameter length exceeds the limit].";

using HostileTextTest = RobustnessTest;
using HostileListTest = RobustnessTest;
using HostilePictureTest = RobustnessTest;
using HostileClientTest = RobustnessTest;

const std::string kBigText = Repeat("x", kMegabytes);
const std::string kBigBlank = Repeat(" ", kMegabytes);
// A colour-like text: "#" and megabytes of hexadecimal digits.
const std::string kBigColor = "#" + Repeat("F", kMegabytes);

TEST_F(HostileTextTest, MegabyteTextsGetTheirFieldsLengthAnswer) {
    RunCases({
        {"event", [](LiveView& v) { v.SetEvent(kBigText); }, Invalid(kEventLength)},
        {"event of blanks", [](LiveView& v) { v.SetEvent(kBigBlank); }, Invalid(kEventLength)},
        {"primary title", [](LiveView& v) { PrimaryOf(v)->SetTitle(Str(kBigText)); },
         Invalid(kTitleLength)},
        {"primary title of blanks", [](LiveView& v) { PrimaryOf(v)->SetTitle(Str(kBigBlank)); },
         Invalid(kTitleLength)},
        {"one content run", [](LiveView& v) { PrimaryOf(v)->SetContent({TextRun(kBigText)}); },
         Invalid(kContentLength)},
        {"content run colour",
         [](LiveView& v) { PrimaryOf(v)->SetContent({TextRun("a", kBigColor)}); },
         Invalid(kContentLength)},
        {"immersive picture string",
         [](LiveView& v) { PrimaryOf(v)->SetImmersivePicStr(Str(kBigText)); },
         Invalid(kImmersivePicLength)},
        {"immersive ability name",
         [](LiveView& v) { PrimaryOf(v)->SetImmersiveAbilityName(Str(kBigText)); },
         Invalid(kImmersiveAbilityNameLength)},
        {"extension text",
         [](LiveView& v) {
             auto extension = ExtensionForStart();
             extension->SetText(Str(kBigText));
             SetExtension(v, extension);
         },
         Invalid(kExtensionTextLength)},
        {"external title",
         [](LiveView& v) {
             auto external = ExternalForStart();
             external->SetTitle(Str(kBigText));
             SetExternal(v, external);
         },
         Invalid(kExternalTitleLength)},
        {"external content run",
         [](LiveView& v) {
             auto external = ExternalForStart();
             external->SetContent({TextRun(kBigText)});
             SetExternal(v, external);
         },
         Invalid(kExternalContentLength)},
        {"external background colour",
         [](LiveView& v) {
             auto external = ExternalForStart();
             external->SetBackgroundColor(Str("#" + Repeat("A", kMegabytes)));
             SetExternal(v, external);
         },
         Invalid(kExternalBackgroundColor)},
        {"capsule background colour",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetBackgroundColor(Str(kBigColor));
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleBackgroundColor)},
        {"text capsule title",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetTitle(Str(kBigText));
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleTitleLength)},
        {"timer capsule content",
         [](LiveView& v) {
             auto capsule = TimerCapsuleForStart();
             capsule->SetContent(Str(kBigText));
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleContentLength)},
        {"progress layout colour",
         [](LiveView& v) {
             auto layout = ProgressLayoutForStart();
             layout->SetColor(Str(kBigColor));
             SetLayout(v, layout);
         },
         Invalid(kProgressColor)},
        {"pickup title",
         [](LiveView& v) {
             auto layout = PickupLayoutForStart();
             layout->SetTitle(Str(kBigText));
             SetLayout(v, layout);
         },
         Invalid(kPickupTitleLength)},
        {"flight additional text",
         [](LiveView& v) {
             auto layout = FlightLayoutForStart();
             layout->SetAdditionalText(Str(kBigText));
             SetLayout(v, layout);
         },
         Invalid(kAdditionalTextLength)},
        {"score competition description",
         [](LiveView& v) {
             auto layout = ScoreLayoutForStart();
             layout->SetCompetitionDesc(Str(kBigText));
             SetLayout(v, layout);
         },
         Invalid(kCompetitionDescLength)},
    });
}

// Picture resource strings are only required not to be empty: megabytes of them are accepted.
TEST_F(HostileTextTest, MegabyteResourceStringsHaveNoUpperBound) {
    RunCases({
        {"capsule icon string",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetIconStr(Str(kBigText));
             SetCapsule(v, capsule);
         },
         Success()},
        {"pickup picture string",
         [](LiveView& v) {
             auto layout = PickupLayoutForStart();
             layout->SetDescPicStr(Str(kBigText));
             SetLayout(v, layout);
         },
         Success()},
        {"navigation icon strings",
         [](LiveView& v) {
             auto layout = NavigationLayoutForStart();
             layout->SetNavigationIconsStr({kBigText, kBigText});
             SetLayout(v, layout);
         },
         Success()},
    });
}

TEST_F(HostileTextTest, AMegabyteParamFailedTextIsReportedVerbatim) {
    const std::string text = "Parameter error. " + kBigText;
    struct Row {
        std::string name;
        std::function<void(LiveView&)> change;
    };
    const std::vector<Row> rows = {
        {"live view", [&](LiveView& v) { v.SetParamFailed(text); }},
        {"primary data", [&](LiveView& v) { PrimaryOf(v)->SetParamFailed(text); }},
        {"layout", [&](LiveView& v) { PrimaryOf(v)->GetLayoutData()->SetParamFailed(text); }},
        {"capsule",
         [&](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetParamFailed(text);
             SetCapsule(v, capsule);
         }},
        {"external",
         [&](LiveView& v) {
             auto external = ExternalForStart();
             external->SetParamFailed(text);
             SetExternal(v, external);
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        LiveView liveView = StartRecord();
        row.change(liveView);
        EXPECT_EQ(ValidateStart(liveView), Invalid(text));
    }
}

TEST_F(HostileListTest, HundredThousandEntriesGetTheirListsAnswer) {
    RunCases({
        {"content runs of one byte, one colour",
         [](LiveView& v) { PrimaryOf(v)->SetContent(Runs(kManyRuns, "a", "#FF000000")); },
         Invalid(kContentLength)},
        {"content runs without colour",
         [](LiveView& v) { PrimaryOf(v)->SetContent(Runs(kManyRuns, "a")); },
         Invalid(kContentLength)},
        {"content runs that are all null",
         [](LiveView& v) {
             PrimaryOf(v)->SetContent(std::vector<std::shared_ptr<RichText>>(kManyRuns));
         },
         Invalid(kContentLength)},
        {"content runs of alternating colours",
         [](LiveView& v) {
             std::vector<std::shared_ptr<RichText>> runs;
             for (size_t i = 0; i < kManyRuns; ++i) {
                 runs.push_back(TextRun("a", i % 2 == 0 ? "#FF000000" : "#FF000001"));
             }
             PrimaryOf(v)->SetContent(runs);
         },
         Invalid(kContentLength)},
        {"external content runs",
         [](LiveView& v) {
             auto external = ExternalForStart();
             external->SetContent(Runs(kManyRuns, "a"));
             SetExternal(v, external);
         },
         Invalid(kExternalContentLength)},
        {"score description runs",
         [](LiveView& v) {
             auto layout = ScoreLayoutForStart();
             layout->SetCompetitionDesc(nullptr);
             layout->SetCompetitionDescVector(Runs(kManyRuns, "a"));
             SetLayout(v, layout);
         },
         Invalid(kCompetitionDescListLength)},
        {"immersive parameters",
         [](LiveView& v) {
             auto parameters = std::make_shared<AAFwk::WantParams>();
             for (size_t i = 0; i < kManyRuns; ++i) {
                 parameters->SetParam("key" + std::to_string(i), AAFwk::String::Box("value"));
             }
             PrimaryOf(v)->SetImmersiveParameters(parameters);
         },
         Invalid(kImmersiveParametersCount)},
        {"node icon strings",
         [](LiveView& v) {
             auto layout = ProgressLayoutForStart();
             layout->SetNodeIconsStr(std::vector<std::string>(kManyRuns, "icon"));
             SetLayout(v, layout);
         },
         Invalid(kNodeIconsCount)},
        {"node icon pictures that are all null",
         [](LiveView& v) {
             auto layout = ProgressLayoutForStart();
             layout->SetNodeIconsStr({});
             layout->SetNodeIcons(std::vector<std::shared_ptr<Media::PixelMap>>(kManyRuns));
             SetLayout(v, layout);
         },
         Invalid(kNodeIconsCount)},
        {"navigation icon strings",
         [](LiveView& v) {
             auto layout = NavigationLayoutForStart();
             layout->SetNavigationIconsStr(std::vector<std::string>(kManyRuns, "icon"));
             SetLayout(v, layout);
         },
         Invalid(kNavigationIconsCount)},
        {"navigation icon pictures",
         [](LiveView& v) {
             auto layout = NavigationLayoutForStart();
             layout->SetNavigationIcons(
                 std::vector<std::shared_ptr<Media::PixelMap>>(kManyRuns, Picture(1, 1)));
             SetLayout(v, layout);
         },
         Invalid(kNavigationIconsCount)},
    });
}

TEST_F(HostilePictureTest, TheHostRefusesPicturesWhoseByteCountExceeds31Bits) {
    struct Row {
        int32_t width;
        int32_t height;
        Media::PixelFormat format;
        int32_t expectedBytes;  // -1: Create answers null
    };
    const std::vector<Row> rows = {
        {46340, 46340, Media::PixelFormat::ALPHA_8, 2147395600},
        {23170, 23170, Media::PixelFormat::RGBA_8888, 2147395600},
        {536870911, 1, Media::PixelFormat::RGBA_8888, 2147483644},
        {1073741823, 1, Media::PixelFormat::RGB_565, 2147483646},
        {46340, 46340, Media::PixelFormat::RGBA_8888, -1},
        {536870912, 1, Media::PixelFormat::RGBA_8888, -1},
        {INT_MAX, INT_MAX, Media::PixelFormat::ALPHA_8, -1},
        {INT_MIN, 1, Media::PixelFormat::ALPHA_8, -1},
        {1, 0, Media::PixelFormat::ALPHA_8, -1},
        {1, 1, Media::PixelFormat::UNKNOWN, -1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.width) + "x" + std::to_string(row.height) + " format " +
                     std::to_string(static_cast<int>(row.format)));
        const auto picture = Picture(row.width, row.height, row.format);
        if (row.expectedBytes < 0) {
            EXPECT_EQ(picture, nullptr);
        } else {
            ASSERT_NE(picture, nullptr);
            EXPECT_EQ(picture->GetByteCount(), row.expectedBytes);
        }
    }
}

TEST_F(HostilePictureTest, PicturesReportingGigabytesGetEachFieldsLengthAnswer) {
    RunCases({
        {"capsule icon",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetIcon(HugePicture());
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleIconLength)},
        {"capsule icon of the largest byte count",
         [](LiveView& v) {
             auto capsule = ProgressCapsuleForStart();
             capsule->SetIcon(Picture(536870911, 1));
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleIconLength)},
        {"extension picture",
         [](LiveView& v) {
             auto extension = ExtensionForStart();
             extension->SetPic(HugePicture());
             SetExtension(v, extension);
         },
         Invalid(kExtensionPicLength)},
        {"progress indicator icon",
         [](LiveView& v) {
             auto layout = ProgressLayoutForStart();
             layout->SetIndicatorIconStr(nullptr);
             layout->SetIndicatorIcon(HugePicture());
             SetLayout(v, layout);
         },
         Invalid(kIndicatorIconLength)},
        {"progress node icon",
         [](LiveView& v) {
             auto layout = ProgressLayoutForStart();
             layout->SetNodeIcons({Picture(1, 1), HugePicture()});
             SetLayout(v, layout);
         },
         Invalid(kNodeIconsCount)},
        {"pickup picture",
         [](LiveView& v) {
             auto layout = PickupLayoutForStart();
             layout->SetDescPic(HugePicture());
             SetLayout(v, layout);
         },
         Invalid(kDescPicLength)},
        {"flight space icon",
         [](LiveView& v) {
             auto layout = FlightLayoutForStart();
             layout->SetSpaceIcon(HugePicture());
             SetLayout(v, layout);
         },
         Invalid(kSpaceIconLength)},
        {"score host icon",
         [](LiveView& v) {
             auto layout = ScoreLayoutForStart();
             layout->SetHostIcon(Picture(23170, 23170));
             SetLayout(v, layout);
         },
         Invalid(kHostIconLength)},
        {"score guest icon",
         [](LiveView& v) {
             auto layout = ScoreLayoutForStart();
             layout->SetGuestIcon(HugePicture());
             SetLayout(v, layout);
         },
         Invalid(kGuestIconLength)},
        {"current navigation icon",
         [](LiveView& v) {
             auto layout = NavigationLayoutForStart();
             layout->SetCurrentNavigationIcon(HugePicture());
             SetLayout(v, layout);
         },
         Invalid(kCurrentNavigationIconLength)},
        {"navigation icon",
         [](LiveView& v) {
             auto layout = NavigationLayoutForStart();
             layout->SetNavigationIcons({HugePicture(), Picture(1, 1)});
             SetLayout(v, layout);
         },
         Invalid(kNavigationIconsCount)},
        {"capsule icon at the limit",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetIcon(Picture(7680, 1));
             SetCapsule(v, capsule);
         },
         Success()},
        {"capsule icon one byte above the limit",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetIcon(Picture(30721, 1, Media::PixelFormat::ALPHA_8));
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleIconLength)},
    });
}

// Through the client: the refusal comes before anything reaches the service.
TEST_F(HostileClientTest, StartRefusesHostileSizesAndPublishesNothing) {
    struct Row {
        std::string name;
        std::function<void(LiveView&)> change;
        Answer expected;
    };
    const std::vector<Row> rows = {
        {"megabyte title", [](LiveView& v) { PrimaryOf(v)->SetTitle(Str(kBigText)); },
         Invalid(kTitleLength)},
        {"100,000 content runs",
         [](LiveView& v) { PrimaryOf(v)->SetContent(Runs(kManyRuns, "a")); },
         Invalid(kContentLength)},
        {"gigabyte capsule icon",
         [](LiveView& v) {
             auto capsule = TextCapsuleForStart();
             capsule->SetIcon(HugePicture());
             SetCapsule(v, capsule);
         },
         Invalid(kCapsuleIconLength)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        LiveView liveView = StartRecord();
        row.change(liveView);
        LiveViewClient::LiveViewResult result;
        EXPECT_EQ(Of(client_.StartLiveView(liveView, result)), row.expected);
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.message, "");
    }
    EXPECT_TRUE(Host::Published().empty());
    EXPECT_TRUE(Host::HeldLiveViews().empty());
}

// What no rule bounds travels whole: a megabyte resource string goes to the service and back.
TEST_F(HostileClientTest, AMegabyteResourceStringTravelsToTheServiceAndBack) {
    LiveView liveView = StartRecord(5);
    auto capsule = TextCapsuleForStart();
    capsule->SetIconStr(Str(kBigText));
    SetCapsule(liveView, capsule);
    LiveViewClient::LiveViewResult result;
    ASSERT_EQ(Of(client_.StartLiveView(liveView, result)), Success());

    LiveView readBack;
    ASSERT_EQ(client_.GetActiveLiveView(5, readBack), 0);
    const auto readCapsule = LiveView::GetCapsuleData(readBack);
    ASSERT_NE(readCapsule, nullptr);
    const auto iconStr = readCapsule->GetIconStr();
    ASSERT_NE(iconStr, nullptr);
    EXPECT_EQ(iconStr->size(), kBigText.size());
    EXPECT_TRUE(*iconStr == kBigText);
}

// A picture reporting two gigabytes crosses the service (which deep-copies what it holds) and
// comes back with its size, without its pixels being allocated on the way.
TEST_F(HostileClientTest, AGigabytePictureHeldByTheServiceIsReadBackWithoutItsPixels) {
    RequestParts parts;
    parts.request->SetNotificationId(11);
    parts.request->SetSlotType(Notification::NotificationConstant::LIVE_VIEW);
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_TYPE,
                          AAFwk::Integer::Box(CapsuleData::TEXT));
    parts.pictures[LiveViewConstant::CAPSULE_DATA_ICON] = {HugePicture(), HugePicture()};
    parts.pictures[LiveViewConstant::PROGRESS_LAYOUT_NODE_ICONS] =
        std::vector<std::shared_ptr<Media::PixelMap>>(1000, HugePicture());
    ASSERT_EQ(Notification::NotificationHelper::PublishNotification(*parts.Build()), 0);

    LiveView readBack;
    ASSERT_EQ(client_.GetActiveLiveView(11, readBack), 0);
    const auto capsule = LiveView::GetCapsuleData(readBack);
    ASSERT_NE(capsule, nullptr);
    ASSERT_NE(capsule->GetIcon(), nullptr);
    EXPECT_EQ(capsule->GetIcon()->GetByteCount(), 2147395600);
    EXPECT_EQ(capsule->GetIcon()->GetWidth(), 46340);
}

}  // namespace
}  // namespace Robustness
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
