#include "host_control.h"

#include "host_identity.h"

namespace Tavi {
namespace Host {

namespace {
ServiceBackend& Service() {
    return ActiveService();
}
}  // namespace

void ResetAll() {
    Service().Reset();
    Identity::Clear();
    LogSink().Reset();
    SysEventSink().Reset();
    AppEventSink().Reset();
}

void SetCallingApp(const std::string& bundleName, int32_t uid) {
    Identity::SetCallingApp(bundleName, uid);
}

void ClearCallingApp() {
    Identity::Clear();
}

void SetLiveViewSlotEnabled(const std::string& bundleName, int32_t uid, bool enabled) {
    Service().SetSlotEnabled({bundleName, uid}, enabled);
}

void FailNextCalls(ServiceCall call, int32_t errorNumber, int times) {
    Service().FailNext(call, errorNumber, times);
}

void SetRateLimit(int perSecond) {
    Service().SetRateLimit(perSecond);
}

void SetClockMillis(int64_t millis) {
    Service().SetClockMillis(millis);
}

void AdvanceClock(int64_t millis) {
    Service().AdvanceClock(millis);
}

void UseRealClock() {
    Service().UseRealClock();
}

int64_t ClockMillis() {
    return Service().ClockMillis();
}

std::vector<PublishRecord> Published() {
    return Service().Published();
}

void SetPublishRecording(bool enabled) {
    Service().SetPublishRecording(enabled);
}

std::vector<HeldLiveView> HeldLiveViews() {
    return Service().Held();
}

std::vector<HeldKey> HeldLiveViewKeys() {
    return Service().HeldKeys();
}

bool HeldLiveViewOf(const std::string& bundleName, int32_t uid, int32_t id, HeldLiveView& held) {
    return Service().HeldOf({bundleName, uid}, id, held);
}

int32_t PressButton(const std::string& bundleName, int32_t uid, int32_t id,
                    const std::string& buttonName) {
    return Service().PressButton({bundleName, uid}, id, buttonName);
}

void KillService() {
    Service().Die();
}

void SetLogMode(SinkMode mode) {
    LogSink().SetMode(mode);
}

void SetSysEventMode(SinkMode mode) {
    SysEventSink().SetMode(mode);
}

void SetAppEventMode(SinkMode mode) {
    AppEventSink().SetMode(mode);
}

void SetAllModes(SinkMode mode) {
    SetLogMode(mode);
    SetSysEventMode(mode);
    SetAppEventMode(mode);
}

std::vector<LogLine> TakeLogLines() {
    return LogSink().Take();
}

std::vector<SysEvent> TakeSysEvents() {
    return SysEventSink().Take();
}

std::vector<HiviewDFX::HiAppEvent::Event> TakeAppEvents() {
    return AppEventSink().Take();
}

}  // namespace Host
}  // namespace Tavi
