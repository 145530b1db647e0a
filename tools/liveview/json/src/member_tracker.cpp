#include "member_tracker.h"

#include <algorithm>
#include <cctype>

#include "json_path.h"

namespace LiveViewJson {

namespace {

std::string Lower(const std::string& text) {
    std::string lower = text;
    for (char& c : lower) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return lower;
}

// Edits (change, insert, drop, swap of neighbours) from a to b.
size_t EditDistance(const std::string& a, const std::string& b) {
    std::vector<std::vector<size_t>> d(a.size() + 1, std::vector<size_t>(b.size() + 1));
    for (size_t i = 0; i <= a.size(); ++i) {
        d[i][0] = i;
    }
    for (size_t j = 0; j <= b.size(); ++j) {
        d[0][j] = j;
    }
    for (size_t i = 1; i <= a.size(); ++i) {
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + change});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
            }
        }
    }
    return d[a.size()][b.size()];
}

size_t LengthGap(size_t a, size_t b) {
    return a > b ? a - b : b - a;
}

}  // namespace

std::string ClosestName(const std::string& name, const std::vector<std::string>& known) {
    // A third of the name's letters may be wrong, and always one.
    const size_t allowed = std::max<size_t>(1, name.size() / 3);
    const std::string lowerName = Lower(name);
    std::string closest;
    size_t best = allowed + 1;
    for (const std::string& candidate : known) {
        // The gap in length is a lower bound of the distance: far longer names are not measured.
        if (LengthGap(candidate.size(), name.size()) > allowed) {
            continue;
        }
        const size_t distance = EditDistance(lowerName, Lower(candidate));
        if (distance < best) {
            best = distance;
            closest = candidate;
        }
    }
    return closest;
}

MemberTracker::Known& MemberTracker::Entry(const JsonValue* object) {
    if (object != lastObject_) {
        lastEntry_ = &objects_[object];
        lastObject_ = object;
    }
    return *lastEntry_;
}

void MemberTracker::Visit(const JsonValue* object) {
    if (object != nullptr && object->IsObject()) {
        Entry(object);
    }
}

void MemberTracker::Ask(const JsonValue* object, const std::string& name) {
    if (object == nullptr || !object->IsObject()) {
        return;
    }
    std::vector<std::string>& names = Entry(object).names;
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
    }
}

void MemberTracker::KnowAll(const JsonValue* object) {
    if (object != nullptr && object->IsObject()) {
        Entry(object).all = true;
    }
}

void MemberTracker::ForEachUnknown(const JsonValue& root, const Report& report) const {
    if (!objects_.empty()) {
        Walk(root, nullptr, report);
    }
}

void MemberTracker::Walk(const JsonValue& value, const PathLink* at, const Report& report) const {
    if (value.IsArray()) {
        for (size_t i = 0; i < value.Items().size(); ++i) {
            const PathLink link{at, nullptr, i};
            Walk(value.Items()[i], &link, report);
        }
        return;
    }
    const auto found = objects_.find(&value);
    const Known* known = found == objects_.end() ? nullptr : &found->second;
    for (const JsonMember& member : value.Members()) {
        const PathLink link{at, &member.name, 0};
        if (known != nullptr && !known->all &&
            std::find(known->names.begin(), known->names.end(), member.name) ==
                known->names.end()) {
            report(member, PathOf(&link), ClosestName(member.name, known->names));
        }
        Walk(member.value, &link, report);
    }
}

}  // namespace LiveViewJson
