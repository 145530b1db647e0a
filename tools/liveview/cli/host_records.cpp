#include "host_records.h"

#include <string>
#include <vector>

#include "host_control.h"

namespace LiveViewCli {

namespace {

char LevelLetter(int level) {
    static const char LETTERS[] = {'D', 'I', 'W', 'E', 'F'};  // levels 3 to 7
    return level >= 3 && level <= 7 ? LETTERS[level - 3] : '?';
}

template <typename Param>
void PrintParams(std::ostream& out, const std::vector<Param>& params) {
    for (const auto& param : params) {
        out << ' ' << param.key << '=' << param.value;
    }
    out << '\n';
}

}  // namespace

void FlushHostRecords(std::ostream& out, bool events, bool logLines) {
    const auto lines = Tavi::Host::TakeLogLines();
    const auto sysEvents = Tavi::Host::TakeSysEvents();
    const auto appEvents = Tavi::Host::TakeAppEvents();
    if (logLines) {
        for (const auto& line : lines) {
            out << "   log " << LevelLetter(line.level) << ' ' << line.tag << ": " << line.text
                << '\n';
        }
    }
    if (events) {
        for (const auto& event : sysEvents) {
            out << "   sysevent " << event.domain << '/' << event.name << " type " << event.type
                << ':';
            PrintParams(out, event.params);
        }
        for (const auto& event : appEvents) {
            out << "   endevent " << event.GetDomain() << '/' << event.GetName() << " type "
                << event.GetType() << ':';
            PrintParams(out, event.GetParams());
        }
    }
}

}  // namespace LiveViewCli
