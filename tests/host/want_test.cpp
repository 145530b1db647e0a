// Boxed values, arrays and parameter maps.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "array_wrapper.h"
#include "base_obj.h"
#include "want_params.h"

namespace Tavi {
namespace AAFwk {
namespace {

TEST(BoxTest, ValuesRoundTripThroughBoxAndUnbox) {
    EXPECT_EQ(String::Unbox(String::Box("")), "");
    EXPECT_EQ(String::Unbox(String::Box("Pickup at gate 3")), "Pickup at gate 3");
    EXPECT_EQ(String::Unbox(String::Box(std::string("a\0b", 3))), std::string("a\0b", 3));
    for (int value : {0, -1, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(Integer::Unbox(Integer::Box(value)), value);
    }
    for (long value : {0L, LONG_MAX, LONG_MIN, 1700000000000L}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(Long::Unbox(Long::Box(value)), value);
    }
    EXPECT_TRUE(Boolean::Unbox(Boolean::Box(true)));
    EXPECT_FALSE(Boolean::Unbox(Boolean::Box(false)));
    EXPECT_EQ(Double::Unbox(Double::Box(-2.5)), -2.5);
}

TEST(BoxTest, UnboxOfNullGivesTheZeroValue) {
    EXPECT_EQ(String::Unbox(static_cast<const IString*>(nullptr)), "");
    EXPECT_EQ(Integer::Unbox(sptr<IInteger>()), 0);
    EXPECT_EQ(Long::Unbox(sptr<ILong>()), 0L);
    EXPECT_FALSE(Boolean::Unbox(sptr<IBoolean>()));
    EXPECT_EQ(Double::Unbox(sptr<IDouble>()), 0.0);
}

TEST(BoxTest, QueryFindsOnlyTheBoxedType) {
    const struct {
        const char* label;
        sptr<IInterface> value;
        int interfaceId;
    } rows[] = {
        {"string", String::Box("x"), 9},
        {"integer", Integer::Box(1), 5},
        {"long", Long::Box(1L), 6},
        {"boolean", Boolean::Box(true), 1},
        {"double", Double::Box(1.0), 8},
        {"nested map", WantParamWrapper::Box(WantParams()), 101},
        {"array", sptr<IInterface>(new Array(1, g_IID_IString)), 102},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.value->GetInterfaceId().value, row.interfaceId);
        EXPECT_EQ(IString::Query(row.value) != nullptr, row.interfaceId == 9);
        EXPECT_EQ(IInteger::Query(row.value) != nullptr, row.interfaceId == 5);
        EXPECT_EQ(ILong::Query(row.value) != nullptr, row.interfaceId == 6);
        EXPECT_EQ(IBoolean::Query(row.value) != nullptr, row.interfaceId == 1);
        EXPECT_EQ(IDouble::Query(row.value) != nullptr, row.interfaceId == 8);
        EXPECT_EQ(IWantParams::Query(row.value) != nullptr, row.interfaceId == 101);
        EXPECT_EQ(IArray::Query(row.value) != nullptr, row.interfaceId == 102);
    }
    const sptr<IInterface> none;
    EXPECT_EQ(IString::Query(none), nullptr);
    EXPECT_EQ(IArray::Query(none), nullptr);
    EXPECT_EQ(IWantParams::Query(none), nullptr);
}

TEST(BoxTest, CloneOfAnImmutableBoxIsTheSameBox) {
    const sptr<IInterface> text = String::Box("x");
    EXPECT_EQ(text->Clone().GetRefPtr(), text.GetRefPtr());
}

TEST(ArrayTest, SetAndGetWithinRange) {
    Array array(3, g_IID_IString);
    long length = -1;
    EXPECT_EQ(array.GetLength(length), ERR_OK);
    EXPECT_EQ(length, 3);
    InterfaceID type{};
    EXPECT_EQ(array.GetType(type), ERR_OK);
    EXPECT_EQ(type, g_IID_IString);

    EXPECT_EQ(array.Set(0, String::Box("first")), ERR_OK);
    EXPECT_EQ(array.Set(2, String::Box("last")), ERR_OK);
    const struct {
        long index;
        const char* expected;  // null for an unset element
    } rows[] = {{0, "first"}, {1, nullptr}, {2, "last"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.index);
        sptr<IInterface> value = String::Box("stale");
        ASSERT_EQ(array.Get(row.index, value), ERR_OK);
        if (row.expected == nullptr) {
            EXPECT_EQ(value.GetRefPtr(), nullptr);
        } else {
            EXPECT_EQ(String::Unbox(IString::Query(value)), row.expected);
        }
    }
    EXPECT_EQ(array.Set(0, nullptr), ERR_OK);
    sptr<IInterface> cleared;
    ASSERT_EQ(array.Get(0, cleared), ERR_OK);
    EXPECT_EQ(cleared.GetRefPtr(), nullptr);
}

TEST(ArrayTest, OutOfRangeIndexIsRefused) {
    Array array(2, g_IID_IInteger);
    for (long index : {-1L, 2L, 100L, LONG_MIN, LONG_MAX}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(array.Set(index, Integer::Box(1)), ERR_INVALID_VALUE);
        sptr<IInterface> value = Integer::Box(5);
        EXPECT_EQ(array.Get(index, value), ERR_INVALID_VALUE);
        EXPECT_EQ(value.GetRefPtr(), nullptr);
    }
}

TEST(ArrayTest, ElementOfAnotherTypeIsRefusedAndLeavesTheElement) {
    Array array(1, g_IID_IString);
    ASSERT_EQ(array.Set(0, String::Box("kept")), ERR_OK);
    const struct {
        const char* label;
        sptr<IInterface> value;
    } rows[] = {
        {"integer", Integer::Box(1)},
        {"long", Long::Box(1L)},
        {"boolean", Boolean::Box(true)},
        {"nested map", WantParamWrapper::Box(WantParams())},
        {"array of strings", sptr<IInterface>(new Array(1, g_IID_IString))},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(array.Set(0, row.value), ERR_INVALID_VALUE);
        sptr<IInterface> value;
        ASSERT_EQ(array.Get(0, value), ERR_OK);
        EXPECT_EQ(String::Unbox(IString::Query(value)), "kept");
    }
}

TEST(ArrayTest, NonPositiveSizeGivesAnEmptyArray) {
    for (long size : {0L, -3L}) {
        SCOPED_TRACE(size);
        Array array(size, g_IID_IString);
        long length = -1;
        array.GetLength(length);
        EXPECT_EQ(length, 0);
        EXPECT_EQ(array.Set(0, String::Box("x")), ERR_INVALID_VALUE);
    }
}

TEST(ArrayTest, TypePredicatesFollowTheDeclaredElementType) {
    const Array strings(0, g_IID_IString);
    const Array integers(2, g_IID_IInteger);
    const Array longs(2, g_IID_ILong);
    const Array booleans(2, g_IID_IBoolean);
    const struct {
        const char* label;
        const IArray* array;
        bool isString;
        bool isInteger;
        bool isLong;
        bool isBoolean;
    } rows[] = {
        {"strings, even when empty", &strings, true, false, false, false},
        {"integers", &integers, false, true, false, false},
        {"longs", &longs, false, false, true, false},
        {"booleans", &booleans, false, false, false, true},
        {"null", nullptr, false, false, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Array::IsStringArray(row.array), row.isString);
        EXPECT_EQ(Array::IsIntegerArray(row.array), row.isInteger);
        EXPECT_EQ(Array::IsLongArray(row.array), row.isLong);
        EXPECT_EQ(Array::IsBooleanArray(row.array), row.isBoolean);
    }
}

TEST(ArrayTest, CloneCopiesElementsAndIsIndependent) {
    sptr<Array> original(new Array(2, g_IID_IString));
    ASSERT_EQ(original->Set(0, String::Box("a")), ERR_OK);
    const sptr<IInterface> copy = original->Clone();
    ASSERT_NE(copy.GetRefPtr(), original.GetRefPtr());
    ASSERT_EQ(original->Set(0, String::Box("changed")), ERR_OK);
    ASSERT_EQ(original->Set(1, String::Box("added")), ERR_OK);

    IArray* cloned = IArray::Query(copy);
    ASSERT_NE(cloned, nullptr);
    EXPECT_TRUE(Array::IsStringArray(cloned));
    sptr<IInterface> first;
    sptr<IInterface> second;
    ASSERT_EQ(cloned->Get(0, first), ERR_OK);
    ASSERT_EQ(cloned->Get(1, second), ERR_OK);
    EXPECT_EQ(String::Unbox(IString::Query(first)), "a");
    EXPECT_EQ(second.GetRefPtr(), nullptr);
}

TEST(WantParamsTest, GetDataTypeNamesEveryKindOfValue) {
    const struct {
        const char* label;
        sptr<IInterface> value;
        int expected;
    } rows[] = {
        {"null", nullptr, -1},
        {"boolean", Boolean::Box(false), 1},
        {"integer", Integer::Box(0), 5},
        {"long", Long::Box(0L), 6},
        {"double", Double::Box(0.0), 8},
        {"string", String::Box(""), 9},
        {"nested map", WantParamWrapper::Box(WantParams()), 101},
        {"array", sptr<IInterface>(new Array(0, g_IID_IString)), 102},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(WantParams::GetDataType(row.value), row.expected);
    }
    EXPECT_EQ(WantParams::VALUE_TYPE_STRING, 9);
    EXPECT_EQ(WantParams::VALUE_TYPE_NULL, -1);
}

TEST(WantParamsTest, SetGetHasRemoveAndSortedKeys) {
    WantParams params;
    EXPECT_TRUE(params.IsEmpty());
    EXPECT_EQ(params.GetParam("missing").GetRefPtr(), nullptr);
    EXPECT_FALSE(params.HasParam("missing"));

    params.SetParam("b", Integer::Box(2));
    params.SetParam("a", String::Box("1"));
    params.SetParam("c", nullptr);
    params.SetParam("b", Integer::Box(20));
    EXPECT_EQ(params.Size(), 3);
    EXPECT_FALSE(params.IsEmpty());
    std::vector<std::string> keys;
    for (const auto& entry : params.GetParams()) {
        keys.push_back(entry.first);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(Integer::Unbox(IInteger::Query(params.GetParam("b"))), 20);
    EXPECT_TRUE(params.HasParam("c"));  // a null value is still a key
    EXPECT_EQ(WantParams::GetDataType(params.GetParam("c")), -1);

    params.Remove("a");
    params.Remove("missing");
    EXPECT_EQ(params.Size(), 2);
    EXPECT_FALSE(params.HasParam("a"));
}

TEST(WantParamsTest, CopyIsDeepForArraysAndNestedMaps) {
    WantParams inner;
    inner.SetParam("leaf", String::Box("x"));
    sptr<Array> list(new Array(1, g_IID_IString));
    ASSERT_EQ(list->Set(0, String::Box("a")), ERR_OK);
    WantParams original;
    original.SetParam("list", list);
    original.SetParam("nested", WantParamWrapper::Box(inner));
    original.SetParam("text", String::Box("t"));

    for (const char* how : {"copy construction", "copy assignment"}) {
        SCOPED_TRACE(how);
        WantParams copy;
        if (std::string(how) == "copy construction") {
            copy = WantParams(original);
        } else {
            copy.SetParam("stale", String::Box("gone"));
            copy = original;
        }
        EXPECT_EQ(copy, original);
        EXPECT_FALSE(copy.HasParam("stale"));
        EXPECT_NE(copy.GetParam("list").GetRefPtr(), original.GetParam("list").GetRefPtr());
        EXPECT_NE(copy.GetParam("nested").GetRefPtr(), original.GetParam("nested").GetRefPtr());
        EXPECT_EQ(copy.GetParam("text").GetRefPtr(), original.GetParam("text").GetRefPtr());

        ASSERT_EQ(list->Set(0, String::Box("changed")), ERR_OK);
        original.SetParam("added", Integer::Box(1));
        sptr<IInterface> element;
        ASSERT_EQ(IArray::Query(copy.GetParam("list"))->Get(0, element), ERR_OK);
        EXPECT_EQ(String::Unbox(IString::Query(element)), "a");
        EXPECT_FALSE(copy.HasParam("added"));
        EXPECT_NE(copy, original);
        const WantParams nested =
            WantParamWrapper::Unbox(IWantParams::Query(copy.GetParam("nested")));
        EXPECT_EQ(nested, inner);

        ASSERT_EQ(list->Set(0, String::Box("a")), ERR_OK);
        original.Remove("added");
    }
}

TEST(WantParamsTest, NestedMapInsideAnArrayIsCopiedToo) {
    WantParams inner;
    inner.SetParam("leaf", String::Box("x"));
    sptr<Array> maps(new Array(1, g_IID_IWantParams));
    ASSERT_EQ(maps->Set(0, WantParamWrapper::Box(inner)), ERR_OK);
    WantParams original;
    original.SetParam("maps", maps);

    const WantParams copy(original);
    sptr<IInterface> originalElement;
    sptr<IInterface> copiedElement;
    ASSERT_EQ(maps->Get(0, originalElement), ERR_OK);
    ASSERT_EQ(IArray::Query(copy.GetParam("maps"))->Get(0, copiedElement), ERR_OK);
    EXPECT_NE(copiedElement.GetRefPtr(), originalElement.GetRefPtr());
    EXPECT_EQ(WantParamWrapper::Unbox(IWantParams::Query(copiedElement)), inner);
}

TEST(WantParamsTest, EqualityComparesKeysAndValues) {
    auto make = [](const char* key, const sptr<IInterface>& value) {
        WantParams params;
        params.SetParam(key, value);
        return params;
    };
    const struct {
        const char* label;
        WantParams a;
        WantParams b;
        bool equal;
    } rows[] = {
        {"empty", WantParams(), WantParams(), true},
        {"same text", make("k", String::Box("v")), make("k", String::Box("v")), true},
        {"other text", make("k", String::Box("v")), make("k", String::Box("w")), false},
        {"other key", make("k", String::Box("v")), make("j", String::Box("v")), false},
        {"int against long", make("k", Integer::Box(1)), make("k", Long::Box(1L)), false},
        {"null against null", make("k", nullptr), make("k", nullptr), true},
        {"null against value", make("k", nullptr), make("k", Integer::Box(0)), false},
        {"more keys", make("k", nullptr), WantParams(), false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.a == row.b, row.equal);
        EXPECT_EQ(row.a != row.b, !row.equal);
    }
}

TEST(WantParamWrapperTest, UnboxOfNullIsAnEmptyMap) {
    EXPECT_TRUE(WantParamWrapper::Unbox(nullptr).IsEmpty());
}

}  // namespace
}  // namespace AAFwk
}  // namespace Tavi
