// Whole numbers read exactly from their JSON literal: the literal is taken apart into its
// significant digits and a power of ten, so that no value passes through a double.
#include <cstdint>
#include <string>
#include <string_view>

#include "json_value.h"

namespace LiveViewJson {

namespace {

// int64 has 19 digits; an exponent this large already puts any non-zero value out of range, and
// keeps the sum of exponents far from overflowing.
constexpr int64_t EXPONENT_CEILING = 1000000000;
constexpr size_t MAX_INT64_DIGITS = 19;
constexpr uint64_t INT64_MAGNITUDE_LIMIT = uint64_t{1} << 63;  // |INT64_MIN|

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

bool WholeNumberOf(std::string_view literal, int64_t& value) {
    size_t i = 0;
    const bool negative = i < literal.size() && literal[i] == '-';
    if (negative) {
        ++i;
    }
    std::string digits;
    int64_t exponent = 0;
    for (; i < literal.size() && IsDigit(literal[i]); ++i) {
        digits.push_back(literal[i]);
    }
    if (i < literal.size() && literal[i] == '.') {
        for (++i; i < literal.size() && IsDigit(literal[i]); ++i) {
            digits.push_back(literal[i]);
            --exponent;
        }
    }
    if (i < literal.size() && (literal[i] == 'e' || literal[i] == 'E')) {
        ++i;
        const bool negativeExponent = i < literal.size() && literal[i] == '-';
        if (i < literal.size() && (literal[i] == '-' || literal[i] == '+')) {
            ++i;
        }
        int64_t written = 0;
        for (; i < literal.size() && IsDigit(literal[i]); ++i) {
            if (written < EXPONENT_CEILING) {
                written = written * 10 + (literal[i] - '0');
            }
        }
        exponent += negativeExponent ? -written : written;
    }
    const size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) {
        value = 0;
        return true;
    }
    size_t last = digits.find_last_not_of('0');
    exponent += static_cast<int64_t>(digits.size() - 1 - last);
    const size_t significant = last - first + 1;
    if (exponent < 0 ||
        static_cast<int64_t>(significant) + exponent > static_cast<int64_t>(MAX_INT64_DIGITS)) {
        return false;
    }
    uint64_t magnitude = 0;  // below 10^19, within uint64
    for (size_t d = first; d <= last; ++d) {
        magnitude = magnitude * 10 + static_cast<uint64_t>(digits[d] - '0');
    }
    for (int64_t e = 0; e < exponent; ++e) {
        magnitude *= 10;
    }
    if (magnitude > INT64_MAGNITUDE_LIMIT || (!negative && magnitude == INT64_MAGNITUDE_LIMIT)) {
        return false;
    }
    value = negative ? static_cast<int64_t>(0 - magnitude) : static_cast<int64_t>(magnitude);
    return true;
}

}  // namespace LiveViewJson
