#include "api_decode.h"

#include <cjson/cJSON.h>

#include <cmath>
#include <functional>
#include <initializer_list>
#include <memory>

#include "request_wire.h"

namespace LiveViewSimulator {

namespace {

// The members of one body, read one by one; the first refusal is kept in error.
class BodyReader {
public:
    explicit BodyReader(ApiError& error) : error_(error) {}

    // Parses text as a JSON object whose members are all among known. An empty text is an empty
    // object.
    bool Open(const std::string& text, std::initializer_list<const char*> known) {
        std::string parseError;
        root_.reset(text.empty() ? cJSON_CreateObject()
                                 : Tavi::Host::Wire::ParseJsonText(text, parseError));
        if (root_ == nullptr) {
            return Fail("", "the body is not JSON: " + parseError);
        }
        if (!cJSON_IsObject(root_.get())) {
            return Fail("", "the body must be a JSON object");
        }
        return OnlyKnown(root_.get(), "", known);
    }

    const cJSON* Root() const { return root_.get(); }

    bool Has(const cJSON* object, const char* name) const {
        return cJSON_GetObjectItemCaseSensitive(object, name) != nullptr;
    }

    bool Integer(const cJSON* object, const std::string& path, const char* name, int64_t min,
                 int64_t max, int64_t& value) {
        const cJSON* item = Member(object, path, name);
        if (item == nullptr) {
            return false;
        }
        const double number = item->valuedouble;
        if (!cJSON_IsNumber(item) || number != std::floor(number)) {
            return Fail(Join(path, name), "expected a whole number");
        }
        if (!(number >= static_cast<double>(min) && number <= static_cast<double>(max))) {
            return Fail(Join(path, name),
                        "out of range " + std::to_string(min) + ".." + std::to_string(max));
        }
        value = static_cast<int64_t>(number);
        return true;
    }

    bool Int32(const cJSON* object, const std::string& path, const char* name, int32_t& value) {
        int64_t wide = 0;
        if (!Integer(object, path, name, INT32_MIN, INT32_MAX, wide)) {
            return false;
        }
        value = static_cast<int32_t>(wide);
        return true;
    }

    bool String(const cJSON* object, const std::string& path, const char* name,
                std::string& value) {
        const cJSON* item = Member(object, path, name);
        if (item == nullptr) {
            return false;
        }
        if (!cJSON_IsString(item)) {
            return Fail(Join(path, name), "expected a string");
        }
        value = item->valuestring;
        return true;
    }

    bool Bool(const cJSON* object, const std::string& path, const char* name, bool& value) {
        const cJSON* item = Member(object, path, name);
        if (item == nullptr) {
            return false;
        }
        if (!cJSON_IsBool(item)) {
            return Fail(Join(path, name), "expected true or false");
        }
        value = cJSON_IsTrue(item);
        return true;
    }

    // A member that is itself an object of known members.
    const cJSON* Object(const cJSON* object, const std::string& path, const char* name,
                        std::initializer_list<const char*> known) {
        const cJSON* item = Member(object, path, name);
        if (item == nullptr) {
            return nullptr;
        }
        if (!cJSON_IsObject(item)) {
            Fail(Join(path, name), "expected an object");
            return nullptr;
        }
        return OnlyKnown(item, Join(path, name), known) ? item : nullptr;
    }

    // "app": {"bundle": non-empty string, "uid": whole number}.
    bool App(Tavi::Host::AppId& app) {
        const cJSON* object = Object(root_.get(), "", "app", {"bundle", "uid"});
        if (object == nullptr || !String(object, "app", "bundle", app.bundleName) ||
            !Int32(object, "app", "uid", app.uid)) {
            return false;
        }
        return !app.bundleName.empty() || Fail("app.bundle", "must not be empty");
    }

    bool Fail(const std::string& field, const std::string& message) {
        error_.field = field;
        error_.message = message;
        return false;
    }

private:
    static std::string Join(const std::string& path, const char* name) {
        return path.empty() ? name : path + "." + name;
    }

    const cJSON* Member(const cJSON* object, const std::string& path, const char* name) {
        const cJSON* item = cJSON_GetObjectItemCaseSensitive(object, name);
        if (item == nullptr) {
            Fail(Join(path, name), "missing");
        }
        return item;
    }

    bool OnlyKnown(const cJSON* object, const std::string& path,
                   std::initializer_list<const char*> known) {
        const cJSON* member = nullptr;
        cJSON_ArrayForEach(member, object) {
            bool isKnown = false;
            for (const char* name : known) {
                isKnown = isKnown || std::string(member->string) == name;
            }
            if (!isKnown) {
                return Fail(Join(path, member->string), "unknown member");
            }
            // A lookup finds the first of repeated members; a later one must not hide there.
            if (cJSON_GetObjectItemCaseSensitive(object, member->string) != member) {
                return Fail(Join(path, member->string), "duplicate member");
            }
        }
        return true;
    }

    ApiError& error_;
    Tavi::Host::Wire::JsonTree root_;
};

}  // namespace

bool DecodePublish(const std::string& body, PublishCall& call, ApiError& error) {
    BodyReader reader(error);
    if (!reader.Open(body, {"app", "request"}) || !reader.App(call.app)) {
        return false;
    }
    const cJSON* wire = cJSON_GetObjectItemCaseSensitive(reader.Root(), "request");
    if (wire == nullptr) {
        return reader.Fail("request", "missing");
    }
    std::string wireError;
    if (!Tavi::Host::Wire::RequestFromJson(wire, call.request, wireError)) {
        // The wire codec names the member before ": ", from the request's root.
        const size_t colon = wireError.find(": ");
        const std::string member = colon == std::string::npos ? "" : wireError.substr(0, colon);
        return reader.Fail(member.empty() || member == "(root)" ? "request" : "request." + member,
                           colon == std::string::npos ? wireError : wireError.substr(colon + 2));
    }
    return true;
}

bool DecodeGet(const std::string& body, GetCall& call, ApiError& error) {
    BodyReader reader(error);
    if (!reader.Open(body, {"app", "filter"}) || !reader.App(call.app)) {
        return false;
    }
    const cJSON* filter =
        reader.Object(reader.Root(), "", "filter", {"bundle", "uid", "id", "keys"});
    std::string bundle;
    int32_t uid = 0;
    if (filter == nullptr || !reader.String(filter, "filter", "bundle", bundle) ||
        !reader.Int32(filter, "filter", "uid", uid) ||
        !reader.Int32(filter, "filter", "id", call.filter.notificationKey.id)) {
        return false;
    }
    call.filter.bundle.SetBundleName(bundle);
    call.filter.bundle.SetUid(uid);
    const cJSON* keys = cJSON_GetObjectItemCaseSensitive(filter, "keys");
    if (keys == nullptr) {
        return true;
    }
    if (!cJSON_IsArray(keys)) {
        return reader.Fail("filter.keys", "expected an array of strings");
    }
    const cJSON* key = nullptr;
    int index = 0;
    cJSON_ArrayForEach(key, keys) {
        if (!cJSON_IsString(key)) {
            return reader.Fail("filter.keys[" + std::to_string(index) + "]", "expected a string");
        }
        call.filter.extraInfoKeys.emplace_back(key->valuestring);
        ++index;
    }
    return true;
}

bool DecodeAppCall(const std::string& body, AppCall& call, ApiError& error) {
    BodyReader reader(error);
    if (!reader.Open(body, {"app", "slotType"}) || !reader.App(call.app)) {
        return false;
    }
    return !reader.Has(reader.Root(), "slotType") ||
           reader.Int32(reader.Root(), "", "slotType", call.slotType);
}

bool DecodePress(const std::string& body, PressCall& call, ApiError& error) {
    BodyReader reader(error);
    return reader.Open(body, {"app", "id", "button"}) && reader.App(call.app) &&
           reader.Int32(reader.Root(), "", "id", call.id) &&
           reader.String(reader.Root(), "", "button", call.button);
}

bool DecodeSlot(const std::string& body, SlotCall& call, ApiError& error) {
    BodyReader reader(error);
    return reader.Open(body, {"app", "enabled"}) && reader.App(call.app) &&
           reader.Bool(reader.Root(), "", "enabled", call.enabled);
}

bool DecodeRateLimit(const std::string& body, RateLimitCall& call, ApiError& error) {
    BodyReader reader(error);
    int64_t perSecond = 0;
    if (!reader.Open(body, {"perSecond"}) ||
        !reader.Integer(reader.Root(), "", "perSecond", 0, 1000000, perSecond)) {
        return false;
    }
    call.perSecond = static_cast<int32_t>(perSecond);
    return true;
}

bool DecodeClock(const std::string& body, ClockCall& call, ApiError& error) {
    BodyReader reader(error);
    if (!reader.Open(body, {"set", "advance", "real"})) {
        return false;
    }
    const cJSON* root = reader.Root();
    const int given =
        reader.Has(root, "set") + reader.Has(root, "advance") + reader.Has(root, "real");
    if (given != 1) {
        return reader.Fail("", "give exactly one of set, advance and real");
    }
    // A day of milliseconds times a million years stays far inside 64 bits and a double's exact
    // range, so sums of clock readings cannot overflow.
    constexpr int64_t MAX_MILLIS = 1LL << 52;
    if (reader.Has(root, "set")) {
        call.kind = ClockCall::Kind::SET;
        return reader.Integer(root, "", "set", 0, MAX_MILLIS, call.millis);
    }
    if (reader.Has(root, "advance")) {
        call.kind = ClockCall::Kind::ADVANCE;
        return reader.Integer(root, "", "advance", 0, MAX_MILLIS, call.millis);
    }
    bool real = false;
    call.kind = ClockCall::Kind::REAL;
    return reader.Bool(root, "", "real", real) && (real || reader.Fail("real", "must be true"));
}

bool DecodeFailNext(const std::string& body, FailNextCall& call, ApiError& error) {
    BodyReader reader(error);
    std::string name;
    if (!reader.Open(body, {"call", "error", "times"}) ||
        !reader.String(reader.Root(), "", "call", name) ||
        !reader.Int32(reader.Root(), "", "error", call.errorNumber)) {
        return false;
    }
    if (call.errorNumber == 0) {
        // The service would answer success without doing the call.
        return reader.Fail("error", "must not be 0: an injected fault answers an error number");
    }
    if (!Tavi::Host::ServiceCallNamed(name, call.call)) {
        return reader.Fail("call", "expected publish, subscribe, getActive or getEnabled");
    }
    return !reader.Has(reader.Root(), "times") ||
           reader.Int32(reader.Root(), "", "times", call.times);
}

bool DecodeHeldQuery(const std::string& body, HeldQuery& query, ApiError& error) {
    BodyReader reader(error);
    if (!reader.Open(body, {"app", "id"})) {
        return false;
    }
    query.hasApp = reader.Has(reader.Root(), "app");
    query.hasId = reader.Has(reader.Root(), "id");
    if (query.hasId && !query.hasApp) {
        return reader.Fail("id", "an id needs the app it belongs to");
    }
    return (!query.hasApp || reader.App(query.app)) &&
           (!query.hasId || reader.Int32(reader.Root(), "", "id", query.id));
}

bool DecodeEmpty(const std::string& body, ApiError& error) {
    BodyReader reader(error);
    return reader.Open(body, {});
}

}  // namespace LiveViewSimulator
