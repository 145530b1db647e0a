// System events: named, typed records with key/value parameters that the platform collects for
// diagnosis and statistics.
//
// Thread safety: Write may be called from any thread.
#ifndef TAVI_HISYSEVENT_HISYSEVENT_H
#define TAVI_HISYSEVENT_HISYSEVENT_H

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavi {
namespace HiviewDFX {

class HiSysEvent {
public:
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
        bool operator==(const Param& other) const {
            return key == other.key && value == other.value;
        }
    };

    // Writes an event whose parameters are given as key, value, key, value, ...; a value may be a
    // text, a number or a flag. Returns 0, or -1 when domain or eventName is empty.
    template <typename... KeyValues>
    static int Write(const std::string& domain, const std::string& eventName, EventType type,
                     KeyValues&&... keyValues) {
        static_assert(sizeof...(KeyValues) % 2 == 0, "parameters come as key, value pairs");
        std::vector<Param> params;
        params.reserve(sizeof...(KeyValues) / 2);
        Collect(params, std::forward<KeyValues>(keyValues)...);
        return WriteParams(domain, eventName, type, std::move(params));
    }

    static int WriteParams(const std::string& domain, const std::string& eventName, EventType type,
                           std::vector<Param> params);

private:
    static void Collect(std::vector<Param>&) {}
    template <typename K, typename V, typename... Rest>
    static void Collect(std::vector<Param>& params, K&& key, V&& value, Rest&&... rest) {
        params.push_back({std::string(std::forward<K>(key)), ToText(std::forward<V>(value))});
        Collect(params, std::forward<Rest>(rest)...);
    }
    static std::string ToText(const std::string& value) { return value; }
    static std::string ToText(const char* value) { return value == nullptr ? "" : value; }
    static std::string ToText(bool value) { return value ? "true" : "false"; }
    template <typename T, typename = std::enable_if_t<std::is_arithmetic<std::decay_t<T>>::value>>
    static std::string ToText(T value) {
        return std::to_string(value);
    }
};

}  // namespace HiviewDFX
}  // namespace Tavi

#endif  // TAVI_HISYSEVENT_HISYSEVENT_H
