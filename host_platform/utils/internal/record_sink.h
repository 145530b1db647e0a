// Host-internal: where the host's diagnostic streams (log lines, system events, end events) go.
// Each stream prints its records, keeps them for the host-only controls, both, or neither.
//
// Thread safety: every member may be called from any thread.
#ifndef TAVI_HOST_RECORD_SINK_H
#define TAVI_HOST_RECORD_SINK_H

#include <cstdio>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace Tavi {
namespace Host {

enum class SinkMode {
    PRINT,              // written to standard error, not kept (the default)
    CAPTURE,            // kept for the controls, not printed
    CAPTURE_AND_PRINT,  // both
    DISCARD,            // neither
};

template <typename Record>
class RecordSink {
public:
    // format renders one record as the single line that PRINT writes (without the newline).
    explicit RecordSink(std::function<std::string(const Record&)> format)
        : format_(std::move(format)) {}

    void SetMode(SinkMode mode) {
        std::lock_guard<std::mutex> lock(mutex_);
        mode_ = mode;
    }

    // A record is copied only when it is kept; one handed over as an rvalue is moved instead.
    void Emit(const Record& record) { EmitRecord(record); }
    void Emit(Record&& record) { EmitRecord(std::move(record)); }

    // The records kept since the last Take or Reset, oldest first; they are forgotten.
    std::vector<Record> Take() {
        std::lock_guard<std::mutex> lock(mutex_);
        std::vector<Record> out;
        out.swap(records_);
        return out;
    }

    // Back to PRINT with nothing kept.
    void Reset() {
        std::lock_guard<std::mutex> lock(mutex_);
        records_.clear();
        mode_ = SinkMode::PRINT;
    }

private:
    template <typename R>
    void EmitRecord(R&& record) {
        std::lock_guard<std::mutex> lock(mutex_);
        if (mode_ == SinkMode::PRINT || mode_ == SinkMode::CAPTURE_AND_PRINT) {
            std::string line = format_(record);
            std::fprintf(stderr, "%s\n", line.c_str());
        }
        if (mode_ == SinkMode::CAPTURE || mode_ == SinkMode::CAPTURE_AND_PRINT) {
            records_.push_back(std::forward<R>(record));
        }
    }

    std::mutex mutex_;
    SinkMode mode_ = SinkMode::PRINT;
    std::vector<Record> records_;
    std::function<std::string(const Record&)> format_;
};

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_RECORD_SINK_H
