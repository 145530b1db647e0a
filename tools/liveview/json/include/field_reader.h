// The typed-member reader that every field of the JSON front end goes through.
//
// A member of the expected JSON type yields its value. A member of another type yields nothing
// and records a param-failed text in the library's pattern ("Parameter error. The type of
// <path> mustbe <type>.") on the record that holds it, so that validation rejects the record with
// code 401; the first text of a record is kept. An absent member, or a JSON null, yields nothing
// and records nothing. Member names are compared case-sensitively; every name asked for counts as
// known at its object (see ReadContext::ReportUnknownMembers).
//
// Thread safety: none; a reader and its context belong to one thread.
#ifndef LIVEVIEW_JSON_FIELD_READER_H
#define LIVEVIEW_JSON_FIELD_READER_H

#include <memory>
#include <string>

#include "json_document.h"
#include "json_value.h"
#include "live_view_base.h"
#include "read_context.h"

namespace LiveViewJson {

enum class JsonType { NUMBER, STRING, BOOLEAN, OBJECT, ARRAY };

// The suffix of a number that has the right JSON type but is not a whole number in the range of
// its field.
inline constexpr const char* RANGE_SUFFIX = " [or the parameter range is incorrect].";

// "Parameter error. The type of <path> mustbe <typeName><suffix>".
std::string TypeMessage(const std::string& path, const std::string& typeName,
                        const char* suffix = ".");

class FieldReader {
public:
    // Reads the members of object (null or not an object: every member is absent); paths start
    // with path; type errors go to record.
    FieldReader(const JsonValue* object, std::string path,
                Tavi::Wisp::LiveView::LiveViewBase& record, ReadContext& context);

    // The member name as it is, of any type; null when absent.
    const JsonValue* Raw(const char* name) const;
    // value when it is of type; otherwise null, recording TypeMessage(path, typeName) unless value
    // is null or a JSON null.
    const JsonValue* Expect(const JsonValue* value, JsonType type, const std::string& path,
                            const std::string& typeName) const;
    // The member name through Expect, under the path Path(name).
    const JsonValue* Member(const char* name, JsonType type, const std::string& typeName) const;
    // Counts name as known at this object without reading it.
    void Known(const char* name) const;

    std::shared_ptr<std::string> String(const char* name) const;
    std::shared_ptr<bool> Bool(const char* name) const;
    // Whole numbers within the range of the field's type, read exactly from their literal;
    // another number records the range text.
    std::shared_ptr<int> Int(const char* name) const;
    std::shared_ptr<long> Long(const char* name) const;
    // The same for a number value already taken (array elements, parameter values).
    bool WholeInt(const JsonValue* number, const std::string& path, int& value) const;
    bool WholeLong(const JsonValue* number, const std::string& path, long& value) const;

    // A reader of another object of the same input.
    FieldReader Nested(const JsonValue* object, std::string path,
                       Tavi::Wisp::LiveView::LiveViewBase& record) const;

    // path + "." + member.
    std::string Path(const std::string& member) const;
    // Records TypeMessage(path, typeName, suffix) unless the record already has a text.
    void Fail(const std::string& path, const std::string& typeName, const char* suffix = ".") const;

    ReadContext& Context() const { return context_; }
    Tavi::Wisp::LiveView::LiveViewBase& Record() const { return record_; }

private:
    const JsonValue* object_;
    std::string path_;
    Tavi::Wisp::LiveView::LiveViewBase& record_;
    ReadContext& context_;
};

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_FIELD_READER_H
