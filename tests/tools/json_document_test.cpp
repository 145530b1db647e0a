// Reading JSON text that arrives from outside: every refusal with its place and reason (syntax,
// text that is not text, repeated members, the bounds), what is accepted, whole numbers read
// exactly from their literal, and files that cannot be read.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <string>

#include "json_writer.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using LiveViewJson::InputError;
using LiveViewJson::JsonDocument;
using LiveViewJson::MAX_NESTING;
using LiveViewJson::ParseJson;

InputError ParseError(const std::string& text) {
    JsonDocument document;
    InputError error;
    EXPECT_FALSE(ParseJson(text, "in.json", document, error));
    EXPECT_EQ(document.Root(), nullptr);
    return error;
}

std::string Nested(int depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

std::string Repeated(const std::string& text, size_t times) {
    std::string out;
    for (size_t i = 0; i < times; ++i) {
        out += text;
    }
    return out;
}

std::string Syntax(const std::string& place, const std::string& what) {
    return "in.json:" + place + ": JSON syntax error: " + what;
}

TEST(JsonDocumentTest, RefusalsCarryTheirPlaceAndReason) {
    std::string wideObject = "{";
    for (int i = 0; i < 20; ++i) {
        wideObject += "\"m" + std::to_string(i) + "\": 0, ";
    }
    wideObject += "\"m3\": 1}";
    const struct {
        const char* label;
        std::string text;
        std::string expected;
    } rows[] = {
        {"missing value", "{\n  \"id\": ,\n}", Syntax("2:9", "expected a value, found ','")},
        {"unclosed object", "{\"id\": 1",
         Syntax("1:9", "expected ',' or '}' after an object member, found the end of the text")},
        {"missing comma", "{\"id\": 1 \"e\": 2}",
         Syntax("1:10", "expected ',' or '}' after an object member, found '\"'")},
        {"missing colon", "{\"id\" 1}",
         Syntax("1:7", "expected ':' after a member name, found '1'")},
        {"name not a string", "{id: 1}", Syntax("1:2", "expected a member name or '}', found 'i'")},
        {"comma before '}'", "{\"a\": 1,}",
         Syntax("1:9", "expected a member name after ',', found '}'")},
        {"comma before ']'", "[1,]", Syntax("1:4", "expected a value after ',', found ']'")},
        {"missing array comma", "[1 2]",
         Syntax("1:4", "expected ',' or ']' after an array element, found '2'")},
        {"bare word", "\n\n   nope", Syntax("3:4", "expected a value, found 'n'")},
        {"stray byte", "[\x01]", Syntax("1:2", "expected a value, found byte 0x01")},
        {"leading zero", "[012]", Syntax("1:2", "leading zero in a number")},
        {"lone minus", "[-]", Syntax("1:3", "expected a digit after '-', found ']'")},
        {"bare point", "[1.]", Syntax("1:4", "expected a digit after '.', found ']'")},
        {"bare exponent", "[1e+]", Syntax("1:5", "expected a digit in the exponent, found ']'")},
        {"unterminated string", "[\"abc", Syntax("1:2", "unterminated string")},
        {"unknown escape", "[\"a\\x\"]",
         Syntax("1:4", "invalid escape in a string: '\\' followed by 'x'")},
        {"short \\u escape", "[\"\\u12G4\"]",
         Syntax("1:3", "invalid \\u escape in a string (four hex digits expected)")},
        {"raw tab", "[\"a\tb\"]",
         Syntax("1:4", "raw control character U+0009 in a string (write it as an escape)")},
        {"raw line break", "{\"event\": \"a\nb\"}",
         Syntax("1:13", "raw control character U+000A in a string (write it as an escape)")},
        {"escaped NUL", "{\"event\": \"FLI\\u0000GHT\"}",
         "in.json:1:15: NUL character (\\u0000) in a string"},
        {"raw NUL in a value", std::string("{\"event\": \"FLI\0GHT\"}", 20),
         "in.json:1:15: NUL character in a string"},
        {"raw NUL in a name", std::string("{\"ev\0ent\": 1}", 13),
         "in.json:1:5: NUL character in a string"},
        {"lone continuation byte", "[\"a\x80\"]", "in.json:1:4: invalid UTF-8 in a string"},
        {"overlong '/'", "[\"\xC0\xAF\"]", "in.json:1:3: invalid UTF-8 in a string"},
        {"surrogate in UTF-8", "[\"\xED\xA0\x80\"]", "in.json:1:3: invalid UTF-8 in a string"},
        {"above U+10FFFF", "[\"\xF4\x90\x80\x80\"]", "in.json:1:3: invalid UTF-8 in a string"},
        {"cut sequence", "[\"\xE2\x82\"]", "in.json:1:3: invalid UTF-8 in a string"},
        {"lone high surrogate", "[\"\\uD800x\"]",
         "in.json:1:3: unpaired surrogate in a \\u escape"},
        {"lone low surrogate", "[\"\\uDC00\"]", "in.json:1:3: unpaired surrogate in a \\u escape"},
        {"repeated member", "{\"a\": {\"b\": [1, {\"c\": 1,\n \"c\": 2}]}}",
         "in.json:2:2: duplicate member a.b[1].c"},
        {"repeated member of a wide object", wideObject,
         "in.json:1:" + std::to_string(wideObject.rfind("\"m3\"") + 1) + ": duplicate member m3"},
        {"second value", "{}\n{}", Syntax("2:1", "text after the JSON value")},
        {"too deep", "{\"a\":" + Nested(MAX_NESTING) + "}",
         "in.json:1:" + std::to_string(MAX_NESTING + 5) + ": JSON nested deeper than 64 levels"},
        {"a million and one values", "[" + Repeated("0,", LiveViewJson::MAX_VALUES) + "0]",
         "in.json:1:" + std::to_string(2 * LiveViewJson::MAX_VALUES) +
             ": more than 1000000 JSON values"},
        {"empty", "", "in.json: the file is empty"},
        {"blank", " \n\t", "in.json: no JSON value"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(ParseError(row.text).ToString(), row.expected);
    }
}

TEST(JsonDocumentTest, AcceptedTextKeepsEveryValue) {
    const struct {
        const char* label;
        std::string text;
        std::string compact;  // as the writer gives it back
    } rows[] = {
        {"64 arrays", Nested(MAX_NESTING), Nested(MAX_NESTING)},
        {"brackets inside strings do not count", "[\"" + std::string(70, '[') + "\\\"{\"]",
         "[\"" + std::string(70, '[') + "\\\"{\"]"},
        {"blanks and a byte order mark", "\xEF\xBB\xBF {\"a\" :\r\n [1 , 2]}  \r\n",
         "{\"a\":[1,2]}"},
        {"number literals as written", "[-0, 2.50, 1E+3, 9007199254740993]",
         "[-0,2.50,1E+3,9007199254740993]"},
        {"escapes", "[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\\ud83d\\ude00\"]",
         "[\"\\\"\\\\/\\b\\f\\n\\r\\t\xC3\xA9\xF0\x9F\x98\x80\"]"},
        {"members in their order", "{\"b\": true, \"a\": null, \"\": {}}",
         "{\"b\":true,\"a\":null,\"\":{}}"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        JsonDocument document;
        InputError error;
        ASSERT_TRUE(ParseJson(row.text, "in.json", document, error)) << error.ToString();
        EXPECT_EQ(LiveViewJson::WriteJson(*document.Root(), 0), row.compact);
    }
}

TEST(JsonDocumentTest, WholeNumbersAreReadExactlyFromTheirLiteral) {
    const struct {
        const char* literal;
        bool whole;
        int64_t value;
    } rows[] = {
        {"9223372036854775807", true, INT64_MAX},
        {"-9223372036854775808", true, INT64_MIN},
        {"9007199254740993", true, 9007199254740993},
        {"92233720368547758.07e2", true, INT64_MAX},
        {"7.000", true, 7},
        {"1.5e1", true, 15},
        {"1500e-2", true, 15},
        {"-0.0e999999999999", true, 0},
        {"9223372036854775808", false, 0},
        {"-9223372036854775809", false, 0},
        {"1e19", false, 0},
        {"1e400", false, 0},
        {"1e-400", false, 0},
        {"0.5", false, 0},
        {"12345678901234567890123e-4", false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.literal);
        JsonDocument document;
        InputError error;
        ASSERT_TRUE(ParseJson(std::string("[") + row.literal + "]", "in.json", document, error));
        int64_t value = 0;
        EXPECT_EQ(document.Root()->Items()[0].WholeNumber(value), row.whole);
        EXPECT_EQ(value, row.value);
    }
}

TEST(JsonDocumentTest, FilesThatCannotBeRead) {
    ScratchDir dir;
    const std::string empty = dir.Write("empty.json", "");
    const std::string fifo = dir.Path("fifo.json");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const struct {
        std::string path;
        std::string expected;
    } rows[] = {
        {dir.Path("absent.json"), dir.Path("absent.json") + ": no such file"},
        {dir.Path("absent/x.json"), dir.Path("absent/x.json") + ": no such file"},
        {dir.Path(""), dir.Path("") + ": not a regular file"},
        {fifo, fifo + ": not a regular file"},
        {empty, empty + ": the file is empty"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        JsonDocument document;
        InputError error;
        EXPECT_FALSE(LiveViewJson::LoadJsonFile(row.path, document, error));
        EXPECT_EQ(error.ToString(), row.expected);
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
