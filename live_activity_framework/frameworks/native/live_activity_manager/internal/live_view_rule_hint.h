// Rule hints: how to fix a live view that the checks refuse. A hint names the JSON path of the
// member at fault (the record's field names, as the liveview command reads them), the rule with
// its limit and the value found, e.g. "liveViewData.primary.layoutData.progress: 101; 0 to 100".
// The checks describe a broken rule only while a RuleHintScope is alive on their thread, so that
// checks nobody asks about build no text at all.
//
// Thread safety: the active sink is per thread; a RuleHint is a plain value owned by its caller,
// written only by the checks run on the thread that opened its scope.
#ifndef LIVE_VIEW_INTERNAL_LIVE_VIEW_RULE_HINT_H
#define LIVE_VIEW_INTERNAL_LIVE_VIEW_RULE_HINT_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

struct RuleHint {
    std::string path;  // the JSON path of the member at fault; empty when no hint was recorded
    std::string text;  // the value found, then "; " and the rule with its limit

    bool IsSet() const { return !path.empty(); }
    // "path: text"; empty when no hint was recorded.
    std::string ToString() const;
};

// While alive, the checks run on this thread describe into the sink given here, which the scope
// clears on opening, the rule behind the failure they answer: the first rule they find broken
// (an update that answers a later section's failure, or success, leaves that section's hint, or
// none). A param-failed text leaves no hint: it already names the member. Scopes nest: the
// innermost one is served and the enclosing one is restored when it closes. The sink must outlive
// the scope.
class RuleHintScope {
public:
    explicit RuleHintScope(RuleHint& sink);
    ~RuleHintScope();
    RuleHintScope(const RuleHintScope&) = delete;
    RuleHintScope& operator=(const RuleHintScope&) = delete;

    // The sink of the innermost scope alive on this thread, or null when there is none.
    static RuleHint* Active();

private:
    RuleHint* enclosing_;
};

// Fills the active sink with describe()'s RuleHint when a scope is alive and its sink holds no
// hint yet; otherwise does nothing and never calls describe.
template <typename Describe>
void RecordRuleHint(Describe&& describe) {
    RuleHint* sink = RuleHintScope::Active();
    if (sink != nullptr && !sink->IsSet()) {
        *sink = describe();
    }
}

// A whole number with thousands separators: 1030 is "1,030", -20000 is "-20,000".
std::string FormatNumber(int64_t value);

// The value in double quotes, quotes, backslashes and control characters escaped ("\n", "\t",
// "\u001b"), cut after about 40 bytes (never inside a UTF-8 sequence) with "..." after the
// closing quote.
std::string QuoteText(const std::string& value);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_INTERNAL_LIVE_VIEW_RULE_HINT_H
