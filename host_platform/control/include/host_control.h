// Host-only controls: what tests, tools and application developers use to drive the host
// platform and look into it. Code that must also build for the device never includes this.
//
// With these one can reset everything, set the calling app, switch an app's live view slot,
// inject service failures, set the publish rate limit, drive the service clock, list what was
// published and what the service holds, press a live view's button, make the service die, and
// capture log lines, system events and end events.
//
// Thread safety: every function may be called from any thread.
#ifndef TAVI_HOST_HOST_CONTROL_H
#define TAVI_HOST_HOST_CONTROL_H

#include <cstdint>
#include <string>
#include <vector>

#include "app_event_sink.h"
#include "log_sink.h"
#include "notification_service.h"
#include "sys_event_sink.h"

namespace Tavi {
namespace Host {

// Forgets every live view, subscriber, injected fault, published record and captured record;
// restores the rate limit (10 a second), the real clock, printing sinks and no calling app.
void ResetAll();

// The app that platform calls come from, until changed: its bundle name and uid.
void SetCallingApp(const std::string& bundleName, int32_t uid);
void ClearCallingApp();

// Switches an app's live view slot. An app whose slot was never switched is "not configured":
// its publishes are accepted and the enablement query answers ERR_ANS_SLOT_NOT_CONFIGURED.
void SetLiveViewSlotEnabled(const std::string& bundleName, int32_t uid, bool enabled);

// The next `times` calls of `call` answer errorNumber without doing anything else; times <= 0
// removes the fault.
void FailNextCalls(ServiceCall call, int32_t errorNumber, int times = 1);

// Accepted publishes per app within one second of the service clock; <= 0 for no limit.
void SetRateLimit(int perSecond);

// The service clock in milliseconds. Setting or advancing it makes it manual: it then moves only
// when told. UseRealClock returns to the wall clock (milliseconds since 1970).
void SetClockMillis(int64_t millis);
void AdvanceClock(int64_t millis);
void UseRealClock();
int64_t ClockMillis();

// Every publish call since the last reset, in order, with its answer. Recording can be turned off
// for long runs (turning it off forgets what was recorded).
std::vector<PublishRecord> Published();
void SetPublishRecording(bool enabled);

// The live views held now (ended ones until their auto-deleted time passes), by app then id.
std::vector<HeldLiveView> HeldLiveViews();
// The same list without the requests: which live views are held, and whether each has ended.
std::vector<HeldKey> HeldLiveViewKeys();
// The one live view that the app holds under id, as HeldLiveViews lists it; false when none.
bool HeldLiveViewOf(const std::string& bundleName, int32_t uid, int32_t id, HeldLiveView& held);

// Presses a button of an app's live view: the app's subscribers hear OnResponse. Answers
// ERR_ANS_NOTIFICATION_NOT_EXISTS when the app holds no live view under id.
int32_t PressButton(const std::string& bundleName, int32_t uid, int32_t id,
                    const std::string& buttonName);

// The service dies: every subscriber hears OnDied and is forgotten, every live view is lost. The
// next call meets a fresh service; slot switches and faults are kept.
void KillService();

// Where log lines, system events and end events go (default PRINT to standard error).
void SetLogMode(SinkMode mode);
void SetSysEventMode(SinkMode mode);
void SetAppEventMode(SinkMode mode);
// Sets all three.
void SetAllModes(SinkMode mode);
// What was captured since the last Take, oldest first.
std::vector<LogLine> TakeLogLines();
std::vector<SysEvent> TakeSysEvents();
std::vector<HiviewDFX::HiAppEvent::Event> TakeAppEvents();

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_HOST_CONTROL_H
