#include "remote_service.h"

#include <cjson/cJSON.h>
#include <httplib.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "request_wire.h"
#include "sse_reader.h"

namespace Tavi {
namespace Host {

using Notification::ErrCode;
using Notification::NotificationRequest;

namespace {
constexpr time_t CONNECT_TIMEOUT_SECONDS = 1;
constexpr time_t CALL_TIMEOUT_SECONDS = 5;
// The simulator writes a comment to an open stream every few seconds; silence for longer than
// this means it is gone.
constexpr time_t STREAM_SILENCE_SECONDS = 10;

using Json = Tavi::Host::Wire::JsonTree;

cJSON* AppJson(const AppId& app) {
    cJSON* json = cJSON_CreateObject();
    cJSON_AddStringToObject(json, "bundle", app.bundleName.c_str());
    cJSON_AddNumberToObject(json, "uid", app.uid);
    return json;
}

cJSON* BodyFor(const AppId& app) {
    cJSON* body = cJSON_CreateObject();
    cJSON_AddItemToObject(body, "app", AppJson(app));
    return body;
}

bool ReadInteger(const cJSON* object, const char* name, int64_t& value) {
    // Whole numbers that a double holds exactly; the range check comes before the cast.
    constexpr double LIMIT = 9007199254740992.0;
    const cJSON* item = cJSON_GetObjectItemCaseSensitive(object, name);
    if (!cJSON_IsNumber(item) || !(std::fabs(item->valuedouble) <= LIMIT) ||
        item->valuedouble != std::floor(item->valuedouble)) {
        return false;
    }
    value = static_cast<int64_t>(item->valuedouble);
    return true;
}

std::string ReadString(const cJSON* object, const char* name) {
    const cJSON* item = cJSON_GetObjectItemCaseSensitive(object, name);
    return cJSON_IsString(item) ? item->valuestring : "";
}

bool ReadApp(const cJSON* object, AppId& app) {
    int64_t uid = 0;
    if (!ReadInteger(object, "uid", uid)) {
        return false;
    }
    app.bundleName = ReadString(object, "bundle");
    app.uid = static_cast<int32_t>(uid);
    return true;
}

// A held live view as the simulator lists it; false when the entry is malformed.
bool ReadHeld(const cJSON* entry, HeldLiveView& held) {
    int64_t id = 0;
    std::string error;
    if (!ReadApp(entry, held.app) || !ReadInteger(entry, "id", id)) {
        return false;
    }
    held.id = static_cast<int32_t>(id);
    held.ended = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(entry, "ended"));
    return Wire::RequestFromJson(cJSON_GetObjectItemCaseSensitive(entry, "request"), held.request,
                                 error);
}

std::string PercentEncoded(const std::string& text) {
    static const char* const HEX = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : text) {
        if (std::isalnum(c) || c == '-' || c == '_' || c == '.' || c == '~') {
            out += static_cast<char>(c);
        } else {
            out += '%';
            out += HEX[c >> 4];
            out += HEX[c & 0xF];
        }
    }
    return out;
}

std::unique_ptr<httplib::Client> MakeClient(const RemoteAddress& address, time_t readSeconds) {
    auto client = std::make_unique<httplib::Client>(address.host, address.port);
    client->set_connection_timeout(CONNECT_TIMEOUT_SECONDS, 0);
    client->set_read_timeout(readSeconds, 0);
    client->set_write_timeout(CALL_TIMEOUT_SECONDS, 0);
    client->set_bearer_token_auth(address.token);
    // A request goes out as header and body in two writes; without this, Nagle's algorithm holds
    // the body back until the server's delayed acknowledgement, some 40 ms a call.
    client->set_tcp_nodelay(true);
    return client;
}
}  // namespace

struct RemoteService::Connection {
    std::unique_ptr<httplib::Client> client;
};

bool RemoteService::ParseAddress(const std::string& url, RemoteAddress& address,
                                 std::string& error) {
    const std::string scheme = "http://";
    if (url.compare(0, scheme.size(), scheme) != 0) {
        error = "the simulator's address must start with http:// (" + url + ")";
        return false;
    }
    const size_t hostEnd = url.find_first_of(":/?", scheme.size());
    RemoteAddress parsed;
    parsed.host = url.substr(scheme.size(), hostEnd - scheme.size());
    if (parsed.host.empty() || hostEnd == std::string::npos || url[hostEnd] != ':') {
        error = "the simulator's address needs a host and a port (" + url + ")";
        return false;
    }
    const size_t portEnd = url.find_first_of("/?", hostEnd + 1);
    const std::string port = url.substr(hostEnd + 1, portEnd - hostEnd - 1);
    char* end = nullptr;
    const long number = std::strtol(port.c_str(), &end, 10);
    if (port.empty() || *end != '\0' || number <= 0 || number > 65535) {
        error = "the simulator's port is not a port number (" + url + ")";
        return false;
    }
    parsed.port = static_cast<int>(number);
    const size_t token = url.find("token=", portEnd == std::string::npos ? url.size() : portEnd);
    if (token != std::string::npos) {
        parsed.token = url.substr(token + 6, url.find('&', token) - token - 6);
    } else {
        const char* home = std::getenv("HOME");
        const std::string file = std::string(home == nullptr ? "" : home) + "/.liveview/serve-" +
                                 std::to_string(parsed.port) + ".token";
        std::ifstream in(file);
        if (!(in >> parsed.token)) {
            error = "no token in the simulator's address, and none in " + file;
            return false;
        }
    }
    address = parsed;
    return true;
}

RemoteService::RemoteService(RemoteAddress address)
    : address_(std::move(address)), connection_(std::make_unique<Connection>()) {
    connection_->client = MakeClient(address_, CALL_TIMEOUT_SECONDS);
    connection_->client->set_keep_alive(true);
}

RemoteService::~RemoteService() = default;

cJSON* RemoteService::Call(const char* method, const std::string& path, cJSON* body) {
    Json owned(body);
    std::string text;
    if (body != nullptr) {
        char* printed = cJSON_PrintUnformatted(body);
        if (printed == nullptr) {
            return nullptr;
        }
        text = printed;
        cJSON_free(printed);
    }
    std::string received;
    {
        std::lock_guard<std::mutex> lock(connectionMutex_);
        auto result = std::string(method) == "GET"
                          ? connection_->client->Get(path.c_str())
                          : connection_->client->Post(path.c_str(), text, "application/json");
        if (!result || result->status != 200) {
            return nullptr;
        }
        received = std::move(result->body);
    }
    cJSON* answer = cJSON_ParseWithLength(received.data(), received.size());
    if (!cJSON_IsObject(answer)) {
        cJSON_Delete(answer);
        return nullptr;
    }
    return answer;
}

ErrCode RemoteService::CallForCode(const std::string& path, cJSON* body) {
    Json answer(Call("POST", path, body));
    int64_t code = 0;
    if (answer == nullptr || !ReadInteger(answer.get(), "code", code)) {
        return Notification::ERR_ANS_SERVICE_NOT_CONNECTED;
    }
    return static_cast<ErrCode>(code);
}

ErrCode RemoteService::Publish(const NotificationRequest& request) {
    AppId app;
    if (!CallingApp(app)) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    cJSON* wire = Wire::RequestToJson(request);
    if (wire == nullptr) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    cJSON* body = BodyFor(app);
    cJSON_AddItemToObject(body, "request", wire);
    return CallForCode("/api/publish", body);
}

ErrCode RemoteService::Subscribe(Notification::NotificationLocalLiveViewSubscriber* subscriber) {
    AppId app;
    if (subscriber == nullptr || !CallingApp(app)) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    const ErrCode code = CallForCode("/api/subscribe", BodyFor(app));
    if (code != Notification::ERR_OK) {
        return code;
    }
    bool startListening = false;
    {
        std::lock_guard<std::mutex> lock(subscribersMutex_);
        auto& list = subscribers_[app];
        if (std::find(list.begin(), list.end(), subscriber) == list.end()) {
            list.push_back(subscriber);
        }
        startListening = listening_.insert(app).second;
    }
    if (startListening) {
        std::thread(&RemoteService::Listen, this, app).detach();
    }
    subscriber->OnConnected();
    return Notification::ERR_OK;
}

void RemoteService::Listen(AppId app) {
    const auto client = MakeClient(address_, STREAM_SILENCE_SECONDS);
    const std::string path =
        "/api/events?bundle=" + PercentEncoded(app.bundleName) + "&uid=" + std::to_string(app.uid);
    SseReader reader;
    bool died = false;
    client->Get(path.c_str(), [&](const char* data, size_t size) {
        reader.Feed(data, size, [&](const std::string& event, const std::string& payload) {
            if (event == "died") {
                died = true;
            } else if (event == "response") {
                Json notice(cJSON_Parse(payload.c_str()));
                int64_t id = 0;
                if (notice == nullptr || !ReadInteger(notice.get(), "id", id)) {
                    return;
                }
                std::vector<Subscriber> listeners;
                {
                    std::lock_guard<std::mutex> lock(subscribersMutex_);
                    listeners = subscribers_[app];
                }
                for (Subscriber subscriber : listeners) {
                    subscriber->OnResponse(static_cast<int32_t>(id),
                                           sptr<Notification::NotificationButtonOption>(
                                               new Notification::NotificationButtonOption(
                                                   ReadString(notice.get(), "button"))));
                }
            }
        });
        return !died;
    });
    // The service died or the stream ended: either way these subscribers lost their service.
    std::vector<Subscriber> listeners;
    {
        std::lock_guard<std::mutex> lock(subscribersMutex_);
        listeners.swap(subscribers_[app]);
        subscribers_.erase(app);
        listening_.erase(app);
    }
    for (Subscriber subscriber : listeners) {
        subscriber->OnDied();
    }
}

ErrCode RemoteService::GetActive(const Notification::LiveViewFilter& filter,
                                 sptr<NotificationRequest>& request) {
    AppId app;
    if (!CallingApp(app)) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    cJSON* body = BodyFor(app);
    cJSON* wireFilter = cJSON_AddObjectToObject(body, "filter");
    cJSON_AddStringToObject(wireFilter, "bundle", filter.bundle.GetBundleName().c_str());
    cJSON_AddNumberToObject(wireFilter, "uid", filter.bundle.GetUid());
    cJSON_AddNumberToObject(wireFilter, "id", filter.notificationKey.id);
    cJSON* keys = cJSON_AddArrayToObject(wireFilter, "keys");
    for (const auto& key : filter.extraInfoKeys) {
        cJSON_AddItemToArray(keys, cJSON_CreateString(key.c_str()));
    }
    Json answer(Call("POST", "/api/get", body));
    int64_t code = 0;
    if (answer == nullptr || !ReadInteger(answer.get(), "code", code)) {
        return Notification::ERR_ANS_SERVICE_NOT_CONNECTED;
    }
    if (code != Notification::ERR_OK) {
        return static_cast<ErrCode>(code);
    }
    std::string error;
    sptr<NotificationRequest> held;
    if (!Wire::RequestFromJson(cJSON_GetObjectItemCaseSensitive(answer.get(), "request"), held,
                               error)) {
        return Notification::ERR_ANS_SERVICE_NOT_CONNECTED;
    }
    request = held;
    return Notification::ERR_OK;
}

ErrCode RemoteService::GetEnabled(const Notification::NotificationConstant::SlotType& slotType,
                                  bool& enabled) {
    AppId app;
    if (!CallingApp(app)) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    cJSON* body = BodyFor(app);
    cJSON_AddNumberToObject(body, "slotType", static_cast<int>(slotType));
    Json answer(Call("POST", "/api/enabled", body));
    int64_t code = 0;
    if (answer == nullptr || !ReadInteger(answer.get(), "code", code)) {
        return Notification::ERR_ANS_SERVICE_NOT_CONNECTED;
    }
    if (code == Notification::ERR_OK) {
        enabled = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(answer.get(), "enabled"));
    }
    return static_cast<ErrCode>(code);
}

void RemoteService::Reset() {
    std::lock_guard<std::mutex> lock(subscribersMutex_);
    for (auto& [app, list] : subscribers_) {
        list.clear();
    }
}

void RemoteService::SetSlotEnabled(const AppId& app, bool enabled) {
    cJSON* body = BodyFor(app);
    cJSON_AddBoolToObject(body, "enabled", enabled);
    CallForCode("/api/slot", body);
}

void RemoteService::FailNext(ServiceCall call, int32_t errorNumber, int times) {
    cJSON* body = cJSON_CreateObject();
    cJSON_AddStringToObject(body, "call", ServiceCallName(call));
    cJSON_AddNumberToObject(body, "error", errorNumber);
    cJSON_AddNumberToObject(body, "times", times);
    CallForCode("/api/fail-next", body);
}

void RemoteService::SetRateLimit(int perSecond) {
    cJSON* body = cJSON_CreateObject();
    cJSON_AddNumberToObject(body, "perSecond", perSecond);
    CallForCode("/api/rate-limit", body);
}

void RemoteService::SetClockMillis(int64_t millis) {
    cJSON* body = cJSON_CreateObject();
    cJSON_AddNumberToObject(body, "set", static_cast<double>(millis));
    CallForCode("/api/clock", body);
}

void RemoteService::AdvanceClock(int64_t millis) {
    cJSON* body = cJSON_CreateObject();
    cJSON_AddNumberToObject(body, "advance", static_cast<double>(millis));
    CallForCode("/api/clock", body);
}

void RemoteService::UseRealClock() {
    cJSON* body = cJSON_CreateObject();
    cJSON_AddTrueToObject(body, "real");
    CallForCode("/api/clock", body);
}

int64_t RemoteService::ClockMillis() {
    Json answer(Call("GET", "/api/clock", nullptr));
    int64_t millis = -1;
    return answer != nullptr && ReadInteger(answer.get(), "clockMillis", millis) ? millis : -1;
}

void RemoteService::SetPublishRecording(bool) {}

std::vector<PublishRecord> RemoteService::Published() {
    std::vector<PublishRecord> records;
    Json answer(Call("GET", "/api/history?limit=0&requests=1", nullptr));
    const cJSON* rows = cJSON_GetObjectItemCaseSensitive(answer.get(), "history");
    const cJSON* row = nullptr;
    cJSON_ArrayForEach(row, rows) {
        PublishRecord record;
        int64_t code = 0;
        int64_t at = 0;
        std::string error;
        if (ReadApp(row, record.app) && ReadInteger(row, "code", code) &&
            ReadInteger(row, "atMillis", at) &&
            Wire::RequestFromJson(cJSON_GetObjectItemCaseSensitive(row, "request"), record.request,
                                  error)) {
            record.result = static_cast<int32_t>(code);
            record.atMillis = at;
            records.insert(records.begin(), record);  // the simulator lists newest first
        }
    }
    return records;
}

std::vector<HeldLiveView> RemoteService::HeldMatching(cJSON* query) {
    std::vector<HeldLiveView> out;
    Json answer(Call("POST", "/api/held", query));
    const cJSON* entry = nullptr;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(answer.get(), "held")) {
        HeldLiveView held;
        if (ReadHeld(entry, held)) {
            out.push_back(held);
        }
    }
    return out;
}

std::vector<HeldLiveView> RemoteService::Held() {
    return HeldMatching(cJSON_CreateObject());
}

std::vector<HeldKey> RemoteService::HeldKeys() {
    std::vector<HeldKey> keys;
    for (const HeldLiveView& held : Held()) {
        keys.push_back({held.app, held.id, held.ended});
    }
    return keys;
}

bool RemoteService::HeldOf(const AppId& app, int32_t id, HeldLiveView& held) {
    cJSON* query = BodyFor(app);
    cJSON_AddNumberToObject(query, "id", id);
    auto found = HeldMatching(query);
    if (found.empty()) {
        return false;
    }
    held = found.front();
    return true;
}

ErrCode RemoteService::PressButton(const AppId& app, int32_t id, const std::string& buttonName) {
    cJSON* body = BodyFor(app);
    cJSON_AddNumberToObject(body, "id", id);
    cJSON_AddStringToObject(body, "button", buttonName.c_str());
    return CallForCode("/api/press", body);
}

void RemoteService::Die() {
    CallForCode("/api/kill", cJSON_CreateObject());
}

}  // namespace Host
}  // namespace Tavi
