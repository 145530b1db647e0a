#include "live_view_rule_hint.h"

#include "common_utils.h"

#include <cstdio>

namespace Tavi {
namespace Wisp {
namespace LiveView {

namespace {

constexpr size_t QUOTED_BYTES = 40;

thread_local RuleHint* activeSink = nullptr;

bool IsUtf8Continuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

std::string RuleHint::ToString() const {
    return IsSet() ? path + ": " + text : std::string();
}

RuleHintScope::RuleHintScope(RuleHint& sink) : enclosing_(activeSink) {
    sink = RuleHint();
    activeSink = &sink;
}

RuleHintScope::~RuleHintScope() {
    activeSink = enclosing_;
}

RuleHint* RuleHintScope::Active() {
    return activeSink;
}

std::string FormatNumber(int64_t value) {
    // The magnitude as unsigned, so that the most negative value has one too.
    const uint64_t magnitude =
        value < 0 ? uint64_t{0} - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
    const std::string digits = std::to_string(magnitude);
    std::string out = value < 0 ? "-" : "";
    for (size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) {
            out += ',';
        }
        out += digits[i];
    }
    return out;
}

std::string QuoteText(const std::string& value) {
    size_t shown = value.size();
    if (shown > QUOTED_BYTES) {
        shown = QUOTED_BYTES;
        while (shown > 0 && IsUtf8Continuation(value[shown])) {
            --shown;
        }
    }
    std::string out = "\"";
    for (size_t i = 0; i < shown; ++i) {
        CommonUtils::AppendJsonEscaped(value[i], out);
    }
    out += '"';
    if (shown < value.size()) {
        out += "...";
    }
    return out;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
