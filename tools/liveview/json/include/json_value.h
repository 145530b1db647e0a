// One JSON value and everything under it: the tree that the front end's parser builds, and that
// a writer prints. Numbers keep their literal text, so that whole numbers are read exactly
// (int64 included) rather than through a double; object members keep their order; a parsed
// value knows where it began in its text.
//
// Thread safety: a tree that is not being changed may be read from several threads.
#ifndef LIVEVIEW_JSON_JSON_VALUE_H
#define LIVEVIEW_JSON_JSON_VALUE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace LiveViewJson {

enum class JsonKind : uint8_t { NUL, BOOLEAN, NUMBER, STRING, ARRAY, OBJECT };

// Where something begins in its text: line and column from 1, columns in bytes. 0 and 0 for
// values that were built rather than parsed.
struct JsonPlace {
    uint32_t line = 0;
    uint32_t column = 0;
};

struct JsonMember;

class JsonValue {
public:
    JsonValue() = default;  // null
    JsonValue(const JsonValue& other);
    JsonValue(JsonValue&& other) noexcept;
    JsonValue& operator=(const JsonValue& other);
    JsonValue& operator=(JsonValue&& other) noexcept;
    ~JsonValue();

    static JsonValue Boolean(bool value);
    static JsonValue Integer(int64_t value);
    // The shortest literal that reads back as value; null when value is not finite.
    static JsonValue Number(double value);
    // literal must be a JSON number literal; the parser's way in.
    static JsonValue NumberLiteral(std::string literal);
    // text may hold any bytes; a writer replaces what is not UTF-8.
    static JsonValue String(std::string text);
    static JsonValue Array();
    static JsonValue Object();

    JsonKind Kind() const { return kind_; }
    bool IsNull() const { return kind_ == JsonKind::NUL; }
    bool IsBoolean() const { return kind_ == JsonKind::BOOLEAN; }
    bool IsNumber() const { return kind_ == JsonKind::NUMBER; }
    bool IsString() const { return kind_ == JsonKind::STRING; }
    bool IsArray() const { return kind_ == JsonKind::ARRAY; }
    bool IsObject() const { return kind_ == JsonKind::OBJECT; }

    // True only for the boolean true.
    bool IsTrue() const { return kind_ == JsonKind::BOOLEAN && boolean_; }
    // The text of a string, the literal of a number; empty for every other kind.
    const std::string& Text() const { return text_; }
    // A number that is whole and within int64, read exactly from its literal ("7.0" and "1e3"
    // are whole); false for every other value, value then unchanged.
    bool WholeNumber(int64_t& value) const;

    // The elements of an array; empty for every other kind.
    const std::vector<JsonValue>& Items() const { return items_; }
    // The members of an object in their order; empty for every other kind.
    const std::vector<JsonMember>& Members() const { return members_; }
    // The member named name, compared byte for byte; null when absent or not an object.
    const JsonValue* Find(std::string_view name) const;

    // Appends to an array (a value of another kind first becomes an empty array); answers the
    // appended element, valid until the next change of this value.
    JsonValue& Append(JsonValue item);
    // Appends a member to an object (a value of another kind first becomes an empty object);
    // names are not checked for repeats. Answers the member's value, valid as above.
    JsonValue& Add(std::string name, JsonValue value, JsonPlace namePlace = {});

    JsonPlace Place() const { return place_; }
    void SetPlace(JsonPlace place) { place_ = place; }

    // Same kind and contents (numbers by literal, members in order); places are not compared.
    friend bool operator==(const JsonValue& a, const JsonValue& b);
    friend bool operator!=(const JsonValue& a, const JsonValue& b) { return !(a == b); }

private:
    void Become(JsonKind kind);

    JsonKind kind_ = JsonKind::NUL;
    bool boolean_ = false;
    JsonPlace place_;
    std::string text_;
    std::vector<JsonValue> items_;
    std::vector<JsonMember> members_;
};

struct JsonMember {
    std::string name;
    JsonPlace place;  // of the name
    JsonValue value;
};

// Defined once JsonMember is complete.
inline JsonValue::JsonValue(const JsonValue& other) = default;
inline JsonValue::JsonValue(JsonValue&& other) noexcept = default;
inline JsonValue& JsonValue::operator=(const JsonValue& other) = default;
inline JsonValue& JsonValue::operator=(JsonValue&& other) noexcept = default;
inline JsonValue::~JsonValue() = default;

inline bool operator==(const JsonMember& a, const JsonMember& b) {
    return a.name == b.name && a.value == b.value;
}

// The value of the whole-number literal (as JsonValue::WholeNumber); literal must be a JSON
// number literal.
bool WholeNumberOf(std::string_view literal, int64_t& value);

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_JSON_VALUE_H
