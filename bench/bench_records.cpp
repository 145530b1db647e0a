#include "bench_records.h"

#include <cstdio>
#include <cstdlib>

#include "want_params_wrapper.h"

namespace LiveViewBench {
namespace {

using Tavi::AAFwk::WantParams;
using Tavi::Media::PixelMap;
using WantAgent = Tavi::AbilityRuntime::WantAgent::WantAgent;

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
    Tavi::Media::InitializationOptions options;
    options.size.width = side;
    options.size.height = side;
    options.pixelFormat = Tavi::Media::PixelFormat::ARGB_8888;
    return std::shared_ptr<PixelMap>(PixelMap::Create(options));
}

std::shared_ptr<LV::RichText> Run(const char* text, const char* color) {
    auto run = std::make_shared<LV::RichText>();
    run->SetText(Text(text));
    run->SetTextColor(Text(color));
    return run;
}

constexpr const char* BLUE = "#FF0A59F7";

std::shared_ptr<LV::LayoutData> MakeLayout(LV::LayoutData::LayoutType type) {
    switch (type) {
        case LV::LayoutData::PROGRESS: {
            auto layout = std::make_shared<LV::ProgressLayout>();
            layout->SetLayoutType(type);
            layout->SetProgress(Value(40));
            layout->SetColor(Text(BLUE));
            layout->SetBackgroundColor(Text("#FFE0E0E0"));
            layout->SetIndicatorType(Value<int>(LV::ProgressLayout::INDICATOR_TYPE_ICON_1));
            layout->SetIndicatorIcon(Picture(24));
            layout->SetLineType(Value<int>(LV::ProgressLayout::LINE_TYPE_1));
            layout->SetNodeIconsStr(
                {"media/node_start.png", "media/node_mid.png", "media/node_end.png"});
            return layout;
        }
        case LV::LayoutData::PICKUP: {
            auto layout = std::make_shared<LV::PickupLayout>();
            layout->SetLayoutType(type);
            layout->SetTitle(Text("Pickup code"));
            layout->SetContent(Text("A-1024 at the front desk"));
            layout->SetUnderlineColor(Text(BLUE));
            layout->SetDescPic(Picture(64));
            return layout;
        }
        case LV::LayoutData::FLIGHT: {
            auto layout = std::make_shared<LV::FlightLayout>();
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
        case LV::LayoutData::SCORE: {
            auto layout = std::make_shared<LV::ScoreLayout>();
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
        case LV::LayoutData::NAVIGATION: {
            auto layout = std::make_shared<LV::NavigationLayout>();
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

std::shared_ptr<LV::CapsuleData> MakeCapsule(LV::CapsuleData::CapsuleType type) {
    std::shared_ptr<LV::CapsuleData> capsule;
    switch (type) {
        case LV::CapsuleData::TEXT: {
            auto text = std::make_shared<LV::TextCapsule>();
            text->SetTitle(Text("Rider nearby"));
            text->SetContent(Text("2 min"));
            text->SetIcon(Picture(32));
            capsule = text;
            break;
        }
        case LV::CapsuleData::TIMER: {
            auto timer = std::make_shared<LV::TimerCapsule>();
            timer->SetContent(Text("Boarding"));
            timer->SetTime(Value(600000L));
            timer->SetIsCountdown(Value(true));
            timer->SetIsPaused(Value(false));
            timer->SetIconStr(Text("media/capsule_timer.png"));
            capsule = timer;
            break;
        }
        case LV::CapsuleData::PROGRESS: {
            auto progress = std::make_shared<LV::ProgressCapsule>();
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

const char* EventFor(LV::LayoutData::LayoutType type) {
    switch (type) {
        case LV::LayoutData::PROGRESS:
            return "DELIVERY";
        case LV::LayoutData::PICKUP:
            return "PICK_UP";
        case LV::LayoutData::FLIGHT:
            return "FLIGHT";
        case LV::LayoutData::SCORE:
            return "SCORE";
        default:
            return "NAVIGATION";
    }
}

}  // namespace

const char* LayoutName(int kindIndex) {
    static const char* const NAMES[] = {"progress", "pickup", "flight", "score", "navigation"};
    return NAMES[kindIndex];
}

LV::CapsuleData::CapsuleType CapsuleKindFor(int kindIndex) {
    static const LV::CapsuleData::CapsuleType KINDS[] = {
        LV::CapsuleData::PROGRESS, LV::CapsuleData::TEXT, LV::CapsuleData::TIMER,
        LV::CapsuleData::TEXT, LV::CapsuleData::TIMER};
    return KINDS[kindIndex];
}

const char* CapsuleName(LV::CapsuleData::CapsuleType type) {
    switch (type) {
        case LV::CapsuleData::TEXT:
            return "text";
        case LV::CapsuleData::TIMER:
            return "timer";
        default:
            return "progress";
    }
}

std::unique_ptr<LV::LiveView> MakeFullRecord(int kindIndex, int id) {
    const LV::LayoutData::LayoutType layoutType = LAYOUT_KINDS[kindIndex];

    auto primary = std::make_shared<LV::PrimaryData>();
    primary->SetTitle(Text("Your order is on its way"));
    primary->AddContent(Run("Arriving in ", BLUE));
    primary->AddContent(Run("12 minutes", BLUE));
    primary->SetKeepTime(Value(30));
    primary->SetClickAction(std::make_shared<WantAgent>("com.example.food/OrderPage"));
    primary->SetImmersivePicStr(Text("media/immersive.png"));
    primary->SetImmersiveAbilityName(Text("OrderAbility"));
    auto parameters = std::make_shared<WantParams>();
    parameters->SetParam("orderId", Tavi::AAFwk::String::Box("A-1024"));
    parameters->SetParam("source", Tavi::AAFwk::String::Box("live_view"));
    primary->SetImmersiveParameters(parameters);

    auto extension = std::make_shared<LV::ExtensionData>();
    extension->SetType(LV::ExtensionData::EXTENSION_TYPE_PICTURE_1);
    extension->SetText(Text("Call rider"));
    extension->SetPic(Picture(32));
    extension->SetClickAction(std::make_shared<WantAgent>("com.example.food/CallRider"));
    extension->SetIsCoverClickAction(true);
    primary->SetExtensionData(extension);
    primary->SetLayoutData(MakeLayout(layoutType));

    auto external = std::make_shared<LV::ExternalData>();
    external->SetTitle(Text("Order A-1024"));
    external->AddContent(Run("Arriving in 12 minutes", BLUE));
    external->SetBackgroundColor(Text("#0A59F7"));

    auto data = std::make_shared<LV::LiveViewData>();
    data->SetPrimary(primary);
    data->SetCapsule(MakeCapsule(CapsuleKindFor(kindIndex)));
    data->SetExternal(external);

    auto timer = std::make_shared<LV::LiveViewTimer>();
    timer->SetTime(Value(900000L));
    timer->SetIsCountdown(Value(true));
    timer->SetIsPaused(Value(false));

    auto liveView = std::make_unique<LV::LiveView>();
    liveView->SetId(Value(id));
    liveView->SetEvent(EventFor(layoutType));
    liveView->SetSequence(Value(1));
    liveView->SetIsMute(Value(false));
    liveView->SetLiveViewData(data);
    liveView->SetTimer(timer);
    return liveView;
}

std::unique_ptr<LV::LiveView> MakeSmallRecord(int id) {
    auto layout = std::make_shared<LV::PickupLayout>();
    layout->SetLayoutType(LV::LayoutData::PICKUP);
    layout->SetTitle(Text("Pickup code"));
    layout->SetContent(Text("B-7"));
    layout->SetDescPicStr(Text("media/desc.png"));
    auto primary = std::make_shared<LV::PrimaryData>();
    primary->SetTitle(Text("Order ready"));
    primary->AddContent(Run("Ready for pickup", BLUE));
    primary->SetClickAction(std::make_shared<WantAgent>("com.example.food/OrderPage"));
    primary->SetLayoutData(layout);
    auto data = std::make_shared<LV::LiveViewData>();
    data->SetPrimary(primary);
    auto liveView = std::make_unique<LV::LiveView>();
    liveView->SetId(Value(id));
    liveView->SetEvent("PICK_UP");
    liveView->SetLiveViewData(data);
    return liveView;
}

std::unique_ptr<LV::LiveView> MakeColorCapsuleRecord() {
    auto capsule = std::make_shared<LV::TimerCapsule>();
    capsule->SetStatus(Value(1));
    capsule->SetType(LV::CapsuleData::TIMER);
    capsule->SetIconStr(Text("media/capsule_timer.png"));
    capsule->SetBackgroundColor(Text("#FF202020"));
    auto data = std::make_shared<LV::LiveViewData>();
    data->SetCapsule(capsule);
    auto liveView = std::make_unique<LV::LiveView>();
    liveView->SetLiveViewData(data);
    return liveView;
}

std::unique_ptr<LV::LiveView> MakeRichTextRecord(int runs) {
    auto primary = std::make_shared<LV::PrimaryData>();
    primary->SetTitle(Text("Your order is on its way"));
    primary->SetClickAction(std::make_shared<WantAgent>("com.example.food/OrderPage"));
    for (int i = 0; i < runs; ++i) {
        primary->AddContent(Run("a", BLUE));
    }
    auto data = std::make_shared<LV::LiveViewData>();
    data->SetPrimary(primary);
    auto liveView = std::make_unique<LV::LiveView>();
    liveView->SetLiveViewData(data);
    return liveView;
}

Outputs::Outputs()
    : content(std::make_shared<Tavi::Notification::NotificationLiveViewContent>()),
      extraInfo(std::make_shared<WantParams>()) {}

bool ValidateAndConvertForStart(const LV::LiveView& liveView, Outputs& out) {
    using Validate = LV::LiveViewParamValidate;
    using Convert = LV::LiveViewParamConversion;
    const LV::LiveView::Operation start = LV::LiveView::START;
    if (!Validate::CommonDataParamValidate(liveView).Succeed()) {
        return false;
    }
    Convert::CommonDataParamConversion(liveView, out.request, out.extraInfo, out.content);
    if (!Validate::TimerDataParamValidate(liveView).Succeed()) {
        return false;
    }
    Convert::TimerDataParamConversion(liveView, out.extraInfo, false);
    if (!Validate::PrimaryDataParamValidate(liveView, start).Succeed()) {
        return false;
    }
    Convert::PrimaryDataParamConversion(liveView, out.request, out.extraInfo, out.content, start);
    bool present = false;
    if (!Validate::ExtendDataParamValidate(liveView, present).Succeed()) {
        return false;
    }
    Convert::ExtendDataParamConversion(liveView, out.request, out.extraInfo, out.pictureMap);
    if (!Validate::LayoutDataParamValidate(liveView, start, present).Succeed()) {
        return false;
    }
    Convert::LayoutDataParamConversion(liveView, out.extraInfo, out.pictureMap);
    if (!Validate::CapsuleDataParamValidate(liveView, start, present).Succeed()) {
        return false;
    }
    Convert::CapsuleDataParamConversion(liveView, out.extraInfo, out.pictureMap);
    if (!Validate::ExternalDataParamValidate(liveView, start, present).Succeed()) {
        return false;
    }
    Convert::ExternalDataParamConversion(liveView, out.extraInfo);
    return true;
}

FloorPlan::FloorPlan(const WantParams& extraInfo, const PictureMap& pictureMap) {
    namespace AAFwk = Tavi::AAFwk;
    for (const auto& [key, value] : extraInfo.GetParams()) {
        if (auto* text = AAFwk::IString::Query(value)) {
            strings_.emplace_back(key, AAFwk::String::Unbox(text));
        } else if (auto* integer = AAFwk::IInteger::Query(value)) {
            ints_.emplace_back(key, AAFwk::Integer::Unbox(integer));
        } else if (auto* number = AAFwk::ILong::Query(value)) {
            longs_.emplace_back(key, AAFwk::Long::Unbox(number));
        } else if (auto* flag = AAFwk::IBoolean::Query(value)) {
            bools_.emplace_back(key, AAFwk::Boolean::Unbox(flag));
        } else if (auto* nested = AAFwk::IWantParams::Query(value)) {
            nested_.emplace_back(key, AAFwk::WantParamWrapper::Unbox(nested));
        } else if (auto* array = AAFwk::IArray::Query(value)) {
            long length = 0;
            array->GetLength(length);
            std::vector<std::string> items;
            for (long i = 0; i < length; ++i) {
                Tavi::sptr<AAFwk::IInterface> item;
                array->Get(i, item);
                items.push_back(AAFwk::String::Unbox(AAFwk::IString::Query(item)));
            }
            stringArrays_.emplace_back(key, std::move(items));
        } else {
            std::fprintf(stderr, "floor: no plain form for the value of %s\n", key.c_str());
            std::abort();
        }
    }
    for (const auto& entry : pictureMap) {
        pictures_.emplace_back(entry.first, entry.second);
    }
}

void FloorPlan::Write(WantParams& params, PictureMap& pictureMap) const {
    namespace AAFwk = Tavi::AAFwk;
    for (const auto& [key, value] : strings_) {
        params.SetParam(key, AAFwk::String::Box(value));
    }
    for (const auto& [key, value] : ints_) {
        params.SetParam(key, AAFwk::Integer::Box(value));
    }
    for (const auto& [key, value] : longs_) {
        params.SetParam(key, AAFwk::Long::Box(value));
    }
    for (const auto& [key, value] : bools_) {
        params.SetParam(key, AAFwk::Boolean::Box(value));
    }
    for (const auto& [key, value] : nested_) {
        params.SetParam(key, AAFwk::WantParamWrapper::Box(value));
    }
    for (const auto& [key, items] : stringArrays_) {
        Tavi::sptr<AAFwk::Array> array(
            new AAFwk::Array(static_cast<long>(items.size()), AAFwk::g_IID_IString));
        for (size_t i = 0; i < items.size(); ++i) {
            array->Set(static_cast<long>(i), AAFwk::String::Box(items[i]));
        }
        params.SetParam(key, array);
    }
    for (const auto& [key, list] : pictures_) {
        pictureMap.try_emplace(key, list);
    }
}

size_t FloorPlan::KeyCount() const {
    return strings_.size() + ints_.size() + longs_.size() + bools_.size() + nested_.size() +
           stringArrays_.size();
}

}  // namespace LiveViewBench
