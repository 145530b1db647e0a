#include "field_reader.h"

#include <cmath>
#include <limits>
#include <utility>

namespace LiveViewJson {

using Tavi::Wisp::LiveView::LiveViewBase;

namespace {

bool HasType(const cJSON* value, JsonType type) {
    switch (type) {
        case JsonType::NUMBER:
            return cJSON_IsNumber(value);
        case JsonType::STRING:
            return cJSON_IsString(value) && value->valuestring != nullptr;
        case JsonType::BOOLEAN:
            return cJSON_IsBool(value);
        case JsonType::OBJECT:
            return cJSON_IsObject(value);
        case JsonType::ARRAY:
            return cJSON_IsArray(value);
    }
    return false;
}

// 2^63 as a double: the first value above the range of a 64-bit integer.
constexpr double TWO_TO_63 = 9223372036854775808.0;

}  // namespace

std::string TypeMessage(const std::string& path, const std::string& typeName, const char* suffix) {
    return "Parameter error. The type of " + path + " mustbe " + typeName + suffix;
}

void ReadContext::Refuse(const std::string& reason) {
    if (!error.IsSet()) {
        error = InputError{sourceFile, 0, 0, reason};
    }
}

FieldReader::FieldReader(const cJSON* object, std::string path, LiveViewBase& record,
                         ReadContext& context)
    : object_(cJSON_IsObject(object) ? object : nullptr),
      path_(std::move(path)),
      record_(record),
      context_(context) {}

const cJSON* FieldReader::Expect(const cJSON* value, JsonType type, const std::string& path,
                                 const std::string& typeName) const {
    if (value == nullptr || cJSON_IsNull(value)) {
        return nullptr;
    }
    if (!HasType(value, type)) {
        Fail(path, typeName);
        return nullptr;
    }
    return value;
}

const cJSON* FieldReader::Raw(const char* name) const {
    return object_ == nullptr ? nullptr : cJSON_GetObjectItemCaseSensitive(object_, name);
}

const cJSON* FieldReader::Member(const char* name, JsonType type,
                                 const std::string& typeName) const {
    return Expect(Raw(name), type, Path(name), typeName);
}

std::shared_ptr<std::string> FieldReader::String(const char* name) const {
    const cJSON* value = Member(name, JsonType::STRING, "string");
    return value == nullptr ? nullptr : std::make_shared<std::string>(value->valuestring);
}

std::shared_ptr<bool> FieldReader::Bool(const char* name) const {
    const cJSON* value = Member(name, JsonType::BOOLEAN, "boolean");
    return value == nullptr ? nullptr : std::make_shared<bool>(cJSON_IsTrue(value));
}

std::shared_ptr<int> FieldReader::Int(const char* name) const {
    int value = 0;
    if (!WholeInt(Member(name, JsonType::NUMBER, "number"), Path(name), value)) {
        return nullptr;
    }
    return std::make_shared<int>(value);
}

std::shared_ptr<long> FieldReader::Long(const char* name) const {
    long value = 0;
    if (!WholeLong(Member(name, JsonType::NUMBER, "number"), Path(name), value)) {
        return nullptr;
    }
    return std::make_shared<long>(value);
}

bool FieldReader::WholeInt(const cJSON* number, const std::string& path, int& value) const {
    double whole = 0;
    if (!Whole(number, path, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
               whole)) {
        return false;
    }
    value = static_cast<int>(whole);
    return true;
}

bool FieldReader::WholeLong(const cJSON* number, const std::string& path, long& value) const {
    static_assert(sizeof(long) == 8, "time fields are 64-bit");
    double whole = 0;
    // The upper bound is exclusive: every double below 2^63 converts exactly.
    if (!Whole(number, path, -TWO_TO_63, std::nextafter(TWO_TO_63, 0.0), whole)) {
        return false;
    }
    value = static_cast<long>(whole);
    return true;
}

bool FieldReader::Whole(const cJSON* number, const std::string& path, double min, double max,
                        double& value) const {
    if (number == nullptr) {
        return false;
    }
    const double candidate = number->valuedouble;
    if (!std::isfinite(candidate) || std::trunc(candidate) != candidate || candidate < min ||
        candidate > max) {
        Fail(path, "number", RANGE_SUFFIX);
        return false;
    }
    value = candidate;
    return true;
}

FieldReader FieldReader::Nested(const cJSON* object, std::string path, LiveViewBase& record) const {
    return FieldReader(object, std::move(path), record, context_);
}

std::string FieldReader::Path(const std::string& member) const {
    return path_ + "." + member;
}

void FieldReader::Fail(const std::string& path, const std::string& typeName,
                       const char* suffix) const {
    if (record_.GetParamFailed().empty()) {
        record_.SetParamFailed(TypeMessage(path, typeName, suffix));
    }
}

}  // namespace LiveViewJson
