#include "field_reader.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace LiveViewJson {

using Tavi::Wisp::LiveView::LiveViewBase;

namespace {

bool HasType(const JsonValue& value, JsonType type) {
    switch (type) {
        case JsonType::NUMBER:
            return value.IsNumber();
        case JsonType::STRING:
            return value.IsString();
        case JsonType::BOOLEAN:
            return value.IsBoolean();
        case JsonType::OBJECT:
            return value.IsObject();
        case JsonType::ARRAY:
            return value.IsArray();
    }
    return false;
}

}  // namespace

std::string TypeMessage(const std::string& path, const std::string& typeName, const char* suffix) {
    return "Parameter error. The type of " + path + " mustbe " + typeName + suffix;
}

FieldReader::FieldReader(const JsonValue* object, std::string path, LiveViewBase& record,
                         ReadContext& context)
    : object_(object != nullptr && object->IsObject() ? object : nullptr),
      path_(std::move(path)),
      record_(record),
      context_(context) {
    context_.Visit(object_);
}

const JsonValue* FieldReader::Expect(const JsonValue* value, JsonType type, const std::string& path,
                                     const std::string& typeName) const {
    if (value == nullptr || value->IsNull()) {
        return nullptr;
    }
    if (!HasType(*value, type)) {
        Fail(path, typeName);
        return nullptr;
    }
    return value;
}

const JsonValue* FieldReader::Raw(const char* name) const {
    if (object_ == nullptr) {
        return nullptr;
    }
    context_.Ask(object_, name);
    return object_->Find(name);
}

void FieldReader::Known(const char* name) const {
    context_.Ask(object_, name);
}

const JsonValue* FieldReader::Member(const char* name, JsonType type,
                                     const std::string& typeName) const {
    return Expect(Raw(name), type, Path(name), typeName);
}

std::shared_ptr<std::string> FieldReader::String(const char* name) const {
    const JsonValue* value = Member(name, JsonType::STRING, "string");
    return value == nullptr ? nullptr : std::make_shared<std::string>(value->Text());
}

std::shared_ptr<bool> FieldReader::Bool(const char* name) const {
    const JsonValue* value = Member(name, JsonType::BOOLEAN, "boolean");
    return value == nullptr ? nullptr : std::make_shared<bool>(value->IsTrue());
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

bool FieldReader::WholeInt(const JsonValue* number, const std::string& path, int& value) const {
    long whole = 0;
    if (!WholeLong(number, path, whole)) {
        return false;
    }
    if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) {
        Fail(path, "number", RANGE_SUFFIX);
        return false;
    }
    value = static_cast<int>(whole);
    return true;
}

bool FieldReader::WholeLong(const JsonValue* number, const std::string& path, long& value) const {
    static_assert(sizeof(long) == sizeof(int64_t), "time fields are 64-bit");
    if (number == nullptr) {
        return false;
    }
    int64_t whole = 0;
    if (!number->WholeNumber(whole)) {
        Fail(path, "number", RANGE_SUFFIX);
        return false;
    }
    value = whole;
    return true;
}

FieldReader FieldReader::Nested(const JsonValue* object, std::string path,
                                LiveViewBase& record) const {
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
