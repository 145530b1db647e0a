#include "notification_service.h"

#include <algorithm>
#include <chrono>

#include "bundle_mgr_client.h"
#include "ipc_skeleton.h"
#include "live_view_content_access.h"

namespace Tavi {
namespace Host {

using Notification::ErrCode;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Status = NotificationLiveViewContent::LiveViewStatus;

namespace {
constexpr int64_t RATE_WINDOW_MILLIS = 1000;
constexpr int64_t MILLIS_PER_SECOND = 1000;

// Folds the fields that an update or end carries into what the service holds: new extra-info
// keys and pictures replace old ones of the same key, everything else the update leaves unset
// is kept.
void MergeInto(NotificationRequest& stored, const NotificationRequest& update) {
    auto storedContent = LiveViewContentOf(stored);
    auto updateContent = LiveViewContentOf(update);
    if (updateContent->GetExtraInfo() != nullptr) {
        auto merged = storedContent->GetExtraInfo() == nullptr
                          ? std::make_shared<AAFwk::WantParams>()
                          : storedContent->GetExtraInfo();
        for (const auto& [key, value] : updateContent->GetExtraInfo()->GetParams()) {
            merged->SetParam(key, value);
        }
        storedContent->SetExtraInfo(merged);
    }
    auto pictures = storedContent->GetPicture();
    for (const auto& [key, list] : updateContent->GetPicture()) {
        pictures[key] = list;
    }
    storedContent->SetPicture(std::move(pictures));
    storedContent->SetLiveViewStatus(updateContent->GetLiveViewStatus());
    if (updateContent->GetVersion() != NotificationLiveViewContent::MAX_VERSION) {
        storedContent->SetVersion(updateContent->GetVersion());
    }
    if (updateContent->GetSinglePicture() != nullptr) {
        storedContent->SetSinglePicture(updateContent->GetSinglePicture());
    }
    storedContent->SetIsOnlyLocalUpdate(storedContent->GetIsOnlyLocalUpdate() ||
                                        updateContent->GetIsOnlyLocalUpdate());
    if (update.GetWantAgent() != nullptr) {
        stored.SetWantAgent(update.GetWantAgent());
    }
    if (!update.GetActionButtons().empty()) {
        stored.ClearActionButtons();
        for (const auto& button : update.GetActionButtons()) {
            stored.AddActionButton(button);
        }
    }
    if (update.IsCoverActionButtons()) {
        stored.SetIsCoverActionButtons(true);
    }
    if (update.GetAutoDeletedTime() != NotificationRequest::DEFAULT_AUTO_DELETED_TIME) {
        stored.SetAutoDeletedTime(update.GetAutoDeletedTime());
    }
    stored.SetSlotType(update.GetSlotType());
    stored.SetInProgress(update.IsInProgress());
}

// A copy of what the service holds, as a reader gets it: with only the asked extra-info keys when
// keys is not empty. The keys that are not asked for are not copied at all.
sptr<NotificationRequest> CopyForReader(NotificationRequest& stored,
                                        const std::vector<std::string>& keys) {
    auto content = LiveViewContentOf(stored);
    if (keys.empty() || content == nullptr || content->GetExtraInfo() == nullptr) {
        return stored.Clone();
    }
    const auto full = content->GetExtraInfo();
    auto kept = std::make_shared<AAFwk::WantParams>();
    for (const auto& key : keys) {
        if (full->HasParam(key)) {
            const auto value = full->GetParam(key);
            kept->SetParam(key, value == nullptr ? value : value->Clone());
        }
    }
    // The stored content is cloned without its extra info, which is put back whatever happens.
    struct Restore {
        NotificationLiveViewContent& content;
        const std::shared_ptr<AAFwk::WantParams>& extraInfo;
        ~Restore() { content.SetExtraInfo(extraInfo); }
    } restore{*content, full};
    content->SetExtraInfo(nullptr);
    auto copy = stored.Clone();
    LiveViewContentOf(*copy)->SetExtraInfo(kept);
    return copy;
}

// An ended live view is removed once the whole seconds elapsed since its end reach its
// auto-deleted time; a negative time keeps it. With whole seconds counted down, that is the first
// clock reading endedAt + keepSeconds * 1000; false when that reading does not fit in 64 bits, as
// the clock never gets there.
bool ExpiryMillis(int64_t keepSeconds, int64_t endedAt, int64_t& expiresAt) {
    int64_t keepMillis = 0;
    return keepSeconds >= 0 &&
           !__builtin_mul_overflow(keepSeconds, MILLIS_PER_SECOND, &keepMillis) &&
           !__builtin_add_overflow(endedAt, keepMillis, &expiresAt);
}
}  // namespace

NotificationService& NotificationService::Instance() {
    static NotificationService* service =
        new NotificationService();  // never destroyed: used at exit
    return *service;
}

bool CallingApp(AppId& app) {
    app.uid = IPCSkeleton::GetCallingUid();
    return AppExecFwk::BundleMgrClient().GetNameForUid(app.uid, app.bundleName);
}

bool NotificationService::TakeFault(ServiceCall call, int32_t& errorNumber) {
    auto it = faults_.find(call);
    if (it == faults_.end()) {
        return false;
    }
    errorNumber = it->second.first;
    if (--it->second.second <= 0) {
        faults_.erase(it);
    }
    return true;
}

int64_t NotificationService::NowLocked() const {
    if (manualClock_) {
        return manualMillis_;
    }
    // Wall time, so that times the service reports (the simulator's page and history) read as
    // dates; a wall clock set back only lengthens a rate-limit window or a keep time.
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

void NotificationService::PurgeExpiredLocked(int64_t now) {
    while (!expiries_.empty() && std::get<0>(*expiries_.begin()) <= now) {
        const AppId& app = std::get<1>(*expiries_.begin());
        auto appIt = liveViews_.find(app);
        if (appIt != liveViews_.end()) {
            appIt->second.erase(std::get<2>(*expiries_.begin()));
            if (appIt->second.empty()) {
                liveViews_.erase(appIt);
            }
        }
        expiries_.erase(expiries_.begin());
    }
}

void NotificationService::EndLocked(const AppId& app, int32_t id, Stored& stored, int64_t now) {
    stored.ended = true;
    stored.endedAtMillis = now;
    stored.expires =
        ExpiryMillis(stored.request->GetAutoDeletedTime(), now, stored.expiresAtMillis);
    if (stored.expires) {
        expiries_.emplace(stored.expiresAtMillis, app, id);
    }
}

void NotificationService::ForgetExpiryLocked(const AppId& app, int32_t id, const Stored& stored) {
    if (stored.expires) {
        expiries_.erase(ExpiryKey(stored.expiresAtMillis, app, id));
    }
}

void NotificationService::Record(const AppId& app, const NotificationRequest& request,
                                 int32_t result, int64_t now) {
    if (recordPublishes_) {
        published_.push_back({app, request.Clone(), result, now});
    }
}

ErrCode NotificationService::Publish(const NotificationRequest& request) {
    AppId app;
    std::lock_guard<std::mutex> lock(mutex_);
    const int64_t now = NowLocked();
    ErrCode result =
        CallingApp(app) ? PublishLocked(app, request, now) : Notification::ERR_ANS_INVALID_PARAM;
    Record(app, request, result, now);
    return result;
}

ErrCode NotificationService::PublishLocked(const AppId& app, const NotificationRequest& request,
                                           int64_t now) {
    int32_t injected = 0;
    if (TakeFault(ServiceCall::PUBLISH, injected)) {
        return injected;
    }
    auto content = LiveViewContentOf(request);
    if (content == nullptr) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    auto slot = slotEnabled_.find(app);
    if (slot != slotEnabled_.end() && !slot->second) {
        return Notification::ERR_ANS_SLOT_DISABLED;
    }
    PurgeExpiredLocked(now);
    auto& times = publishTimes_[app];
    while (!times.empty() && times.front() <= now - RATE_WINDOW_MILLIS) {
        times.pop_front();
    }
    if (rateLimit_ > 0 && static_cast<int64_t>(times.size()) >= rateLimit_) {
        return Notification::ERR_ANS_OVER_MAX_ACTIVE_PERSECOND;
    }

    auto& views = liveViews_[app];
    const int32_t id = request.GetNotificationId();
    auto existing = views.find(id);
    const Status status = content->GetLiveViewStatus();
    if (status == Status::LIVE_VIEW_CREATE) {
        if (existing != views.end() && !existing->second.ended) {
            return Notification::ERR_ANS_REPEAT_CREATE;
        }
        if (existing != views.end()) {
            ForgetExpiryLocked(app, id, existing->second);
        }
        views[id] = Stored{request.Clone(), false, 0};
    } else {
        if (existing == views.end()) {
            return Notification::ERR_ANS_NOTIFICATION_NOT_EXISTS;
        }
        Stored& stored = existing->second;
        if (stored.ended) {
            return Notification::ERR_ANS_END_NOTIFICATION;
        }
        const uint32_t version = content->GetVersion();
        const uint32_t storedVersion = LiveViewContentOf(*stored.request)->GetVersion();
        if (version != NotificationLiveViewContent::MAX_VERSION &&
            storedVersion != NotificationLiveViewContent::MAX_VERSION && version <= storedVersion) {
            return Notification::ERR_ANS_EXPIRED_NOTIFICATION;
        }
        auto copy = request.Clone();
        if (status == Status::LIVE_VIEW_FULL_UPDATE) {
            stored.request = copy;
        } else {
            MergeInto(*stored.request, *copy);
        }
        if (status == Status::LIVE_VIEW_END) {
            EndLocked(app, id, stored, now);
        }
    }
    times.push_back(now);
    return Notification::ERR_OK;
}

ErrCode NotificationService::Subscribe(
    Notification::NotificationLocalLiveViewSubscriber* subscriber) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        int32_t injected = 0;
        if (TakeFault(ServiceCall::SUBSCRIBE, injected)) {
            return injected;
        }
        AppId app;
        if (subscriber == nullptr || !CallingApp(app)) {
            return Notification::ERR_ANS_INVALID_PARAM;
        }
        auto& list = subscribers_[app];
        if (std::find(list.begin(), list.end(), subscriber) == list.end()) {
            list.push_back(subscriber);
        }
    }
    subscriber->OnConnected();
    return Notification::ERR_OK;
}

ErrCode NotificationService::GetActive(const Notification::LiveViewFilter& filter,
                                       sptr<NotificationRequest>& request) {
    std::lock_guard<std::mutex> lock(mutex_);
    int32_t injected = 0;
    if (TakeFault(ServiceCall::GET_ACTIVE, injected)) {
        return injected;
    }
    AppId caller;
    if (filter.bundle.GetBundleName().empty() || !CallingApp(caller)) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    const AppId asked{filter.bundle.GetBundleName(), filter.bundle.GetUid()};
    if (!(asked == caller)) {
        // Another app's live views are never visible, not even their existence.
        return Notification::ERR_ANS_NOTIFICATION_NOT_EXISTS;
    }
    PurgeExpiredLocked(NowLocked());
    auto app = liveViews_.find(asked);
    if (app == liveViews_.end()) {
        return Notification::ERR_ANS_NOTIFICATION_NOT_EXISTS;
    }
    auto it = app->second.find(filter.notificationKey.id);
    if (it == app->second.end()) {
        return Notification::ERR_ANS_NOTIFICATION_NOT_EXISTS;
    }
    request = CopyForReader(*it->second.request, filter.extraInfoKeys);
    request->SetOwnerBundleName(asked.bundleName);
    request->SetOwnerUid(asked.uid);
    return Notification::ERR_OK;
}

ErrCode NotificationService::GetEnabled(
    const Notification::NotificationConstant::SlotType& slotType, bool& enabled) {
    std::lock_guard<std::mutex> lock(mutex_);
    int32_t injected = 0;
    if (TakeFault(ServiceCall::GET_ENABLED, injected)) {
        return injected;
    }
    AppId app;
    if (!CallingApp(app)) {
        return Notification::ERR_ANS_INVALID_PARAM;
    }
    auto slot = slotEnabled_.find(app);
    if (slotType != Notification::NotificationConstant::LIVE_VIEW || slot == slotEnabled_.end()) {
        return Notification::ERR_ANS_SLOT_NOT_CONFIGURED;
    }
    enabled = slot->second;
    return Notification::ERR_OK;
}

void NotificationService::Reset() {
    std::lock_guard<std::mutex> lock(mutex_);
    liveViews_.clear();
    expiries_.clear();
    publishTimes_.clear();
    slotEnabled_.clear();
    subscribers_.clear();
    faults_.clear();
    published_.clear();
    recordPublishes_ = true;
    rateLimit_ = 10;
    manualClock_ = false;
    manualMillis_ = 0;
}

void NotificationService::SetSlotEnabled(const AppId& app, bool enabled) {
    std::lock_guard<std::mutex> lock(mutex_);
    slotEnabled_[app] = enabled;
}

void NotificationService::FailNext(ServiceCall call, int32_t errorNumber, int times) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (times <= 0) {
        faults_.erase(call);
    } else {
        faults_[call] = {errorNumber, times};
    }
}

void NotificationService::SetRateLimit(int perSecond) {
    std::lock_guard<std::mutex> lock(mutex_);
    rateLimit_ = perSecond;
}

void NotificationService::SetClockMillis(int64_t millis) {
    std::lock_guard<std::mutex> lock(mutex_);
    manualClock_ = true;
    manualMillis_ = millis;
}

void NotificationService::AdvanceClock(int64_t millis) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!manualClock_) {
        manualMillis_ = NowLocked();
        manualClock_ = true;
    }
    manualMillis_ += millis;
}

void NotificationService::UseRealClock() {
    std::lock_guard<std::mutex> lock(mutex_);
    manualClock_ = false;
}

int64_t NotificationService::ClockMillis() {
    std::lock_guard<std::mutex> lock(mutex_);
    return NowLocked();
}

void NotificationService::SetPublishRecording(bool enabled) {
    std::lock_guard<std::mutex> lock(mutex_);
    recordPublishes_ = enabled;
    if (!enabled) {
        published_.clear();
    }
}

std::vector<PublishRecord> NotificationService::Published() {
    std::lock_guard<std::mutex> lock(mutex_);
    return published_;
}

std::vector<HeldLiveView> NotificationService::Held() {
    std::lock_guard<std::mutex> lock(mutex_);
    PurgeExpiredLocked(NowLocked());
    std::vector<HeldLiveView> out;
    for (const auto& [app, views] : liveViews_) {
        for (const auto& [id, stored] : views) {
            out.push_back({app, id, stored.ended, stored.request->Clone()});
        }
    }
    return out;
}

std::vector<HeldKey> NotificationService::HeldKeys() {
    std::lock_guard<std::mutex> lock(mutex_);
    PurgeExpiredLocked(NowLocked());
    std::vector<HeldKey> out;
    for (const auto& [app, views] : liveViews_) {
        for (const auto& [id, stored] : views) {
            out.push_back({app, id, stored.ended});
        }
    }
    return out;
}

bool NotificationService::HeldOf(const AppId& app, int32_t id, HeldLiveView& held) {
    std::lock_guard<std::mutex> lock(mutex_);
    PurgeExpiredLocked(NowLocked());
    const auto views = liveViews_.find(app);
    if (views == liveViews_.end()) {
        return false;
    }
    const auto stored = views->second.find(id);
    if (stored == views->second.end()) {
        return false;
    }
    held = {app, id, stored->second.ended, stored->second.request->Clone()};
    return true;
}

ErrCode NotificationService::PressButton(const AppId& app, int32_t id,
                                         const std::string& buttonName) {
    std::vector<Subscriber> listeners;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        PurgeExpiredLocked(NowLocked());
        auto views = liveViews_.find(app);
        if (views == liveViews_.end() || views->second.count(id) == 0) {
            return Notification::ERR_ANS_NOTIFICATION_NOT_EXISTS;
        }
        auto subs = subscribers_.find(app);
        if (subs != subscribers_.end()) {
            listeners = subs->second;
        }
    }
    for (Subscriber subscriber : listeners) {
        subscriber->OnResponse(id, sptr<Notification::NotificationButtonOption>(
                                       new Notification::NotificationButtonOption(buttonName)));
    }
    return Notification::ERR_OK;
}

void NotificationService::Die() {
    std::vector<Subscriber> listeners;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        for (const auto& [app, list] : subscribers_) {
            listeners.insert(listeners.end(), list.begin(), list.end());
        }
        subscribers_.clear();
        liveViews_.clear();
        expiries_.clear();
        publishTimes_.clear();
    }
    for (Subscriber subscriber : listeners) {
        subscriber->OnDied();
    }
}

void NotificationService::Restore(const AppId& app, const NotificationRequest& request,
                                  bool ended) {
    std::lock_guard<std::mutex> lock(mutex_);
    const int32_t id = request.GetNotificationId();
    auto& views = liveViews_[app];
    auto existing = views.find(id);
    if (existing != views.end()) {
        ForgetExpiryLocked(app, id, existing->second);
    }
    Stored& stored = views[id] = Stored{request.Clone(), false, 0};
    if (ended) {
        EndLocked(app, id, stored, NowLocked());
    }
}

}  // namespace Host
}  // namespace Tavi
