// The extra-info key catalogue: the key under which each field of a live view travels in the
// notification's extra information (and, for pictures, in its picture map). A picture key is its
// ".res" key less that ending. The key texts are the wire contract with the notification service.
//
// Thread safety: the keys are built once during static initialisation and only read afterwards.
#ifndef LIVE_VIEW_LIVE_VIEW_CONSTANT_H
#define LIVE_VIEW_LIVE_VIEW_CONSTANT_H

#include <cstdint>
#include <string>
#include <vector>

#include "uri.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewConstant {
public:
    inline static const std::string EVENT = "event";
    inline static const std::string IS_MUTE = "isMute";
    inline static const std::string LIVE_VIEW_TIMER_TIME = "LiveViewTimer.time";
    inline static const std::string LIVE_VIEW_TIMER_ISCOUNTDOWN = "LiveViewTimer.isCountdown";
    inline static const std::string LIVE_VIEW_TIMER_ISPAUSED = "LiveViewTimer.isPaused";
    inline static const std::string LIVE_VIEW_TIMER_IS_UPDATE_TIMER = "LiveViewTimer.isUpdateTimer";
    inline static const std::string PRIMARY_DATA_TITLE = "PrimaryData.title";
    inline static const std::string PRIMARY_DATA_CONTENT = "PrimaryData.content";
    inline static const std::string PRIMARY_DATA_IMMERSIVEPIC_RES = "PrimaryData.immersivePic.res";
    inline static const std::string PRIMARY_DATA_IMMERSIVEPIC_ABILITY_NAME =
        "PrimaryData.immersiveAbilityName";
    inline static const std::string PRIMARY_DATA_IMMERSIVEPIC_PARAMETERS =
        "PrimaryData.immersiveParameters";
    inline static const std::string EXTEND_DATA_TEXT = "ExtendData.text";
    inline static const std::string EXTEND_DATA_TYPE = "ExtendData.type";
    inline static const std::string EXTEND_DATA_PIC_RES = "ExtendData.pic.res";
    inline static const std::string EXTEND_DATA_PIC = "ExtendData.pic";
    inline static const std::string LAYOUT_DATA_LAYOUT_TYPE = "LayoutData.layoutType";
    inline static const std::string PROGRESS_LAYOUT_PROGERESS = "ProgressLayout.progress";
    inline static const std::string PROGRESS_LAYOUT_COLOR = "ProgressLayout.color";
    inline static const std::string PROGRESS_LAYOUT_BACKGROUND_COLOR =
        "ProgressLayout.backgroundColor";
    inline static const std::string PROGRESS_LAYOUT_INDICATOR_TYPE = "ProgressLayout.indicatorType";
    inline static const std::string PROGRESS_LAYOUT_INDICATOR_ICON_RES =
        "ProgressLayout.indicatorIcon.res";
    inline static const std::string PROGRESS_LAYOUT_INDICATOR_ICON = "ProgressLayout.indicatorIcon";
    inline static const std::string PROGRESS_LAYOUT_LINE_TYPE = "ProgressLayout.lineType";
    inline static const std::string PROGRESS_LAYOUT_NODE_ICONS_RES = "ProgressLayout.nodeIcons.res";
    inline static const std::string PROGRESS_LAYOUT_NODE_ICONS = "ProgressLayout.nodeIcons";
    inline static const std::string PICKUP_LAYOUT_TITLE = "PickupLayout.title";
    inline static const std::string PICKUP_LAYOUT_CONTENT = "PickupLayout.content";
    inline static const std::string PICKUP_LAYOUT_UNDERLINE_COLOR = "PickupLayout.underlineColor";
    inline static const std::string PICKUP_LAYOUT_DESC_PIC_RES = "PickupLayout.descPic.res";
    inline static const std::string PICKUP_LAYOUT_DESC_PIC = "PickupLayout.descPic";
    inline static const std::string FLIGHT_LAYOUT_FIRST_TITLE = "FlightLayout.firstTitle";
    inline static const std::string FLIGHT_LAYOUT_FIRST_CONTENT = "FlightLayout.firstContent";
    inline static const std::string FLIGHT_LAYOUT_LAST_TITLE = "FlightLayout.lastTitle";
    inline static const std::string FLIGHT_LAYOUT_LAST_CONTENT = "FlightLayout.lastContent";
    inline static const std::string FLIGHT_LAYOUT_SPACE_ICON_RES = "FlightLayout.spaceIcon.res";
    inline static const std::string FLIGHT_LAYOUT_SPACE_ICON = "FlightLayout.spaceIcon";
    inline static const std::string FLIGHT_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE =
        "FlightLayout.isDisplayHorizontalLine";
    inline static const std::string FLIGHT_LAYOUT_ADDITIONAL_TEXT = "FlightLayout.additionalText";
    inline static const std::string SCORE_LAYOUT_HOST_NAME = "ScoreLayout.hostName";
    inline static const std::string SCORE_LAYOUT_HOST_ICON_RES = "ScoreLayout.hostIcon.res";
    inline static const std::string SCORE_LAYOUT_HOST_ICON = "ScoreLayout.hostIcon";
    inline static const std::string SCORE_LAYOUT_HOST_SCORE = "ScoreLayout.hostScore";
    inline static const std::string SCORE_LAYOUT_GUEST_NAME = "ScoreLayout.guestName";
    inline static const std::string SCORE_LAYOUT_GUEST_ICON_RES = "ScoreLayout.guestIcon.res";
    inline static const std::string SCORE_LAYOUT_GUEST_ICON = "ScoreLayout.guestIcon";
    inline static const std::string SCORE_LAYOUT_GUEST_SCORE = "ScoreLayout.guestScore";
    inline static const std::string SCORE_LAYOUT_COMPETITION_DESC = "ScoreLayout.competitionDesc";
    inline static const std::string SCORE_LAYOUT_COMPETITION_TIME = "ScoreLayout.competitionTime";
    inline static const std::string SCORE_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE =
        "ScoreLayout.isDisplayHorizontalLine";
    inline static const std::string CAPSULE_DATA_STATUS = "CapsuleData.status";
    inline static const std::string CAPSULE_DATA_TYPE = "CapsuleData.type";
    inline static const std::string CAPSULE_DATA_ICON_RES = "CapsuleData.icon.res";
    inline static const std::string CAPSULE_DATA_ICON = "CapsuleData.icon";
    inline static const std::string CAPSULE_DATA_BACKGROUND_COLOR = "CapsuleData.backgroundColor";
    inline static const std::string TEXT_CAPSULE_TITLE = "TextCapsule.title";
    inline static const std::string TEXT_CAPSULE_CONTENT = "TextCapsule.content";
    inline static const std::string TIMER_CAPSULE_CONTENT = "TimerCapsule.content";
    inline static const std::string TIMER_CAPSULE_INITIALTIME = "TimerCapsule.time";
    inline static const std::string TIMER_CAPSULE_IS_CONTDOWN = "TimerCapsule.isCountdown";
    inline static const std::string TIMER_CAPSULE_IS_PAUSE = "TimerCapsule.isPause";
    inline static const std::string TIMER_CAPSULE_IS_UPDATE_TIMER = "TimerCapsule.isUpdateTimer";
    inline static const std::string PROGRESS_CAPSULE_MAX = "ProgressCapsule.max";
    inline static const std::string PROGRESS_CAPSULE_PROGRESS = "ProgressCapsule.progress";
    inline static const std::string PROGRESS_CAPSULE_INDETERMINATE =
        "ProgressCapsule.indeterminate";
    inline static const std::string EXTERNAL_DATA_TITLE = "ExternalData.title";
    inline static const std::string EXTERNAL_DATA_CONTENT = "ExternalData.content";
    inline static const std::string EXTERNAL_DATA_BACKGROUND_COLOR = "ExternalData.backgroundColor";
    inline static const std::string NAVIGATION_LAYOUT_CURRENT_ICON_RES =
        "NavigationLayout.currentNavigationIcon.res";
    inline static const std::string NAVIGATION_LAYOUT_CURRENT_ICON =
        "NavigationLayout.currentNavigationIcon";
    inline static const std::string NAVIGATION_LAYOUT_ICONS_RES =
        "NavigationLayout.navigationIcons.res";
    inline static const std::string NAVIGATION_LAYOUT_ICONS = "NavigationLayout.navigationIcons";
};

namespace {
// Defined for every unit that includes the catalogue; no operation reads them.
const std::string EMPTY_STRING = "";
const Tavi::Uri DEFAULT_SOUND("file://system/etc/Light.ogg");
const std::vector<int64_t> DEFAULT_VIBRATION_PATTERN = {200};
const std::string EXTERNAL_TEMPLATE_PATH = "/system/etc/notification_template/external.json";
const std::string CURRENT_MARKER = "current";
const std::string DOWNLOAD_TEMPLATE_NAME = "downloadTemplate";
const std::string RING_TRUSTLIST_PKG = "RING_TRUSTLIST_PKG";
}  // namespace

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_CONSTANT_H
