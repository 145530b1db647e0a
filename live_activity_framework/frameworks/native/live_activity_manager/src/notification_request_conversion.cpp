#include "notification_request_conversion.h"

#include <cjson/cJSON.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "array_wrapper.h"
#include "base_obj.h"
#include "error_code.h"
#include "flight_layout.h"
#include "live_view_constant.h"
#include "live_view_content_of.h"
#include "live_view_logger.h"
#include "log_template.h"
#include "navigation_layout.h"
#include "notification_content.h"
#include "notification_live_view_content.h"
#include "pickup_layout.h"
#include "pixel_map.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "rich_text.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"
#include "want_box.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

using AAFwk::WantParams;
using Keys = LiveViewConstant;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using PictureList = std::vector<std::shared_ptr<Media::PixelMap>>;
using PictureMap = std::map<std::string, PictureList>;
using RichTextList = std::vector<std::shared_ptr<RichText>>;

const char* const SOURCE_PATH =
    "live_activity_framework/frameworks/native/live_activity_manager/src/"
    "notification_request_conversion";

// The content version that the service reports when none was set.
constexpr uint32_t UNSET_VERSION = 0xFFFFFFFF;
// The low 32 bits of the service's auto-deleted time -1, which means "not set".
constexpr uint32_t UNSET_KEEP_TIME = 0xFFFFFFFF;
// Rich-text JSON comes from outside the process. cJSON accepts 1000 levels and frees a tree
// recursively, so deeper text is refused before cJSON sees it.
constexpr int MAX_JSON_DEPTH = 64;

LogTemplate Where(const char* func, unsigned int line) {
    return LogTemplate(LOGGER_HILOG, SOURCE_PATH, func, line);
}

// Stores the value under key into object as a new shared value, the empty string included.
template <typename T, typename Object, typename Owner>
void ReadInto(const WantParams& params, const std::string& key, Object& object,
              void (Owner::*setter)(const std::shared_ptr<T>&)) {
    ReadParam<T>(params, key,
                 [&](T value) { (object.*setter)(std::make_shared<T>(std::move(value))); });
}

// A resource string is stored only when it is not empty: the empty string marks a picture that
// travels in the picture map instead.
template <typename Object, typename Owner>
void ReadResource(const WantParams& params, const std::string& key, Object& object,
                  void (Owner::*setter)(const std::shared_ptr<std::string>&)) {
    ReadParam<std::string>(params, key, [&](std::string value) {
        if (!value.empty()) {
            (object.*setter)(std::make_shared<std::string>(std::move(value)));
        }
    });
}

// The first picture under key, when the map holds a non-empty list there; later ones are ignored.
template <typename Object, typename Owner>
void ReadPicture(const PictureMap& pictures, const std::string& key, Object& object,
                 void (Owner::*setter)(const std::shared_ptr<Media::PixelMap>&)) {
    const auto found = pictures.find(key);
    if (found != pictures.end() && !found->second.empty()) {
        (object.*setter)(found->second.front());
    }
}

// Both halves of a picture pair, read independently of each other.
template <typename Object, typename Owner>
void ReadPicturePair(const PictureMap& pictures, const WantParams& params,
                     const std::string& pictureKey, const std::string& resourceKey, Object& object,
                     void (Owner::*pictureSetter)(const std::shared_ptr<Media::PixelMap>&),
                     void (Owner::*resourceSetter)(const std::shared_ptr<std::string>&)) {
    ReadPicture(pictures, pictureKey, object, pictureSetter);
    ReadResource(params, resourceKey, object, resourceSetter);
}

// The whole list under key replaces the object's list, in its order.
template <typename Object, typename Owner>
void ReadPictureList(const PictureMap& pictures, const std::string& key, Object& object,
                     void (Owner::*setter)(const PictureList&)) {
    const auto found = pictures.find(key);
    if (found != pictures.end()) {
        (object.*setter)(found->second);
    }
}

// The value under key must be an array declared to hold strings; its elements, in order, replace
// the object's list.
template <typename Object, typename Owner>
void ReadStringList(const WantParams& params, const std::string& key, Object& object,
                    void (Owner::*setter)(const std::vector<std::string>&)) {
    WithParam<AAFwk::IArray>(params, key, [&](const AAFwk::IArray& array) {
        if (!AAFwk::Array::IsStringArray(&array)) {
            return;
        }
        long length = 0;
        array.GetLength(length);
        std::vector<std::string> list;
        for (long index = 0; index < length; ++index) {
            sptr<AAFwk::IInterface> element;
            array.Get(index, element);
            list.push_back(AAFwk::String::Unbox(AAFwk::IString::Query(element)));
        }
        (object.*setter)(list);
    });
}

// True when brackets outside JSON strings nest deeper than MAX_JSON_DEPTH.
bool NestsTooDeep(const std::string& json) {
    int depth = 0;
    bool inString = false;
    bool escaped = false;
    for (const char c : json) {
        if (inString) {
            if (escaped) {
                escaped = false;
            } else if (c == '\\') {
                escaped = true;
            } else if (c == '"') {
                inString = false;
            }
            continue;
        }
        if (c == '"') {
            inString = true;
        } else if (c == '[' || c == '{') {
            if (++depth > MAX_JSON_DEPTH) {
                return true;
            }
        } else if ((c == ']' || c == '}') && depth > 0) {
            --depth;
        }
    }
    return false;
}

// The member's text when the member (looked up ignoring case) is a JSON string, else null.
std::shared_ptr<std::string> StringMember(const cJSON* object, const char* name) {
    const cJSON* member = cJSON_GetObjectItem(object, name);
    if (!cJSON_IsString(member) || member->valuestring == nullptr) {
        return nullptr;
    }
    return std::make_shared<std::string>(member->valuestring);
}

// Appends one item per array element of the rich-text JSON to content; a non-object element or
// an object without "text" and "textColor" gives an empty item.
BaseRsp ParseContentJson(const std::string& json, RichTextList& content) {
    cJSON* root = NestsTooDeep(json) ? nullptr : cJSON_ParseWithLength(json.data(), json.size());
    if (root == nullptr) {
        return BaseRsp(ERR_INTERNAL, Where("ParseContentJson", 98), "Failed to parse json string.");
    }
    if (!cJSON_IsArray(root)) {
        cJSON_Delete(root);
        return BaseRsp(ERR_INTERNAL, Where("ParseContentJson", 103),
                       "The json object is not array.");
    }
    const cJSON* element = nullptr;
    cJSON_ArrayForEach(element, root) {
        auto item = std::make_shared<RichText>();
        if (cJSON_IsObject(element)) {
            item->SetText(StringMember(element, "text"));
            item->SetTextColor(StringMember(element, "textColor"));
        } else {
            LV_LOGW_FN(108, "ParseContentJson", "The element is not object.");
        }
        content.push_back(item);
    }
    cJSON_Delete(root);
    return BaseRsp();
}

// The rich-text list under key, stored only when it parses; a failure is logged by the parser.
template <typename Object, typename Owner>
void ReadRichText(const WantParams& params, const std::string& key, Object& object,
                  void (Owner::*setter)(const RichTextList&)) {
    ReadParam<std::string>(params, key, [&](const std::string& json) {
        RichTextList list;
        if (ParseContentJson(json, list).Succeed()) {
            (object.*setter)(list);
        }
    });
}

// The row of rows whose type is stored under key, or null when the key is absent or no row has
// that type. A null value or a value of another box type counts as type 0.
template <typename Row, size_t N>
const Row* FindKind(const Row (&rows)[N], const WantParams& params, const std::string& key) {
    if (!params.HasParam(key)) {
        return nullptr;
    }
    int type = 0;
    ReadParam<int>(params, key, [&type](int value) { type = value; });
    for (const Row& row : rows) {
        if (row.type == type) {
            return &row;
        }
    }
    return nullptr;
}

std::shared_ptr<LayoutData> ReadBareLayout(const WantParams&, const PictureMap&) {
    return std::make_shared<LayoutData>();
}

std::shared_ptr<LayoutData> ReadProgressLayout(const WantParams& extraInfo,
                                               const PictureMap& pictures) {
    auto layout = std::make_shared<ProgressLayout>();
    ReadInto(extraInfo, Keys::PROGRESS_LAYOUT_PROGERESS, *layout, &ProgressLayout::SetProgress);
    ReadInto(extraInfo, Keys::PROGRESS_LAYOUT_COLOR, *layout, &ProgressLayout::SetColor);
    ReadInto(extraInfo, Keys::PROGRESS_LAYOUT_BACKGROUND_COLOR, *layout,
             &ProgressLayout::SetBackgroundColor);
    ReadInto(extraInfo, Keys::PROGRESS_LAYOUT_INDICATOR_TYPE, *layout,
             &ProgressLayout::SetIndicatorType);
    ReadPicturePair(pictures, extraInfo, Keys::PROGRESS_LAYOUT_INDICATOR_ICON,
                    Keys::PROGRESS_LAYOUT_INDICATOR_ICON_RES, *layout,
                    &ProgressLayout::SetIndicatorIcon, &ProgressLayout::SetIndicatorIconStr);
    // Deliberately into the indicator type, overriding the value read above: readers of this
    // record rely on it, and the line type itself is never read back.
    ReadInto(extraInfo, Keys::PROGRESS_LAYOUT_LINE_TYPE, *layout,
             &ProgressLayout::SetIndicatorType);
    ReadPictureList(pictures, Keys::PROGRESS_LAYOUT_NODE_ICONS, *layout,
                    &ProgressLayout::SetNodeIcons);
    ReadStringList(extraInfo, Keys::PROGRESS_LAYOUT_NODE_ICONS_RES, *layout,
                   &ProgressLayout::SetNodeIconsStr);
    return layout;
}

std::shared_ptr<LayoutData> ReadPickupLayout(const WantParams& extraInfo,
                                             const PictureMap& pictures) {
    auto layout = std::make_shared<PickupLayout>();
    ReadInto(extraInfo, Keys::PICKUP_LAYOUT_TITLE, *layout, &PickupLayout::SetTitle);
    ReadInto(extraInfo, Keys::PICKUP_LAYOUT_CONTENT, *layout, &PickupLayout::SetContent);
    ReadInto(extraInfo, Keys::PICKUP_LAYOUT_UNDERLINE_COLOR, *layout,
             &PickupLayout::SetUnderlineColor);
    ReadPicturePair(pictures, extraInfo, Keys::PICKUP_LAYOUT_DESC_PIC,
                    Keys::PICKUP_LAYOUT_DESC_PIC_RES, *layout, &PickupLayout::SetDescPic,
                    &PickupLayout::SetDescPicStr);
    return layout;
}

std::shared_ptr<LayoutData> ReadFlightLayout(const WantParams& extraInfo,
                                             const PictureMap& pictures) {
    auto layout = std::make_shared<FlightLayout>();
    ReadInto(extraInfo, Keys::FLIGHT_LAYOUT_FIRST_TITLE, *layout, &FlightLayout::SetFirstTitle);
    ReadInto(extraInfo, Keys::FLIGHT_LAYOUT_FIRST_CONTENT, *layout, &FlightLayout::SetFirstContent);
    ReadInto(extraInfo, Keys::FLIGHT_LAYOUT_LAST_TITLE, *layout, &FlightLayout::SetLastTitle);
    ReadInto(extraInfo, Keys::FLIGHT_LAYOUT_LAST_CONTENT, *layout, &FlightLayout::SetLastContent);
    ReadPicturePair(pictures, extraInfo, Keys::FLIGHT_LAYOUT_SPACE_ICON,
                    Keys::FLIGHT_LAYOUT_SPACE_ICON_RES, *layout, &FlightLayout::SetSpaceIcon,
                    &FlightLayout::SetSpaceIconStr);
    ReadInto(extraInfo, Keys::FLIGHT_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE, *layout,
             &FlightLayout::SetIsHorizontalLineDisplayed);
    ReadInto(extraInfo, Keys::FLIGHT_LAYOUT_ADDITIONAL_TEXT, *layout,
             &FlightLayout::SetAdditionalText);
    return layout;
}

std::shared_ptr<LayoutData> ReadScoreLayout(const WantParams& extraInfo,
                                            const PictureMap& pictures) {
    auto layout = std::make_shared<ScoreLayout>();
    ReadInto(extraInfo, Keys::SCORE_LAYOUT_HOST_NAME, *layout, &ScoreLayout::SetHostName);
    ReadInto(extraInfo, Keys::SCORE_LAYOUT_HOST_SCORE, *layout, &ScoreLayout::SetHostScore);
    ReadInto(extraInfo, Keys::SCORE_LAYOUT_COMPETITION_TIME, *layout,
             &ScoreLayout::SetCompetitionTime);
    // Deliberately into the rich-text list: the plain description string stays unset.
    ReadRichText(extraInfo, Keys::SCORE_LAYOUT_COMPETITION_DESC, *layout,
                 &ScoreLayout::SetCompetitionDescVector);
    ReadInto(extraInfo, Keys::SCORE_LAYOUT_GUEST_NAME, *layout, &ScoreLayout::SetGuestName);
    ReadInto(extraInfo, Keys::SCORE_LAYOUT_GUEST_SCORE, *layout, &ScoreLayout::SetGuestScore);
    ReadInto(extraInfo, Keys::SCORE_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE, *layout,
             &ScoreLayout::SetIsHorizontalLineDisplayed);
    ReadPicturePair(pictures, extraInfo, Keys::SCORE_LAYOUT_HOST_ICON,
                    Keys::SCORE_LAYOUT_HOST_ICON_RES, *layout, &ScoreLayout::SetHostIcon,
                    &ScoreLayout::SetHostIconStr);
    ReadPicturePair(pictures, extraInfo, Keys::SCORE_LAYOUT_GUEST_ICON,
                    Keys::SCORE_LAYOUT_GUEST_ICON_RES, *layout, &ScoreLayout::SetGuestIcon,
                    &ScoreLayout::SetGuestIconStr);
    return layout;
}

std::shared_ptr<LayoutData> ReadNavigationLayout(const WantParams& extraInfo,
                                                 const PictureMap& pictures) {
    auto layout = std::make_shared<NavigationLayout>();
    ReadPicturePair(pictures, extraInfo, Keys::NAVIGATION_LAYOUT_CURRENT_ICON,
                    Keys::NAVIGATION_LAYOUT_CURRENT_ICON_RES, *layout,
                    &NavigationLayout::SetCurrentNavigationIcon,
                    &NavigationLayout::SetCurrentNavigationIconStr);
    ReadPictureList(pictures, Keys::NAVIGATION_LAYOUT_ICONS, *layout,
                    &NavigationLayout::SetNavigationIcons);
    ReadStringList(extraInfo, Keys::NAVIGATION_LAYOUT_ICONS_RES, *layout,
                   &NavigationLayout::SetNavigationIconsStr);
    return layout;
}

struct LayoutKind {
    LayoutData::LayoutType type;
    // Makes the kind's object and reads its own fields.
    std::shared_ptr<LayoutData> (*read)(const WantParams&, const PictureMap&);
};

// Type 6 is absent on purpose: it reads back as no layout at all.
constexpr LayoutKind LAYOUT_KINDS[] = {
    {LayoutData::LAYOUT_TYPE_NONE, ReadBareLayout}, {LayoutData::PROGRESS, ReadProgressLayout},
    {LayoutData::PICKUP, ReadPickupLayout},         {LayoutData::FLIGHT, ReadFlightLayout},
    {LayoutData::SCORE, ReadScoreLayout},           {LayoutData::NAVIGATION, ReadNavigationLayout},
};

std::shared_ptr<CapsuleData> ReadTextCapsule(const WantParams& extraInfo) {
    auto capsule = std::make_shared<TextCapsule>();
    ReadInto(extraInfo, Keys::TEXT_CAPSULE_TITLE, *capsule, &TextCapsule::SetTitle);
    ReadInto(extraInfo, Keys::TEXT_CAPSULE_CONTENT, *capsule, &TextCapsule::SetContent);
    return capsule;
}

std::shared_ptr<CapsuleData> ReadTimerCapsule(const WantParams& extraInfo) {
    auto capsule = std::make_shared<TimerCapsule>();
    ReadInto(extraInfo, Keys::TIMER_CAPSULE_CONTENT, *capsule, &TimerCapsule::SetContent);
    ReadInto(extraInfo, Keys::TIMER_CAPSULE_INITIALTIME, *capsule, &TimerCapsule::SetTime);
    ReadInto(extraInfo, Keys::TIMER_CAPSULE_IS_CONTDOWN, *capsule, &TimerCapsule::SetIsCountdown);
    ReadInto(extraInfo, Keys::TIMER_CAPSULE_IS_PAUSE, *capsule, &TimerCapsule::SetIsPaused);
    return capsule;
}

std::shared_ptr<CapsuleData> ReadProgressCapsule(const WantParams& extraInfo) {
    auto capsule = std::make_shared<ProgressCapsule>();
    ReadInto(extraInfo, Keys::PROGRESS_CAPSULE_MAX, *capsule, &ProgressCapsule::SetMax);
    ReadInto(extraInfo, Keys::PROGRESS_CAPSULE_PROGRESS, *capsule, &ProgressCapsule::SetProgress);
    ReadInto(extraInfo, Keys::PROGRESS_CAPSULE_INDETERMINATE, *capsule,
             &ProgressCapsule::SetIndeterminate);
    return capsule;
}

struct CapsuleKind {
    CapsuleData::CapsuleType type;
    // Makes the kind's object and reads its own fields.
    std::shared_ptr<CapsuleData> (*read)(const WantParams&);
};

constexpr CapsuleKind CAPSULE_KINDS[] = {
    {CapsuleData::TEXT, ReadTextCapsule},
    {CapsuleData::TIMER, ReadTimerCapsule},
    {CapsuleData::PROGRESS, ReadProgressCapsule},
};

BaseRsp LayoutDataParamConversion(const std::shared_ptr<NotificationLiveViewContent>& content,
                                  const std::shared_ptr<WantParams>& extraInfo,
                                  LiveView& liveView) {
    const LayoutKind* kind = FindKind(LAYOUT_KINDS, *extraInfo, Keys::LAYOUT_DATA_LAYOUT_TYPE);
    if (kind == nullptr) {
        return BaseRsp();
    }
    const std::shared_ptr<LayoutData> layout = kind->read(*extraInfo, content->GetPicture());
    layout->SetLayoutType(kind->type);
    const std::shared_ptr<PrimaryData> primary = LiveView::GetPrimaryData(liveView);
    if (primary != nullptr) {
        primary->SetLayoutData(layout);
    }
    return BaseRsp();
}

BaseRsp CommonCapsuleDataParamConversion(
    const std::shared_ptr<NotificationLiveViewContent>& content,
    const std::shared_ptr<WantParams>& extraInfo, std::shared_ptr<CapsuleData> capsule,
    LiveView& /* liveView */) {
    ReadInto(*extraInfo, Keys::CAPSULE_DATA_STATUS, *capsule, &CapsuleData::SetStatus);
    ReadPicturePair(content->GetPicture(), *extraInfo, Keys::CAPSULE_DATA_ICON,
                    Keys::CAPSULE_DATA_ICON_RES, *capsule, &CapsuleData::SetIcon,
                    &CapsuleData::SetIconStr);
    ReadInto(*extraInfo, Keys::CAPSULE_DATA_BACKGROUND_COLOR, *capsule,
             &CapsuleData::SetBackgroundColor);
    return BaseRsp();
}

BaseRsp CapsuleDataParamConversion(const std::shared_ptr<NotificationLiveViewContent>& content,
                                   const std::shared_ptr<WantParams>& extraInfo,
                                   LiveView& liveView) {
    const CapsuleKind* kind = FindKind(CAPSULE_KINDS, *extraInfo, Keys::CAPSULE_DATA_TYPE);
    if (kind == nullptr) {
        return BaseRsp();
    }
    const std::shared_ptr<CapsuleData> capsule = kind->read(*extraInfo);
    const BaseRsp common = CommonCapsuleDataParamConversion(content, extraInfo, capsule, liveView);
    if (!common.Succeed()) {
        return common;
    }
    capsule->SetType(kind->type);
    const std::shared_ptr<LiveViewData> data = liveView.GetLiveViewData();
    if (data != nullptr) {
        data->SetCapsule(capsule);
    }
    return BaseRsp();
}

BaseRsp CommonDataParamConversion(const NotificationRequest& request,
                                  const NotificationLiveViewContent& content,
                                  const WantParams& extraInfo, LiveView& liveView) {
    liveView.SetId(std::make_shared<int>(request.GetNotificationId()));
    ReadParam<std::string>(extraInfo, Keys::EVENT,
                           [&liveView](const std::string& event) { liveView.SetEvent(event); });
    const uint32_t version = content.GetVersion();
    if (version != UNSET_VERSION) {
        liveView.SetSequence(std::make_shared<int>(static_cast<int>(version)));
    }
    ReadInto(extraInfo, Keys::IS_MUTE, liveView, &LiveView::SetIsMute);
    liveView.SetLiveViewData(std::make_shared<LiveViewData>());
    return BaseRsp();
}

BaseRsp TimerDataParamConversion(const WantParams& extraInfo, LiveView& liveView) {
    auto timer = std::make_shared<LiveViewTimer>();
    ReadInto(extraInfo, Keys::LIVE_VIEW_TIMER_TIME, *timer, &LiveViewTimer::SetTime);
    ReadInto(extraInfo, Keys::LIVE_VIEW_TIMER_ISCOUNTDOWN, *timer, &LiveViewTimer::SetIsCountdown);
    ReadInto(extraInfo, Keys::LIVE_VIEW_TIMER_ISPAUSED, *timer, &LiveViewTimer::SetIsPaused);
    liveView.SetTimer(timer);
    return BaseRsp();
}

BaseRsp PrimaryDataParamConversion(const NotificationRequest& request,
                                   const NotificationLiveViewContent& content,
                                   const WantParams& extraInfo, LiveView& liveView) {
    auto primary = std::make_shared<PrimaryData>();
    ReadInto(extraInfo, Keys::PRIMARY_DATA_TITLE, *primary, &PrimaryData::SetTitle);
    ReadRichText(extraInfo, Keys::PRIMARY_DATA_CONTENT, *primary, &PrimaryData::SetContent);
    // Only the low 32 bits carry the keep time that the stop operation stored.
    const auto keepTime =
        static_cast<uint32_t>(static_cast<uint64_t>(request.GetAutoDeletedTime()));
    if (keepTime != UNSET_KEEP_TIME) {
        primary->SetKeepTime(std::make_shared<int>(static_cast<int>(keepTime)));
    }
    const auto clickAction = request.GetWantAgent();
    if (clickAction != nullptr) {
        primary->SetClickAction(clickAction);
    }
    const std::shared_ptr<Media::PixelMap> immersivePic = content.GetSinglePicture();
    if (immersivePic != nullptr) {
        primary->SetImmersivePic(immersivePic);
    }
    ReadResource(extraInfo, Keys::PRIMARY_DATA_IMMERSIVEPIC_RES, *primary,
                 &PrimaryData::SetImmersivePicStr);
    ReadInto(extraInfo, Keys::PRIMARY_DATA_IMMERSIVEPIC_ABILITY_NAME, *primary,
             &PrimaryData::SetImmersiveAbilityName);
    ReadInto(extraInfo, Keys::PRIMARY_DATA_IMMERSIVEPIC_PARAMETERS, *primary,
             &PrimaryData::SetImmersiveParameters);
    const std::shared_ptr<LiveViewData> data = liveView.GetLiveViewData();
    if (data != nullptr) {
        data->SetPrimary(primary);
    }
    return BaseRsp();
}

BaseRsp ExtendDataParamConversion(const NotificationRequest& request,
                                  const NotificationLiveViewContent& content, LiveView& liveView) {
    const std::shared_ptr<WantParams> extraInfo = content.GetExtraInfo();
    if (extraInfo == nullptr) {
        return BaseRsp(ERR_INTERNAL, Where("ExtendDataParamConversion", 213),
                       "The liveViewExtraInfo is nullptr.");
    }
    if (!extraInfo->HasParam(Keys::EXTEND_DATA_TYPE)) {
        return BaseRsp();
    }
    auto extension = std::make_shared<ExtensionData>();
    ReadParam<int>(*extraInfo, Keys::EXTEND_DATA_TYPE, [&extension](int type) {
        extension->SetType(static_cast<ExtensionData::ExtensionType>(type));
    });
    ReadInto(*extraInfo, Keys::EXTEND_DATA_TEXT, *extension, &ExtensionData::SetText);
    ReadPicturePair(content.GetPicture(), *extraInfo, Keys::EXTEND_DATA_PIC,
                    Keys::EXTEND_DATA_PIC_RES, *extension, &ExtensionData::SetPic,
                    &ExtensionData::SetPicStr);
    const auto buttons = request.GetActionButtons();
    if (!buttons.empty()) {
        const auto& first = buttons.front();
        extension->SetClickAction(first == nullptr ? nullptr : first->GetWantAgent());
    }
    const std::shared_ptr<PrimaryData> primary = LiveView::GetPrimaryData(liveView);
    if (primary != nullptr) {
        primary->SetExtensionData(extension);
    }
    return BaseRsp();
}

BaseRsp ExternalDataParamConversion(const WantParams& extraInfo, LiveView& liveView) {
    auto external = std::make_shared<ExternalData>();
    ReadInto(extraInfo, Keys::EXTERNAL_DATA_TITLE, *external, &ExternalData::SetTitle);
    ReadRichText(extraInfo, Keys::EXTERNAL_DATA_CONTENT, *external, &ExternalData::SetContent);
    ReadInto(extraInfo, Keys::EXTERNAL_DATA_BACKGROUND_COLOR, *external,
             &ExternalData::SetBackgroundColor);
    const std::shared_ptr<LiveViewData> data = liveView.GetLiveViewData();
    if (data != nullptr) {
        data->SetExternal(external);
    }
    return BaseRsp();
}

}  // namespace

BaseRsp NotificationRequestConversion::ConvertToLiveView(
    const Tavi::sptr<Tavi::Notification::NotificationRequest>& request, LiveView& liveView) {
    if (request == nullptr) {
        return BaseRsp(ERR_INTERNAL, Where("ConvertToLiveView", 1050),
                       "The notificationRequest is nullptr.");
    }
    // A content of another kind than live view counts as missing.
    const std::shared_ptr<NotificationLiveViewContent> content = LiveViewContentOf(*request);
    if (content == nullptr) {
        return BaseRsp(ERR_INTERNAL, Where("ConvertToLiveView", 1056),
                       "The liveViewContent is nullptr.");
    }
    const std::shared_ptr<WantParams> extraInfo = content->GetExtraInfo();
    if (extraInfo == nullptr) {
        return BaseRsp(ERR_INTERNAL, Where("ConvertToLiveView", 1061),
                       "The liveViewExtraInfo is nullptr.");
    }

    // In this order; the first failing section ends the call and earlier ones stay in liveView.
    const std::function<BaseRsp()> sections[] = {
        [&] { return CommonDataParamConversion(*request, *content, *extraInfo, liveView); },
        [&] { return TimerDataParamConversion(*extraInfo, liveView); },
        [&] { return PrimaryDataParamConversion(*request, *content, *extraInfo, liveView); },
        [&] { return ExtendDataParamConversion(*request, *content, liveView); },
        [&] { return LayoutDataParamConversion(content, extraInfo, liveView); },
        [&] { return CapsuleDataParamConversion(content, extraInfo, liveView); },
        [&] { return ExternalDataParamConversion(*extraInfo, liveView); },
    };
    for (const auto& section : sections) {
        BaseRsp result = section();
        if (!result.Succeed()) {
            return result;
        }
    }
    return BaseRsp();
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
