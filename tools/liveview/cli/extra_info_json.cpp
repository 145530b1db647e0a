#include "extra_info_json.h"

#include <string>

namespace LiveViewCli {

using namespace Tavi::AAFwk;
using Tavi::sptr;

namespace {

// Values nested deeper than this are written as "..."; the library nests one level.
constexpr int MAX_DEPTH = 8;

// [type, value]: one line per key when printed.
cJSON* Typed(const std::string& type, cJSON* value) {
    cJSON* entry = cJSON_CreateArray();
    cJSON_AddItemToArray(entry, cJSON_CreateString(type.c_str()));
    cJSON_AddItemToArray(entry, value);
    return entry;
}

// Integers are written as their exact decimal text.
cJSON* Whole(long value) {
    return cJSON_CreateRaw(std::to_string(value).c_str());
}

std::string TypeName(const InterfaceID& id) {
    if (id == g_IID_IString) {
        return "String";
    }
    if (id == g_IID_IInteger) {
        return "Integer";
    }
    if (id == g_IID_ILong) {
        return "Long";
    }
    if (id == g_IID_IBoolean) {
        return "Boolean";
    }
    if (id == g_IID_IDouble) {
        return "Double";
    }
    if (id == g_IID_IWantParams) {
        return "WantParams";
    }
    if (id == g_IID_IArray) {
        return "Array";
    }
    return "unknown";
}

cJSON* ParamsToJson(const WantParams& params, int depth);

cJSON* BoxToJson(const sptr<IInterface>& box, int depth) {
    if (box == nullptr) {
        return Typed("null", cJSON_CreateNull());
    }
    if (depth > MAX_DEPTH) {
        return Typed(TypeName(box->GetInterfaceId()), cJSON_CreateString("..."));
    }
    if (auto* value = IString::Query(box)) {
        return Typed("String", cJSON_CreateString(String::Unbox(value).c_str()));
    }
    if (auto* value = IInteger::Query(box)) {
        return Typed("Integer", Whole(Integer::Unbox(value)));
    }
    if (auto* value = ILong::Query(box)) {
        return Typed("Long", Whole(Long::Unbox(value)));
    }
    if (auto* value = IBoolean::Query(box)) {
        return Typed("Boolean", cJSON_CreateBool(Boolean::Unbox(value)));
    }
    if (auto* value = IDouble::Query(box)) {
        return Typed("Double", cJSON_CreateNumber(Double::Unbox(value)));
    }
    if (auto* value = IWantParams::Query(box)) {
        return Typed("WantParams", ParamsToJson(WantParamWrapper::Unbox(value), depth + 1));
    }
    if (auto* array = IArray::Query(box)) {
        InterfaceID elementType{0};
        long length = 0;
        array->GetType(elementType);
        array->GetLength(length);
        cJSON* values = cJSON_CreateArray();
        for (long i = 0; i < length; ++i) {
            sptr<IInterface> element;
            array->Get(i, element);
            cJSON* item = BoxToJson(element, depth + 1);
            cJSON_AddItemToArray(values, cJSON_DetachItemFromArray(item, 1));
            cJSON_Delete(item);
        }
        return Typed("Array<" + TypeName(elementType) + ">", values);
    }
    return Typed(TypeName(box->GetInterfaceId()), cJSON_CreateNull());
}

cJSON* ParamsToJson(const WantParams& params, int depth) {
    cJSON* object = cJSON_CreateObject();
    for (const auto& [key, box] : params.GetParams()) {
        cJSON_AddItemToObject(object, key.c_str(), BoxToJson(box, depth));
    }
    return object;
}

}  // namespace

cJSON* ExtraInfoToJson(const WantParams& params) {
    return ParamsToJson(params, 0);
}

}  // namespace LiveViewCli
