#include "request_wire.h"

#include <cmath>
#include <memory>

#include "base64.h"
#include "notification_action_button.h"
#include "notification_content.h"
#include "notification_live_view_content.h"
#include "pixel_map.h"
#include "want_agent.h"
#include "want_params.h"

namespace Tavi {
namespace Host {
namespace Wire {

namespace {

using AAFwk::IInterface;
using AAFwk::WantParams;
using AbilityRuntime::WantAgent::WantAgent;
using Media::PixelMap;
using Notification::NotificationActionButton;
using Notification::NotificationContent;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Notification::NotificationUserInput;

// Builds a tree. An allocation that fails is remembered, so that the caller drops the whole tree
// instead of handing out a request with members missing.
class Writer {
public:
    bool Failed() const { return failed_; }

    cJSON* Request(const NotificationRequest& request) {
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "id", Number(request.GetNotificationId()));
        Add(json, "slotType", Number(request.GetSlotType()));
        Add(json, "inProgress", Bool(request.IsInProgress()));
        Add(json, "autoDeletedTime", Int64(request.GetAutoDeletedTime()));
        Add(json, "wantAgent", Agent(request.GetWantAgent()));
        Add(json, "content", Content(request.GetContent()));
        cJSON* buttons = Made(cJSON_CreateArray());
        for (const auto& button : request.GetActionButtons()) {
            Append(buttons, Button(*button));
        }
        Add(json, "actionButtons", buttons);
        Add(json, "coverActionButtons", Bool(request.IsCoverActionButtons()));
        Add(json, "ownerBundleName", Text(request.GetOwnerBundleName()));
        Add(json, "ownerUid", Number(request.GetOwnerUid()));
        return json;
    }

private:
    cJSON* Made(cJSON* item) {
        failed_ = failed_ || item == nullptr;
        return item;
    }

    // Takes item over (null after a failed allocation); object may be null likewise.
    void Add(cJSON* object, const char* name, cJSON* item) {
        if (item == nullptr || object == nullptr || !cJSON_AddItemToObject(object, name, item)) {
            failed_ = true;
            cJSON_Delete(item);
        }
    }

    void Append(cJSON* array, cJSON* item) {
        if (item == nullptr || array == nullptr || !cJSON_AddItemToArray(array, item)) {
            failed_ = true;
            cJSON_Delete(item);
        }
    }

    cJSON* Number(double value) { return Made(cJSON_CreateNumber(value)); }
    cJSON* Bool(bool value) { return Made(cJSON_CreateBool(value)); }
    cJSON* Text(const std::string& value) { return Made(cJSON_CreateString(value.c_str())); }
    cJSON* Null() { return Made(cJSON_CreateNull()); }

    cJSON* Int64(int64_t value) {
        if (value >= -MAX_EXACT_WHOLE && value <= MAX_EXACT_WHOLE) {
            return Number(static_cast<double>(value));
        }
        return Text(std::to_string(value));
    }

    cJSON* Double(double value) {
        if (std::isnan(value)) {
            return Text(NAN_TEXT);
        }
        if (std::isinf(value)) {
            return Text(value > 0 ? INFINITY_TEXT : MINUS_INFINITY_TEXT);
        }
        return Number(value);
    }

    cJSON* Agent(const std::shared_ptr<WantAgent>& agent) {
        if (agent == nullptr) {
            return Null();
        }
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "target", Text(agent->GetTarget()));
        return json;
    }

    cJSON* Input(const std::shared_ptr<NotificationUserInput>& input) {
        if (input == nullptr) {
            return Null();
        }
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "inputKey", Text(input->GetInputKey()));
        return json;
    }

    cJSON* Picture(const std::shared_ptr<PixelMap>& picture) {
        if (picture == nullptr) {
            return Null();
        }
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "width", Number(picture->GetWidth()));
        Add(json, "height", Number(picture->GetHeight()));
        Add(json, "format", Number(static_cast<int32_t>(picture->GetPixelFormat())));
        Add(json, "pixels",
            Text(Base64Encode(picture->GetPixels(), static_cast<size_t>(picture->GetByteCount()))));
        return json;
    }

    cJSON* Pictures(const NotificationLiveViewContent::PictureMap& pictures) {
        cJSON* json = Made(cJSON_CreateObject());
        for (const auto& [key, list] : pictures) {
            cJSON* items = Made(cJSON_CreateArray());
            for (const auto& picture : list) {
                Append(items, Picture(picture));
            }
            Add(json, key.c_str(), items);
        }
        return json;
    }

    cJSON* OptionalParams(const std::shared_ptr<WantParams>& params) {
        return params == nullptr ? Null() : Params(*params);
    }

    cJSON* Params(const WantParams& params) {
        cJSON* json = Made(cJSON_CreateObject());
        for (const auto& [key, box] : params.GetParams()) {
            Add(json, key.c_str(), Box(box));
        }
        return json;
    }

    cJSON* Box(const sptr<IInterface>& box) {
        if (box == nullptr) {
            return Null();
        }
        cJSON* value = nullptr;
        cJSON* elementType = nullptr;
        if (auto* text = AAFwk::IString::Query(box)) {
            value = Text(AAFwk::String::Unbox(text));
        } else if (auto* integer = AAFwk::IInteger::Query(box)) {
            value = Number(AAFwk::Integer::Unbox(integer));
        } else if (auto* whole = AAFwk::ILong::Query(box)) {
            value = Int64(AAFwk::Long::Unbox(whole));
        } else if (auto* flag = AAFwk::IBoolean::Query(box)) {
            value = Bool(AAFwk::Boolean::Unbox(flag));
        } else if (auto* number = AAFwk::IDouble::Query(box)) {
            value = Double(AAFwk::Double::Unbox(number));
        } else if (auto* nested = AAFwk::IWantParams::Query(box)) {
            value = Params(AAFwk::WantParamWrapper::Unbox(nested));
        } else if (auto* array = AAFwk::IArray::Query(box)) {
            AAFwk::InterfaceID type{};
            long length = 0;
            array->GetType(type);
            array->GetLength(length);
            elementType = Number(type.value);
            value = Made(cJSON_CreateArray());
            for (long i = 0; i < length; ++i) {
                sptr<IInterface> element;
                array->Get(i, element);
                Append(value, Box(element));
            }
        } else {
            return Null();
        }
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "type", Number(box->GetInterfaceId().value));
        if (elementType != nullptr) {
            Add(json, "elementType", elementType);
        }
        Add(json, "value", value);
        return json;
    }

    cJSON* Button(const NotificationActionButton& button) {
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "title", Text(button.GetTitle()));
        Add(json, "icon", Picture(button.GetIcon()));
        Add(json, "wantAgent", Agent(button.GetWantAgent()));
        Add(json, "extras", OptionalParams(button.GetAdditionalData()));
        Add(json, "semantic", Number(static_cast<int>(button.GetSemanticActionButton())));
        Add(json, "autoCreatedReplies", Bool(button.IsAutoCreatedReplies()));
        cJSON* inputs = Made(cJSON_CreateArray());
        for (const auto& input : button.GetMimeTypeOnlyUserInputs()) {
            Append(inputs, Input(input));
        }
        Add(json, "mimeTypeOnlyInputs", inputs);
        Add(json, "userInput", Input(button.GetUserInput()));
        Add(json, "contextDependent", Bool(button.IsContextDependent()));
        return json;
    }

    cJSON* Content(const std::shared_ptr<NotificationContent>& content) {
        if (content == nullptr) {
            return Null();
        }
        cJSON* json = Made(cJSON_CreateObject());
        Add(json, "contentType", Number(static_cast<int>(content->GetContentType())));
        const auto liveView = std::dynamic_pointer_cast<NotificationLiveViewContent>(
            content->GetNotificationContent());
        if (liveView == nullptr) {
            return json;
        }
        Add(json, "title", Text(liveView->GetTitle()));
        Add(json, "text", Text(liveView->GetText()));
        Add(json, "singlePicture", Picture(liveView->GetSinglePicture()));
        Add(json, "status", Number(static_cast<int32_t>(liveView->GetLiveViewStatus())));
        Add(json, "version", Number(liveView->GetVersion()));
        Add(json, "onlyLocalUpdate", Bool(liveView->GetIsOnlyLocalUpdate()));
        Add(json, "extraInfo", OptionalParams(liveView->GetExtraInfo()));
        Add(json, "pictures", Pictures(liveView->GetPicture()));
        return json;
    }

    bool failed_ = false;
};

}  // namespace

cJSON* RequestToJson(const Notification::NotificationRequest& request) {
    Writer writer;
    cJSON* json = writer.Request(request);
    if (writer.Failed()) {
        cJSON_Delete(json);
        return nullptr;
    }
    return json;
}

}  // namespace Wire
}  // namespace Host
}  // namespace Tavi
