// Host-internal: the sink that receives every application event, for the host-only controls.
#ifndef TAVI_HOST_APP_EVENT_SINK_H
#define TAVI_HOST_APP_EVENT_SINK_H

#include "hiappevent.h"
#include "record_sink.h"

namespace Tavi {
namespace Host {

RecordSink<HiviewDFX::HiAppEvent::Event>& AppEventSink();

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_APP_EVENT_SINK_H
