// Hostile values handed in by an application: texts of megabytes, lists of 100,000 entries,
// pictures that report gigabytes, and INT_MIN, INT_MAX, LONG_MIN and LONG_MAX where no rule
// bounds a number. Each gets the answer of the rule it breaks, or travels to the service and back
// whole, in bounded time and memory: no picture's pixels are ever allocated.
#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <vector>

#include "robustness_support.h"

namespace Tavi::Wisp::LiveView::Robustness {
namespace {

using HostileValueTest = RobustnessTest;
using Pixels = std::vector<std::shared_ptr<Media::PixelMap>>;
using RunList = std::vector<std::shared_ptr<RichText>>;

const std::string kBig = Repeat("x", kMegabytes);
// A colour of the right form but for its megabytes of digits.
const std::string kBigColor = "#" + Repeat("F", kMegabytes);
const std::string kPicture = " mustbe string | image.PixelMap";
const std::string kPictures = " mustbe Array<string | image.PixelMap>";

// Changes to a start record, each with the field it makes too long: "what" names the field and
// its type as the refusal does.
void ExpectTooLong(const std::vector<std::pair<Change, std::string>>& rows) {
    for (const auto& [change, what] : rows) {
        RunCases({{what, change, TooLong(what)}});
    }
}

const RunList kRuns(kManyRuns, TextRun("a", "#FF000000"));

// 46340 x 46340 one-byte pixels: 2,147,395,600 bytes reported, the largest square the host makes.
std::shared_ptr<Media::PixelMap> Huge() {
    return Picture(46340, 46340, Media::PixelFormat::ALPHA_8);
}

TEST_F(HostileValueTest, HostileSizesGetTheirFieldsAnswer) {
    ExpectTooLong({
        {[](LiveView& v) { v.SetEvent(Repeat(" ", kMegabytes)); }, "liveView.event mustbe string"},
        {[](LiveView& v) { PrimaryOf(v)->SetTitle(Str(kBig)); }, "primary.title mustbe string"},
        {[](LiveView& v) { PrimaryOf(v)->SetContent({TextRun("a", kBigColor)}); },
         "primary.content mustbe Array<RichText>"},
        {With(TextCapsuleForStart, [](auto& s) { s.SetBackgroundColor(Str(kBigColor)); }),
         "capsule.backgroundColor mustbe string"},
        {With(ExternalForStart, [](auto& s) { s.SetContent({TextRun(kBig)}); }),
         "external.content mustbe Array<RichTxtt>"},
        {With(ScoreLayoutForStart, [](auto& s) { s.SetCompetitionDesc(Str(kBig)); }),
         "layoutData.competitionDesc mustbe string"},
        {[](LiveView& v) { PrimaryOf(v)->SetContent(kRuns); },
         "primary.content mustbe Array<RichText>"},
        {[](LiveView& v) {
             auto parameters = std::make_shared<AAFwk::WantParams>();
             for (size_t i = 0; i < kManyRuns; ++i) {
                 parameters->SetParam("k" + std::to_string(i), AAFwk::String::Box("v"));
             }
             PrimaryOf(v)->SetImmersiveParameters(parameters);
         },
         "primary.immersiveParameters mustbe Record<string, string>."},
        {With(ProgressLayoutForStart,
              [](auto& s) { s.SetNodeIconsStr(std::vector<std::string>(kManyRuns, "i")); }),
         "layoutData.nodeIcons" + kPictures},
        {With(NavigationLayoutForStart,
              [](auto& s) { s.SetNavigationIcons(Pixels(kManyRuns, Picture(1, 1))); }),
         "layoutData.navigationIcons" + kPictures},
        {With(TextCapsuleForStart, [](auto& s) { s.SetIcon(Huge()); }), "capsule.icon" + kPicture},
        {With(ProgressCapsuleForStart, [](auto& s) { s.SetIcon(Picture(536870911, 1)); }),
         "capsule.icon" + kPicture},
        {With(ProgressLayoutForStart,
              [](auto& s) {
                  s.SetNodeIcons({Picture(1, 1), Huge()});
              }),
         "layoutData.nodeIcons" + kPictures},
        {With(PickupLayoutForStart, [](auto& s) { s.SetDescPic(Huge()); }),
         "layoutData.descPic mustbe string"},
    });
    const std::string failed = "Parameter error. " + kBig;
    RunCases(
        {{"param-failed text", [&](LiveView& v) { v.SetParamFailed(failed); }, Invalid(failed)}});
}

// Through the client the refusal comes before anything reaches the service; what no rule bounds
// travels whole: a megabyte resource string goes to the service and back, and pictures reporting
// gigabytes are held (deep-copied) and read back without their pixels.
TEST_F(HostileValueTest, TheClientRefusesHostileSizesAndCarriesUnboundedOnes) {
    LiveView refused = StartRecord();
    PrimaryOf(refused)->SetContent(kRuns);
    LiveViewClient::LiveViewResult result;
    ExpectAnswer(Of(client_.StartLiveView(refused, result)),
                 TooLong("primary.content mustbe Array<RichText>"));
    EXPECT_TRUE(Host::Published().empty());

    LiveView liveView = StartRecord(5);
    With(TextCapsuleForStart, [](auto& s) { s.SetIconStr(Str(kBig)); })(liveView);
    ExpectAnswer(Of(client_.StartLiveView(liveView, result)), kOk);
    LiveView readBack;
    ASSERT_EQ(client_.GetActiveLiveView(5, readBack), 0);
    ExpectAnswer(Text(LiveView::GetCapsuleData(readBack)->GetIconStr()), kBig);

    RequestParts parts;
    parts.request->SetNotificationId(11);
    parts.request->SetSlotType(Notification::NotificationConstant::LIVE_VIEW);
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_TYPE,
                          AAFwk::Integer::Box(CapsuleData::TEXT));
    parts.pictures[LiveViewConstant::CAPSULE_DATA_ICON] = {Huge(), Huge()};
    parts.pictures[LiveViewConstant::PROGRESS_LAYOUT_NODE_ICONS] = Pixels(1000, Huge());
    ASSERT_EQ(Notification::NotificationHelper::PublishNotification(*parts.Build()), 0);
    ASSERT_EQ(client_.GetActiveLiveView(11, readBack), 0);
    const auto icon = LiveView::GetCapsuleData(readBack)->GetIcon();
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->GetByteCount(), 2147395600);
}

// Extremes that no rule refuses travel to the service and back unchanged; the service's order of
// sequences ends at INT_MAX, so every later update or stop is stale; a stop's keep time of INT_MIN
// is clamped to 0, so the ended live view is gone at once.
TEST_F(HostileValueTest, ExtremeNumbersTravelThroughTheServiceUnchanged) {
    LiveView liveView = StartRecord(INT_MIN);
    liveView.SetSequence(Int(INT_MAX));
    liveView.SetTimer(std::make_shared<LiveViewTimer>());
    liveView.GetTimer()->SetTime(Long(LONG_MAX));
    With(TimerCapsuleForStart, [](auto& c) { c.SetTime(Long(LONG_MIN)); })(liveView);
    LiveViewClient::LiveViewResult result;
    ExpectAnswer(Of(client_.StartLiveView(liveView, result)), kOk);

    LiveView readBack;
    ASSERT_EQ(client_.GetActiveLiveView(INT_MIN, readBack), 0);
    EXPECT_EQ(Text(readBack.GetSequence()), std::to_string(INT_MAX));
    EXPECT_EQ(Text(readBack.GetTimer()->GetTime()), std::to_string(LONG_MAX));
    EXPECT_EQ(Text(AsTimerCapsule(LiveView::GetCapsuleData(readBack))->GetTime()),
              std::to_string(LONG_MIN));

    for (const bool isStop : {false, true}) {
        SCOPED_TRACE(isStop ? "stop" : "update");
        LiveView change = StartRecord(INT_MIN);
        change.SetSequence(Int(INT_MAX));
        ExpectAnswer(
            Of(isStop ? client_.StopLiveView(change, result)
                      : client_.UpdateLiveView(change, result)),
            std::to_string(ERR_SEQUENCE_INCORRECT) + " StartLiveView publishNotification error.");
    }
    LiveView stop = StartRecord(21);
    ExpectAnswer(Of(client_.StartLiveView(stop, result)), kOk);
    PrimaryOf(stop)->SetKeepTime(Int(INT_MIN));
    ExpectAnswer(Of(client_.StopLiveView(stop, result)), kOk);
    EXPECT_EQ(Text(PrimaryOf(stop)->GetKeepTime()), "0");
    EXPECT_EQ(client_.GetActiveLiveView(21, readBack), ERR_LIVE_VIEW_NOT_EXIST);
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::Robustness
