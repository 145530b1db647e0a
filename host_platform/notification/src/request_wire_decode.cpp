#include "request_wire.h"

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

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
using Media::PixelFormat;
using Media::PixelMap;
using Notification::NotificationActionButton;
using Notification::NotificationContent;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Notification::NotificationUserInput;

constexpr int64_t INT32_LOW = std::numeric_limits<int32_t>::min();
constexpr int64_t INT32_HIGH = std::numeric_limits<int32_t>::max();

const std::initializer_list<const char*> REQUEST_MEMBERS = {
    "id",      "slotType",      "inProgress",         "autoDeletedTime", "wantAgent",
    "content", "actionButtons", "coverActionButtons", "ownerBundleName", "ownerUid"};
const std::initializer_list<const char*> NO_OBJECT_MEMBERS = {"contentType"};
const std::initializer_list<const char*> LIVE_VIEW_MEMBERS = {
    "contentType", "title",           "text",      "singlePicture", "status",
    "version",     "onlyLocalUpdate", "extraInfo", "pictures"};
const std::initializer_list<const char*> BUTTON_MEMBERS = {"title",
                                                           "icon",
                                                           "wantAgent",
                                                           "extras",
                                                           "semantic",
                                                           "autoCreatedReplies",
                                                           "mimeTypeOnlyInputs",
                                                           "userInput",
                                                           "contextDependent"};
const std::initializer_list<const char*> PICTURE_MEMBERS = {"width", "height", "format", "pixels"};
const std::initializer_list<const char*> BOX_MEMBERS = {"type", "value"};
const std::initializer_list<const char*> ARRAY_BOX_MEMBERS = {"type", "elementType", "value"};

std::string Join(const std::string& path, const std::string& name) {
    return path.empty() ? name : path + "." + name;
}

std::string Index(const std::string& path, size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

const cJSON* Member(const cJSON* object, const char* name) {
    return cJSON_GetObjectItemCaseSensitive(object, name);
}

// Reads a tree into new objects. The first refusal is kept in Error(); the paths it names start
// at the request's root.
class Reader {
public:
    const std::string& Error() const { return error_; }

    bool Request(const cJSON* json, sptr<NotificationRequest>& request) {
        if (!Shape(json, "", REQUEST_MEMBERS, "expected an object")) {
            return false;
        }
        int64_t id = 0;
        int64_t slotType = 0;
        bool inProgress = false;
        int64_t autoDeletedTime = 0;
        std::shared_ptr<WantAgent> agent;
        std::shared_ptr<NotificationContent> content;
        bool cover = false;
        std::string ownerBundleName;
        int64_t ownerUid = 0;
        if (!Whole(Member(json, "id"), "id", INT32_LOW, INT32_HIGH, id) ||
            !Whole(Member(json, "slotType"), "slotType", INT32_LOW, INT32_HIGH, slotType) ||
            !Flag(Member(json, "inProgress"), "inProgress", inProgress) ||
            !Int64(Member(json, "autoDeletedTime"), "autoDeletedTime", autoDeletedTime) ||
            !Agent(Member(json, "wantAgent"), "wantAgent", agent) ||
            !Content(Member(json, "content"), "content", content)) {
            return false;
        }
        const cJSON* buttons = Member(json, "actionButtons");
        if (!cJSON_IsArray(buttons)) {
            return Fail("actionButtons", "expected an array");
        }
        std::vector<std::shared_ptr<NotificationActionButton>> readButtons;
        for (const cJSON* item = buttons->child; item != nullptr; item = item->next) {
            std::shared_ptr<NotificationActionButton> button;
            if (!Button(item, Index("actionButtons", readButtons.size()), button)) {
                return false;
            }
            readButtons.push_back(button);
        }
        if (!Flag(Member(json, "coverActionButtons"), "coverActionButtons", cover) ||
            !Text(Member(json, "ownerBundleName"), "ownerBundleName", ownerBundleName) ||
            !Whole(Member(json, "ownerUid"), "ownerUid", INT32_LOW, INT32_HIGH, ownerUid)) {
            return false;
        }
        request = new NotificationRequest(static_cast<int32_t>(id));
        request->SetSlotType(static_cast<Notification::NotificationConstant::SlotType>(slotType));
        request->SetInProgress(inProgress);
        request->SetAutoDeletedTime(autoDeletedTime);
        request->SetWantAgent(agent);
        request->SetContent(content);
        for (const auto& button : readButtons) {
            request->AddActionButton(button);
        }
        request->SetIsCoverActionButtons(cover);
        request->SetOwnerBundleName(ownerBundleName);
        request->SetOwnerUid(static_cast<int32_t>(ownerUid));
        return true;
    }

private:
    bool Fail(const std::string& path, const std::string& what) {
        error_ = (path.empty() ? "(root)" : path) + ": " + what;
        return false;
    }

    // An object whose members are names, each exactly once; notObject is the refusal otherwise.
    bool Shape(const cJSON* json, const std::string& path,
               const std::initializer_list<const char*>& names, const char* notObject) {
        if (!cJSON_IsObject(json)) {
            return Fail(path, notObject);
        }
        std::vector<bool> seen(names.size(), false);
        for (const cJSON* member = json->child; member != nullptr; member = member->next) {
            const std::string name = member->string == nullptr ? "" : member->string;
            size_t index = 0;
            while (index < names.size() && name != names.begin()[index]) {
                ++index;
            }
            if (index == names.size()) {
                return Fail(Join(path, name), "unknown member");
            }
            if (seen[index]) {
                return Fail(Join(path, name), "duplicate member");
            }
            seen[index] = true;
        }
        for (size_t index = 0; index < names.size(); ++index) {
            if (!seen[index]) {
                return Fail(Join(path, names.begin()[index]), "missing");
            }
        }
        return true;
    }

    // The whole number member tagName of an object whose members depend on it (a content's type,
    // a box's type).
    bool Tag(const cJSON* json, const std::string& path, const char* tagName, int64_t& tag) {
        if (!cJSON_IsObject(json)) {
            return Fail(path, "expected an object or null");
        }
        const cJSON* item = Member(json, tagName);
        if (item == nullptr) {
            return Fail(Join(path, tagName), "missing");
        }
        return Whole(item, Join(path, tagName), INT32_LOW, INT32_HIGH, tag);
    }

    bool Nesting(const std::string& path, int depth) {
        return depth <= MAX_NESTING ||
               Fail(path, "nested deeper than " + std::to_string(MAX_NESTING) + " levels");
    }

    // A whole number in [low, high], both within ±2^53.
    bool Whole(const cJSON* item, const std::string& path, int64_t low, int64_t high,
               int64_t& value) {
        if (!cJSON_IsNumber(item)) {
            return Fail(path, "expected a number");
        }
        const double number = item->valuedouble;
        if (number != std::floor(number)) {
            return Fail(path, "expected a whole number");
        }
        if (!(number >= static_cast<double>(low) && number <= static_cast<double>(high))) {
            return Fail(path, "out of range " + std::to_string(low) + ".." + std::to_string(high));
        }
        value = static_cast<int64_t>(number);
        return true;
    }

    // A whole number within ±2^53, or the decimal text of one beyond (the encoder's only forms).
    bool Int64(const cJSON* item, const std::string& path, int64_t& value) {
        if (!cJSON_IsString(item)) {
            return Whole(item, path, -MAX_EXACT_WHOLE, MAX_EXACT_WHOLE, value);
        }
        int64_t parsed = 0;
        if (!Decimal(item->valuestring, parsed)) {
            return Fail(path, "expected a whole number or its decimal text");
        }
        if (parsed >= -MAX_EXACT_WHOLE && parsed <= MAX_EXACT_WHOLE) {
            return Fail(path, "within ±2^53: expected a number, not text");
        }
        value = parsed;
        return true;
    }

    // Decimal text without sign '+' or leading zeros that fits in 64 bits.
    static bool Decimal(const char* text, int64_t& value) {
        const bool negative = *text == '-';
        const char* digit = negative ? text + 1 : text;
        if (*digit < '1' || *digit > '9') {
            return false;
        }
        const uint64_t limit = negative ? uint64_t{1} << 63 : (uint64_t{1} << 63) - 1;
        uint64_t magnitude = 0;
        for (; *digit != '\0'; ++digit) {
            if (*digit < '0' || *digit > '9' || magnitude > (limit - (*digit - '0')) / 10) {
                return false;
            }
            magnitude = magnitude * 10 + static_cast<uint64_t>(*digit - '0');
        }
        value = negative ? static_cast<int64_t>(0 - magnitude) : static_cast<int64_t>(magnitude);
        return true;
    }

    // A whole number for which known(number) holds; what names the kind in the refusal.
    template <typename Known>
    bool Choice(const cJSON* item, const std::string& path, const char* what, Known known,
                int64_t& value) {
        if (!Whole(item, path, INT32_LOW, INT32_HIGH, value)) {
            return false;
        }
        return known(value) ||
               Fail(path, std::string("unknown ") + what + " " + std::to_string(value));
    }

    bool Flag(const cJSON* item, const std::string& path, bool& value) {
        if (!cJSON_IsBool(item)) {
            return Fail(path, "expected true or false");
        }
        value = cJSON_IsTrue(item);
        return true;
    }

    bool Text(const cJSON* item, const std::string& path, std::string& value) {
        if (!cJSON_IsString(item)) {
            return Fail(path, "expected a string");
        }
        value = item->valuestring;
        return true;
    }

    bool Agent(const cJSON* item, const std::string& path, std::shared_ptr<WantAgent>& agent) {
        std::string target;
        if (cJSON_IsNull(item)) {
            agent = nullptr;
            return true;
        }
        if (!Shape(item, path, {"target"}, "expected an object or null") ||
            !Text(Member(item, "target"), Join(path, "target"), target)) {
            return false;
        }
        agent = std::make_shared<WantAgent>(target);
        return true;
    }

    bool Input(const cJSON* item, const std::string& path,
               std::shared_ptr<NotificationUserInput>& input) {
        std::string key;
        if (cJSON_IsNull(item)) {
            input = nullptr;
            return true;
        }
        if (!Shape(item, path, {"inputKey"}, "expected an object or null") ||
            !Text(Member(item, "inputKey"), Join(path, "inputKey"), key)) {
            return false;
        }
        input = std::make_shared<NotificationUserInput>(key);
        return true;
    }

    bool Picture(const cJSON* item, const std::string& path, std::shared_ptr<PixelMap>& picture) {
        if (cJSON_IsNull(item)) {
            picture = nullptr;
            return true;
        }
        int64_t width = 0;
        int64_t height = 0;
        int64_t format = 0;
        std::string bytes;
        const std::string pixelsPath = Join(path, "pixels");
        const cJSON* pixels = Member(item, "pixels");
        const auto isFormat = [](int64_t value) {
            return PixelMap::BytesPerPixel(static_cast<PixelFormat>(value)) != 0;
        };
        if (!Shape(item, path, PICTURE_MEMBERS, "expected an object or null") ||
            !Whole(Member(item, "width"), Join(path, "width"), 1, INT32_HIGH, width) ||
            !Whole(Member(item, "height"), Join(path, "height"), 1, INT32_HIGH, height) ||
            !Choice(Member(item, "format"), Join(path, "format"), "format", isFormat, format)) {
            return false;
        }
        // Sides of up to 2^31 multiply within 63 bits; the pixel bytes are applied once the area
        // is known to be small.
        const int64_t room = MAX_PICTURE_BYTES - pictureBytes_;
        const int64_t pixelBytes = PixelMap::BytesPerPixel(static_cast<PixelFormat>(format));
        if (width * height > room || width * height * pixelBytes > room) {
            return Fail(path,
                        "pictures over " + std::to_string(MAX_PICTURE_BYTES) + " bytes in all");
        }
        const int64_t byteCount = width * height * pixelBytes;
        if (!cJSON_IsString(pixels)) {
            return Fail(pixelsPath, "expected a string");
        }
        if (!Base64Decode(pixels->valuestring, bytes)) {
            return Fail(pixelsPath, "not base64");
        }
        if (static_cast<int64_t>(bytes.size()) != byteCount) {
            return Fail(pixelsPath, "expected " + std::to_string(byteCount) + " bytes, got " +
                                        std::to_string(bytes.size()));
        }
        std::shared_ptr<PixelMap> made = PixelMap::Create(Media::InitializationOptions{
            {static_cast<int32_t>(width), static_cast<int32_t>(height)},
            static_cast<PixelFormat>(format)});
        std::memcpy(made->GetWritablePixels(), bytes.data(), bytes.size());
        pictureBytes_ += byteCount;
        picture = std::move(made);
        return true;
    }

    bool Pictures(const cJSON* item, const std::string& path,
                  NotificationLiveViewContent::PictureMap& pictures) {
        if (!cJSON_IsObject(item)) {
            return Fail(path, "expected an object");
        }
        for (const cJSON* member = item->child; member != nullptr; member = member->next) {
            const std::string key = member->string == nullptr ? "" : member->string;
            const std::string keyPath = Join(path, key);
            if (pictures.count(key) != 0) {
                return Fail(keyPath, "duplicate member");
            }
            if (!cJSON_IsArray(member)) {
                return Fail(keyPath, "expected an array");
            }
            auto& list = pictures[key];
            for (const cJSON* entry = member->child; entry != nullptr; entry = entry->next) {
                std::shared_ptr<PixelMap> picture;
                if (!Picture(entry, Index(keyPath, list.size()), picture)) {
                    return false;
                }
                list.push_back(picture);
            }
        }
        return true;
    }

    // depth: the nesting of the object itself, counted from the request's root (1).
    bool OptionalParams(const cJSON* item, const std::string& path, int depth,
                        std::shared_ptr<WantParams>& params) {
        if (cJSON_IsNull(item)) {
            params = nullptr;
            return true;
        }
        if (!cJSON_IsObject(item)) {
            return Fail(path, "expected an object or null");
        }
        auto read = std::make_shared<WantParams>();
        if (!Params(item, path, depth, *read)) {
            return false;
        }
        params = read;
        return true;
    }

    bool Params(const cJSON* item, const std::string& path, int depth, WantParams& params) {
        if (!cJSON_IsObject(item)) {
            return Fail(path, "expected an object");
        }
        if (!Nesting(path, depth)) {
            return false;
        }
        for (const cJSON* member = item->child; member != nullptr; member = member->next) {
            const std::string key = member->string == nullptr ? "" : member->string;
            const std::string keyPath = Join(path, key);
            if (params.HasParam(key)) {
                return Fail(keyPath, "duplicate member");
            }
            sptr<IInterface> box;
            if (!Box(member, keyPath, depth + 1, box)) {
                return false;
            }
            params.SetParam(key, box);
        }
        return true;
    }

    bool Box(const cJSON* item, const std::string& path, int depth, sptr<IInterface>& box) {
        if (cJSON_IsNull(item)) {
            box = nullptr;
            return true;
        }
        int64_t type = 0;
        const std::string typePath = Join(path, "type");
        const auto isBoxType = [](int64_t value) {
            switch (value) {
                case WantParams::VALUE_TYPE_BOOLEAN:
                case WantParams::VALUE_TYPE_INT:
                case WantParams::VALUE_TYPE_LONG:
                case WantParams::VALUE_TYPE_DOUBLE:
                case WantParams::VALUE_TYPE_STRING:
                case WantParams::VALUE_TYPE_WANTPARAMS:
                case WantParams::VALUE_TYPE_ARRAY:
                    return true;
                default:
                    return false;
            }
        };
        if (!Tag(item, path, "type", type) || !Nesting(path, depth)) {
            return false;
        }
        if (!isBoxType(type)) {
            return Fail(typePath, "unknown box type " + std::to_string(type));
        }
        if (!Shape(item, path,
                   type == WantParams::VALUE_TYPE_ARRAY ? ARRAY_BOX_MEMBERS : BOX_MEMBERS,
                   "expected an object or null")) {
            return false;
        }
        const cJSON* value = Member(item, "value");
        const std::string valuePath = Join(path, "value");
        switch (type) {
            case WantParams::VALUE_TYPE_BOOLEAN: {
                bool flag = false;
                if (!Flag(value, valuePath, flag)) {
                    return false;
                }
                box = sptr<IInterface>(AAFwk::Boolean::Box(flag));
                return true;
            }
            case WantParams::VALUE_TYPE_INT: {
                int64_t number = 0;
                if (!Whole(value, valuePath, std::numeric_limits<int>::min(),
                           std::numeric_limits<int>::max(), number)) {
                    return false;
                }
                box = sptr<IInterface>(AAFwk::Integer::Box(static_cast<int>(number)));
                return true;
            }
            case WantParams::VALUE_TYPE_LONG: {
                int64_t number = 0;
                if (!Int64(value, valuePath, number)) {
                    return false;
                }
                box = sptr<IInterface>(AAFwk::Long::Box(static_cast<long>(number)));
                return true;
            }
            case WantParams::VALUE_TYPE_DOUBLE: {
                double number = 0;
                if (!Double(value, valuePath, number)) {
                    return false;
                }
                box = sptr<IInterface>(AAFwk::Double::Box(number));
                return true;
            }
            case WantParams::VALUE_TYPE_STRING: {
                std::string text;
                if (!Text(value, valuePath, text)) {
                    return false;
                }
                box = sptr<IInterface>(AAFwk::String::Box(std::move(text)));
                return true;
            }
            case WantParams::VALUE_TYPE_WANTPARAMS: {
                WantParams nested;
                if (!Params(value, valuePath, depth + 1, nested)) {
                    return false;
                }
                box = sptr<IInterface>(AAFwk::WantParamWrapper::Box(nested));
                return true;
            }
            default:
                return Array(item, path, depth, box);
        }
    }

    // The members of an array box (already checked for shape).
    bool Array(const cJSON* item, const std::string& path, int depth, sptr<IInterface>& box) {
        int64_t elementType = 0;
        const cJSON* values = Member(item, "value");
        const std::string valuePath = Join(path, "value");
        if (!Whole(Member(item, "elementType"), Join(path, "elementType"), INT32_LOW, INT32_HIGH,
                   elementType)) {
            return false;
        }
        if (!cJSON_IsArray(values)) {
            return Fail(valuePath, "expected an array");
        }
        if (!Nesting(valuePath, depth + 1)) {
            return false;
        }
        std::vector<sptr<IInterface>> elements;
        for (const cJSON* entry = values->child; entry != nullptr; entry = entry->next) {
            const std::string entryPath = Index(valuePath, elements.size());
            sptr<IInterface> element;
            if (!Box(entry, entryPath, depth + 2, element)) {
                return false;
            }
            if (element != nullptr && element->GetInterfaceId().value != elementType) {
                return Fail(Join(entryPath, "type"), "expected " + std::to_string(elementType) +
                                                         ", the array's elementType");
            }
            elements.push_back(element);
        }
        sptr<AAFwk::Array> array(new AAFwk::Array(
            static_cast<long>(elements.size()), AAFwk::InterfaceID{static_cast<int>(elementType)}));
        for (size_t i = 0; i < elements.size(); ++i) {
            array->Set(static_cast<long>(i), elements[i]);
        }
        box = sptr<IInterface>(array);
        return true;
    }

    // A finite number, or the text of a value that JSON has no number for.
    bool Double(const cJSON* item, const std::string& path, double& value) {
        if (cJSON_IsString(item)) {
            const std::string text = item->valuestring;
            if (text == NAN_TEXT) {
                value = std::numeric_limits<double>::quiet_NaN();
            } else if (text == INFINITY_TEXT || text == MINUS_INFINITY_TEXT) {
                value = text == INFINITY_TEXT ? std::numeric_limits<double>::infinity()
                                              : -std::numeric_limits<double>::infinity();
            } else {
                return Fail(path, "expected a number, \"NaN\", \"Infinity\" or \"-Infinity\"");
            }
            return true;
        }
        if (!cJSON_IsNumber(item)) {
            return Fail(path, "expected a number");
        }
        if (!std::isfinite(item->valuedouble)) {
            return Fail(path, "out of range of a double");
        }
        value = item->valuedouble;
        return true;
    }

    bool Button(const cJSON* item, const std::string& path,
                std::shared_ptr<NotificationActionButton>& button) {
        std::string title;
        std::shared_ptr<PixelMap> icon;
        std::shared_ptr<WantAgent> agent;
        std::shared_ptr<WantParams> extras;
        int64_t semantic = 0;
        bool autoCreatedReplies = false;
        std::vector<std::shared_ptr<NotificationUserInput>> inputs;
        std::shared_ptr<NotificationUserInput> userInput;
        bool contextDependent = false;
        const auto isSemantic = [](int64_t value) {
            return value >= static_cast<int>(
                                NotificationActionButton::ActionButton::NONE_ACTION_BUTTON) &&
                   value <=
                       static_cast<int>(NotificationActionButton::ActionButton::READ_ACTION_BUTTON);
        };
        // The button is at depth 3: the root, the list, the button.
        if (!Shape(item, path, BUTTON_MEMBERS, "expected an object") ||
            !Text(Member(item, "title"), Join(path, "title"), title) ||
            !Picture(Member(item, "icon"), Join(path, "icon"), icon) ||
            !Agent(Member(item, "wantAgent"), Join(path, "wantAgent"), agent) ||
            !OptionalParams(Member(item, "extras"), Join(path, "extras"), 4, extras) ||
            !Choice(Member(item, "semantic"), Join(path, "semantic"), "semantic", isSemantic,
                    semantic) ||
            !Flag(Member(item, "autoCreatedReplies"), Join(path, "autoCreatedReplies"),
                  autoCreatedReplies)) {
            return false;
        }
        const std::string inputsPath = Join(path, "mimeTypeOnlyInputs");
        const cJSON* list = Member(item, "mimeTypeOnlyInputs");
        if (!cJSON_IsArray(list)) {
            return Fail(inputsPath, "expected an array");
        }
        for (const cJSON* entry = list->child; entry != nullptr; entry = entry->next) {
            std::shared_ptr<NotificationUserInput> input;
            if (!Input(entry, Index(inputsPath, inputs.size()), input)) {
                return false;
            }
            inputs.push_back(input);
        }
        if (!Input(Member(item, "userInput"), Join(path, "userInput"), userInput) ||
            !Flag(Member(item, "contextDependent"), Join(path, "contextDependent"),
                  contextDependent)) {
            return false;
        }
        button = NotificationActionButton::Create(
            icon, title, agent, extras,
            static_cast<NotificationActionButton::ActionButton>(semantic), autoCreatedReplies,
            inputs, userInput, contextDependent);
        return true;
    }

    bool Content(const cJSON* item, const std::string& path,
                 std::shared_ptr<NotificationContent>& content) {
        if (cJSON_IsNull(item)) {
            content = nullptr;
            return true;
        }
        int64_t type = 0;
        const std::string typePath = Join(path, "contentType");
        if (!Tag(item, path, "contentType", type)) {
            return false;
        }
        if (type == static_cast<int>(NotificationContent::Type::NONE)) {
            if (!Shape(item, path, NO_OBJECT_MEMBERS, "expected an object or null")) {
                return false;
            }
            content = std::make_shared<NotificationContent>(nullptr);
            return true;
        }
        if (type != static_cast<int>(NotificationContent::Type::LIVE_VIEW)) {
            return Fail(typePath, "unknown content type " + std::to_string(type));
        }
        std::string title;
        std::string text;
        std::shared_ptr<PixelMap> picture;
        int64_t status = 0;
        int64_t version = 0;
        bool onlyLocalUpdate = false;
        std::shared_ptr<WantParams> extraInfo;
        NotificationLiveViewContent::PictureMap pictures;
        const auto isStatus = [](int64_t value) {
            using Status = NotificationLiveViewContent::LiveViewStatus;
            return value >= static_cast<int32_t>(Status::LIVE_VIEW_CREATE) &&
                   value <= static_cast<int32_t>(Status::LIVE_VIEW_FULL_UPDATE);
        };
        // The extra information is at depth 3: the root, the content, the map.
        if (!Shape(item, path, LIVE_VIEW_MEMBERS, "expected an object or null") ||
            !Text(Member(item, "title"), Join(path, "title"), title) ||
            !Text(Member(item, "text"), Join(path, "text"), text) ||
            !Picture(Member(item, "singlePicture"), Join(path, "singlePicture"), picture) ||
            !Choice(Member(item, "status"), Join(path, "status"), "status", isStatus, status) ||
            !Whole(Member(item, "version"), Join(path, "version"), 0,
                   NotificationLiveViewContent::MAX_VERSION, version) ||
            !Flag(Member(item, "onlyLocalUpdate"), Join(path, "onlyLocalUpdate"),
                  onlyLocalUpdate) ||
            !OptionalParams(Member(item, "extraInfo"), Join(path, "extraInfo"), 3, extraInfo) ||
            !Pictures(Member(item, "pictures"), Join(path, "pictures"), pictures)) {
            return false;
        }
        auto liveView = std::make_shared<NotificationLiveViewContent>();
        liveView->SetTitle(title);
        liveView->SetText(text);
        liveView->SetSinglePicture(picture);
        liveView->SetLiveViewStatus(
            static_cast<NotificationLiveViewContent::LiveViewStatus>(status));
        liveView->SetVersion(static_cast<uint32_t>(version));
        liveView->SetIsOnlyLocalUpdate(onlyLocalUpdate);
        liveView->SetExtraInfo(extraInfo);
        liveView->SetPicture(std::move(pictures));
        content = std::make_shared<NotificationContent>(liveView);
        return true;
    }

    std::string error_;
    int64_t pictureBytes_ = 0;
};

}  // namespace

bool RequestFromJson(const cJSON* wire, sptr<Notification::NotificationRequest>& request,
                     std::string& error) {
    Reader reader;
    sptr<Notification::NotificationRequest> read;
    if (!reader.Request(wire, read)) {
        error = reader.Error();
        return false;
    }
    request = read;
    return true;
}

}  // namespace Wire
}  // namespace Host
}  // namespace Tavi
