// Shared by the robustness suites: hostile values (megabyte texts, lists of 100,000 entries,
// pictures that report gigabytes, extreme numbers), record builders that pass every check of a
// start, the answer of a check as one comparable value, and a fixture on a fresh, silent host.
#ifndef LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H
#define LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "host_control.h"
#include "live_view_manager.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Robustness {

using PictureMap = std::map<std::string, std::vector<std::shared_ptr<Media::PixelMap>>>;

inline const std::string kBundle = "com.example.robust";
constexpr int32_t kUid = 20030003;
constexpr int64_t kStartMillis = 7000000;

// Sizes of the hostile inputs.
constexpr size_t kMegabytes = 4u * 1024u * 1024u;
constexpr size_t kManyRuns = 100000;

// ---------------------------------------------------------------------------------------------
// Answers.

// What a check or an operation answered: its code and its message.
struct Answer {
    int32_t code = 0;
    std::string message;

    bool operator==(const Answer& other) const {
        return code == other.code && message == other.message;
    }
};

inline void PrintTo(const Answer& answer, std::ostream* out) {
    // Megabyte messages are shown by their size and ends only.
    const std::string& m = answer.message;
    *out << answer.code << " \"";
    if (m.size() > 200) {
        *out << m.substr(0, 80) << "...<" << m.size() << " bytes>..." << m.substr(m.size() - 80);
    } else {
        *out << m;
    }
    *out << "\"";
}

inline Answer Of(const BaseRsp& rsp) {
    return {rsp.GetErrAsInt32(), rsp.GetInfo()};
}

inline Answer Success() {
    return {0, ""};
}

inline Answer Invalid(const std::string& message) {
    return {401, message};
}

// ---------------------------------------------------------------------------------------------
// Values.

inline std::shared_ptr<std::string> Str(const std::string& text) {
    return std::make_shared<std::string>(text);
}
inline std::shared_ptr<int> Int(int value) {
    return std::make_shared<int>(value);
}
inline std::shared_ptr<long> Long(long value) {
    return std::make_shared<long>(value);
}
inline std::shared_ptr<bool> Bool(bool value) {
    return std::make_shared<bool>(value);
}

inline std::string Repeat(const std::string& piece, size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (size_t i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

inline std::shared_ptr<RichText> TextRun(const std::string& text, const std::string& color = "") {
    auto run = std::make_shared<RichText>();
    run->SetText(Str(text));
    if (!color.empty()) {
        run->SetTextColor(Str(color));
    }
    return run;
}

// count runs of text, all with the same colour when one is given.
inline std::vector<std::shared_ptr<RichText>> Runs(size_t count, const std::string& text,
                                                   const std::string& color = "") {
    std::vector<std::shared_ptr<RichText>> runs;
    runs.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        runs.push_back(TextRun(text, color));
    }
    return runs;
}

// A picture of the given size; its pixels are never allocated unless read.
inline std::shared_ptr<Media::PixelMap> Picture(
    int32_t width, int32_t height, Media::PixelFormat format = Media::PixelFormat::RGBA_8888) {
    Media::InitializationOptions options;
    options.size = {width, height};
    options.pixelFormat = format;
    return std::shared_ptr<Media::PixelMap>(Media::PixelMap::Create(options));
}

// 46340 x 46340 one-byte pixels: 2,147,395,600 bytes reported, the largest square the host makes.
inline std::shared_ptr<Media::PixelMap> HugePicture() {
    return Picture(46340, 46340, Media::PixelFormat::ALPHA_8);
}

// ---------------------------------------------------------------------------------------------
// Records that pass every check of a start.

inline std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> Action() {
    return std::make_shared<AbilityRuntime::WantAgent::WantAgent>("com.example.robust/Page");
}

inline std::shared_ptr<ProgressLayout> ProgressLayoutForStart() {
    auto layout = std::make_shared<ProgressLayout>();
    layout->SetLayoutType(LayoutData::PROGRESS);
    layout->SetProgress(Int(40));
    layout->SetColor(Str("#FF0A59F7"));
    layout->SetBackgroundColor(Str("#1A000000"));
    layout->SetIndicatorType(Int(ProgressLayout::INDICATOR_TYPE_ICON_1));
    layout->SetIndicatorIconStr(Str("icon_rider"));
    layout->SetLineType(Int(ProgressLayout::LINE_TYPE_1));
    layout->SetNodeIconsStr({"icon_shop", "icon_road", "icon_home"});
    return layout;
}

inline std::shared_ptr<PickupLayout> PickupLayoutForStart() {
    auto layout = std::make_shared<PickupLayout>();
    layout->SetLayoutType(LayoutData::PICKUP);
    layout->SetTitle(Str("Pickup code"));
    layout->SetContent(Str("A-1024"));
    layout->SetUnderlineColor(Str("#FFFF0000"));
    layout->SetDescPicStr(Str("pic_counter"));
    return layout;
}

inline std::shared_ptr<FlightLayout> FlightLayoutForStart() {
    auto layout = std::make_shared<FlightLayout>();
    layout->SetLayoutType(LayoutData::FLIGHT);
    layout->SetFirstTitle(Str("08:30"));
    layout->SetFirstContent(Str("Departure"));
    layout->SetLastTitle(Str("11:45"));
    layout->SetLastContent(Str("Arrival"));
    layout->SetSpaceIconStr(Str("icon_plane"));
    layout->SetAdditionalText(Str("Gate 12"));
    return layout;
}

inline std::shared_ptr<ScoreLayout> ScoreLayoutForStart() {
    auto layout = std::make_shared<ScoreLayout>();
    layout->SetLayoutType(LayoutData::SCORE);
    layout->SetHostName(Str("Harbour FC"));
    layout->SetHostIconStr(Str("icon_harbour"));
    layout->SetHostScore(Str("2"));
    layout->SetGuestName(Str("Valley United"));
    layout->SetGuestIconStr(Str("icon_valley"));
    layout->SetGuestScore(Str("1"));
    layout->SetCompetitionDesc(Str("Second half"));
    layout->SetCompetitionTime(Str("67:12"));
    return layout;
}

inline std::shared_ptr<NavigationLayout> NavigationLayoutForStart() {
    auto layout = std::make_shared<NavigationLayout>();
    layout->SetLayoutType(LayoutData::NAVIGATION);
    layout->SetCurrentNavigationIconStr(Str("icon_turn_left"));
    layout->SetNavigationIconsStr({"icon_straight", "icon_turn_right"});
    return layout;
}

inline std::shared_ptr<TextCapsule> TextCapsuleForStart() {
    auto capsule = std::make_shared<TextCapsule>();
    capsule->SetStatus(Int(1));
    capsule->SetType(CapsuleData::TEXT);
    capsule->SetIconStr(Str("icon_capsule"));
    capsule->SetBackgroundColor(Str("#FF00AA00"));
    capsule->SetTitle(Str("Arriving"));
    return capsule;
}

inline std::shared_ptr<TimerCapsule> TimerCapsuleForStart() {
    auto capsule = std::make_shared<TimerCapsule>();
    capsule->SetStatus(Int(1));
    capsule->SetType(CapsuleData::TIMER);
    capsule->SetIconStr(Str("icon_clock"));
    capsule->SetBackgroundColor(Str("#FF0000AA"));
    capsule->SetContent(Str("Remaining"));
    return capsule;
}

inline std::shared_ptr<ProgressCapsule> ProgressCapsuleForStart() {
    auto capsule = std::make_shared<ProgressCapsule>();
    capsule->SetStatus(Int(1));
    capsule->SetType(CapsuleData::PROGRESS);
    capsule->SetIconStr(Str("icon_progress"));
    capsule->SetBackgroundColor(Str("#FF00AA00"));
    capsule->SetMax(Int(100));
    capsule->SetProgress(Int(10));
    return capsule;
}

inline std::shared_ptr<ExtensionData> ExtensionForStart() {
    auto extension = std::make_shared<ExtensionData>();
    extension->SetType(ExtensionData::EXTENSION_TYPE_TEXT_1);
    extension->SetText(Str("Call"));
    return extension;
}

inline std::shared_ptr<ExternalData> ExternalForStart() {
    auto external = std::make_shared<ExternalData>();
    external->SetTitle(Str("Order"));
    external->SetContent({TextRun("On the way")});
    external->SetBackgroundColor(Str("#1A2B3C"));
    return external;
}

// A start record with a pickup layout and no optional section.
inline LiveView StartRecord(int id = 1) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetTitle(Str("Your order"));
    primary->AddContent(TextRun("The rider is on the way", "#FF000000"));
    primary->SetClickAction(Action());
    primary->SetLayoutData(PickupLayoutForStart());
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(primary);
    LiveView liveView;
    liveView.SetId(Int(id));
    liveView.SetEvent("DELIVERY");
    liveView.SetLiveViewData(data);
    return liveView;
}

inline std::shared_ptr<PrimaryData> PrimaryOf(const LiveView& liveView) {
    return LiveView::GetPrimaryData(liveView);
}

inline void SetLayout(LiveView& liveView, const std::shared_ptr<LayoutData>& layout) {
    PrimaryOf(liveView)->SetLayoutData(layout);
}

inline void SetCapsule(LiveView& liveView, const std::shared_ptr<CapsuleData>& capsule) {
    liveView.GetLiveViewData()->SetCapsule(capsule);
}

inline void SetExtension(LiveView& liveView, const std::shared_ptr<ExtensionData>& extension) {
    PrimaryOf(liveView)->SetExtensionData(extension);
}

inline void SetExternal(LiveView& liveView, const std::shared_ptr<ExternalData>& external) {
    liveView.GetLiveViewData()->SetExternal(external);
}

// The start entry point's answer.
inline Answer ValidateStart(const LiveView& liveView) {
    return Of(LiveViewParamValidate::ValidateStartLiveViewParam(liveView, LiveView::START));
}

// ---------------------------------------------------------------------------------------------
// Requests for the read-back.

// The pieces of a live-view request; Build() attaches extra info and pictures to the content.
struct RequestParts {
    sptr<Notification::NotificationRequest> request = new Notification::NotificationRequest(7);
    std::shared_ptr<Notification::NotificationLiveViewContent> content =
        std::make_shared<Notification::NotificationLiveViewContent>();
    std::shared_ptr<AAFwk::WantParams> extra = std::make_shared<AAFwk::WantParams>();
    PictureMap pictures;

    sptr<Notification::NotificationRequest> Build() {
        content->SetExtraInfo(extra);
        content->SetPicture(pictures);
        request->SetContent(std::make_shared<Notification::NotificationContent>(content));
        return request;
    }
};

// A field's value as text, "<unset>" for an empty pointer.
inline std::string Text(const std::shared_ptr<std::string>& value) {
    return value == nullptr ? "<unset>" : *value;
}
inline std::string Text(const std::shared_ptr<int>& value) {
    return value == nullptr ? "<unset>" : std::to_string(*value);
}
inline std::string Text(const std::shared_ptr<long>& value) {
    return value == nullptr ? "<unset>" : std::to_string(*value);
}

// ---------------------------------------------------------------------------------------------
// The fixture: a fresh host whose log, system events and end events are discarded, the test app
// calling, no rate limit and a manual clock.

class RobustnessTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::DISCARD);
        Host::SetCallingApp(kBundle, kUid);
        Host::SetRateLimit(0);
        Host::SetClockMillis(kStartMillis);
    }
    void TearDown() override { Host::ResetAll(); }

    LiveViewClient client_;
};

}  // namespace Robustness
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TESTS_ROBUSTNESS_SUPPORT_H
