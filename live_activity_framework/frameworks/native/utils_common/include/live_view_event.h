// The kinds of system event that the library reports about its own calls, and the name and type
// that each kind is written with.
//
// Thread safety: EVENT_LEVEL_MAP is built once, before first use, and only read afterwards.
#ifndef LIVE_VIEW_LIVE_VIEW_EVENT_H
#define LIVE_VIEW_LIVE_VIEW_EVENT_H

#include <cstdint>
#include <map>

#include "event_level.h"
#include "hisysevent.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

enum LiveViewEvent : int32_t {
    INVOKE_LIVE_VIEW_SERVICE = 0,
    INVOKE_NOTIFICATION_ERROR = 1,
};

inline const std::map<LiveViewEvent, EventLevel> EVENT_LEVEL_MAP = {
    {INVOKE_LIVE_VIEW_SERVICE,
     EventLevel("INVOKE_LIVE_VIEW_SERVICE", HiviewDFX::HiSysEvent::BEHAVIOR)},
    {INVOKE_NOTIFICATION_ERROR,
     EventLevel("INVOKE_NOTIFICATION_ERROR", HiviewDFX::HiSysEvent::FAULT)},
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_EVENT_H
