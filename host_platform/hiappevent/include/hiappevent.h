// Application events: records that an application writes about its own API use (for example one
// record when an API call ends), each with a domain, a name, a type and parameters.
//
// Thread safety: an Event is built by one thread; Write may be called from any thread.
#ifndef TAVI_HIAPPEVENT_HIAPPEVENT_H
#define TAVI_HIAPPEVENT_HIAPPEVENT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Tavi {
namespace HiviewDFX {
namespace HiAppEvent {

enum EventType : int {
    FAULT = 1,
    STATISTIC = 2,
    SECURITY = 3,
    BEHAVIOR = 4,
};

// One parameter; numbers and flags are kept as their decimal text ("true"/"false").
struct Param {
    std::string key;
    std::string value;
};

class Event {
public:
    Event(std::string domain, std::string name, EventType type)
        : domain_(std::move(domain)), name_(std::move(name)), type_(type) {
        params_.reserve(TYPICAL_PARAMS);
    }

    void AddParam(const std::string& key, const std::string& value) {
        params_.push_back({key, value});
    }
    void AddParam(const std::string& key, const char* value) { AddParam(key, std::string(value)); }
    void AddParam(const std::string& key, int32_t value) { AddParam(key, std::to_string(value)); }
    void AddParam(const std::string& key, int64_t value) { AddParam(key, std::to_string(value)); }
    void AddParam(const std::string& key, bool value) {
        AddParam(key, std::string(value ? "true" : "false"));
    }

    const std::string& GetDomain() const { return domain_; }
    const std::string& GetName() const { return name_; }
    EventType GetType() const { return type_; }
    const std::vector<Param>& GetParams() const { return params_; }

private:
    std::string domain_;
    std::string name_;
    EventType type_;
    // Enough for the events the library writes, so that adding parameters does not reallocate.
    static constexpr size_t TYPICAL_PARAMS = 8;
    std::vector<Param> params_;
};

// Records the event; 0, or -1 when its domain or name is empty.
int Write(const Event& event);

}  // namespace HiAppEvent
}  // namespace HiviewDFX
}  // namespace Tavi

#endif  // TAVI_HIAPPEVENT_HIAPPEVENT_H
