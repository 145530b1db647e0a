// JSON text that arrives from outside: every refusal with its place and reason (syntax, text that
// is not text, repeated members, the bounds), whole numbers read exactly from their literal, and
// files that cannot be read.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <string>

#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using LiveViewJson::InputError;
using LiveViewJson::JsonDocument;
using LiveViewJson::MAX_NESTING;

std::string Nested(size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

std::string Syntax(const std::string& place, const std::string& what) {
    return "in.json:" + place + ": JSON syntax error: " + what;
}

TEST(JsonDocumentTest, RefusalsCarryTheirPlaceAndReason) {
    const std::string tooDeep = ": JSON nested deeper than 64 levels";
    const std::string utf8 = "in.json:1:3: invalid UTF-8 in a string";
    std::string values = "[";
    for (size_t i = 0; i < LiveViewJson::MAX_VALUES; ++i) {
        values += "0,";
    }
    const struct {
        std::string text, expected;
    } rows[] = {
        {"{\n  \"id\": ,\n}", Syntax("2:9", "expected a value, found ','")},
        {"{\"id\": 1",
         Syntax("1:9", "expected ',' or '}' after an object member, found the end of the text")},
        {"[\x01]", Syntax("1:2", "expected a value, found byte 0x01")},
        {"[\"\\u12G4\"]",
         Syntax("1:3", "invalid \\u escape in a string (four hex digits expected)")},
        {"[\"a\tb\"]",
         Syntax("1:4", "raw control character U+0009 in a string (write it as an escape)")},
        {"{\"event\": \"FLI\\u0000GHT\"}", "in.json:1:15: NUL character (\\u0000) in a string"},
        {std::string("{\"event\": \"FLI\0GHT\"}", 20), "in.json:1:15: NUL character in a string"},
        {std::string("{\"ev\0ent\": 1}", 13), "in.json:1:5: NUL character in a string"},
        {"[\"a\x80\"]", "in.json:1:4: invalid UTF-8 in a string"},
        {"[\"\xC0\xAF\"]", utf8},
        {"[\"\\uD800x\"]", "in.json:1:3: unpaired surrogate in a \\u escape"},
        {"{\"a\": {\"b\": [1, {\"c\": 1,\n \"c\": 2}]}}", "in.json:2:2: duplicate member a.b[1].c"},
        {"{\"a\":" + Nested(MAX_NESTING) + "}",
         "in.json:1:" + std::to_string(MAX_NESTING + 5) + tooDeep},
        {std::string(100000, '['), "in.json:1:65" + tooDeep},
        {values + "0]", "in.json:1:" + std::to_string(2 * LiveViewJson::MAX_VALUES) +
                            ": more than 1000000 JSON values"},
        {"", "in.json: the file is empty"},
        {" \n\t", "in.json: no JSON value"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 40));
        JsonDocument document;
        InputError error;
        EXPECT_FALSE(LiveViewJson::ParseJson(row.text, "in.json", document, error));
        EXPECT_EQ(document.Root(), nullptr);
        EXPECT_EQ(error.ToString(), row.expected);
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
        {"92233720368547758.07e2", true, INT64_MAX},
        {"-0.0e999999999999", true, 0},
        {"9223372036854775808", false, 0},
        {"1e19", false, 0},
        {"0.5", false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.literal);
        JsonDocument document;
        InputError error;
        ASSERT_TRUE(LiveViewJson::ParseJson(std::string("[") + row.literal + "]", "in.json",
                                            document, error));
        int64_t value = 0;
        EXPECT_EQ(document.Root()->Items()[0].WholeNumber(value), row.whole);
        EXPECT_EQ(value, row.value);
    }
}

// A FIFO is refused, not waited on.
TEST(JsonDocumentTest, FilesThatCannotBeRead) {
    ScratchDir dir;
    const std::string fifo = dir.Path("fifo.json");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const struct {
        std::string path, reason;
    } rows[] = {
        {dir.Path("absent/x.json"), "no such file"},
        {fifo, "not a regular file"},
        {dir.Write("empty.json", ""), "the file is empty"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        JsonDocument document;
        InputError error;
        EXPECT_FALSE(LiveViewJson::LoadJsonFile(row.path, document, error));
        EXPECT_EQ(error.ToString(), row.path + ": " + row.reason);
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
