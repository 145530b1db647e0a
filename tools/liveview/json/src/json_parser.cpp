// The strict parser behind ParseJson: one pass of recursive descent over the bytes, failing at the
// first problem with its place and a reason.
#include <cstdio>
#include <string>
#include <unordered_set>
#include <utility>

#include "common_utils.h"
#include "json_document.h"
#include "json_path.h"
#include "utf8.h"

namespace LiveViewJson {

namespace {

const char* const SYNTAX = "JSON syntax error: ";
const char* const BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr size_t BYTE_ORDER_MARK_BYTES = 3;
// Objects up to this size are searched for a repeated name; larger ones keep a set.
constexpr size_t LINEAR_NAME_SEARCH = 16;

bool IsDigit(int c) {
    return c >= '0' && c <= '9';
}

bool IsRepeated(const JsonValue& object, std::unordered_set<std::string>& seen,
                const std::string& name) {
    const std::vector<JsonMember>& members = object.Members();
    if (members.size() < LINEAR_NAME_SEARCH) {
        for (const JsonMember& member : members) {
            if (member.name == name) {
                return true;
            }
        }
        return false;
    }
    if (seen.empty()) {
        for (const JsonMember& member : members) {
            seen.insert(member.name);
        }
    }
    return !seen.insert(name).second;
}

class Parser {
public:
    Parser(const std::string& text, const std::string& name) : text_(text), name_(name) {}

    bool Parse(JsonValue& root);
    const InputError& Error() const { return error_; }

private:
    int Peek() const { return pos_ < text_.size() ? static_cast<unsigned char>(text_[pos_]) : -1; }
    void SkipSpace();
    JsonPlace PlaceAt(size_t offset) const {
        return JsonPlace{line_, static_cast<uint32_t>(offset - lineStart_ + 1)};
    }
    std::string Describe(size_t offset) const;
    bool Fail(size_t offset, const std::string& reason);
    bool Syntax(size_t offset, const std::string& what) { return Fail(offset, SYNTAX + what); }

    bool Value(JsonValue& out, int depth, const PathLink* at);
    bool Object(JsonValue& out, int depth, const PathLink* at);
    bool Array(JsonValue& out, int depth, const PathLink* at);
    // What follows an element of an object or array that `close` ends: END when `close` comes,
    // MORE when a ',' comes (both consumed, and the space after a ','), FAILED with a syntax
    // error naming the element (`element`) otherwise.
    enum class Next { END, MORE, FAILED };
    Next AfterElement(char close, const char* element);
    bool String(std::string& out);
    bool Escape(size_t open, std::string& out);
    bool Number(JsonValue& out);
    bool Word(JsonValue& out);

    const std::string& text_;
    const std::string& name_;
    size_t pos_ = 0;
    uint32_t line_ = 1;
    size_t lineStart_ = 0;
    size_t values_ = 0;
    InputError error_;
};

void Parser::SkipSpace() {
    for (; pos_ < text_.size(); ++pos_) {
        const char c = text_[pos_];
        if (c == '\n') {
            ++line_;
            lineStart_ = pos_ + 1;
        } else if (c != ' ' && c != '\t' && c != '\r') {
            return;
        }
    }
}

std::string Parser::Describe(size_t offset) const {
    if (offset >= text_.size()) {
        return "the end of the text";
    }
    const auto c = static_cast<unsigned char>(text_[offset]);
    if (c > ' ' && c < 0x7F) {
        return std::string("'") + static_cast<char>(c) + "'";
    }
    char hex[16];
    std::snprintf(hex, sizeof(hex), "byte 0x%02X", c);
    return hex;
}

bool Parser::Fail(size_t offset, const std::string& reason) {
    const JsonPlace place = PlaceAt(offset);
    error_ =
        InputError{name_, static_cast<int>(place.line), static_cast<int>(place.column), reason};
    return false;
}

bool Parser::Parse(JsonValue& root) {
    if (text_.compare(0, BYTE_ORDER_MARK_BYTES, BYTE_ORDER_MARK) == 0) {
        pos_ = BYTE_ORDER_MARK_BYTES;
    }
    SkipSpace();
    if (pos_ >= text_.size()) {
        error_ = InputError{name_, 0, 0, text_.empty() ? "the file is empty" : "no JSON value"};
        return false;
    }
    if (!Value(root, 0, nullptr)) {
        return false;
    }
    SkipSpace();
    return pos_ >= text_.size() || Syntax(pos_, "text after the JSON value");
}

bool Parser::Value(JsonValue& out, int depth, const PathLink* at) {
    if (++values_ > MAX_VALUES) {
        return Fail(pos_, "more than " + std::to_string(MAX_VALUES) + " JSON values");
    }
    const JsonPlace place = PlaceAt(pos_);
    const int c = Peek();
    bool parsed = false;
    if (c == '{' || c == '[') {
        if (depth >= MAX_NESTING) {
            return Fail(pos_, "JSON nested deeper than " + std::to_string(MAX_NESTING) + " levels");
        }
        parsed = c == '{' ? Object(out, depth + 1, at) : Array(out, depth + 1, at);
    } else if (c == '"') {
        std::string text;
        parsed = String(text);
        out = JsonValue::String(std::move(text));
    } else if (c == '-' || IsDigit(c)) {
        parsed = Number(out);
    } else {
        parsed = Word(out);
    }
    out.SetPlace(place);
    return parsed;
}

bool Parser::Object(JsonValue& out, int depth, const PathLink* at) {
    out = JsonValue::Object();
    ++pos_;
    SkipSpace();
    if (Peek() == '}') {
        ++pos_;
        return true;
    }
    std::unordered_set<std::string> seen;
    const char* expectName = "expected a member name or '}', found ";
    for (;;) {
        if (Peek() != '"') {
            return Syntax(pos_, expectName + Describe(pos_));
        }
        const size_t nameOffset = pos_;
        const JsonPlace namePlace = PlaceAt(pos_);
        std::string name;
        if (!String(name)) {
            return false;
        }
        const PathLink link{at, &name, 0};
        if (IsRepeated(out, seen, name)) {
            return Fail(nameOffset, "duplicate member " + PathOf(&link));
        }
        SkipSpace();
        if (Peek() != ':') {
            return Syntax(pos_, "expected ':' after a member name, found " + Describe(pos_));
        }
        ++pos_;
        SkipSpace();
        JsonValue value;
        if (!Value(value, depth, &link)) {
            return false;
        }
        out.Add(std::move(name), std::move(value), namePlace);
        const Next next = AfterElement('}', "an object member");
        if (next != Next::MORE) {
            return next == Next::END;
        }
        expectName = "expected a member name after ',', found ";
    }
}

bool Parser::Array(JsonValue& out, int depth, const PathLink* at) {
    out = JsonValue::Array();
    ++pos_;
    SkipSpace();
    if (Peek() == ']') {
        ++pos_;
        return true;
    }
    for (size_t index = 0;; ++index) {
        const PathLink link{at, nullptr, index};
        JsonValue item;
        if (!Value(item, depth, &link)) {
            return false;
        }
        out.Append(std::move(item));
        const Next next = AfterElement(']', "an array element");
        if (next != Next::MORE) {
            return next == Next::END;
        }
        if (Peek() == ']') {
            return Syntax(pos_, "expected a value after ',', found ']'");
        }
    }
}

Parser::Next Parser::AfterElement(char close, const char* element) {
    SkipSpace();
    if (Peek() == close) {
        ++pos_;
        return Next::END;
    }
    if (Peek() != ',') {
        Syntax(pos_, std::string("expected ',' or '") + close + "' after " + element + ", found " +
                         Describe(pos_));
        return Next::FAILED;
    }
    ++pos_;
    SkipSpace();
    return Next::MORE;
}

bool Parser::String(std::string& out) {
    const size_t open = pos_++;
    for (;;) {
        size_t run = pos_;
        while (run < text_.size()) {
            const auto c = static_cast<unsigned char>(text_[run]);
            if (c < 0x20 || c >= 0x80 || c == '"' || c == '\\') {
                break;
            }
            ++run;
        }
        out.append(text_, pos_, run - pos_);
        pos_ = run;
        if (pos_ >= text_.size()) {
            return Syntax(open, "unterminated string");
        }
        const auto c = static_cast<unsigned char>(text_[pos_]);
        if (c == '"') {
            ++pos_;
            return true;
        }
        if (c == '\\') {
            if (!Escape(open, out)) {
                return false;
            }
            continue;
        }
        if (c == 0) {
            return Fail(pos_, "NUL character in a string");
        }
        if (c < 0x20) {
            char code[8];
            std::snprintf(code, sizeof(code), "%04X", c);
            return Syntax(pos_, std::string("raw control character U+") + code +
                                    " in a string (write it as an escape)");
        }
        const size_t length = Utf8SequenceLength(text_, pos_);
        if (length == 0) {
            return Fail(pos_, "invalid UTF-8 in a string");
        }
        out.append(text_, pos_, length);
        pos_ += length;
    }
}

bool Parser::Escape(size_t open, std::string& out) {
    const size_t backslash = pos_++;
    if (pos_ >= text_.size()) {
        return Syntax(open, "unterminated string");
    }
    const char c = text_[pos_++];
    switch (c) {
        case '"':
        case '\\':
        case '/':
            out += c;
            return true;
        case 'b':
            out += '\b';
            return true;
        case 'f':
            out += '\f';
            return true;
        case 'n':
            out += '\n';
            return true;
        case 'r':
            out += '\r';
            return true;
        case 't':
            out += '\t';
            return true;
        case 'u':
            break;
        default:
            return Syntax(backslash,
                          "invalid escape in a string: '\\' followed by " + Describe(pos_ - 1));
    }
    const auto hex4 = [this](size_t at, uint32_t& value) {
        value = 0;
        for (size_t k = 0; k < 4; ++k) {
            const int digit = at + k < text_.size()
                                  ? Tavi::Wisp::LiveView::CommonUtils::HexDigitValue(text_[at + k])
                                  : -1;
            if (digit < 0) {
                return false;
            }
            value = value * 16 + static_cast<uint32_t>(digit);
        }
        return true;
    };
    uint32_t codePoint = 0;
    if (!hex4(pos_, codePoint)) {
        return Syntax(backslash, "invalid \\u escape in a string (four hex digits expected)");
    }
    pos_ += 4;
    if (codePoint == 0) {
        return Fail(backslash, "NUL character (\\u0000) in a string");
    }
    if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
        uint32_t low = 0;
        const bool paired = codePoint <= 0xDBFF && text_.compare(pos_, 2, "\\u") == 0 &&
                            hex4(pos_ + 2, low) && low >= 0xDC00 && low <= 0xDFFF;
        if (!paired) {
            return Fail(backslash, "unpaired surrogate in a \\u escape");
        }
        pos_ += 6;
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
    }
    AppendUtf8(out, codePoint);
    return true;
}

bool Parser::Number(JsonValue& out) {
    const size_t start = pos_;
    if (Peek() == '-') {
        ++pos_;
        if (!IsDigit(Peek())) {
            return Syntax(pos_, "expected a digit after '-', found " + Describe(pos_));
        }
    }
    if (Peek() == '0') {
        ++pos_;
        if (IsDigit(Peek())) {
            return Syntax(pos_ - 1, "leading zero in a number");
        }
    }
    while (IsDigit(Peek())) {
        ++pos_;
    }
    if (Peek() == '.') {
        ++pos_;
        if (!IsDigit(Peek())) {
            return Syntax(pos_, "expected a digit after '.', found " + Describe(pos_));
        }
        while (IsDigit(Peek())) {
            ++pos_;
        }
    }
    if (Peek() == 'e' || Peek() == 'E') {
        ++pos_;
        if (Peek() == '+' || Peek() == '-') {
            ++pos_;
        }
        if (!IsDigit(Peek())) {
            return Syntax(pos_, "expected a digit in the exponent, found " + Describe(pos_));
        }
        while (IsDigit(Peek())) {
            ++pos_;
        }
    }
    out = JsonValue::NumberLiteral(text_.substr(start, pos_ - start));
    return true;
}

bool Parser::Word(JsonValue& out) {
    static const struct {
        const char* word;
        size_t length;
        JsonValue (*make)();
    } WORDS[] = {
        {"true", 4, [] { return JsonValue::Boolean(true); }},
        {"false", 5, [] { return JsonValue::Boolean(false); }},
        {"null", 4, [] { return JsonValue(); }},
    };
    for (const auto& word : WORDS) {
        if (text_.compare(pos_, word.length, word.word) == 0) {
            pos_ += word.length;
            out = word.make();
            return true;
        }
    }
    return Syntax(pos_, "expected a value, found " + Describe(pos_));
}

}  // namespace

bool ParseJson(const std::string& text, const std::string& name, JsonDocument& document,
               InputError& error) {
    return ReadWithinMemory(name, error, [&] {
        Parser parser(text, name);
        JsonValue root;
        if (!parser.Parse(root)) {
            error = parser.Error();
            return false;
        }
        document = JsonDocument(std::move(root));
        return true;
    });
}

}  // namespace LiveViewJson
