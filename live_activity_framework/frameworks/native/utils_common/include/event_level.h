// The name and system-event type that one kind of live view event is written with.
#ifndef LIVE_VIEW_EVENT_LEVEL_H
#define LIVE_VIEW_EVENT_LEVEL_H

#include <string>
#include <utility>

#include "hisysevent.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

struct EventLevel {
    EventLevel(std::string eventName, HiviewDFX::HiSysEvent::EventType eventType)
        : name(std::move(eventName)), type(eventType) {}
    std::string name;
    HiviewDFX::HiSysEvent::EventType type;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_EVENT_LEVEL_H
