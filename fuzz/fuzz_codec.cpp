#include "fuzz_codec.h"

#include "live_view_content_of.h"

namespace LiveViewFuzz {

// Every key of the extra-info and picture catalogue, picture keys included.
const std::vector<std::string>& CatalogueKeys() {
    using K = LiveViewConstant;
    static const std::vector<std::string> keys = {
        K::EVENT,
        K::IS_MUTE,
        K::LIVE_VIEW_TIMER_TIME,
        K::LIVE_VIEW_TIMER_ISCOUNTDOWN,
        K::LIVE_VIEW_TIMER_ISPAUSED,
        K::LIVE_VIEW_TIMER_IS_UPDATE_TIMER,
        K::PRIMARY_DATA_TITLE,
        K::PRIMARY_DATA_CONTENT,
        K::PRIMARY_DATA_IMMERSIVEPIC_RES,
        K::PRIMARY_DATA_IMMERSIVEPIC_ABILITY_NAME,
        K::PRIMARY_DATA_IMMERSIVEPIC_PARAMETERS,
        K::EXTEND_DATA_TEXT,
        K::EXTEND_DATA_TYPE,
        K::EXTEND_DATA_PIC_RES,
        K::EXTEND_DATA_PIC,
        K::LAYOUT_DATA_LAYOUT_TYPE,
        K::PROGRESS_LAYOUT_PROGERESS,
        K::PROGRESS_LAYOUT_COLOR,
        K::PROGRESS_LAYOUT_BACKGROUND_COLOR,
        K::PROGRESS_LAYOUT_INDICATOR_TYPE,
        K::PROGRESS_LAYOUT_INDICATOR_ICON_RES,
        K::PROGRESS_LAYOUT_INDICATOR_ICON,
        K::PROGRESS_LAYOUT_LINE_TYPE,
        K::PROGRESS_LAYOUT_NODE_ICONS_RES,
        K::PROGRESS_LAYOUT_NODE_ICONS,
        K::PICKUP_LAYOUT_TITLE,
        K::PICKUP_LAYOUT_CONTENT,
        K::PICKUP_LAYOUT_UNDERLINE_COLOR,
        K::PICKUP_LAYOUT_DESC_PIC_RES,
        K::PICKUP_LAYOUT_DESC_PIC,
        K::FLIGHT_LAYOUT_FIRST_TITLE,
        K::FLIGHT_LAYOUT_FIRST_CONTENT,
        K::FLIGHT_LAYOUT_LAST_TITLE,
        K::FLIGHT_LAYOUT_LAST_CONTENT,
        K::FLIGHT_LAYOUT_SPACE_ICON_RES,
        K::FLIGHT_LAYOUT_SPACE_ICON,
        K::FLIGHT_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE,
        K::FLIGHT_LAYOUT_ADDITIONAL_TEXT,
        K::SCORE_LAYOUT_HOST_NAME,
        K::SCORE_LAYOUT_HOST_ICON_RES,
        K::SCORE_LAYOUT_HOST_ICON,
        K::SCORE_LAYOUT_HOST_SCORE,
        K::SCORE_LAYOUT_GUEST_NAME,
        K::SCORE_LAYOUT_GUEST_ICON_RES,
        K::SCORE_LAYOUT_GUEST_ICON,
        K::SCORE_LAYOUT_GUEST_SCORE,
        K::SCORE_LAYOUT_COMPETITION_DESC,
        K::SCORE_LAYOUT_COMPETITION_TIME,
        K::SCORE_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE,
        K::CAPSULE_DATA_STATUS,
        K::CAPSULE_DATA_TYPE,
        K::CAPSULE_DATA_ICON_RES,
        K::CAPSULE_DATA_ICON,
        K::CAPSULE_DATA_BACKGROUND_COLOR,
        K::TEXT_CAPSULE_TITLE,
        K::TEXT_CAPSULE_CONTENT,
        K::TIMER_CAPSULE_CONTENT,
        K::TIMER_CAPSULE_INITIALTIME,
        K::TIMER_CAPSULE_IS_CONTDOWN,
        K::TIMER_CAPSULE_IS_PAUSE,
        K::TIMER_CAPSULE_IS_UPDATE_TIMER,
        K::PROGRESS_CAPSULE_MAX,
        K::PROGRESS_CAPSULE_PROGRESS,
        K::PROGRESS_CAPSULE_INDETERMINATE,
        K::EXTERNAL_DATA_TITLE,
        K::EXTERNAL_DATA_CONTENT,
        K::EXTERNAL_DATA_BACKGROUND_COLOR,
        K::NAVIGATION_LAYOUT_CURRENT_ICON_RES,
        K::NAVIGATION_LAYOUT_CURRENT_ICON,
        K::NAVIGATION_LAYOUT_ICONS_RES,
        K::NAVIGATION_LAYOUT_ICONS,
    };
    return keys;
}

// The element types an Array may be declared with, by the number the format gives them.
const std::vector<AAFwk::InterfaceID>& ArrayTypes() {
    static const std::vector<AAFwk::InterfaceID> types = {
        AAFwk::g_IID_IString, AAFwk::g_IID_IInteger,    AAFwk::g_IID_ILong,  AAFwk::g_IID_IBoolean,
        AAFwk::g_IID_IDouble, AAFwk::g_IID_IWantParams, AAFwk::g_IID_IArray,
    };
    return types;
}

// A picture the host makes from any width, height and format, or null when it refuses them.
std::shared_ptr<Media::PixelMap> ReadPicture(ByteReader& in) {
    Media::InitializationOptions options;
    options.size.width = in.I32();
    options.size.height = in.I32();
    options.pixelFormat = static_cast<Media::PixelFormat>(in.Byte());
    return std::shared_ptr<Media::PixelMap>(Media::PixelMap::Create(options));
}

std::shared_ptr<Media::PixelMap> ReadOptPicture(ByteReader& in) {
    return in.Flag() ? ReadPicture(in) : nullptr;
}

PictureList ReadPictureList(ByteReader& in) {
    PictureList list(in.Byte() % (MAX_ICONS + 1));
    for (auto& picture : list) {
        picture = ReadOptPicture(in);
    }
    return list;
}

std::vector<std::string> ReadTextList(ByteReader& in) {
    std::vector<std::string> list(in.Byte() % (MAX_ICONS + 1));
    for (auto& text : list) {
        text = in.Text();
    }
    return list;
}

RichTextList ReadRichTexts(ByteReader& in) {
    RichTextList list(in.U16() % (MAX_RICH_TEXTS + 1));
    for (auto& run : list) {
        if (in.Flag()) {
            run = std::make_shared<RichText>();
            run->SetText(in.OptText());
            run->SetTextColor(in.OptText());
        }
    }
    return list;
}

std::shared_ptr<WantAgent> ReadOptAgent(ByteReader& in) {
    return in.Flag() ? std::make_shared<WantAgent>(in.Text()) : nullptr;
}

std::string ReadKey(ByteReader& in) {
    const auto& keys = CatalogueKeys();
    const uint8_t index = in.Byte();
    return index < keys.size() ? keys[index] : in.Text();
}

AAFwk::WantParams ReadParams(ByteReader& in, int depth);

sptr<AAFwk::IInterface> ReadValue(ByteReader& in, int depth) {
    switch (static_cast<BoxKind>(in.Byte() % static_cast<uint8_t>(BoxKind::COUNT))) {
        case BoxKind::STRING:
            return AAFwk::String::Box(in.Text());
        case BoxKind::INTEGER:
            return AAFwk::Integer::Box(in.I32());
        case BoxKind::LONG:
            return AAFwk::Long::Box(in.I64());
        case BoxKind::BOOLEAN:
            return AAFwk::Boolean::Box(in.Flag());
        case BoxKind::DOUBLE:
            return AAFwk::Double::Box(in.F64());
        case BoxKind::PARAMS:
            return depth < MAX_PARAMS_DEPTH
                       ? AAFwk::WantParamWrapper::Box(ReadParams(in, depth + 1))
                       : nullptr;
        case BoxKind::ARRAY: {
            const auto& types = ArrayTypes();
            const AAFwk::InterfaceID type = types[in.Byte() % types.size()];
            const long length = in.Byte() % (MAX_ARRAY + 1);
            sptr<AAFwk::Array> array(new AAFwk::Array(length, type));
            for (long i = 0; i < length; ++i) {
                // An element of another type than declared is refused and the slot stays null.
                array->Set(i, depth < MAX_PARAMS_DEPTH ? ReadValue(in, depth + 1) : nullptr);
            }
            return array;
        }
        default:
            return nullptr;
    }
}

AAFwk::WantParams ReadParams(ByteReader& in, int depth) {
    AAFwk::WantParams params;
    const uint8_t count = in.Byte() % (MAX_PARAMS + 1);
    for (uint8_t i = 0; i < count; ++i) {
        const std::string key = ReadKey(in);
        params.SetParam(key, ReadValue(in, depth));
    }
    return params;
}

std::shared_ptr<ExtensionData> ReadExtension(ByteReader& in) {
    auto extension = std::make_shared<ExtensionData>();
    extension->SetParamFailed(in.Text());
    extension->SetType(static_cast<ExtensionData::ExtensionType>(in.I32()));
    extension->SetText(in.OptText());
    extension->SetPicStr(in.OptText());
    extension->SetPic(ReadOptPicture(in));
    extension->SetClickAction(ReadOptAgent(in));
    extension->SetIsCoverClickAction(in.Flag());
    return extension;
}

std::shared_ptr<LayoutData> ReadLayout(ByteReader& in) {
    const auto kind = static_cast<LayoutKind>(in.Byte() % static_cast<uint8_t>(LayoutKind::COUNT));
    std::shared_ptr<LayoutData> layout;
    switch (kind) {
        case LayoutKind::PROGRESS: {
            auto l = std::make_shared<ProgressLayout>();
            l->SetProgress(in.OptI32());
            l->SetColor(in.OptText());
            l->SetBackgroundColor(in.OptText());
            l->SetIndicatorType(in.OptI32());
            l->SetIndicatorIconStr(in.OptText());
            l->SetIndicatorIcon(ReadOptPicture(in));
            l->SetLineType(in.OptI32());
            l->SetNodeIconsStr(ReadTextList(in));
            l->SetNodeIcons(ReadPictureList(in));
            layout = l;
            break;
        }
        case LayoutKind::PICKUP: {
            auto l = std::make_shared<PickupLayout>();
            l->SetTitle(in.OptText());
            l->SetContent(in.OptText());
            l->SetUnderlineColor(in.OptText());
            l->SetDescPicStr(in.OptText());
            l->SetDescPic(ReadOptPicture(in));
            layout = l;
            break;
        }
        case LayoutKind::FLIGHT: {
            auto l = std::make_shared<FlightLayout>();
            l->SetFirstTitle(in.OptText());
            l->SetFirstContent(in.OptText());
            l->SetLastTitle(in.OptText());
            l->SetLastContent(in.OptText());
            l->SetSpaceIconStr(in.OptText());
            l->SetSpaceIcon(ReadOptPicture(in));
            l->SetIsHorizontalLineDisplayed(in.OptBool());
            l->SetAdditionalText(in.OptText());
            layout = l;
            break;
        }
        case LayoutKind::SCORE: {
            auto l = std::make_shared<ScoreLayout>();
            l->SetHostName(in.OptText());
            l->SetHostIconStr(in.OptText());
            l->SetHostIcon(ReadOptPicture(in));
            l->SetHostScore(in.OptText());
            l->SetGuestName(in.OptText());
            l->SetGuestIconStr(in.OptText());
            l->SetGuestIcon(ReadOptPicture(in));
            l->SetGuestScore(in.OptText());
            l->SetCompetitionDesc(in.OptText());
            l->SetCompetitionDescVector(ReadRichTexts(in));
            l->SetCompetitionTime(in.OptText());
            l->SetIsHorizontalLineDisplayed(in.OptBool());
            layout = l;
            break;
        }
        case LayoutKind::NAVIGATION: {
            auto l = std::make_shared<NavigationLayout>();
            l->SetCurrentNavigationIconStr(in.OptText());
            l->SetCurrentNavigationIcon(ReadOptPicture(in));
            l->SetNavigationIconsStr(ReadTextList(in));
            l->SetNavigationIcons(ReadPictureList(in));
            layout = l;
            break;
        }
        default:
            layout = std::make_shared<LayoutData>();
            break;
    }
    layout->SetLayoutType(static_cast<LayoutData::LayoutType>(in.I32()));
    layout->SetParamFailed(in.Text());
    return layout;
}

std::shared_ptr<CapsuleData> ReadCapsule(ByteReader& in) {
    const auto kind =
        static_cast<CapsuleKind>(in.Byte() % static_cast<uint8_t>(CapsuleKind::COUNT));
    std::shared_ptr<CapsuleData> capsule;
    switch (kind) {
        case CapsuleKind::TEXT: {
            auto c = std::make_shared<TextCapsule>();
            c->SetTitle(in.OptText());
            c->SetContent(in.OptText());
            capsule = c;
            break;
        }
        case CapsuleKind::TIMER: {
            auto c = std::make_shared<TimerCapsule>();
            c->SetContent(in.OptText());
            c->SetTime(in.OptI64());
            c->SetIsCountdown(in.OptBool());
            c->SetIsPaused(in.OptBool());
            capsule = c;
            break;
        }
        case CapsuleKind::PROGRESS: {
            auto c = std::make_shared<ProgressCapsule>();
            c->SetMax(in.OptI32());
            c->SetProgress(in.OptI32());
            c->SetIndeterminate(in.OptBool());
            capsule = c;
            break;
        }
        default:
            capsule = std::make_shared<CapsuleData>();
            break;
    }
    capsule->SetType(static_cast<CapsuleData::CapsuleType>(in.I32()));
    capsule->SetStatus(in.OptI32());
    capsule->SetParamFailed(in.Text());
    capsule->SetIconStr(in.OptText());
    capsule->SetIcon(ReadOptPicture(in));
    capsule->SetBackgroundColor(in.OptText());
    return capsule;
}

std::shared_ptr<PrimaryData> ReadPrimary(ByteReader& in) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetParamFailed(in.Text());
    primary->SetTitle(in.OptText());
    primary->SetContent(ReadRichTexts(in));
    primary->SetKeepTime(in.OptI32());
    primary->SetClickAction(ReadOptAgent(in));
    primary->SetImmersivePicStr(in.OptText());
    primary->SetImmersivePic(ReadOptPicture(in));
    primary->SetImmersiveAbilityName(in.OptText());
    primary->SetImmersiveParameters(
        in.Flag() ? std::make_shared<AAFwk::WantParams>(ReadParams(in, 0)) : nullptr);
    primary->SetExtensionData(in.Flag() ? ReadExtension(in) : nullptr);
    primary->SetLayoutData(in.Flag() ? ReadLayout(in) : nullptr);
    return primary;
}

std::shared_ptr<ExternalData> ReadExternal(ByteReader& in) {
    auto external = std::make_shared<ExternalData>();
    external->SetParamFailed(in.Text());
    external->SetTitle(in.OptText());
    external->SetContent(ReadRichTexts(in));
    external->SetBackgroundColor(in.OptText());
    return external;
}

void ReadLiveView(ByteReader& in, LiveView& liveView) {
    liveView.SetParamFailed(in.Text());
    liveView.SetId(in.OptI32());
    liveView.SetEvent(in.Text());
    liveView.SetSequence(in.OptI32());
    liveView.SetIsMute(in.OptBool());
    if (in.Flag()) {
        auto timer = std::make_shared<LiveViewTimer>();
        timer->SetParamFailed(in.Text());
        timer->SetTime(in.OptI64());
        timer->SetIsCountdown(in.OptBool());
        timer->SetIsPaused(in.OptBool());
        liveView.SetTimer(timer);
    }
    if (in.Flag()) {
        auto data = std::make_shared<LiveViewData>();
        data->SetPrimary(in.Flag() ? ReadPrimary(in) : nullptr);
        data->SetCapsule(in.Flag() ? ReadCapsule(in) : nullptr);
        data->SetExternal(in.Flag() ? ReadExternal(in) : nullptr);
        liveView.SetLiveViewData(data);
    }
}

// A request as the service might hand it back, null parts included.
sptr<Notification::NotificationRequest> ReadRequest(ByteReader& in) {
    if (in.Byte() == NULL_REQUEST) {
        return nullptr;
    }
    sptr<Notification::NotificationRequest> request(
        new Notification::NotificationRequest(in.I32()));
    request->SetSlotType(Notification::NotificationConstant::LIVE_VIEW);
    request->SetAutoDeletedTime(in.I64());
    request->SetWantAgent(ReadOptAgent(in));
    const uint8_t buttons = in.Byte() % (MAX_BUTTONS + 1);
    for (uint8_t i = 0; i < buttons; ++i) {
        const std::string title = in.Text();
        const auto agent = ReadOptAgent(in);
        request->AddActionButton(
            Notification::NotificationActionButton::Create(nullptr, title, agent));
    }
    const uint8_t contentMode = in.Byte() % 3;
    if (contentMode == 1) {
        request->SetContent(std::make_shared<Notification::NotificationContent>(nullptr));
    } else if (contentMode == 2) {
        auto content = std::make_shared<Notification::NotificationLiveViewContent>();
        content->SetLiveViewStatus(
            static_cast<Notification::NotificationLiveViewContent::LiveViewStatus>(in.Byte() % 4));
        content->SetVersion(in.U32());
        content->SetSinglePicture(ReadOptPicture(in));
        content->SetIsOnlyLocalUpdate(in.Flag());
        if (in.Flag()) {
            content->SetExtraInfo(std::make_shared<AAFwk::WantParams>(ReadParams(in, 0)));
        }
        Notification::NotificationLiveViewContent::PictureMap pictures;
        const uint8_t keys = in.Byte() % (MAX_PICTURE_KEYS + 1);
        for (uint8_t i = 0; i < keys; ++i) {
            const std::string key = ReadKey(in);
            PictureList& list = pictures[key];
            list.resize(in.Byte() % (MAX_PICTURES + 1));
            for (auto& picture : list) {
                picture = ReadOptPicture(in);
            }
        }
        content->SetPicture(pictures);
        request->SetContent(std::make_shared<Notification::NotificationContent>(content));
    }
    return request;
}

}  // namespace LiveViewFuzz
