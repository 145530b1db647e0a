#include "compound_readers.h"

#include <limits>
#include <string>

namespace LiveViewJson {

using Tavi::AAFwk::WantParams;
using Tavi::AbilityRuntime::WantAgent::WantAgent;
using Tavi::Wisp::LiveView::RichText;

namespace {

std::string ItemPath(const std::string& listPath, int index) {
    return listPath + "[" + std::to_string(index) + "]";
}

}  // namespace

bool ReadRichTexts(const FieldReader& reader, const char* name,
                   std::vector<std::shared_ptr<RichText>>& runs) {
    const cJSON* list = reader.Member(name, JsonType::ARRAY, "Array<RichText>");
    if (list == nullptr) {
        return false;
    }
    const std::string listPath = reader.Path(name);
    int index = 0;
    const cJSON* item = nullptr;
    cJSON_ArrayForEach(item, list) {
        const std::string itemPath = ItemPath(listPath, index++);
        const cJSON* object = reader.Expect(item, JsonType::OBJECT, itemPath, "RichText");
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
    const cJSON* object = reader.Member(name, JsonType::OBJECT, "WantAgent");
    if (object == nullptr) {
        return nullptr;
    }
    const auto target = reader.Nested(object, reader.Path(name), reader.Record()).String("target");
    return std::make_shared<WantAgent>(target == nullptr ? std::string() : *target);
}

std::shared_ptr<WantParams> ReadParameters(const FieldReader& reader, const char* name) {
    const cJSON* object = reader.Member(name, JsonType::OBJECT, "Record<string, string>");
    if (object == nullptr) {
        return nullptr;
    }
    auto params = std::make_shared<WantParams>();
    const cJSON* item = nullptr;
    cJSON_ArrayForEach(item, object) {
        const std::string itemPath = reader.Path(name) + "." + item->string;
        long number = 0;
        if (cJSON_IsString(item)) {
            params->SetParam(item->string, Tavi::AAFwk::String::Box(item->valuestring));
        } else if (cJSON_IsBool(item)) {
            params->SetParam(item->string, Tavi::AAFwk::Boolean::Box(cJSON_IsTrue(item)));
        } else if (!cJSON_IsNumber(item)) {
            reader.Fail(itemPath, "string | number | boolean");
        } else if (reader.WholeLong(item, itemPath, number)) {
            if (number >= std::numeric_limits<int>::min() &&
                number <= std::numeric_limits<int>::max()) {
                params->SetParam(item->string, Tavi::AAFwk::Integer::Box(static_cast<int>(number)));
            } else {
                params->SetParam(item->string, Tavi::AAFwk::Long::Box(number));
            }
        }
    }
    return params;
}

}  // namespace LiveViewJson
