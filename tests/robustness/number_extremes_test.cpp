// INT_MIN, INT_MAX, LONG_MIN and LONG_MAX in every number field of a live view, handed in by an
// application (validation and the client) and by the service (the read-back). Each gets its
// rule's answer; a number without a rule travels unchanged.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
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

const std::string kSequenceRange =
    "Parameter error. The type of liveView.sequence mustbe number [or the parameter range is "
    "incorrect].";
const std::string kTimerRange =
    "Parameter error. The type of liveView.timer.time mustbe larger than or equal 0";
const std::string kCapsuleStatusRange =
    "Parameter error. The type of capsule.status mustbe number [or the parameter range is "
    "incorrect].";
const std::string kCapsuleType = "Parameter error. The type of capsule.type mustbe capsuleType.";
const std::string kCapsuleMaxRange =
    "Parameter error. The type of capsule.max mustbe number [or the parameter range is incorrect].";
const std::string kCapsuleProgressRange =
    "Parameter error. The type of capsule.progress mustbe number [or the parameter range is "
    "incorrect].";
const std::string kLayoutType =
    "Parameter error. The type of layoutData.layoutType mustbe LayoutType.";
const std::string kProgressRange =
    "Parameter error. The type of layoutData.progress mustbe number [or the parameter range is "
    "incorrect";
const std::string kLineType = "Parameter error. The type of layoutData.lineType mustbe LineType";
const std::string kIndicatorType =
    "Parameter error. The type of layoutData.indicatorTypetype mustbe IndicatorType";
const std::string kExtensionType =
    "Parameter error. The type of extensionData.type mustbe ExtensionType.";
const std::string kPublishError = "StartLiveView publishNotification error.";

using NumberExtremesTest = RobustnessTest;

template <typename Capsule>
std::function<void(LiveView&)> WithCapsule(std::shared_ptr<Capsule> (*make)(),
                                           std::function<void(Capsule&)> change) {
    return [make, change](LiveView& liveView) {
        auto capsule = make();
        change(*capsule);
        SetCapsule(liveView, capsule);
    };
}

std::function<void(LiveView&)> WithProgressLayout(std::function<void(ProgressLayout&)> change) {
    return [change](LiveView& liveView) {
        auto layout = ProgressLayoutForStart();
        change(*layout);
        SetLayout(liveView, layout);
    };
}

std::function<void(LiveView&)> WithExtensionType(int type) {
    return [type](LiveView& liveView) {
        auto extension = ExtensionForStart();
        extension->SetType(static_cast<ExtensionData::ExtensionType>(type));
        SetExtension(liveView, extension);
    };
}

TEST_F(NumberExtremesTest, EveryNumberFieldOfARecordAtItsExtremes) {
    using Text = TextCapsule;
    using Progress = ProgressCapsule;
    RunCases({
        {"id INT_MIN", [](LiveView& v) { v.SetId(Int(INT_MIN)); }, Success()},
        {"id INT_MAX", [](LiveView& v) { v.SetId(Int(INT_MAX)); }, Success()},
        {"sequence INT_MIN", [](LiveView& v) { v.SetSequence(Int(INT_MIN)); },
         Invalid(kSequenceRange)},
        {"sequence INT_MAX", [](LiveView& v) { v.SetSequence(Int(INT_MAX)); }, Success()},
        {"keep time INT_MIN on start", [](LiveView& v) { PrimaryOf(v)->SetKeepTime(Int(INT_MIN)); },
         Success()},
        {"capsule status INT_MIN",
         WithCapsule<Text>(TextCapsuleForStart, [](Text& c) { c.SetStatus(Int(INT_MIN)); }),
         Invalid(kCapsuleStatusRange)},
        {"capsule status INT_MAX",
         WithCapsule<Text>(TextCapsuleForStart, [](Text& c) { c.SetStatus(Int(INT_MAX)); }),
         Invalid(kCapsuleStatusRange)},
        {"capsule type INT_MIN",
         WithCapsule<Text>(
             TextCapsuleForStart,
             [](Text& c) { c.SetType(static_cast<CapsuleData::CapsuleType>(INT_MIN)); }),
         Invalid(kCapsuleType)},
        {"capsule type INT_MAX",
         WithCapsule<Text>(
             TextCapsuleForStart,
             [](Text& c) { c.SetType(static_cast<CapsuleData::CapsuleType>(INT_MAX)); }),
         Invalid(kCapsuleType)},
        {"progress capsule max INT_MIN",
         WithCapsule<Progress>(ProgressCapsuleForStart,
                               [](Progress& c) { c.SetMax(Int(INT_MIN)); }),
         Invalid(kCapsuleMaxRange)},
        {"progress capsule max INT_MAX",
         WithCapsule<Progress>(ProgressCapsuleForStart,
                               [](Progress& c) { c.SetMax(Int(INT_MAX)); }),
         Success()},
        {"progress capsule progress INT_MIN",
         WithCapsule<Progress>(ProgressCapsuleForStart,
                               [](Progress& c) { c.SetProgress(Int(INT_MIN)); }),
         Invalid(kCapsuleProgressRange)},
        {"progress capsule progress INT_MAX",
         WithCapsule<Progress>(ProgressCapsuleForStart,
                               [](Progress& c) { c.SetProgress(Int(INT_MAX)); }),
         Success()},
        {"timer capsule time LONG_MIN",
         WithCapsule<TimerCapsule>(TimerCapsuleForStart,
                                   [](TimerCapsule& c) { c.SetTime(Long(LONG_MIN)); }),
         Success()},
        {"timer capsule time LONG_MAX",
         WithCapsule<TimerCapsule>(TimerCapsuleForStart,
                                   [](TimerCapsule& c) { c.SetTime(Long(LONG_MAX)); }),
         Success()},
        {"layout type INT_MIN",
         [](LiveView& v) {
             PrimaryOf(v)->GetLayoutData()->SetLayoutType(
                 static_cast<LayoutData::LayoutType>(INT_MIN));
         },
         Invalid(kLayoutType)},
        {"layout type INT_MAX",
         [](LiveView& v) {
             PrimaryOf(v)->GetLayoutData()->SetLayoutType(
                 static_cast<LayoutData::LayoutType>(INT_MAX));
         },
         Invalid(kLayoutType)},
        {"progress INT_MIN",
         WithProgressLayout([](ProgressLayout& l) { l.SetProgress(Int(INT_MIN)); }),
         Invalid(kProgressRange)},
        {"progress INT_MAX",
         WithProgressLayout([](ProgressLayout& l) { l.SetProgress(Int(INT_MAX)); }),
         Invalid(kProgressRange)},
        {"line type INT_MIN",
         WithProgressLayout([](ProgressLayout& l) { l.SetLineType(Int(INT_MIN)); }),
         Invalid(kLineType)},
        {"line type INT_MAX",
         WithProgressLayout([](ProgressLayout& l) { l.SetLineType(Int(INT_MAX)); }),
         Invalid(kLineType)},
        {"indicator type INT_MIN",
         WithProgressLayout([](ProgressLayout& l) { l.SetIndicatorType(Int(INT_MIN)); }),
         Invalid(kIndicatorType)},
        {"indicator type INT_MAX",
         WithProgressLayout([](ProgressLayout& l) { l.SetIndicatorType(Int(INT_MAX)); }),
         Invalid(kIndicatorType)},
        {"extension type INT_MIN", WithExtensionType(INT_MIN), Invalid(kExtensionType)},
        {"extension type INT_MAX", WithExtensionType(INT_MAX), Invalid(kExtensionType)},
    });
}

// The timer is checked by its own section check, which neither entry point runs.
TEST_F(NumberExtremesTest, TimerTimeAtItsExtremes) {
    struct Row {
        long time;
        Answer expected;
    };
    const std::vector<Row> rows = {
        {LONG_MIN, Invalid(kTimerRange)},
        {-1, Invalid(kTimerRange)},
        {0, Success()},
        {LONG_MAX, Success()},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.time);
        LiveView liveView = StartRecord();
        auto timer = std::make_shared<LiveViewTimer>();
        timer->SetTime(Long(row.time));
        liveView.SetTimer(timer);
        EXPECT_EQ(Of(LiveViewParamValidate::TimerDataParamValidate(liveView)), row.expected);
    }
}

TEST_F(NumberExtremesTest, AStopClampsExtremeKeepTimesIntoTheRecord) {
    struct Row {
        int keepTime;
        int expected;
    };
    const std::vector<Row> rows = {{INT_MIN, 0}, {-1, 0}, {3601, 3600}, {INT_MAX, 3600}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.keepTime);
        LiveView liveView = StartRecord();
        PrimaryOf(liveView)->SetKeepTime(Int(row.keepTime));
        EXPECT_EQ(Of(LiveViewParamValidate::PrimaryDataParamValidate(liveView, LiveView::STOP)),
                  Success());
        EXPECT_EQ(Text(PrimaryOf(liveView)->GetKeepTime()), std::to_string(row.expected));
    }
}

// Extremes that no rule refuses travel to the service and back unchanged; the service's order of
// sequences ends at INT_MAX.
TEST_F(NumberExtremesTest, ExtremeNumbersTravelThroughTheServiceUnchanged) {
    LiveView liveView = StartRecord(INT_MIN);
    liveView.SetSequence(Int(INT_MAX));
    auto timer = std::make_shared<LiveViewTimer>();
    timer->SetTime(Long(LONG_MAX));
    liveView.SetTimer(timer);
    auto capsule = TimerCapsuleForStart();
    capsule->SetTime(Long(LONG_MIN));
    SetCapsule(liveView, capsule);
    LiveViewClient::LiveViewResult result;
    ASSERT_EQ(Of(client_.StartLiveView(liveView, result)), Success());

    LiveView readBack;
    ASSERT_EQ(client_.GetActiveLiveView(INT_MIN, readBack), 0);
    EXPECT_EQ(Text(readBack.GetId()), std::to_string(INT_MIN));
    EXPECT_EQ(Text(readBack.GetSequence()), std::to_string(INT_MAX));
    ASSERT_NE(readBack.GetTimer(), nullptr);
    EXPECT_EQ(Text(readBack.GetTimer()->GetTime()), std::to_string(LONG_MAX));
    const auto readCapsule = AsTimerCapsule(LiveView::GetCapsuleData(readBack));
    ASSERT_NE(readCapsule, nullptr);
    EXPECT_EQ(Text(readCapsule->GetTime()), std::to_string(LONG_MIN));

    // No sequence is above INT_MAX: every later update or stop is stale.
    struct Row {
        std::string name;
        bool isStop;
        int sequence;
    };
    const std::vector<Row> rows = {
        {"update INT_MAX", false, INT_MAX},
        {"update 0", false, 0},
        {"stop INT_MAX", true, INT_MAX},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        LiveView change = StartRecord(INT_MIN);
        change.SetSequence(Int(row.sequence));
        PrimaryOf(change)->SetKeepTime(Int(INT_MAX));
        LiveViewClient::LiveViewResult changeResult;
        const BaseRsp rsp = row.isStop ? client_.StopLiveView(change, changeResult)
                                       : client_.UpdateLiveView(change, changeResult);
        EXPECT_EQ(Of(rsp), (Answer{ERR_SEQUENCE_INCORRECT, kPublishError}));
    }
}

// A stop's keep time INT_MIN is clamped to 0: the ended live view is gone at once. INT_MAX is
// clamped to 3600: it stays for an hour of the service clock, and not a second longer.
TEST_F(NumberExtremesTest, StopWithExtremeKeepTimesEndsForTheClampedTime) {
    struct Row {
        int id;
        int keepTime;
        int64_t readableMillis;  // how long the ended live view stays readable
    };
    const std::vector<Row> rows = {{21, INT_MIN, 0}, {22, INT_MAX, 3600 * 1000}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.keepTime);
        Host::SetClockMillis(kStartMillis);
        LiveViewClient::LiveViewResult result;
        LiveView start = StartRecord(row.id);
        ASSERT_EQ(Of(client_.StartLiveView(start, result)), Success());
        LiveView stop = StartRecord(row.id);
        PrimaryOf(stop)->SetKeepTime(Int(row.keepTime));
        ASSERT_EQ(Of(client_.StopLiveView(stop, result)), Success());

        LiveView readBack;
        if (row.readableMillis > 0) {
            Host::AdvanceClock(row.readableMillis - 1);
            ASSERT_EQ(client_.GetActiveLiveView(row.id, readBack), 0);
            EXPECT_EQ(Text(PrimaryOf(readBack)->GetKeepTime()), "3600");
            Host::AdvanceClock(1);
        }
        EXPECT_EQ(client_.GetActiveLiveView(row.id, readBack), ERR_LIVE_VIEW_NOT_EXIST);
    }
}

// Numbers handed in by the service, at their extremes, come back as the lenient read-back says.
TEST_F(NumberExtremesTest, TheReadBackTakesExtremeNumbersAsTheyAre) {
    struct Row {
        std::string name;
        std::function<void(RequestParts&)> change;
        std::function<std::string(const LiveView&)> field;
        std::string expected;
    };
    auto sequence = [](const LiveView& v) { return Text(v.GetSequence()); };
    auto keepTime = [](const LiveView& v) { return Text(PrimaryOf(v)->GetKeepTime()); };
    auto layoutType = [](const LiveView& v) { return std::to_string(LiveView::GetLayoutType(v)); };
    auto capsuleType = [](const LiveView& v) {
        return std::to_string(LiveView::GetCapsuleType(v));
    };
    auto setInt = [](const std::string& key, int value) {
        return [key, value](RequestParts& parts) {
            parts.extra->SetParam(key, AAFwk::Integer::Box(value));
        };
    };
    auto setLong = [](const std::string& key, long value) {
        return [key, value](RequestParts& parts) {
            parts.extra->SetParam(key, AAFwk::Long::Box(value));
        };
    };
    auto both = [](std::function<void(RequestParts&)> a, std::function<void(RequestParts&)> b) {
        return [a, b](RequestParts& parts) {
            a(parts);
            b(parts);
        };
    };
    const std::vector<Row> rows = {
        {"notification id INT_MIN", [](RequestParts& p) { p.request->SetNotificationId(INT_MIN); },
         [](const LiveView& v) { return Text(v.GetId()); }, std::to_string(INT_MIN)},
        {"version 0x80000000", [](RequestParts& p) { p.content->SetVersion(0x80000000u); },
         sequence, std::to_string(INT_MIN)},
        {"version 0x7FFFFFFF", [](RequestParts& p) { p.content->SetVersion(0x7FFFFFFFu); },
         sequence, std::to_string(INT_MAX)},
        {"version 0xFFFFFFFE", [](RequestParts& p) { p.content->SetVersion(0xFFFFFFFEu); },
         sequence, "-2"},
        {"version 0xFFFFFFFF", [](RequestParts& p) { p.content->SetVersion(0xFFFFFFFFu); },
         sequence, "<unset>"},
        {"auto-deleted time INT64_MIN",
         [](RequestParts& p) { p.request->SetAutoDeletedTime(INT64_MIN); }, keepTime, "0"},
        {"auto-deleted time INT64_MAX",
         [](RequestParts& p) { p.request->SetAutoDeletedTime(INT64_MAX); }, keepTime, "<unset>"},
        {"auto-deleted time 0x80000000",
         [](RequestParts& p) { p.request->SetAutoDeletedTime(0x80000000LL); }, keepTime,
         std::to_string(INT_MIN)},
        {"timer time LONG_MIN", setLong(LiveViewConstant::LIVE_VIEW_TIMER_TIME, LONG_MIN),
         [](const LiveView& v) { return Text(v.GetTimer()->GetTime()); }, std::to_string(LONG_MIN)},
        {"timer time LONG_MAX", setLong(LiveViewConstant::LIVE_VIEW_TIMER_TIME, LONG_MAX),
         [](const LiveView& v) { return Text(v.GetTimer()->GetTime()); }, std::to_string(LONG_MAX)},
        {"timer time as an Integer", setInt(LiveViewConstant::LIVE_VIEW_TIMER_TIME, INT_MAX),
         [](const LiveView& v) { return Text(v.GetTimer()->GetTime()); }, "<unset>"},
        {"extension type INT_MIN", setInt(LiveViewConstant::EXTEND_DATA_TYPE, INT_MIN),
         [](const LiveView& v) { return std::to_string(LiveView::GetExtensionData(v)->GetType()); },
         std::to_string(INT_MIN)},
        {"layout type INT_MIN", setInt(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, INT_MIN),
         layoutType, "-1"},
        {"layout type INT_MAX", setInt(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, INT_MAX),
         layoutType, "-1"},
        {"capsule type INT_MIN", setInt(LiveViewConstant::CAPSULE_DATA_TYPE, INT_MIN), capsuleType,
         "-1"},
        {"capsule type INT_MAX", setInt(LiveViewConstant::CAPSULE_DATA_TYPE, INT_MAX), capsuleType,
         "-1"},
        {"capsule status INT_MIN",
         both(setInt(LiveViewConstant::CAPSULE_DATA_TYPE, CapsuleData::PROGRESS),
              setInt(LiveViewConstant::CAPSULE_DATA_STATUS, INT_MIN)),
         [](const LiveView& v) { return Text(LiveView::GetCapsuleData(v)->GetStatus()); },
         std::to_string(INT_MIN)},
        {"progress capsule max INT_MIN",
         both(setInt(LiveViewConstant::CAPSULE_DATA_TYPE, CapsuleData::PROGRESS),
              setInt(LiveViewConstant::PROGRESS_CAPSULE_MAX, INT_MIN)),
         [](const LiveView& v) {
             return Text(AsProgressCapsule(LiveView::GetCapsuleData(v))->GetMax());
         },
         std::to_string(INT_MIN)},
        {"progress capsule progress INT_MAX",
         both(setInt(LiveViewConstant::CAPSULE_DATA_TYPE, CapsuleData::PROGRESS),
              setInt(LiveViewConstant::PROGRESS_CAPSULE_PROGRESS, INT_MAX)),
         [](const LiveView& v) {
             return Text(AsProgressCapsule(LiveView::GetCapsuleData(v))->GetProgress());
         },
         std::to_string(INT_MAX)},
        {"timer capsule time LONG_MIN",
         both(setInt(LiveViewConstant::CAPSULE_DATA_TYPE, CapsuleData::TIMER),
              setLong(LiveViewConstant::TIMER_CAPSULE_INITIALTIME, LONG_MIN)),
         [](const LiveView& v) {
             return Text(AsTimerCapsule(LiveView::GetCapsuleData(v))->GetTime());
         },
         std::to_string(LONG_MIN)},
        {"progress layout progress INT_MIN",
         both(setInt(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, LayoutData::PROGRESS),
              setInt(LiveViewConstant::PROGRESS_LAYOUT_PROGERESS, INT_MIN)),
         [](const LiveView& v) {
             return Text(AsProgressLayout(LiveView::GetLayoutData(v))->GetProgress());
         },
         std::to_string(INT_MIN)},
        {"progress layout line type INT_MAX",
         both(setInt(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, LayoutData::PROGRESS),
              setInt(LiveViewConstant::PROGRESS_LAYOUT_LINE_TYPE, INT_MAX)),
         [](const LiveView& v) {
             return Text(AsProgressLayout(LiveView::GetLayoutData(v))->GetIndicatorType());
         },
         std::to_string(INT_MAX)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        RequestParts parts;
        row.change(parts);
        LiveView liveView;
        ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
                  Success());
        EXPECT_EQ(row.field(liveView), row.expected);
    }
}

// A record read back with extreme numbers is judged by the same rules as any other.
TEST_F(NumberExtremesTest, ARecordReadBackWithExtremeNumbersIsRefusedByValidation) {
    RequestParts parts;
    parts.content->SetVersion(0x80000000u);
    parts.extra->SetParam(LiveViewConstant::EVENT, AAFwk::String::Box("DELIVERY"));
    LiveView liveView;
    ASSERT_EQ(Of(NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView)),
              Success());
    EXPECT_EQ(Of(LiveViewParamValidate::CommonDataParamValidate(liveView)),
              Invalid(kSequenceRange));
}

}  // namespace
}  // namespace Robustness
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
