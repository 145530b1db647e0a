#include "sse_reader.h"

namespace Tavi {
namespace Host {

void SseReader::Feed(const char* data, size_t size, const OnEvent& onEvent) {
    pending_.append(data, size);
    size_t start = 0;
    for (size_t end; (end = pending_.find('\n', start)) != std::string::npos; start = end + 1) {
        size_t length = end - start;
        if (length > 0 && pending_[end - 1] == '\r') {
            --length;
        }
        Line(pending_.substr(start, length), onEvent);
    }
    pending_.erase(0, start);
}

void SseReader::Line(const std::string& line, const OnEvent& onEvent) {
    if (line.empty()) {
        if (hasData_) {
            onEvent(event_.empty() ? "message" : event_, data_);
        }
        event_.clear();
        data_.clear();
        hasData_ = false;
        return;
    }
    const size_t colon = line.find(':');
    if (colon == 0) {
        return;  // a comment
    }
    const std::string field = line.substr(0, colon);
    std::string value = colon == std::string::npos ? std::string() : line.substr(colon + 1);
    if (!value.empty() && value[0] == ' ') {
        value.erase(0, 1);
    }
    if (field == "event") {
        event_ = value;
    } else if (field == "data") {
        data_ += hasData_ ? "\n" + value : value;
        hasData_ = true;
    }
}

}  // namespace Host
}  // namespace Tavi
