// Host-internal: reads a Server-Sent Events stream as it arrives in pieces, and hands over each
// complete event (its name, "message" when unnamed, and its data lines joined by '\n').
// Comment lines (": ping") and unknown fields are skipped.
//
// Thread safety: none; one reader per stream.
#ifndef TAVI_HOST_SSE_READER_H
#define TAVI_HOST_SSE_READER_H

#include <cstddef>
#include <functional>
#include <string>

namespace Tavi {
namespace Host {

class SseReader {
public:
    using OnEvent = std::function<void(const std::string& event, const std::string& data)>;

    // Feeds the next piece of the stream; onEvent is called for every event it completes.
    void Feed(const char* data, size_t size, const OnEvent& onEvent);

private:
    void Line(const std::string& line, const OnEvent& onEvent);

    std::string pending_;  // the incomplete last line
    std::string event_;
    std::string data_;
    bool hasData_ = false;
};

}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_SSE_READER_H
