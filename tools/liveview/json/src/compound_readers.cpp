#include "compound_readers.h"

#include <limits>
#include <string>

namespace LiveViewJson {

using Tavi::AAFwk::WantParams;
using Tavi::AbilityRuntime::WantAgent::WantAgent;
using Tavi::Wisp::LiveView::RichText;

namespace {

std::string ItemPath(const std::string& listPath, size_t index) {
    return listPath + "[" + std::to_string(index) + "]";
}

}  // namespace

bool ReadRichTexts(const FieldReader& reader, const char* name,
                   std::vector<std::shared_ptr<RichText>>& runs) {
    const JsonValue* list = reader.Member(name, JsonType::ARRAY, "Array<RichText>");
    if (list == nullptr) {
        return false;
    }
    const std::string listPath = reader.Path(name);
    for (size_t index = 0; index < list->Items().size(); ++index) {
        const std::string itemPath = ItemPath(listPath, index);
        const JsonValue* object =
            reader.Expect(&list->Items()[index], JsonType::OBJECT, itemPath, "RichText");
        if (object == nullptr) {
            continue;
        }
        // A run has no param-failed text of its own: its errors belong to the list's holder.
        const FieldReader runReader = reader.Nested(object, itemPath, reader.Record());
        auto run = std::make_shared<RichText>();
        run->SetText(runReader.String("text"));
        run->SetTextColor(runReader.String("textColor"));
        runs.push_back(run);
    }
    return true;
}

std::shared_ptr<WantAgent> ReadClickAction(const FieldReader& reader, const char* name) {
    const JsonValue* object = reader.Member(name, JsonType::OBJECT, "WantAgent");
    if (object == nullptr) {
        return nullptr;
    }
    const auto target = reader.Nested(object, reader.Path(name), reader.Record()).String("target");
    return std::make_shared<WantAgent>(target == nullptr ? std::string() : *target);
}

std::shared_ptr<WantParams> ReadParameters(const FieldReader& reader, const char* name) {
    const JsonValue* object = reader.Member(name, JsonType::OBJECT, "Record<string, string>");
    if (object == nullptr) {
        return nullptr;
    }
    reader.Context().KnowAll(object);
    auto params = std::make_shared<WantParams>();
    for (const JsonMember& member : object->Members()) {
        const JsonValue& item = member.value;
        const std::string itemPath = reader.Path(name) + "." + member.name;
        long number = 0;
        if (item.IsNull()) {
            continue;
        }
        if (item.IsString()) {
            params->SetParam(member.name, Tavi::AAFwk::String::Box(item.Text()));
        } else if (item.IsBoolean()) {
            params->SetParam(member.name, Tavi::AAFwk::Boolean::Box(item.IsTrue()));
        } else if (!item.IsNumber()) {
            reader.Fail(itemPath, "string | number | boolean");
        } else if (reader.WholeLong(&item, itemPath, number)) {
            if (number >= std::numeric_limits<int>::min() &&
                number <= std::numeric_limits<int>::max()) {
                params->SetParam(member.name, Tavi::AAFwk::Integer::Box(static_cast<int>(number)));
            } else {
                params->SetParam(member.name, Tavi::AAFwk::Long::Box(number));
            }
        }
    }
    return params;
}

}  // namespace LiveViewJson
