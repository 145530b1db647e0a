// Which members of the objects of one JSON document the readers asked for, so that the others
// can be reported as unknown, each with the closest known name as a suggestion.
//
// Thread safety: none; a tracker belongs to the reader of one document.
#ifndef LIVEVIEW_JSON_MEMBER_TRACKER_H
#define LIVEVIEW_JSON_MEMBER_TRACKER_H

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "json_value.h"

namespace LiveViewJson {

struct PathLink;

// A known name that name is likely a misspelling of (letter case aside, or a few letters
// changed, added, dropped or swapped); the first such name of known when several are equally
// close; empty when none is.
std::string ClosestName(const std::string& name, const std::vector<std::string>& known);

class MemberTracker {
public:
    // object (null or not an object: ignored) was read as a record; its members are known only
    // as they are asked for.
    void Visit(const JsonValue* object);
    // name is a member that the readers of object know, present or not.
    void Ask(const JsonValue* object, const std::string& name);
    // Every member of object is known (maps whose names are data).
    void KnowAll(const JsonValue* object);

    using Report = std::function<void(const JsonMember& member, const std::string& path,
                                      const std::string& suggestion)>;
    // Calls report for each member of a visited object under root (root included) that was not
    // asked for, in the order of the text, with its path from root.
    void ForEachUnknown(const JsonValue& root, const Report& report) const;

private:
    struct Known {
        std::vector<std::string> names;
        bool all = false;
    };

    // The entry of object, made when missing. Readers ask about one object many times in a
    // row, so the last entry is kept at hand (entries do not move when the map grows).
    Known& Entry(const JsonValue* object);
    void Walk(const JsonValue& value, const PathLink* at, const Report& report) const;

    std::unordered_map<const JsonValue*, Known> objects_;
    const JsonValue* lastObject_ = nullptr;
    Known* lastEntry_ = nullptr;
};

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_MEMBER_TRACKER_H
