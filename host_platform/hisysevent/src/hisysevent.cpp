#include "hisysevent.h"

#include "sys_event_sink.h"

namespace Tavi {
namespace Host {

namespace {
std::string FormatSysEvent(const SysEvent& event) {
    std::string line =
        "sysevent " + event.domain + "/" + event.name + " type=" + std::to_string(event.type);
    for (const auto& param : event.params) {
        line += " " + param.key + "=" + param.value;
    }
    return line;
}
}  // namespace

RecordSink<SysEvent>& SysEventSink() {
    static RecordSink<SysEvent> sink(FormatSysEvent);
    return sink;
}

}  // namespace Host

namespace HiviewDFX {

int HiSysEvent::WriteParams(const std::string& domain, const std::string& eventName, EventType type,
                            std::vector<Param> params) {
    if (domain.empty() || eventName.empty()) {
        return -1;
    }
    Host::SysEventSink().Emit({domain, eventName, static_cast<int>(type), std::move(params)});
    return 0;
}

}  // namespace HiviewDFX
}  // namespace Tavi
