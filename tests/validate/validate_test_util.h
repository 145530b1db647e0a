// Shared fixtures of the validation tests: expected messages, value makers, and a runner of
// labelled tables whose rows change a record that passes every check on start (those of
// record_builders.h, and a progress layout with only the fields a start requires).
#ifndef LIVE_VIEW_TESTS_VALIDATE_TEST_UTIL_H
#define LIVE_VIEW_TESTS_VALIDATE_TEST_UTIL_H

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "flight_layout.h"
#include "live_view_param_validate.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "record_builders.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ValidateTest {

using namespace Builders;
using Pic = std::shared_ptr<Media::PixelMap>;
using RunPtr = std::shared_ptr<RichText>;
using Validate = LiveViewParamValidate;
constexpr LiveView::Operation START = LiveView::START;
constexpr LiveView::Operation UPDATE = LiveView::UPDATE;
constexpr LiveView::Operation STOP = LiveView::STOP;

// Expected results: OK is success; any other text is code 401 with exactly that message.
inline const std::string OK;
inline const std::string LEN = " [or the parameter length exceeds the limit].";
inline const std::string MAND = " [or the parameter is mandatory].";
inline const std::string RANGE = " [or the parameter range is incorrect].";
inline const std::string PIC = "string | image.PixelMap";
inline std::string Err(const std::string& path, const std::string& type,
                       const std::string& tail = ".") {
    return "Parameter error. The type of " + path + " mustbe " + type + tail;
}
inline std::string Len(const std::string& path) {
    return Err(path, "string", LEN);
}
inline std::string Mand(const std::string& path) {
    return Err(path, "string", MAND);
}

inline std::shared_ptr<std::string> Bytes(size_t count) {
    return Str(std::string(count, 'a'));
}
// A picture that reports exactly `bytes` bytes.
inline Pic Image(int32_t bytes) {
    return Picture(bytes, 1, Media::PixelFormat::ALPHA_8);
}
template <typename T, typename... Items>
std::vector<T> List(Items... items) {
    return std::vector<T>{items...};
}
inline std::vector<std::string> Names(size_t count) {
    return std::vector<std::string>(count, "icon");
}
inline std::vector<Pic> Images(size_t count, int32_t bytes = 1) {
    std::vector<Pic> images;
    for (size_t i = 0; i < count; ++i) {
        images.push_back(Image(bytes));
    }
    return images;
}

template <typename T>
std::shared_ptr<T> Kind(LayoutData::LayoutType type) {
    auto layout = std::make_shared<T>();
    layout->SetLayoutType(type);
    return layout;
}
// The progress table breaks one field at a time of a layout with only the fields a start requires
// (no indicator, no colours), unlike ProgressLayoutForStart().
inline std::shared_ptr<ProgressLayout> ValidProgress() {
    auto l = Kind<ProgressLayout>(LayoutData::PROGRESS);
    l->SetProgress(Int(50)), l->SetNodeIconsStr(Names(2));
    return l;
}
inline std::shared_ptr<PrimaryData> ValidPrimary() {
    return LiveView::GetPrimaryData(StartRecord());
}
// A capsule of kind T, status 1, passing the rules that every kind shares.
template <typename T>
std::shared_ptr<T> CapsuleOf(CapsuleData::CapsuleType type) {
    auto c = std::make_shared<T>();
    c->SetStatus(Int(1)), c->SetType(type), c->SetIconStr(Str("icon"));
    c->SetBackgroundColor(Str("#80FF0000"));
    return c;
}
// StartRecord() with the given layout.
inline LiveView WithLayout(const std::shared_ptr<LayoutData>& layout) {
    LiveView v = StartRecord();
    SetLayout(v, layout);
    return v;
}

inline void ExpectRsp(const BaseRsp& rsp, const std::string& expected) {
    EXPECT_EQ(rsp.GetErr(), expected.empty() ? SUCCESS : ERR_PARAM_INVALID);
    EXPECT_EQ(rsp.GetInfo(), expected);
}

// One row: a change to a valid record, the operation to check for, and the expected result.
template <typename T>
struct Case {
    std::string label;
    std::function<void(std::shared_ptr<T>&)> change;
    LiveView::Operation operation;
    std::string expected;
};
// For each text under the length rule and mandatory on start: 128 bytes, and absent on start.
template <typename T>
std::vector<Case<T>> TextCases(
    const std::vector<std::pair<std::string, void (T::*)(const std::shared_ptr<std::string>&)>>&
        texts) {
    std::vector<Case<T>> cases;
    for (const auto& text : texts) {
        const std::string& path = text.first;
        const auto set = text.second;
        cases.push_back(
            {path + " 128 bytes", [set](auto& r) { ((*r).*set)(Bytes(128)); }, UPDATE, Len(path)});
        cases.push_back(
            {path + " absent", [set](auto& r) { ((*r).*set)(nullptr); }, START, Mand(path)});
    }
    return cases;
}
template <typename T>
using Check = std::function<BaseRsp(const std::shared_ptr<T>&, const LiveView::Operation&)>;

template <typename T>
void RunCases(const std::vector<Case<T>>& cases, const std::function<std::shared_ptr<T>()>& make,
              const Check<T>& check) {
    for (const auto& row : cases) {
        SCOPED_TRACE(row.label);
        std::shared_ptr<T> record = make();
        row.change(record);
        ExpectRsp(check(record, row.operation), row.expected);
    }
}
// The record's layout is the changed one.
template <typename T>
void RunLayoutCases(const std::vector<Case<T>>& cases,
                    const std::function<std::shared_ptr<T>()>& make) {
    RunCases<T>(cases, make, [](const std::shared_ptr<T>& layout, const LiveView::Operation& op) {
        bool isPresent = false;
        return Validate::LayoutDataParamValidate(WithLayout(layout), op, isPresent);
    });
}

}  // namespace ValidateTest
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TESTS_VALIDATE_TEST_UTIL_H
