#include "live_view_param_conversion.h"

#include <cjson/cJSON.h>

#include <cstdint>
#include <new>
#include <utility>

#include "common_utils.h"
#include "flight_layout.h"
#include "live_view_constant.h"
#include "live_view_logger.h"
#include "navigation_layout.h"
#include "notification_action_button.h"
#include "notification_constant.h"
#include "pickup_layout.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"
#include "want_box.h"
#include "want_params_wrapper.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

using AAFwk::WantParams;
using PictureMap = LiveViewParamConversion::PictureMap;
using PixelMapPtr = std::shared_ptr<Media::PixelMap>;

// Member names of a rich-text element in the content JSON.
constexpr const char* JSON_TEXT = "text";
constexpr const char* JSON_TEXT_COLOR = "textColor";

template <typename T>
void WriteIfSet(WantParams& params, const std::string& key, const std::shared_ptr<T>& value) {
    if (value != nullptr) {
        WriteParam(params, key, *value);
    }
}

// The string form wins: it goes under resKey and the picture is not attached. Otherwise a set
// picture is handed to attach and resKey gets "", which tells the reader to look for the picture.
template <typename AttachPicture>
void WritePictureRes(WantParams& params, const std::string& resKey,
                     const std::shared_ptr<std::string>& pictureStr, const PixelMapPtr& picture,
                     AttachPicture&& attach) {
    if (pictureStr != nullptr) {
        WriteParam(params, resKey, *pictureStr);
    } else if (picture != nullptr) {
        attach(picture);
        WriteParam(params, resKey, std::string());
    }
}

void WritePicturePair(WantParams& params, PictureMap& pictureMap, const std::string& resKey,
                      const std::string& pictureKey, const std::shared_ptr<std::string>& pictureStr,
                      const PixelMapPtr& picture) {
    WritePictureRes(params, resKey, pictureStr, picture, [&](const PixelMapPtr& pixelMap) {
        pictureMap.try_emplace(pictureKey, 1, pixelMap);
    });
}

// Resource strings as an Array of String under resKey; else the pixel maps under pictureKey and an
// empty Array under resKey; nothing when both lists are empty. Both lists are the getters' own
// copies, so their elements are moved, not copied again.
void WritePictureList(WantParams& params, PictureMap& pictureMap, const std::string& resKey,
                      const std::string& pictureKey, std::vector<std::string>&& pictureStrs,
                      std::vector<PixelMapPtr>&& pictures) {
    if (pictureStrs.empty() && pictures.empty()) {
        return;
    }
    const long size = static_cast<long>(pictureStrs.size());
    sptr<AAFwk::Array> array(new (std::nothrow) AAFwk::Array(size, AAFwk::g_IID_IString));
    if (array == nullptr) {
        LV_LOGE(106, "Create array nullptr, key %{public}s", resKey.c_str());
        return;
    }
    if (!pictureStrs.empty()) {
        for (long i = 0; i < size; ++i) {
            array->Set(i, AAFwk::String::Box(std::move(pictureStrs[static_cast<size_t>(i)])));
        }
    } else {
        pictureMap.try_emplace(pictureKey, std::move(pictures));
    }
    params.SetParam(resKey, array);
}

using JsonPtr = std::unique_ptr<cJSON, decltype(&cJSON_Delete)>;

// The member refers to the record's text and to the constant name instead of copying them: the
// record outlives the tree, which is printed and deleted within one call.
bool AddJsonStringIfSet(cJSON* object, const char* name,
                        const std::shared_ptr<std::string>& value) {
    if (value == nullptr) {
        return true;
    }
    cJSON* item = cJSON_CreateStringReference(value->c_str());
    if (item == nullptr) {
        return false;
    }
    if (!cJSON_AddItemToObjectCS(object, name, item)) {
        cJSON_Delete(item);
        return false;
    }
    return true;
}

// Most rich texts are short: they are printed into a buffer of the stack, and only a longer one
// is printed into one that cJSON allocates.
constexpr int JSON_PRINT_BUFFER = 1024;

// Replaces out with the unformatted JSON array of the non-empty elements of content; leaves out
// as it was when the text cannot be made in full.
void BuildContentJson(std::string& out, const std::vector<std::shared_ptr<RichText>>& content) {
    JsonPtr array(cJSON_CreateArray(), &cJSON_Delete);
    if (array == nullptr) {
        LV_LOGE(131, "Create json array nullptr");
        return;
    }
    for (const auto& richText : content) {
        if (richText == nullptr) {
            continue;
        }
        JsonPtr object(cJSON_CreateObject(), &cJSON_Delete);
        if (object == nullptr) {
            LV_LOGE(140, "Create json object nullptr");
            return;
        }
        if (!AddJsonStringIfSet(object.get(), JSON_TEXT, richText->GetText()) ||
            !AddJsonStringIfSet(object.get(), JSON_TEXT_COLOR, richText->GetTextColor())) {
            LV_LOGE(145, "Add json string failed");
            return;
        }
        if (!cJSON_AddItemToArray(array.get(), object.get())) {
            LV_LOGE(149, "Add json object failed");
            return;
        }
        object.release();
    }
    char buffer[JSON_PRINT_BUFFER];
    if (cJSON_PrintPreallocated(array.get(), buffer, JSON_PRINT_BUFFER, false)) {
        out.assign(buffer);
        return;
    }
    std::unique_ptr<char, decltype(&cJSON_free)> printed(cJSON_PrintUnformatted(array.get()),
                                                         &cJSON_free);
    if (printed == nullptr) {
        LV_LOGE(157, "Print json nullptr");
        return;
    }
    out.assign(printed.get());
}

// Nothing for an empty list, which the reader takes as unset.
void WriteContentJson(WantParams& params, const std::string& key,
                      const std::vector<std::shared_ptr<RichText>>& content) {
    if (content.empty()) {
        return;
    }
    std::string json;
    BuildContentJson(json, content);
    params.SetParam(key, AAFwk::String::Box(std::move(json)));
}

void TextCapsuleParamConversion(const std::shared_ptr<CapsuleData>& capsule, WantParams& params) {
    const auto textCapsule = AsTextCapsule(capsule);
    if (textCapsule == nullptr) {
        LV_LOGI(177, "The textCapsule is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::TEXT_CAPSULE_TITLE, textCapsule->GetTitle());
    WriteIfSet(params, LiveViewConstant::TEXT_CAPSULE_CONTENT, textCapsule->GetContent());
}

void TimerCapsuleParamConversion(const std::shared_ptr<CapsuleData>& capsule, WantParams& params) {
    const auto timerCapsule = AsTimerCapsule(capsule);
    if (timerCapsule == nullptr) {
        LV_LOGI(187, "The timerCapsule is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::TIMER_CAPSULE_CONTENT, timerCapsule->GetContent());
    WriteIfSet(params, LiveViewConstant::TIMER_CAPSULE_INITIALTIME, timerCapsule->GetTime());
    WriteIfSet(params, LiveViewConstant::TIMER_CAPSULE_IS_CONTDOWN, timerCapsule->GetIsCountdown());
    WriteIfSet(params, LiveViewConstant::TIMER_CAPSULE_IS_PAUSE, timerCapsule->GetIsPaused());
}

void ProgressCapsuleParamConversion(const std::shared_ptr<CapsuleData>& capsule,
                                    WantParams& params) {
    const auto progressCapsule = AsProgressCapsule(capsule);
    if (progressCapsule == nullptr) {
        LV_LOGI(200, "The progressCapsule is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::PROGRESS_CAPSULE_MAX, progressCapsule->GetMax());
    WriteIfSet(params, LiveViewConstant::PROGRESS_CAPSULE_PROGRESS, progressCapsule->GetProgress());
    WriteIfSet(params, LiveViewConstant::PROGRESS_CAPSULE_INDETERMINATE,
               progressCapsule->GetIndeterminate());
}

void ProgressLayoutParamConversion(const std::shared_ptr<LayoutData>& layout, WantParams& params,
                                   PictureMap& pictureMap) {
    const auto progressLayout = AsProgressLayout(layout);
    if (progressLayout == nullptr) {
        LV_LOGI(213, "The progressLayout is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::PROGRESS_LAYOUT_PROGERESS, progressLayout->GetProgress());
    WriteIfSet(params, LiveViewConstant::PROGRESS_LAYOUT_COLOR, progressLayout->GetColor());
    WriteIfSet(params, LiveViewConstant::PROGRESS_LAYOUT_BACKGROUND_COLOR,
               progressLayout->GetBackgroundColor());
    WriteIfSet(params, LiveViewConstant::PROGRESS_LAYOUT_INDICATOR_TYPE,
               progressLayout->GetIndicatorType());
    WriteIfSet(params, LiveViewConstant::PROGRESS_LAYOUT_LINE_TYPE, progressLayout->GetLineType());
    WritePicturePair(params, pictureMap, LiveViewConstant::PROGRESS_LAYOUT_INDICATOR_ICON_RES,
                     LiveViewConstant::PROGRESS_LAYOUT_INDICATOR_ICON,
                     progressLayout->GetIndicatorIconStr(), progressLayout->GetIndicatorIcon());
    WritePictureList(params, pictureMap, LiveViewConstant::PROGRESS_LAYOUT_NODE_ICONS_RES,
                     LiveViewConstant::PROGRESS_LAYOUT_NODE_ICONS,
                     progressLayout->GetNodeIconsStr(), progressLayout->GetNodeIcons());
}

void PickupLayoutParamConversion(const std::shared_ptr<LayoutData>& layout, WantParams& params,
                                 PictureMap& pictureMap) {
    const auto pickupLayout = AsPickupLayout(layout);
    if (pickupLayout == nullptr) {
        LV_LOGI(235, "The pickupLayout is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::PICKUP_LAYOUT_TITLE, pickupLayout->GetTitle());
    WriteIfSet(params, LiveViewConstant::PICKUP_LAYOUT_CONTENT, pickupLayout->GetContent());
    WriteIfSet(params, LiveViewConstant::PICKUP_LAYOUT_UNDERLINE_COLOR,
               pickupLayout->GetUnderlineColor());
    WritePicturePair(params, pictureMap, LiveViewConstant::PICKUP_LAYOUT_DESC_PIC_RES,
                     LiveViewConstant::PICKUP_LAYOUT_DESC_PIC, pickupLayout->GetDescPicStr(),
                     pickupLayout->GetDescPic());
}

void FlightLayoutParamConversion(const std::shared_ptr<LayoutData>& layout, WantParams& params,
                                 PictureMap& pictureMap) {
    const auto flightLayout = AsFlightLayout(layout);
    if (flightLayout == nullptr) {
        LV_LOGI(251, "The flightLayout is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::FLIGHT_LAYOUT_FIRST_TITLE, flightLayout->GetFirstTitle());
    WriteIfSet(params, LiveViewConstant::FLIGHT_LAYOUT_FIRST_CONTENT,
               flightLayout->GetFirstContent());
    WriteIfSet(params, LiveViewConstant::FLIGHT_LAYOUT_LAST_TITLE, flightLayout->GetLastTitle());
    WriteIfSet(params, LiveViewConstant::FLIGHT_LAYOUT_LAST_CONTENT,
               flightLayout->GetLastContent());
    WritePicturePair(params, pictureMap, LiveViewConstant::FLIGHT_LAYOUT_SPACE_ICON_RES,
                     LiveViewConstant::FLIGHT_LAYOUT_SPACE_ICON, flightLayout->GetSpaceIconStr(),
                     flightLayout->GetSpaceIcon());
    WriteIfSet(params, LiveViewConstant::FLIGHT_LAYOUT_ADDITIONAL_TEXT,
               flightLayout->GetAdditionalText());
    WriteIfSet(params, LiveViewConstant::FLIGHT_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE,
               flightLayout->GetIsHorizontalLineDisplayed());
}

void ScoreLayoutParamConversion(const std::shared_ptr<LayoutData>& layout, WantParams& params,
                                PictureMap& pictureMap) {
    const auto scoreLayout = AsScoreLayout(layout);
    if (scoreLayout == nullptr) {
        LV_LOGI(273, "The scoreLayout is nullptr");
        return;
    }
    WriteIfSet(params, LiveViewConstant::SCORE_LAYOUT_HOST_NAME, scoreLayout->GetHostName());
    WriteIfSet(params, LiveViewConstant::SCORE_LAYOUT_HOST_SCORE, scoreLayout->GetHostScore());
    WriteIfSet(params, LiveViewConstant::SCORE_LAYOUT_GUEST_NAME, scoreLayout->GetGuestName());
    WriteIfSet(params, LiveViewConstant::SCORE_LAYOUT_GUEST_SCORE, scoreLayout->GetGuestScore());
    WriteIfSet(params, LiveViewConstant::SCORE_LAYOUT_COMPETITION_TIME,
               scoreLayout->GetCompetitionTime());
    WriteIfSet(params, LiveViewConstant::SCORE_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE,
               scoreLayout->GetIsHorizontalLineDisplayed());
    WritePicturePair(params, pictureMap, LiveViewConstant::SCORE_LAYOUT_HOST_ICON_RES,
                     LiveViewConstant::SCORE_LAYOUT_HOST_ICON, scoreLayout->GetHostIconStr(),
                     scoreLayout->GetHostIcon());
    WritePicturePair(params, pictureMap, LiveViewConstant::SCORE_LAYOUT_GUEST_ICON_RES,
                     LiveViewConstant::SCORE_LAYOUT_GUEST_ICON, scoreLayout->GetGuestIconStr(),
                     scoreLayout->GetGuestIcon());
    // The plain description wins over the rich-text one, as a single run without colour.
    auto plainDesc = scoreLayout->GetCompetitionDesc();
    if (plainDesc != nullptr) {
        auto run = std::make_shared<RichText>();
        run->SetText(std::move(plainDesc));
        WriteContentJson(params, LiveViewConstant::SCORE_LAYOUT_COMPETITION_DESC, {std::move(run)});
    } else {
        WriteContentJson(params, LiveViewConstant::SCORE_LAYOUT_COMPETITION_DESC,
                         scoreLayout->GetCompetitionDescVector());
    }
}

void NavigationLayoutParamConversion(const std::shared_ptr<LayoutData>& layout, WantParams& params,
                                     PictureMap& pictureMap) {
    const auto navigationLayout = AsNavigationLayout(layout);
    if (navigationLayout == nullptr) {
        LV_LOGI(306, "The navigationLayout is nullptr");
        return;
    }
    WritePicturePair(params, pictureMap, LiveViewConstant::NAVIGATION_LAYOUT_CURRENT_ICON_RES,
                     LiveViewConstant::NAVIGATION_LAYOUT_CURRENT_ICON,
                     navigationLayout->GetCurrentNavigationIconStr(),
                     navigationLayout->GetCurrentNavigationIcon());
    WritePictureList(params, pictureMap, LiveViewConstant::NAVIGATION_LAYOUT_ICONS_RES,
                     LiveViewConstant::NAVIGATION_LAYOUT_ICONS,
                     navigationLayout->GetNavigationIconsStr(),
                     navigationLayout->GetNavigationIcons());
}

}  // namespace

void LiveViewParamConversion::CommonDataParamConversion(
    const LiveView& liveView, Tavi::Notification::NotificationRequest& request,
    std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
    std::shared_ptr<Tavi::Notification::NotificationLiveViewContent>& content) {
    const auto id = liveView.GetId();
    if (id != nullptr) {
        request.SetNotificationId(*id);
    }
    WriteParam(*extraInfo, LiveViewConstant::EVENT, CommonUtils::TrimString(liveView.GetEvent()));
    const auto sequence = liveView.GetSequence();
    if (sequence != nullptr) {
        content->SetVersion(static_cast<uint32_t>(*sequence));
    }
    // Unset means muted.
    const auto isMute = liveView.GetIsMute();
    WriteParam(*extraInfo, LiveViewConstant::IS_MUTE, isMute == nullptr || *isMute);
    request.SetSlotType(Tavi::Notification::NotificationConstant::LIVE_VIEW);
    request.SetInProgress(true);
}

void LiveViewParamConversion::TimerDataParamConversion(
    const LiveView& liveView, std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
    bool isUpdateTimer) {
    const auto timer = liveView.GetTimer();
    if (timer == nullptr) {
        return;
    }
    const auto time = timer->GetTime();
    const auto isCountdown = timer->GetIsCountdown();
    const auto isPaused = timer->GetIsPaused();
    if (time != nullptr) {
        WriteParam(*extraInfo, LiveViewConstant::LIVE_VIEW_TIMER_TIME, *time);
    } else if (isCountdown == nullptr && isPaused == nullptr) {
        return;
    } else if (!isUpdateTimer) {
        WriteParam(*extraInfo, LiveViewConstant::LIVE_VIEW_TIMER_TIME, 0L);
    }
    WriteIfSet(*extraInfo, LiveViewConstant::LIVE_VIEW_TIMER_ISCOUNTDOWN, isCountdown);
    WriteIfSet(*extraInfo, LiveViewConstant::LIVE_VIEW_TIMER_ISPAUSED, isPaused);
}

void LiveViewParamConversion::PrimaryDataParamConversion(
    const LiveView& liveView, Tavi::Notification::NotificationRequest& request,
    std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
    std::shared_ptr<Tavi::Notification::NotificationLiveViewContent>& content,
    const LiveView::Operation& operation) {
    const auto primary = LiveView::GetPrimaryData(liveView);
    if (primary == nullptr) {
        return;
    }
    WantParams& params = *extraInfo;
    WriteIfSet(params, LiveViewConstant::PRIMARY_DATA_TITLE, primary->GetTitle());
    WriteContentJson(params, LiveViewConstant::PRIMARY_DATA_CONTENT, primary->GetContent());
    if (operation == LiveView::STOP) {
        const auto keepTime = primary->GetKeepTime();
        request.SetAutoDeletedTime(keepTime == nullptr ? 0 : static_cast<int64_t>(*keepTime));
    }
    const auto clickAction = primary->GetClickAction();
    if (clickAction != nullptr) {
        request.SetWantAgent(clickAction);
    }
    WritePictureRes(params, LiveViewConstant::PRIMARY_DATA_IMMERSIVEPIC_RES,
                    primary->GetImmersivePicStr(), primary->GetImmersivePic(),
                    [&content](const PixelMapPtr& picture) { content->SetSinglePicture(picture); });
    if (operation == LiveView::START) {
        WriteIfSet(params, LiveViewConstant::PRIMARY_DATA_IMMERSIVEPIC_ABILITY_NAME,
                   primary->GetImmersiveAbilityName());
    }
    WriteIfSet(params, LiveViewConstant::PRIMARY_DATA_IMMERSIVEPIC_PARAMETERS,
               primary->GetImmersiveParameters());
}

void LiveViewParamConversion::ExtendDataParamConversion(
    const LiveView& liveView, Tavi::Notification::NotificationRequest& request,
    std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo, PictureMap& pictureMap) {
    const auto extension = LiveView::GetExtensionData(liveView);
    if (extension == nullptr) {
        LV_LOGI(398, "The extensionData is nullptr");
        return;
    }
    WantParams& params = *extraInfo;
    WriteIfSet(params, LiveViewConstant::EXTEND_DATA_TEXT, extension->GetText());
    WriteParam(params, LiveViewConstant::EXTEND_DATA_TYPE, static_cast<int>(extension->GetType()));
    WritePicturePair(params, pictureMap, LiveViewConstant::EXTEND_DATA_PIC_RES,
                     LiveViewConstant::EXTEND_DATA_PIC, extension->GetPicStr(),
                     extension->GetPic());
    // A click action covers the request's own buttons whatever isCoverClickAction says.
    const auto clickAction = extension->GetClickAction();
    if (clickAction != nullptr) {
        using Tavi::Notification::NotificationActionButton;
        request.SetIsCoverActionButtons(true);
        request.AddActionButton(NotificationActionButton::Create(
            nullptr, "", clickAction, nullptr,
            NotificationActionButton::ActionButton::NONE_ACTION_BUTTON, true, {}, nullptr, false));
    }
    if (extension->GetIsCoverClickAction()) {
        request.SetIsCoverActionButtons(true);
    }
}

void LiveViewParamConversion::ExternalDataParamConversion(
    const LiveView& liveView, std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo) {
    const auto external = LiveView::GetExternalData(liveView);
    if (external == nullptr) {
        LV_LOGI(425, "The externalData is null");
        return;
    }
    WantParams& params = *extraInfo;
    WriteIfSet(params, LiveViewConstant::EXTERNAL_DATA_TITLE, external->GetTitle());
    WriteContentJson(params, LiveViewConstant::EXTERNAL_DATA_CONTENT, external->GetContent());
    WriteIfSet(params, LiveViewConstant::EXTERNAL_DATA_BACKGROUND_COLOR,
               external->GetBackgroundColor());
}

void LiveViewParamConversion::CapsuleDataParamConversion(
    const LiveView& liveView, std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
    PictureMap& pictureMap) {
    const auto capsule = LiveView::GetCapsuleData(liveView);
    if (capsule == nullptr) {
        LV_LOGI(440, "The capsule is nullptr.");
        return;
    }
    WantParams& params = *extraInfo;
    // Validation makes the status mandatory; an unset one is carried as unset, not as -1.
    const auto status = capsule->GetStatus();
    WriteIfSet(params, LiveViewConstant::CAPSULE_DATA_STATUS, status);
    if (status != nullptr && *status == -1) {
        return;
    }
    const CapsuleData::CapsuleType type = capsule->GetType();
    WriteParam(params, LiveViewConstant::CAPSULE_DATA_TYPE, static_cast<int>(type));
    WritePicturePair(params, pictureMap, LiveViewConstant::CAPSULE_DATA_ICON_RES,
                     LiveViewConstant::CAPSULE_DATA_ICON, capsule->GetIconStr(),
                     capsule->GetIcon());
    WriteIfSet(params, LiveViewConstant::CAPSULE_DATA_BACKGROUND_COLOR,
               capsule->GetBackgroundColor());
    switch (type) {
        case CapsuleData::TEXT:
            TextCapsuleParamConversion(capsule, params);
            break;
        case CapsuleData::TIMER:
            TimerCapsuleParamConversion(capsule, params);
            break;
        case CapsuleData::PROGRESS:
            ProgressCapsuleParamConversion(capsule, params);
            break;
        default:
            break;
    }
}

void LiveViewParamConversion::LayoutDataParamConversion(
    const LiveView& liveView, std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
    PictureMap& pictureMap) {
    const auto layout = LiveView::GetLayoutData(liveView);
    if (layout == nullptr) {
        LV_LOGI(477, "The layoutData is nullptr.");
        return;
    }
    WantParams& params = *extraInfo;
    const LayoutData::LayoutType type = layout->GetLayoutType();
    WriteParam(params, LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE, static_cast<int>(type));
    switch (type) {
        case LayoutData::PROGRESS:
            ProgressLayoutParamConversion(layout, params, pictureMap);
            break;
        case LayoutData::PICKUP:
            PickupLayoutParamConversion(layout, params, pictureMap);
            break;
        case LayoutData::FLIGHT:
            FlightLayoutParamConversion(layout, params, pictureMap);
            break;
        case LayoutData::SCORE:
            ScoreLayoutParamConversion(layout, params, pictureMap);
            break;
        case LayoutData::NAVIGATION:
            NavigationLayoutParamConversion(layout, params, pictureMap);
            break;
        default:
            break;
    }
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
