#include "json_value.h"

#include <charconv>
#include <cmath>
#include <utility>

namespace LiveViewJson {

JsonValue JsonValue::Boolean(bool value) {
    JsonValue result;
    result.kind_ = JsonKind::BOOLEAN;
    result.boolean_ = value;
    return result;
}

JsonValue JsonValue::Integer(int64_t value) {
    return NumberLiteral(std::to_string(value));
}

JsonValue JsonValue::Number(double value) {
    if (!std::isfinite(value)) {
        return JsonValue();
    }
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    return NumberLiteral(std::string(buffer, result.ptr));
}

JsonValue JsonValue::NumberLiteral(std::string literal) {
    JsonValue result;
    result.kind_ = JsonKind::NUMBER;
    result.text_ = std::move(literal);
    return result;
}

JsonValue JsonValue::String(std::string text) {
    JsonValue result;
    result.kind_ = JsonKind::STRING;
    result.text_ = std::move(text);
    return result;
}

JsonValue JsonValue::Array() {
    JsonValue result;
    result.kind_ = JsonKind::ARRAY;
    return result;
}

JsonValue JsonValue::Object() {
    JsonValue result;
    result.kind_ = JsonKind::OBJECT;
    return result;
}

bool JsonValue::WholeNumber(int64_t& value) const {
    return kind_ == JsonKind::NUMBER && WholeNumberOf(text_, value);
}

const JsonValue* JsonValue::Find(std::string_view name) const {
    for (const JsonMember& member : members_) {
        if (member.name == name) {
            return &member.value;
        }
    }
    return nullptr;
}

void JsonValue::Become(JsonKind kind) {
    if (kind_ != kind) {
        *this = JsonValue();
        kind_ = kind;
    }
}

JsonValue& JsonValue::Append(JsonValue item) {
    Become(JsonKind::ARRAY);
    items_.push_back(std::move(item));
    return items_.back();
}

JsonValue& JsonValue::Add(std::string name, JsonValue value, JsonPlace namePlace) {
    Become(JsonKind::OBJECT);
    members_.push_back(JsonMember{std::move(name), namePlace, std::move(value)});
    return members_.back().value;
}

bool operator==(const JsonValue& a, const JsonValue& b) {
    return a.kind_ == b.kind_ && a.boolean_ == b.boolean_ && a.text_ == b.text_ &&
           a.items_ == b.items_ && a.members_ == b.members_;
}

}  // namespace LiveViewJson
