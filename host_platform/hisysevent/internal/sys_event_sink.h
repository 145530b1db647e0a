// Host-internal: the sink that receives every system event, for the host-only controls.
#ifndef TAVI_HOST_SYS_EVENT_SINK_H
#define TAVI_HOST_SYS_EVENT_SINK_H

#include <string>
#include <vector>

#include "hisysevent.h"
#include "record_sink.h"

namespace Tavi {
namespace Host {

struct SysEvent {
    std::string domain;
    std::string name;
    int type = 0;
    std::vector<HiviewDFX::HiSysEvent::Param> params;
    // The value of key, or "" when the event has no such parameter.
    std::string Get(const std::string& key) const {
        for (const auto& param : params) {
            if (param.key == key) {
                return param.value;
            }
        }
        return "";
    }
};

RecordSink<SysEvent>& SysEventSink();

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_SYS_EVENT_SINK_H
