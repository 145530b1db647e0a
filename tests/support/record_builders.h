// Test support shared by the suites that build live view records: pointer makers for the fields,
// runs of rich text, pictures and click actions, records of every layout kind, capsule kind,
// extension and external data that pass every check of a start, a whole start record, and the
// pieces of a live-view request as the service would hand it back.
#ifndef LIVE_VIEW_TESTS_RECORD_BUILDERS_H
#define LIVE_VIEW_TESTS_RECORD_BUILDERS_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "live_view_manager.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Builders {

// ---------------------------------------------------------------------------------------------
// Field values.

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

// A field's value as text, "<unset>" when the pointer is empty.
inline std::string Text(const std::shared_ptr<std::string>& value) {
    return value == nullptr ? "<unset>" : *value;
}
inline std::string Text(const std::shared_ptr<int>& value) {
    return value == nullptr ? "<unset>" : std::to_string(*value);
}
inline std::string Text(const std::shared_ptr<long>& value) {
    return value == nullptr ? "<unset>" : std::to_string(*value);
}
inline std::string Text(const std::shared_ptr<bool>& value) {
    return value == nullptr ? "<unset>" : (*value ? "true" : "false");
}

// A run of text, with a colour when one is given.
inline std::shared_ptr<RichText> TextRun(const std::string& text, const std::string& color = "") {
    auto run = std::make_shared<RichText>();
    run->SetText(Str(text));
    if (!color.empty()) {
        run->SetTextColor(Str(color));
    }
    return run;
}

// A run of text made of the field pointers themselves, either of which may be empty.
inline std::shared_ptr<RichText> Rich(std::shared_ptr<std::string> text,
                                      std::shared_ptr<std::string> color = nullptr) {
    auto run = std::make_shared<RichText>();
    run->SetText(std::move(text));
    run->SetTextColor(std::move(color));
    return run;
}

// A picture of the given size; its pixels are never allocated unless read.
inline std::shared_ptr<Media::PixelMap> Picture(
    int32_t width, int32_t height = 1, Media::PixelFormat format = Media::PixelFormat::RGBA_8888) {
    Media::InitializationOptions options;
    options.size = {width, height};
    options.pixelFormat = format;
    return std::shared_ptr<Media::PixelMap>(Media::PixelMap::Create(options));
}

inline std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> ClickAction(
    const std::string& target = "com.example.app/Page") {
    return std::make_shared<AbilityRuntime::WantAgent::WantAgent>(target);
}

// ---------------------------------------------------------------------------------------------
// Sections that pass every check of a start.

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
    layout->SetIsHorizontalLineDisplayed(Bool(true));
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
    capsule->SetContent(Str("5 min"));
    return capsule;
}

inline std::shared_ptr<TimerCapsule> TimerCapsuleForStart() {
    auto capsule = std::make_shared<TimerCapsule>();
    capsule->SetStatus(Int(1));
    capsule->SetType(CapsuleData::TIMER);
    capsule->SetIconStr(Str("icon_clock"));
    capsule->SetBackgroundColor(Str("#FF0000AA"));
    capsule->SetContent(Str("Remaining"));
    capsule->SetTime(Long(300000));
    capsule->SetIsCountdown(Bool(true));
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

// ---------------------------------------------------------------------------------------------
// Whole records.

// A start record: id, event, primary data with title, content, click action and the layout, and
// no optional section.
inline LiveView StartRecord(int id = 1, const std::string& event = "DELIVERY",
                            const std::shared_ptr<LayoutData>& layout = PickupLayoutForStart()) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetTitle(Str("Your order"));
    primary->AddContent(TextRun("The rider is on the way", "#FF000000"));
    primary->SetClickAction(ClickAction());
    primary->SetLayoutData(layout);
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(primary);
    LiveView liveView;
    liveView.SetId(Int(id));
    liveView.SetEvent(event);
    liveView.SetLiveViewData(data);
    return liveView;
}

inline void SetLayout(LiveView& liveView, const std::shared_ptr<LayoutData>& layout) {
    LiveView::GetPrimaryData(liveView)->SetLayoutData(layout);
}

inline void SetCapsule(LiveView& liveView, const std::shared_ptr<CapsuleData>& capsule) {
    liveView.GetLiveViewData()->SetCapsule(capsule);
}

inline void SetExtension(LiveView& liveView, const std::shared_ptr<ExtensionData>& extension) {
    LiveView::GetPrimaryData(liveView)->SetExtensionData(extension);
}

inline void SetExternal(LiveView& liveView, const std::shared_ptr<ExternalData>& external) {
    liveView.GetLiveViewData()->SetExternal(external);
}

// ---------------------------------------------------------------------------------------------
// Requests for the read-back.

using PictureMap = std::map<std::string, std::vector<std::shared_ptr<Media::PixelMap>>>;

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

}  // namespace Builders
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TESTS_RECORD_BUILDERS_H
