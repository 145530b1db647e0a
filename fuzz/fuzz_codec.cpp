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

void WritePicture(ByteWriter& out, const Media::PixelMap& picture) {
    out.I32(picture.GetWidth());
    out.I32(picture.GetHeight());
    out.Byte(static_cast<uint8_t>(picture.GetPixelFormat()));
}

void WriteOptPicture(ByteWriter& out, const std::shared_ptr<Media::PixelMap>& picture) {
    out.Opt(picture, [&out](const Media::PixelMap& p) { WritePicture(out, p); });
}

void WritePictureList(ByteWriter& out, const PictureList& list) {
    const size_t count = std::min<size_t>(list.size(), MAX_ICONS);
    out.Byte(static_cast<uint8_t>(count));
    for (size_t i = 0; i < count; ++i) {
        WriteOptPicture(out, list[i]);
    }
}

void WriteTextList(ByteWriter& out, const std::vector<std::string>& list) {
    const size_t count = std::min<size_t>(list.size(), MAX_ICONS);
    out.Byte(static_cast<uint8_t>(count));
    for (size_t i = 0; i < count; ++i) {
        out.Text(list[i]);
    }
}

void WriteRichTexts(ByteWriter& out, const RichTextList& list) {
    const size_t count = std::min<size_t>(list.size(), MAX_RICH_TEXTS);
    out.U16(static_cast<uint16_t>(count));
    for (size_t i = 0; i < count; ++i) {
        out.Flag(list[i] != nullptr);
        if (list[i] != nullptr) {
            out.OptText(list[i]->GetText());
            out.OptText(list[i]->GetTextColor());
        }
    }
}

void WriteOptAgent(ByteWriter& out, const std::shared_ptr<WantAgent>& agent) {
    out.Opt(agent, [&out](const WantAgent& a) { out.Text(a.GetTarget()); });
}

void WriteKey(ByteWriter& out, const std::string& key) {
    const auto& keys = CatalogueKeys();
    for (size_t i = 0; i < keys.size(); ++i) {
        if (keys[i] == key) {
            out.Byte(static_cast<uint8_t>(i));
            return;
        }
    }
    out.Byte(OTHER_KEY);
    out.Text(key);
}

void WriteParams(ByteWriter& out, const AAFwk::WantParams& params);

void WriteValue(ByteWriter& out, const sptr<AAFwk::IInterface>& value) {
    if (auto* text = AAFwk::IString::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::STRING));
        out.Text(AAFwk::String::Unbox(text));
    } else if (auto* number = AAFwk::IInteger::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::INTEGER));
        out.I32(AAFwk::Integer::Unbox(number));
    } else if (auto* time = AAFwk::ILong::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::LONG));
        out.I64(AAFwk::Long::Unbox(time));
    } else if (auto* flag = AAFwk::IBoolean::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::BOOLEAN));
        out.Flag(AAFwk::Boolean::Unbox(flag));
    } else if (auto* real = AAFwk::IDouble::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::DOUBLE));
        out.F64(AAFwk::Double::Unbox(real));
    } else if (auto* nested = AAFwk::IWantParams::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::PARAMS));
        WriteParams(out, AAFwk::WantParamWrapper::Unbox(nested));
    } else if (auto* array = AAFwk::IArray::Query(value)) {
        out.Byte(static_cast<uint8_t>(BoxKind::ARRAY));
        AAFwk::InterfaceID type{0};
        array->GetType(type);
        const auto& types = ArrayTypes();
        uint8_t typeIndex = 0;
        for (size_t i = 0; i < types.size(); ++i) {
            if (types[i] == type) {
                typeIndex = static_cast<uint8_t>(i);
            }
        }
        out.Byte(typeIndex);
        long length = 0;
        array->GetLength(length);
        const long count = std::min<long>(length, MAX_ARRAY);
        out.Byte(static_cast<uint8_t>(count));
        for (long i = 0; i < count; ++i) {
            sptr<AAFwk::IInterface> element;
            array->Get(i, element);
            WriteValue(out, element);
        }
    } else {
        out.Byte(static_cast<uint8_t>(BoxKind::NONE));
    }
}

void WriteParams(ByteWriter& out, const AAFwk::WantParams& params) {
    const size_t count = std::min<size_t>(params.GetParams().size(), MAX_PARAMS);
    out.Byte(static_cast<uint8_t>(count));
    size_t written = 0;
    for (const auto& [key, value] : params.GetParams()) {
        if (written++ == count) {
            break;
        }
        WriteKey(out, key);
        WriteValue(out, value);
    }
}

void WriteExtension(ByteWriter& out, const ExtensionData& extension) {
    out.Text(extension.GetParamFailed());
    out.I32(extension.GetType());
    out.OptText(extension.GetText());
    out.OptText(extension.GetPicStr());
    WriteOptPicture(out, extension.GetPic());
    WriteOptAgent(out, extension.GetClickAction());
    out.Flag(extension.GetIsCoverClickAction());
}

void WriteLayout(ByteWriter& out, const std::shared_ptr<LayoutData>& layout) {
    if (const auto l = AsProgressLayout(layout)) {
        out.Byte(static_cast<uint8_t>(LayoutKind::PROGRESS));
        out.OptI32(l->GetProgress());
        out.OptText(l->GetColor());
        out.OptText(l->GetBackgroundColor());
        out.OptI32(l->GetIndicatorType());
        out.OptText(l->GetIndicatorIconStr());
        WriteOptPicture(out, l->GetIndicatorIcon());
        out.OptI32(l->GetLineType());
        WriteTextList(out, l->GetNodeIconsStr());
        WritePictureList(out, l->GetNodeIcons());
    } else if (const auto p = AsPickupLayout(layout)) {
        out.Byte(static_cast<uint8_t>(LayoutKind::PICKUP));
        out.OptText(p->GetTitle());
        out.OptText(p->GetContent());
        out.OptText(p->GetUnderlineColor());
        out.OptText(p->GetDescPicStr());
        WriteOptPicture(out, p->GetDescPic());
    } else if (const auto f = AsFlightLayout(layout)) {
        out.Byte(static_cast<uint8_t>(LayoutKind::FLIGHT));
        out.OptText(f->GetFirstTitle());
        out.OptText(f->GetFirstContent());
        out.OptText(f->GetLastTitle());
        out.OptText(f->GetLastContent());
        out.OptText(f->GetSpaceIconStr());
        WriteOptPicture(out, f->GetSpaceIcon());
        out.OptBool(f->GetIsHorizontalLineDisplayed());
        out.OptText(f->GetAdditionalText());
    } else if (const auto s = AsScoreLayout(layout)) {
        out.Byte(static_cast<uint8_t>(LayoutKind::SCORE));
        out.OptText(s->GetHostName());
        out.OptText(s->GetHostIconStr());
        WriteOptPicture(out, s->GetHostIcon());
        out.OptText(s->GetHostScore());
        out.OptText(s->GetGuestName());
        out.OptText(s->GetGuestIconStr());
        WriteOptPicture(out, s->GetGuestIcon());
        out.OptText(s->GetGuestScore());
        out.OptText(s->GetCompetitionDesc());
        WriteRichTexts(out, s->GetCompetitionDescVector());
        out.OptText(s->GetCompetitionTime());
        out.OptBool(s->GetIsHorizontalLineDisplayed());
    } else if (const auto n = AsNavigationLayout(layout)) {
        out.Byte(static_cast<uint8_t>(LayoutKind::NAVIGATION));
        out.OptText(n->GetCurrentNavigationIconStr());
        WriteOptPicture(out, n->GetCurrentNavigationIcon());
        WriteTextList(out, n->GetNavigationIconsStr());
        WritePictureList(out, n->GetNavigationIcons());
    } else {
        out.Byte(static_cast<uint8_t>(LayoutKind::BASE));
    }
    out.I32(layout->GetLayoutType());
    out.Text(layout->GetParamFailed());
}

void WriteCapsule(ByteWriter& out, const std::shared_ptr<CapsuleData>& capsule) {
    if (const auto t = AsTextCapsule(capsule)) {
        out.Byte(static_cast<uint8_t>(CapsuleKind::TEXT));
        out.OptText(t->GetTitle());
        out.OptText(t->GetContent());
    } else if (const auto m = AsTimerCapsule(capsule)) {
        out.Byte(static_cast<uint8_t>(CapsuleKind::TIMER));
        out.OptText(m->GetContent());
        out.OptI64(m->GetTime());
        out.OptBool(m->GetIsCountdown());
        out.OptBool(m->GetIsPaused());
    } else if (const auto p = AsProgressCapsule(capsule)) {
        out.Byte(static_cast<uint8_t>(CapsuleKind::PROGRESS));
        out.OptI32(p->GetMax());
        out.OptI32(p->GetProgress());
        out.OptBool(p->GetIndeterminate());
    } else {
        out.Byte(static_cast<uint8_t>(CapsuleKind::BASE));
    }
    out.I32(capsule->GetType());
    out.OptI32(capsule->GetStatus());
    out.Text(capsule->GetParamFailed());
    out.OptText(capsule->GetIconStr());
    WriteOptPicture(out, capsule->GetIcon());
    out.OptText(capsule->GetBackgroundColor());
}

void WritePrimary(ByteWriter& out, const PrimaryData& primary) {
    out.Text(primary.GetParamFailed());
    out.OptText(primary.GetTitle());
    WriteRichTexts(out, primary.GetContent());
    out.OptI32(primary.GetKeepTime());
    WriteOptAgent(out, primary.GetClickAction());
    out.OptText(primary.GetImmersivePicStr());
    WriteOptPicture(out, primary.GetImmersivePic());
    out.OptText(primary.GetImmersiveAbilityName());
    out.Opt(primary.GetImmersiveParameters(),
            [&out](const AAFwk::WantParams& p) { WriteParams(out, p); });
    out.Opt(primary.GetExtensionData(), [&out](const ExtensionData& e) { WriteExtension(out, e); });
    out.Flag(primary.GetLayoutData() != nullptr);
    if (primary.GetLayoutData() != nullptr) {
        WriteLayout(out, primary.GetLayoutData());
    }
}

void WriteExternal(ByteWriter& out, const ExternalData& external) {
    out.Text(external.GetParamFailed());
    out.OptText(external.GetTitle());
    WriteRichTexts(out, external.GetContent());
    out.OptText(external.GetBackgroundColor());
}

void WriteLiveView(ByteWriter& out, const LiveView& liveView) {
    out.Text(liveView.GetParamFailed());
    out.OptI32(liveView.GetId());
    out.Text(liveView.GetEvent());
    out.OptI32(liveView.GetSequence());
    out.OptBool(liveView.GetIsMute());
    out.Opt(liveView.GetTimer(), [&out](const LiveViewTimer& timer) {
        out.Text(timer.GetParamFailed());
        out.OptI64(timer.GetTime());
        out.OptBool(timer.GetIsCountdown());
        out.OptBool(timer.GetIsPaused());
    });
    out.Opt(liveView.GetLiveViewData(), [&out](const LiveViewData& data) {
        out.Opt(data.GetPrimary(),
                [&out](const PrimaryData& primary) { WritePrimary(out, primary); });
        out.Flag(data.GetCapsule() != nullptr);
        if (data.GetCapsule() != nullptr) {
            WriteCapsule(out, data.GetCapsule());
        }
        out.Opt(data.GetExternal(),
                [&out](const ExternalData& external) { WriteExternal(out, external); });
    });
}

void WriteRequest(ByteWriter& out, const sptr<Notification::NotificationRequest>& request) {
    if (request == nullptr) {
        out.Byte(NULL_REQUEST);
        return;
    }
    out.Byte(0);
    out.I32(request->GetNotificationId());
    out.I64(request->GetAutoDeletedTime());
    WriteOptAgent(out, request->GetWantAgent());
    const auto buttons = request->GetActionButtons();
    const size_t buttonCount = std::min<size_t>(buttons.size(), MAX_BUTTONS);
    out.Byte(static_cast<uint8_t>(buttonCount));
    for (size_t i = 0; i < buttonCount; ++i) {
        out.Text(buttons[i]->GetTitle());
        WriteOptAgent(out, buttons[i]->GetWantAgent());
    }
    const auto holder = request->GetContent();
    const auto content = LiveViewContentOf(*request);
    if (content == nullptr) {
        out.Byte(holder == nullptr ? 0 : 1);
        return;
    }
    out.Byte(2);
    out.Byte(static_cast<uint8_t>(content->GetLiveViewStatus()));
    out.U32(content->GetVersion());
    WriteOptPicture(out, content->GetSinglePicture());
    out.Flag(content->GetIsOnlyLocalUpdate());
    out.Opt(content->GetExtraInfo(), [&out](const AAFwk::WantParams& p) { WriteParams(out, p); });
    const auto pictures = content->GetPicture();
    const size_t keyCount = std::min<size_t>(pictures.size(), MAX_PICTURE_KEYS);
    out.Byte(static_cast<uint8_t>(keyCount));
    size_t written = 0;
    for (const auto& [key, list] : pictures) {
        if (written++ == keyCount) {
            break;
        }
        WriteKey(out, key);
        const size_t count = std::min<size_t>(list.size(), MAX_PICTURES);
        out.Byte(static_cast<uint8_t>(count));
        for (size_t i = 0; i < count; ++i) {
            WriteOptPicture(out, list[i]);
        }
    }
}

}  // namespace LiveViewFuzz
