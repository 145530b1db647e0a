// Reading JSON text that arrives from outside: syntax errors with their place, empty input,
// the nesting bound, text after the value, and files that cannot be read.
#include <gtest/gtest.h>

#include <string>

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

TEST(JsonDocumentTest, RefusalsCarryTheirPlace) {
    const struct {
        const char* label;
        std::string text;
        std::string expected;
    } rows[] = {
        {"missing value", "{\n  \"id\": ,\n}", "in.json:2:9: JSON syntax error"},
        {"unclosed object", "{\"id\": 1", "in.json:1:8: JSON syntax error"},
        {"bare word", "\n\n   nope", "in.json:3:4: JSON syntax error"},
        {"second value", "{}\n{}", "in.json:2:1: JSON syntax error: text after the JSON value"},
        {"too deep", "{\"a\":" + Nested(MAX_NESTING) + "}",
         "in.json:1:" + std::to_string(MAX_NESTING + 5) + ": JSON nested deeper than 64 levels"},
        {"empty", "", "in.json: the file is empty"},
        {"blank", " \n\t", "in.json: no JSON value"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(ParseError(row.text).ToString(), row.expected);
    }
}

TEST(JsonDocumentTest, NestingUpToTheBoundIsAccepted) {
    const struct {
        const char* label;
        std::string text;
    } rows[] = {
        {"64 arrays", Nested(MAX_NESTING)},
        {"brackets inside strings do not count", "[\"" + std::string(200, '[') + "\\\"{\"]"},
        {"trailing blanks", "{\"a\": [1, 2]}  \r\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        JsonDocument document;
        InputError error;
        EXPECT_TRUE(ParseJson(row.text, "in.json", document, error)) << error.ToString();
        EXPECT_NE(document.Root(), nullptr);
    }
}

TEST(JsonDocumentTest, FilesThatCannotBeRead) {
    ScratchDir dir;
    const std::string empty = dir.Write("empty.json", "");
    const struct {
        std::string path;
        std::string expected;
    } rows[] = {
        {dir.Path("absent.json"), dir.Path("absent.json") + ": no such file"},
        {dir.Path(""), dir.Path("") + ": not a regular file"},
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
