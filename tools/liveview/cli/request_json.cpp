#include "request_json.h"

#include <memory>

#include "extra_info_json.h"
#include "live_view_content_of.h"
#include "notification_live_view_content.h"

namespace LiveViewCli {

using Tavi::AbilityRuntime::WantAgent::WantAgent;
using Tavi::Notification::NotificationLiveViewContent;
using Tavi::Notification::NotificationRequest;

namespace {

cJSON* Target(const std::shared_ptr<WantAgent>& agent) {
    return agent == nullptr ? cJSON_CreateNull() : cJSON_CreateString(agent->GetTarget().c_str());
}

cJSON* Picture(const std::shared_ptr<Tavi::Media::PixelMap>& picture) {
    return picture == nullptr ? cJSON_CreateNull()
                              : cJSON_CreateString(DescribePicture(*picture).c_str());
}

const char* StatusName(NotificationLiveViewContent::LiveViewStatus status) {
    using Status = NotificationLiveViewContent::LiveViewStatus;
    switch (status) {
        case Status::LIVE_VIEW_CREATE:
            return "create";
        case Status::LIVE_VIEW_INCREMENTAL_UPDATE:
            return "update";
        case Status::LIVE_VIEW_END:
            return "end";
        case Status::LIVE_VIEW_FULL_UPDATE:
            return "full update";
    }
    return "unknown";
}

cJSON* ButtonsToJson(const NotificationRequest& request) {
    cJSON* buttons = cJSON_CreateArray();
    for (const auto& button : request.GetActionButtons()) {
        cJSON* item = cJSON_CreateObject();
        cJSON_AddStringToObject(item, "title", button->GetTitle().c_str());
        cJSON_AddItemToObject(item, "wantAgent", Target(button->GetWantAgent()));
        cJSON_AddItemToObject(item, "icon", Picture(button->GetIcon()));
        cJSON_AddItemToArray(buttons, item);
    }
    return buttons;
}

cJSON* ContentToJson(const NotificationLiveViewContent& content) {
    cJSON* object = cJSON_CreateObject();
    cJSON_AddStringToObject(object, "liveViewStatus", StatusName(content.GetLiveViewStatus()));
    if (content.GetVersion() == NotificationLiveViewContent::MAX_VERSION) {
        cJSON_AddStringToObject(object, "version", "unset");
    } else {
        cJSON_AddItemToObject(object, "version",
                              cJSON_CreateRaw(std::to_string(content.GetVersion()).c_str()));
    }
    cJSON_AddBoolToObject(object, "isOnlyLocalUpdate", content.GetIsOnlyLocalUpdate());
    cJSON_AddItemToObject(object, "singlePicture", Picture(content.GetSinglePicture()));
    const auto extraInfo = content.GetExtraInfo();
    cJSON_AddItemToObject(object, "extraInfo",
                          extraInfo == nullptr ? cJSON_CreateNull() : ExtraInfoToJson(*extraInfo));
    cJSON* pictures = cJSON_CreateObject();
    for (const auto& [key, list] : content.GetPicture()) {
        cJSON* sizes = cJSON_CreateArray();
        for (const auto& picture : list) {
            cJSON_AddItemToArray(sizes, Picture(picture));
        }
        cJSON_AddItemToObject(pictures, key.c_str(), sizes);
    }
    cJSON_AddItemToObject(object, "pictures", pictures);
    return object;
}

}  // namespace

std::string DescribePicture(const Tavi::Media::PixelMap& picture) {
    return std::to_string(picture.GetWidth()) + "x" + std::to_string(picture.GetHeight()) + ", " +
           std::to_string(picture.GetByteCount()) + " bytes";
}

cJSON* RequestToJson(const NotificationRequest& request) {
    cJSON* object = cJSON_CreateObject();
    cJSON_AddNumberToObject(object, "notificationId", request.GetNotificationId());
    cJSON_AddNumberToObject(object, "slotType", request.GetSlotType());
    cJSON_AddBoolToObject(object, "inProgress", request.IsInProgress());
    cJSON_AddItemToObject(object, "autoDeletedTime",
                          cJSON_CreateRaw(std::to_string(request.GetAutoDeletedTime()).c_str()));
    cJSON_AddItemToObject(object, "wantAgent", Target(request.GetWantAgent()));
    cJSON_AddItemToObject(object, "actionButtons", ButtonsToJson(request));
    cJSON_AddBoolToObject(object, "isCoverActionButtons", request.IsCoverActionButtons());
    const auto liveViewContent = Tavi::Wisp::LiveView::LiveViewContentOf(request);
    cJSON_AddItemToObject(
        object, "content",
        liveViewContent == nullptr ? cJSON_CreateNull() : ContentToJson(*liveViewContent));
    return object;
}

}  // namespace LiveViewCli
