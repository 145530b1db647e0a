// Common, timer and primary data: request fields, defaults, and the per-operation rules.
#include "conversion_test_util.h"
#include "live_view_timer.h"
#include "want_agent.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Test {
namespace {

using namespace std::string_literals;

TEST(CommonConversionTest, EventIsTrimmedAndMuteDefaultsToTrue) {
    struct Row {
        const char* label;
        std::string event;
        std::shared_ptr<bool> isMute;
        std::string expectedEvent;
        bool expectedMute;
    };
    const Row rows[] = {
        {"padded event, mute unset", " \tNAVIGATION\n ", nullptr, "NAVIGATION", true},
        {"blank event, mute false", "  \t ", Bool(false), "", false},
        {"empty event, mute true", "", Bool(true), "", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        LiveView liveView;
        liveView.SetEvent(row.event);
        liveView.SetIsMute(row.isMute);
        Outputs out;
        LiveViewParamConversion::CommonDataParamConversion(liveView, out.request, out.extra,
                                                           out.content);
        ExpectParams(*out.extra, {{"event", row.expectedEvent}, {"isMute", row.expectedMute}});
    }
}

TEST(CommonConversionTest, RequestFields) {
    for (const bool withIdAndSequence : {true, false}) {
        SCOPED_TRACE(withIdAndSequence);
        LiveView liveView;
        if (withIdAndSequence) {
            liveView.SetId(Int(42));
            liveView.SetSequence(Int(7));
        }
        Outputs out;
        LiveViewParamConversion::CommonDataParamConversion(liveView, out.request, out.extra,
                                                           out.content);
        EXPECT_EQ(out.request.GetNotificationId(), withIdAndSequence ? 42 : 0);
        EXPECT_EQ(out.content->GetVersion(), withIdAndSequence ? 7u : 0xFFFFFFFFu);
        EXPECT_EQ(static_cast<int>(out.request.GetSlotType()), 5);
        EXPECT_TRUE(out.request.IsInProgress());
    }
}

TEST(TimerConversionTest, TimeDefaultsOnlyWhenFlagsAreSetAndTheTimerIsNotUpdated) {
    const std::string time = "LiveViewTimer.time";
    const std::string countdown = "LiveViewTimer.isCountdown";
    const std::string paused = "LiveViewTimer.isPaused";
    struct Row {
        const char* label;
        bool hasTimer;
        std::shared_ptr<long> time;
        std::shared_ptr<bool> isCountdown;
        std::shared_ptr<bool> isPaused;
        bool isUpdateTimer;
        ExpectedParams expected;
    };
    // clang-format off
    const Row rows[] = {
        {"all fields", true, Long(90000), Bool(true), Bool(false), false,
         {{time, 90000L}, {countdown, true}, {paused, false}}},
        {"time kept on update", true, Long(5), nullptr, nullptr, true, {{time, 5L}}},
        {"countdown only, start", true, nullptr, Bool(true), nullptr, false,
         {{time, 0L}, {countdown, true}}},
        {"countdown only, update timer", true, nullptr, Bool(true), nullptr, true,
         {{countdown, true}}},
        {"paused only, start", true, nullptr, nullptr, Bool(true), false,
         {{time, 0L}, {paused, true}}},
        {"paused only, update timer", true, nullptr, nullptr, Bool(false), true, {{paused, false}}},
        {"no field, start", true, nullptr, nullptr, nullptr, false, {}},
        {"no field, update timer", true, nullptr, nullptr, nullptr, true, {}},
        {"no timer", false, nullptr, nullptr, nullptr, false, {}},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        LiveView liveView;
        if (row.hasTimer) {
            auto timer = std::make_shared<LiveViewTimer>();
            timer->SetTime(row.time);
            timer->SetIsCountdown(row.isCountdown);
            timer->SetIsPaused(row.isPaused);
            liveView.SetTimer(timer);
        }
        Outputs out;
        LiveViewParamConversion::TimerDataParamConversion(liveView, out.extra, row.isUpdateTimer);
        ExpectParams(*out.extra, row.expected);
    }
}

class PrimaryConversionTest : public ConversionTest {};

TEST_F(PrimaryConversionTest, FullRecordPerOperation) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetTitle(Str("Order 1234"));
    primary->SetContent({Rich(Str("Ready"), Str("#FF00FF00"))});
    primary->SetKeepTime(Int(30));
    const auto clickAction =
        std::make_shared<AbilityRuntime::WantAgent::WantAgent>("com.example/Order");
    primary->SetClickAction(clickAction);
    primary->SetImmersivePicStr(Str("media:hero"));
    primary->SetImmersiveAbilityName(Str("HeroAbility"));
    auto parameters = std::make_shared<AAFwk::WantParams>();
    parameters->SetParam("page", AAFwk::String::Box("detail"));
    primary->SetImmersiveParameters(parameters);

    struct Row {
        LiveView::Operation operation;
        int64_t autoDeletedTime;
        bool writesAbilityName;
    };
    const int64_t untouched = Notification::NotificationRequest::DEFAULT_AUTO_DELETED_TIME;
    for (const Row& row :
         {Row{LiveView::START, untouched, true}, Row{LiveView::UPDATE, untouched, false},
          Row{LiveView::STOP, 30, false}}) {
        SCOPED_TRACE(row.operation);
        Outputs out;
        LiveViewParamConversion::PrimaryDataParamConversion(MakeLiveView(primary), out.request,
                                                            out.extra, out.content, row.operation);
        ExpectedParams expected = {
            {"PrimaryData.title", "Order 1234"s},
            {"PrimaryData.content", R"([{"text":"Ready","textColor":"#FF00FF00"}])"s},
            {"PrimaryData.immersivePic.res", "media:hero"s},
        };
        if (row.writesAbilityName) {
            expected.emplace("PrimaryData.immersiveAbilityName", "HeroAbility"s);
        }
        // Checked apart: a WantParams box has no Expected alternative.
        auto extra = *out.extra;
        const auto* boxed =
            AAFwk::IWantParams::Query(extra.GetParam("PrimaryData.immersiveParameters"));
        ASSERT_NE(boxed, nullptr);
        EXPECT_EQ(AAFwk::WantParamWrapper::Unbox(boxed), *parameters);
        extra.Remove("PrimaryData.immersiveParameters");
        ExpectParams(extra, expected);

        EXPECT_EQ(out.request.GetAutoDeletedTime(), row.autoDeletedTime);
        EXPECT_EQ(out.request.GetWantAgent(), clickAction);
        EXPECT_EQ(out.content->GetSinglePicture(), nullptr);
    }
}

TEST_F(PrimaryConversionTest, StopWithoutKeepTimeDeletesAtOnce) {
    Outputs out;
    LiveViewParamConversion::PrimaryDataParamConversion(
        MakeLiveView(std::make_shared<PrimaryData>()), out.request, out.extra, out.content,
        LiveView::STOP);
    EXPECT_EQ(out.request.GetAutoDeletedTime(), 0);
    EXPECT_EQ(out.extra->Size(), 0);
    EXPECT_EQ(out.request.GetWantAgent(), nullptr);
}

TEST_F(PrimaryConversionTest, ImmersivePicturePair) {
    const Pic picture = NewPic(3);
    struct Row {
        const char* label;
        std::shared_ptr<std::string> pictureStr;
        Pic picture;
        ExpectedParams expected;
        Pic singlePicture;
    };
    const Row rows[] = {
        {"string only",
         Str("media:hero"),
         nullptr,
         {{"PrimaryData.immersivePic.res", "media:hero"s}},
         nullptr},
        {"pixel map only", nullptr, picture, {{"PrimaryData.immersivePic.res", ""s}}, picture},
        {"both",
         Str("media:hero"),
         picture,
         {{"PrimaryData.immersivePic.res", "media:hero"s}},
         nullptr},
        {"neither", nullptr, nullptr, {}, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        auto primary = std::make_shared<PrimaryData>();
        primary->SetImmersivePicStr(row.pictureStr);
        primary->SetImmersivePic(row.picture);
        Outputs out;
        LiveViewParamConversion::PrimaryDataParamConversion(
            MakeLiveView(primary), out.request, out.extra, out.content, LiveView::START);
        ExpectParams(*out.extra, row.expected);
        EXPECT_EQ(out.content->GetSinglePicture(), row.singlePicture);
        EXPECT_TRUE(out.pictures.empty());
    }
}

TEST_F(PrimaryConversionTest, NoPrimaryDataWritesNothingAndLogsNothing) {
    Outputs out;
    LiveViewParamConversion::PrimaryDataParamConversion(LiveView(), out.request, out.extra,
                                                        out.content, LiveView::STOP);
    EXPECT_EQ(out.extra->Size(), 0);
    EXPECT_EQ(out.request.GetAutoDeletedTime(),
              Notification::NotificationRequest::DEFAULT_AUTO_DELETED_TIME);
    EXPECT_TRUE(Logs().empty());
}

}  // namespace
}  // namespace Test
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
