#include "simulator.h"

#include <cjson/cJSON.h>

#include <algorithm>
#include <tuple>

#include "live_view_content_access.h"
#include "notification_helper.h"
#include "notification_service.h"
#include "render_presentations.h"
#include "request_wire.h"
#include "service_answer.h"

namespace LiveViewSimulator {

using Tavi::Host::AppId;
using Tavi::Notification::ErrCode;
using Tavi::Notification::NotificationHelper;

namespace {
constexpr int PAGE_HISTORY_ROWS = 50;

using Json = Tavi::Host::Wire::JsonTree;

// The answer with json (taken over) as its body.
ApiAnswer Answer(cJSON* json, int status = 200) {
    Json owned(json);
    char* text = cJSON_PrintUnformatted(json);
    ApiAnswer answer{status,
                     text == nullptr ? "{\"error\":\"out of memory\",\"field\":\"\"}" : text};
    cJSON_free(text);
    return answer;
}

ApiAnswer CodeAnswer(int32_t code) {
    cJSON* json = cJSON_CreateObject();
    cJSON_AddNumberToObject(json, "code", code);
    return Answer(json);
}

ApiAnswer StoreFailure(const std::string& error) {
    cJSON* json = cJSON_CreateObject();
    cJSON_AddStringToObject(json, "error", ("the store failed: " + error).c_str());
    cJSON_AddStringToObject(json, "field", "");
    return Answer(json, 500);
}

void AddApp(cJSON* json, const AppId& app) {
    cJSON_AddStringToObject(json, "bundle", app.bundleName.c_str());
    cJSON_AddNumberToObject(json, "uid", app.uid);
}

HeldRow RowOf(const Tavi::Host::HeldLiveView& held) {
    return {held.app.bundleName, held.app.uid, held.id, held.ended,
            Tavi::Host::Wire::RequestToText(*held.request)};
}

cJSON* HeldJson(const Tavi::Host::HeldLiveView& held) {
    cJSON* json = cJSON_CreateObject();
    AddApp(json, held.app);
    cJSON_AddNumberToObject(json, "id", held.id);
    cJSON_AddBoolToObject(json, "ended", held.ended);
    cJSON_AddItemToObject(json, "request", Tavi::Host::Wire::RequestToJson(*held.request));
    return json;
}
}  // namespace

// Stands in the service for an app that subscribed through the API: what the service tells it
// waits in the hub for the app's event stream.
class Simulator::AppNotices : public Tavi::Notification::NotificationLocalLiveViewSubscriber {
public:
    AppNotices(AppId app, EventHub& events) : app_(std::move(app)), events_(events) {}
    void OnConnected() override {}
    void OnDisconnected() override {}
    void OnResponse(int32_t notificationId,
                    Tavi::sptr<Tavi::Notification::NotificationButtonOption> option) override {
        Json data(cJSON_CreateObject());
        cJSON_AddNumberToObject(data.get(), "id", notificationId);
        cJSON_AddStringToObject(data.get(), "button",
                                option == nullptr ? "" : option->GetButtonName().c_str());
        char* text = cJSON_PrintUnformatted(data.get());
        if (text != nullptr) {
            events_.Post(app_, {"response", text});
            cJSON_free(text);
        }
    }
    void OnDied() override { events_.Post(app_, {"died", "{}"}); }

private:
    const AppId app_;
    EventHub& events_;
};

std::unique_ptr<Simulator> Simulator::Open(const SimulatorOptions& options, std::string& error) {
    auto store = SimStore::Open(options.databasePath, error);
    if (store == nullptr) {
        return nullptr;
    }
    Tavi::Host::UseEmbeddedService();
    Tavi::Host::ResetAll();
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    std::unique_ptr<Simulator> simulator(new Simulator(std::move(store), options));
    std::lock_guard<std::mutex> lock(simulator->mutex_);
    if (!simulator->RestoreLocked(error)) {
        return nullptr;
    }
    return simulator;
}

Simulator::Simulator(std::unique_ptr<SimStore> store, SimulatorOptions options)
    : options_(std::move(options)), store_(std::move(store)) {}

Simulator::~Simulator() {
    events_.Stop();
    std::lock_guard<std::mutex> lock(mutex_);
    // The service keeps pointers to the stand-ins; it must forget them before they go.
    Tavi::Host::ResetAll();
}

bool Simulator::RestoreLocked(std::string& error) {
    for (const SlotRow& slot : store_->Slots()) {
        Tavi::Host::SetLiveViewSlotEnabled(slot.bundle, slot.uid, slot.enabled);
        apps_.insert({slot.bundle, slot.uid});
    }
    for (const HeldRow& row : store_->Held()) {
        Tavi::sptr<Tavi::Notification::NotificationRequest> request;
        if (!Tavi::Host::Wire::RequestFromText(row.request, request, error)) {
            error = "held live view " + std::to_string(row.liveViewId) + " of " + row.bundle +
                    " in the store: " + error;
            return false;
        }
        request->SetNotificationId(row.liveViewId);
        const AppId app{row.bundle, row.uid};
        Tavi::Host::NotificationService::Instance().Restore(app, *request, row.ended);
        apps_.insert(app);
    }
    lastHeld_ = Tavi::Host::HeldLiveViewKeys();
    return true;
}

void Simulator::SetCallerLocked(const AppId& app) {
    Tavi::Host::SetCallingApp(app.bundleName, app.uid);
    apps_.insert(app);
}

bool Simulator::SyncHeldLocked(std::string& error) {
    // Only the list is compared: a held request changes only by a publish, which writes its row.
    auto now = Tavi::Host::HeldLiveViewKeys();
    if (now == lastHeld_) {
        return true;
    }
    std::vector<HeldRow> rows;
    for (const auto& view : Tavi::Host::HeldLiveViews()) {
        rows.push_back(RowOf(view));
    }
    if (!store_->ReplaceHeld(rows, error)) {
        return false;
    }
    lastHeld_ = std::move(now);
    events_.Changed();
    return true;
}

void Simulator::NoteWrittenLocked(const AppId& app, int32_t id, const HeldRow* written) {
    const auto at = std::find_if(lastHeld_.begin(), lastHeld_.end(),
                                 [&](const auto& key) { return key.app == app && key.id == id; });
    if (written == nullptr) {
        if (at != lastHeld_.end()) {
            lastHeld_.erase(at);
        }
        return;
    }
    const Tavi::Host::HeldKey key{app, id, written->ended};
    if (at != lastHeld_.end()) {
        *at = key;
        return;
    }
    // Kept in the service's order (app, then id), so that it compares equal to a fresh listing.
    const auto before = std::find_if(lastHeld_.begin(), lastHeld_.end(), [&](const auto& other) {
        return std::tie(other.app, other.id) > std::tie(app, id);
    });
    lastHeld_.insert(before, key);
}

ApiAnswer Simulator::Publish(const PublishCall& call) {
    const auto& request = *call.request;
    const auto content = Tavi::Host::LiveViewContentOf(request);
    ApiAnswer answer;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        SetCallerLocked(call.app);
        const ErrCode code = NotificationHelper::PublishNotification(request);
        const ServiceAnswer meaning = DescribeServiceAnswer(code);
        PublishRow row;
        row.atMillis = Tavi::Host::ClockMillis();
        row.bundle = call.app.bundleName;
        row.uid = call.app.uid;
        row.liveViewId = request.GetNotificationId();
        row.operation = content == nullptr
                            ? "unknown"
                            : OperationName(static_cast<int32_t>(content->GetLiveViewStatus()));
        row.request = Tavi::Host::Wire::RequestToText(request);
        row.code = code;
        row.message = meaning.message;
        row.field = meaning.field;
        Tavi::Host::HeldLiveView held;
        const bool isHeld =
            Tavi::Host::HeldLiveViewOf(call.app.bundleName, call.app.uid, row.liveViewId, held);
        const HeldRow heldRow = isHeld ? RowOf(held) : HeldRow{};
        std::string error;
        if (!store_->RecordPublish(row, isHeld ? &heldRow : nullptr, error)) {
            return StoreFailure(error);
        }
        NoteWrittenLocked(call.app, row.liveViewId, isHeld ? &heldRow : nullptr);
        if (code == 0) {
            ++revisions_[{call.app, row.liveViewId}];
        }
        // The publish may also have let ended live views of others expire: their rows go now.
        if (!SyncHeldLocked(error)) {
            return StoreFailure(error);
        }
        cJSON* json = cJSON_CreateObject();
        cJSON_AddNumberToObject(json, "code", code);
        cJSON_AddStringToObject(json, "message", meaning.message.c_str());
        cJSON_AddStringToObject(json, "field", meaning.field.c_str());
        answer = Answer(json);
    }
    events_.Changed();
    return answer;
}

ApiAnswer Simulator::Get(const GetCall& call) {
    Tavi::sptr<Tavi::Notification::NotificationRequest> request;
    ErrCode code = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        SetCallerLocked(call.app);
        code = NotificationHelper::GetActiveNotificationByFilter(call.filter, request);
    }
    cJSON* json = cJSON_CreateObject();
    cJSON_AddNumberToObject(json, "code", code);
    cJSON_AddItemToObject(json, "request",
                          code == 0 && request != nullptr
                              ? Tavi::Host::Wire::RequestToJson(*request)
                              : cJSON_CreateNull());
    return Answer(json);
}

ApiAnswer Simulator::Enabled(const AppCall& call) {
    bool enabled = false;
    ErrCode code = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        SetCallerLocked(call.app);
        const auto slotType =
            static_cast<Tavi::Notification::NotificationConstant::SlotType>(call.slotType);
        code = NotificationHelper::GetEnabledForBundleSlotSelf(slotType, enabled);
    }
    cJSON* json = cJSON_CreateObject();
    cJSON_AddNumberToObject(json, "code", code);
    cJSON_AddBoolToObject(json, "enabled", enabled);
    return Answer(json);
}

ApiAnswer Simulator::Subscribe(const AppCall& call) {
    ErrCode code = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        SetCallerLocked(call.app);
        auto& notices = notices_[call.app];
        if (notices == nullptr) {
            notices = std::make_unique<AppNotices>(call.app, events_);
        }
        events_.Clear(call.app);
        code = NotificationHelper::SubscribeLocalLiveViewNotification(notices.get());
    }
    return CodeAnswer(code);
}

ApiAnswer Simulator::Press(const PressCall& call) {
    std::lock_guard<std::mutex> lock(mutex_);
    apps_.insert(call.app);
    return CodeAnswer(
        Tavi::Host::PressButton(call.app.bundleName, call.app.uid, call.id, call.button));
}

ApiAnswer Simulator::Slot(const SlotCall& call) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        std::string error;
        if (!store_->SetSlot({call.app.bundleName, call.app.uid, call.enabled}, error)) {
            return StoreFailure(error);
        }
        Tavi::Host::SetLiveViewSlotEnabled(call.app.bundleName, call.app.uid, call.enabled);
        apps_.insert(call.app);
    }
    events_.Changed();
    return CodeAnswer(0);
}

ApiAnswer Simulator::RateLimit(const RateLimitCall& call) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        Tavi::Host::SetRateLimit(call.perSecond);
        rateLimit_ = call.perSecond;
    }
    events_.Changed();
    return CodeAnswer(0);
}

ApiAnswer Simulator::Clock(const ClockCall& call) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        switch (call.kind) {
            case ClockCall::Kind::SET:
                Tavi::Host::SetClockMillis(call.millis);
                break;
            case ClockCall::Kind::ADVANCE:
                Tavi::Host::AdvanceClock(call.millis);
                break;
            case ClockCall::Kind::REAL:
                Tavi::Host::UseRealClock();
                break;
        }
        manualClock_ = call.kind != ClockCall::Kind::REAL;
        std::string error;
        if (!SyncHeldLocked(error)) {
            return StoreFailure(error);
        }
    }
    events_.Changed();
    return ClockNow();
}

ApiAnswer Simulator::ClockNow() {
    std::lock_guard<std::mutex> lock(mutex_);
    cJSON* json = cJSON_CreateObject();
    cJSON_AddNumberToObject(json, "code", 0);
    cJSON_AddNumberToObject(json, "clockMillis", static_cast<double>(Tavi::Host::ClockMillis()));
    cJSON_AddBoolToObject(json, "manual", manualClock_);
    return Answer(json);
}

ApiAnswer Simulator::FailNext(const FailNextCall& call) {
    std::lock_guard<std::mutex> lock(mutex_);
    Tavi::Host::FailNextCalls(call.call, call.errorNumber, call.times);
    return CodeAnswer(0);
}

ApiAnswer Simulator::Kill() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        Tavi::Host::KillService();
        std::string error;
        if (!SyncHeldLocked(error)) {
            return StoreFailure(error);
        }
    }
    events_.Changed();
    return CodeAnswer(0);
}

ApiAnswer Simulator::Held(const HeldQuery& query) {
    std::vector<Tavi::Host::HeldLiveView> held;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        Tavi::Host::HeldLiveView one;
        if (!query.hasId) {
            held = Tavi::Host::HeldLiveViews();
        } else if (Tavi::Host::HeldLiveViewOf(query.app.bundleName, query.app.uid, query.id, one)) {
            held.push_back(one);  // only the one asked for is copied
        }
    }
    cJSON* json = cJSON_CreateObject();
    cJSON* list = cJSON_AddArrayToObject(json, "held");
    for (const auto& view : held) {
        if ((!query.hasApp || view.app == query.app) && (!query.hasId || view.id == query.id)) {
            cJSON_AddItemToArray(list, HeldJson(view));
        }
    }
    return Answer(json);
}

ApiAnswer Simulator::History(int limit, bool withRequests) {
    cJSON* json = cJSON_CreateObject();
    cJSON* list = cJSON_AddArrayToObject(json, "history");
    for (const PublishRow& row : store_->History(limit)) {
        cJSON* entry = cJSON_CreateObject();
        cJSON_AddNumberToObject(entry, "seq", static_cast<double>(row.seq));
        cJSON_AddNumberToObject(entry, "atMillis", static_cast<double>(row.atMillis));
        cJSON_AddStringToObject(entry, "bundle", row.bundle.c_str());
        cJSON_AddNumberToObject(entry, "uid", row.uid);
        cJSON_AddNumberToObject(entry, "id", row.liveViewId);
        cJSON_AddStringToObject(entry, "operation", row.operation.c_str());
        cJSON_AddNumberToObject(entry, "code", row.code);
        cJSON_AddStringToObject(entry, "message", row.message.c_str());
        cJSON_AddStringToObject(entry, "field", row.field.c_str());
        if (withRequests) {
            cJSON* request = cJSON_Parse(row.request.c_str());
            cJSON_AddItemToObject(entry, "request",
                                  request == nullptr ? cJSON_CreateNull() : request);
        }
        cJSON_AddItemToArray(list, entry);
    }
    return Answer(json);
}

void Simulator::Tick() {
    std::lock_guard<std::mutex> lock(mutex_);
    std::string error;
    SyncHeldLocked(error);  // a failure is tried again at the next tick
}

ApiAnswer Simulator::State() {
    std::lock_guard<std::mutex> lock(stateMutex_);
    const int64_t change = events_.ChangeCount();
    if (change != stateChange_) {
        state_ = RenderState();
        stateChange_ = change;
    }
    return {200, state_};
}

std::string Simulator::RenderState() {
    std::vector<Tavi::Host::HeldKey> held;
    std::vector<int64_t> revisions;
    std::vector<std::pair<AppId, std::string>> apps;
    int64_t clock = 0;
    bool manual = false;
    int32_t rateLimit = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        held = Tavi::Host::HeldLiveViewKeys();
        for (const auto& key : held) {
            const auto revision = revisions_.find({key.app, key.id});
            revisions.push_back(revision == revisions_.end() ? 0 : revision->second);
        }
        for (const AppId& app : apps_) {
            Tavi::Host::SetCallingApp(app.bundleName, app.uid);
            bool enabled = false;
            const ErrCode code = NotificationHelper::GetEnabledForBundleSlotSelf(
                Tavi::Notification::NotificationConstant::LIVE_VIEW, enabled);
            apps.emplace_back(app, code != 0 ? "not configured" : enabled ? "enabled" : "disabled");
        }
        clock = Tavi::Host::ClockMillis();
        manual = manualClock_;
        rateLimit = rateLimit_;
    }
    Json json(cJSON_CreateObject());
    cJSON_AddNumberToObject(json.get(), "seq", static_cast<double>(events_.ChangeCount()));
    cJSON_AddNumberToObject(json.get(), "clockMillis", static_cast<double>(clock));
    cJSON_AddBoolToObject(json.get(), "manualClock", manual);
    cJSON_AddNumberToObject(json.get(), "rateLimit", rateLimit);
    cJSON* appList = cJSON_AddArrayToObject(json.get(), "apps");
    for (const auto& [app, slot] : apps) {
        cJSON* entry = cJSON_CreateObject();
        AddApp(entry, app);
        cJSON_AddStringToObject(entry, "slot", slot.c_str());
        cJSON_AddItemToArray(appList, entry);
    }
    const ApiAnswer history = History(PAGE_HISTORY_ROWS, false);
    Json historyJson(cJSON_Parse(history.body.c_str()));
    cJSON* rows = cJSON_DetachItemFromObjectCaseSensitive(historyJson.get(), "history");
    cJSON_AddItemToObject(json.get(), "history", rows == nullptr ? cJSON_CreateArray() : rows);
    char* text = cJSON_PrintUnformatted(json.get());
    if (text == nullptr) {
        return "{}";
    }
    std::string out(text);
    cJSON_free(text);

    // The views are drawn once per revision and spliced in as text: with a thousand held, drawing
    // them all again, or copying their drawings through a JSON tree, would take most of a change.
    std::map<std::pair<AppId, int32_t>, DrawnView> drawn;
    out.pop_back();  // the closing brace
    out += ",\"views\":[";
    for (size_t i = 0; i < held.size(); ++i) {
        const auto& key = held[i];
        const std::pair<AppId, int32_t> name{key.app, key.id};
        auto cached = drawn_.find(name);
        if (cached == drawn_.end() || cached->second.revision != revisions[i] ||
            cached->second.ended != key.ended) {
            Tavi::Host::HeldLiveView view;
            {
                std::lock_guard<std::mutex> lock(mutex_);
                if (!Tavi::Host::HeldLiveViewOf(key.app.bundleName, key.app.uid, key.id, view)) {
                    continue;  // gone since the listing; the next change redraws without it
                }
            }
            view.ended = key.ended;
            cached = drawn_
                         .insert_or_assign(
                             name, DrawnView{revisions[i], key.ended, DrawView(view, revisions[i])})
                         .first;
        }
        if (out.back() != '[') {
            out += ',';
        }
        out += cached->second.json;
        drawn.insert(*cached);
    }
    out += "]}";
    drawn_ = std::move(drawn);
    return out;
}

std::string Simulator::DrawView(const Tavi::Host::HeldLiveView& view, int64_t revision) const {
    LiveViewRender::RenderOptions renderOptions;
    renderOptions.resourceDir = options_.resourceDir;
    const auto drawn = LiveViewRender::RenderPresentations(view.request, renderOptions);
    Json entry(cJSON_CreateObject());
    AddApp(entry.get(), view.app);
    cJSON_AddNumberToObject(entry.get(), "id", view.id);
    cJSON_AddBoolToObject(entry.get(), "ended", view.ended);
    cJSON_AddNumberToObject(entry.get(), "rev", static_cast<double>(revision));
    cJSON_AddStringToObject(entry.get(), "event", drawn.event.c_str());
    cJSON_AddStringToObject(entry.get(), "capsule", drawn.capsule.c_str());
    cJSON_AddStringToObject(entry.get(), "card", drawn.card.c_str());
    cJSON_AddStringToObject(entry.get(), "lockScreen", drawn.lockScreen.c_str());
    cJSON_AddStringToObject(entry.get(), "external", drawn.external.c_str());
    cJSON* buttons = cJSON_AddArrayToObject(entry.get(), "buttons");
    for (const auto& button : view.request->GetActionButtons()) {
        if (button != nullptr) {
            cJSON_AddItemToArray(buttons,
                                 cJSON_CreateString(LiveViewRender::ButtonLabel(*button).c_str()));
        }
    }
    cJSON* readBack = cJSON_AddObjectToObject(entry.get(), "readBack");
    cJSON_AddNumberToObject(readBack, "code", drawn.readBack.code);
    cJSON_AddStringToObject(readBack, "message", drawn.readBack.message.c_str());
    char* text = cJSON_PrintUnformatted(entry.get());
    std::string out = text == nullptr ? "null" : text;
    cJSON_free(text);
    return out;
}

}  // namespace LiveViewSimulator
