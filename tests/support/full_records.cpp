#include "full_records.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "want_params_wrapper.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Builders {
namespace {

using AAFwk::WantParams;
using Media::PixelMap;
using WantAgent = AbilityRuntime::WantAgent::WantAgent;

template <typename T>
std::shared_ptr<T> Value(T value) {
    return std::make_shared<T>(std::move(value));
}

std::shared_ptr<std::string> Text(const char* text) {
    return std::make_shared<std::string>(text);
}

// A square picture of side pixels in four bytes a pixel; well under the 30,720-byte limit for
// the sides used here.
std::shared_ptr<PixelMap> Picture(int side) {
    Media::InitializationOptions options;
    options.size.width = side;
    options.size.height = side;
    options.pixelFormat = Media::PixelFormat::ARGB_8888;
    return std::shared_ptr<PixelMap>(PixelMap::Create(options));
}

std::shared_ptr<RichText> Run(const char* text, const char* color) {
    auto run = std::make_shared<RichText>();
    run->SetText(Text(text));
    run->SetTextColor(Text(color));
    return run;
}

constexpr const char* BLUE = "#FF0A59F7";

std::shared_ptr<LayoutData> MakeLayout(LayoutData::LayoutType type) {
    switch (type) {
        case LayoutData::PROGRESS: {
            auto layout = std::make_shared<ProgressLayout>();
            layout->SetLayoutType(type);
            layout->SetProgress(Value(40));
            layout->SetColor(Text(BLUE));
            layout->SetBackgroundColor(Text("#FFE0E0E0"));
            layout->SetIndicatorType(Value<int>(ProgressLayout::INDICATOR_TYPE_ICON_1));
            layout->SetIndicatorIcon(Picture(24));
            layout->SetLineType(Value<int>(ProgressLayout::LINE_TYPE_1));
            layout->SetNodeIconsStr(
                {"media/node_start.png", "media/node_mid.png", "media/node_end.png"});
            return layout;
        }
        case LayoutData::PICKUP: {
            auto layout = std::make_shared<PickupLayout>();
            layout->SetLayoutType(type);
            layout->SetTitle(Text("Pickup code"));
            layout->SetContent(Text("A-1024 at the front desk"));
            layout->SetUnderlineColor(Text(BLUE));
            layout->SetDescPic(Picture(64));
            return layout;
        }
        case LayoutData::FLIGHT: {
            auto layout = std::make_shared<FlightLayout>();
            layout->SetLayoutType(type);
            layout->SetFirstTitle(Text("08:15"));
            layout->SetFirstContent(Text("Departure gate 23"));
            layout->SetLastTitle(Text("11:40"));
            layout->SetLastContent(Text("Arrival terminal 2"));
            layout->SetSpaceIconStr(Text("media/plane.png"));
            layout->SetIsHorizontalLineDisplayed(Value(true));
            layout->SetAdditionalText(Text("Boarding closes 20 minutes before departure"));
            return layout;
        }
        case LayoutData::SCORE: {
            auto layout = std::make_shared<ScoreLayout>();
            layout->SetLayoutType(type);
            layout->SetHostName(Text("Harbour City"));
            layout->SetHostIcon(Picture(48));
            layout->SetHostScore(Text("2"));
            layout->SetGuestName(Text("Northern Rovers"));
            layout->SetGuestIconStr(Text("media/rovers.png"));
            layout->SetGuestScore(Text("1"));
            layout->SetCompetitionDescVector({Run("Second half ", BLUE), Run("78'", BLUE)});
            layout->SetCompetitionTime(Text("78:12"));
            layout->SetIsHorizontalLineDisplayed(Value(false));
            return layout;
        }
        case LayoutData::NAVIGATION: {
            auto layout = std::make_shared<NavigationLayout>();
            layout->SetLayoutType(type);
            layout->SetCurrentNavigationIcon(Picture(48));
            layout->SetNavigationIcons({Picture(32), Picture(32), Picture(32)});
            return layout;
        }
        default:
            std::fprintf(stderr, "no full layout of type %d\n", static_cast<int>(type));
            std::abort();
    }
}

std::shared_ptr<CapsuleData> MakeCapsule(CapsuleData::CapsuleType type) {
    std::shared_ptr<CapsuleData> capsule;
    switch (type) {
        case CapsuleData::TEXT: {
            auto text = std::make_shared<TextCapsule>();
            text->SetTitle(Text("Rider nearby"));
            text->SetContent(Text("2 min"));
            text->SetIcon(Picture(32));
            capsule = text;
            break;
        }
        case CapsuleData::TIMER: {
            auto timer = std::make_shared<TimerCapsule>();
            timer->SetContent(Text("Boarding"));
            timer->SetTime(Value(600000L));
            timer->SetIsCountdown(Value(true));
            timer->SetIsPaused(Value(false));
            timer->SetIconStr(Text("media/capsule_timer.png"));
            capsule = timer;
            break;
        }
        case CapsuleData::PROGRESS: {
            auto progress = std::make_shared<ProgressCapsule>();
            progress->SetMax(Value(100));
            progress->SetProgress(Value(40));
            progress->SetIndeterminate(Value(false));
            progress->SetIconStr(Text("media/capsule_progress.png"));
            capsule = progress;
            break;
        }
        default:
            std::fprintf(stderr, "no capsule of type %d\n", static_cast<int>(type));
            std::abort();
    }
    capsule->SetStatus(Value(1));
    capsule->SetType(type);
    capsule->SetBackgroundColor(Text("#FF202020"));
    return capsule;
}

const char* EventFor(LayoutData::LayoutType type) {
    switch (type) {
        case LayoutData::PROGRESS:
            return "DELIVERY";
        case LayoutData::PICKUP:
            return "PICK_UP";
        case LayoutData::FLIGHT:
            return "FLIGHT";
        case LayoutData::SCORE:
            return "SCORE";
        default:
            return "NAVIGATION";
    }
}

}  // namespace

const std::vector<FullRecordKinds>& FullRecordKindList() {
    static const std::vector<FullRecordKinds> kinds = {
        {LayoutData::PROGRESS, CapsuleData::PROGRESS, "progress", "progress"},
        {LayoutData::PICKUP, CapsuleData::TEXT, "pickup", "text"},
        {LayoutData::FLIGHT, CapsuleData::TIMER, "flight", "timer"},
        {LayoutData::SCORE, CapsuleData::TEXT, "score", "text"},
        {LayoutData::NAVIGATION, CapsuleData::TIMER, "navigation", "timer"},
    };
    return kinds;
}

std::unique_ptr<LiveView> FullRecord(const FullRecordKinds& kinds, int id) {
    const LayoutData::LayoutType layoutType = kinds.layout;

    auto primary = std::make_shared<PrimaryData>();
    primary->SetTitle(Text("Your order is on its way"));
    primary->AddContent(Run("Arriving in ", BLUE));
    primary->AddContent(Run("12 minutes", BLUE));
    primary->SetKeepTime(Value(30));
    primary->SetClickAction(std::make_shared<WantAgent>("com.example.food/OrderPage"));
    primary->SetImmersivePicStr(Text("media/immersive.png"));
    primary->SetImmersiveAbilityName(Text("OrderAbility"));
    auto parameters = std::make_shared<WantParams>();
    parameters->SetParam("orderId", AAFwk::String::Box("A-1024"));
    parameters->SetParam("source", AAFwk::String::Box("live_view"));
    primary->SetImmersiveParameters(parameters);

    auto extension = std::make_shared<ExtensionData>();
    extension->SetType(ExtensionData::EXTENSION_TYPE_PICTURE_1);
    extension->SetText(Text("Call rider"));
    extension->SetPic(Picture(32));
    extension->SetClickAction(std::make_shared<WantAgent>("com.example.food/CallRider"));
    extension->SetIsCoverClickAction(true);
    primary->SetExtensionData(extension);
    primary->SetLayoutData(MakeLayout(layoutType));

    auto external = std::make_shared<ExternalData>();
    external->SetTitle(Text("Order A-1024"));
    external->AddContent(Run("Arriving in 12 minutes", BLUE));
    external->SetBackgroundColor(Text("#0A59F7"));

    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(primary);
    data->SetCapsule(MakeCapsule(kinds.capsule));
    data->SetExternal(external);

    auto timer = std::make_shared<LiveViewTimer>();
    timer->SetTime(Value(900000L));
    timer->SetIsCountdown(Value(true));
    timer->SetIsPaused(Value(false));

    auto liveView = std::make_unique<LiveView>();
    liveView->SetId(Value(id));
    liveView->SetEvent(EventFor(layoutType));
    liveView->SetSequence(Value(1));
    liveView->SetIsMute(Value(false));
    liveView->SetLiveViewData(data);
    liveView->SetTimer(timer);
    return liveView;
}

}  // namespace Builders
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
