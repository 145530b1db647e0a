// The event stream reader: the same events come out however the stream is cut into pieces, and
// comments, unknown fields, CRLF line ends and events without data are handled as the format says.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sse_reader.h"

namespace Tavi::Host {
namespace {

// "event|data" for every event that the stream completes, fed in pieces of at most piece bytes.
std::vector<std::string> Events(const std::string& stream, size_t piece) {
    SseReader reader;
    std::vector<std::string> events;
    for (size_t at = 0; at < stream.size(); at += piece) {
        const std::string part = stream.substr(at, piece);
        reader.Feed(part.data(), part.size(),
                    [&](const std::string& event, const std::string& data) {
                        events.push_back(event + "|" + data);
                    });
    }
    return events;
}

TEST(SseReaderTest, EventsAreTheSameWhereverTheStreamIsCut) {
    struct Row {
        const char* name;
        std::string stream;
        std::vector<std::string> events;
    };
    const Row rows[] = {
        {"named and unnamed",
         "event: response\ndata: {\"id\":7}\n\ndata: hello\n\n",
         {"response|{\"id\":7}", "message|hello"}},
        {"data lines joined by newlines",
         "data: one\ndata:two\ndata:  three\n\n",
         {"message|one\ntwo\n three"}},
        {"comments and unknown fields skipped",
         ": ping\n\nid: 4\nretry: 10\nevent: died\ndata: {}\n\n",
         {"died|{}"}},
        {"CRLF line ends", "event: response\r\ndata: x\r\n\r\n", {"response|x"}},
        {"an event without data is dropped and its name forgotten",
         "event: response\n\ndata: after\n\n",
         {"message|after"}},
        {"an unfinished event waits", "event: died\ndata: {}\n", {}},
        {"a field without a colon is a name with an empty value", "data\n\n", {"message|"}},
    };
    for (const Row& row : rows) {
        for (size_t piece = 1; piece <= row.stream.size(); ++piece) {
            SCOPED_TRACE(std::string(row.name) + ", pieces of " + std::to_string(piece));
            EXPECT_EQ(Events(row.stream, piece), row.events);
        }
    }
}

}  // namespace
}  // namespace Tavi::Host
