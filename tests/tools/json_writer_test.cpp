// Writing JSON for output: whatever bytes a string holds, the text is valid JSON that reads back
// as the value (with U+FFFD for bytes that are not UTF-8); numbers and layout as promised.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "json_writer.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using LiveViewJson::JsonValue;
using LiveViewJson::WriteJson;

TEST(JsonWriterTest, StringsAreEscapedAndMadeText) {
    const std::string replacement = "\xEF\xBF\xBD";
    const struct {
        const char* label;
        std::string text;
        std::string written;
    } rows[] = {
        {"quote and backslash", "a\"b\\c/", "\"a\\\"b\\\\c/\""},
        {"short escapes", "\b\f\n\r\t", "\"\\b\\f\\n\\r\\t\""},
        {"other control characters", std::string("\0\x01\x1f\x7f", 4),
         "\"\\u0000\\u0001\\u001f\x7f\""},
        {"line and paragraph separators", "\xE2\x80\xA8\xE2\x80\xA9", "\"\\u2028\\u2029\""},
        {"UTF-8 kept", "\xC3\xA9\xF0\x9F\x98\x80", "\"\xC3\xA9\xF0\x9F\x98\x80\""},
        {"stray byte", "a\xFFz", "\"a" + replacement + "z\""},
        {"overlong form", "\xC0\xAF", "\"" + replacement + replacement + "\""},
        {"cut sequence at the end", "\xE2\x82", "\"" + replacement + replacement + "\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        JsonValue object = JsonValue::Object();
        object.Add(row.text, JsonValue::String(row.text));
        EXPECT_EQ(WriteJson(object, 0), "{" + row.written + ":" + row.written + "}");
    }
}

TEST(JsonWriterTest, LayoutNumbersAndReadingBack) {
    JsonValue value = JsonValue::Object();
    value.Add("min", JsonValue::Integer(INT64_MIN));
    value.Add("tenth", JsonValue::Number(0.1));
    value.Add("nan", JsonValue::Number(std::nan("")));
    JsonValue& list = value.Add("list", JsonValue::Array());
    list.Append(JsonValue::Boolean(true));
    list.Append(JsonValue::Object());
    value.Add("empty", JsonValue::Array());
    value.Add("text", JsonValue::String("a\"\\\n\xE2\x80\xA8\xC3\xA9"));
    EXPECT_EQ(WriteJson(value),
              "{\n"
              "  \"min\": -9223372036854775808,\n"
              "  \"tenth\": 0.1,\n"
              "  \"nan\": null,\n"
              "  \"list\": [\n"
              "    true,\n"
              "    {}\n"
              "  ],\n"
              "  \"empty\": [],\n"
              "  \"text\": \"a\\\"\\\\\\n\\u2028\xC3\xA9\"\n"
              "}");
    LiveViewJson::JsonDocument document;
    LiveViewJson::InputError error;
    ASSERT_TRUE(LiveViewJson::ParseJson(WriteJson(value), "out.json", document, error));
    EXPECT_EQ(*document.Root(), value);
}

}  // namespace
}  // namespace LiveViewToolsTest
