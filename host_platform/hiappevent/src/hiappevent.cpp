#include "hiappevent.h"

#include "app_event_sink.h"

namespace Tavi {
namespace Host {

namespace {
std::string FormatAppEvent(const HiviewDFX::HiAppEvent::Event& event) {
    std::string line = "appevent " + event.GetDomain() + "/" + event.GetName() +
                       " type=" + std::to_string(static_cast<int>(event.GetType()));
    for (const auto& param : event.GetParams()) {
        line += " " + param.key + "=" + param.value;
    }
    return line;
}
}  // namespace

RecordSink<HiviewDFX::HiAppEvent::Event>& AppEventSink() {
    static RecordSink<HiviewDFX::HiAppEvent::Event> sink(FormatAppEvent);
    return sink;
}

}  // namespace Host

namespace HiviewDFX {
namespace HiAppEvent {

int Write(const Event& event) {
    if (event.GetDomain().empty() || event.GetName().empty()) {
        return -1;
    }
    Host::AppEventSink().Emit(event);
    return 0;
}

}  // namespace HiAppEvent
}  // namespace HiviewDFX
}  // namespace Tavi
