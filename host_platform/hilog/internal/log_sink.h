// Host-internal: the sink that receives every log line, for the host-only controls.
#ifndef TAVI_HOST_LOG_SINK_H
#define TAVI_HOST_LOG_SINK_H

#include <string>

#include "record_sink.h"

namespace Tavi {
namespace Host {

struct LogLine {
    int type = 0;
    int level = 0;
    unsigned int domain = 0;
    std::string tag;
    std::string text;  // the formatted message, without a line break
};

RecordSink<LogLine>& LogSink();

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_LOG_SINK_H
