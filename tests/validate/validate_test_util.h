// Shared by the validation tests: the expected messages, value makers, and a runner of labelled
// rows that each change one section of a record passing every check, then build the request for
// an operation and compare the answer (code, exact message) and the rule hint.
#ifndef LIVE_VIEW_TESTS_VALIDATE_TEST_UTIL_H
#define LIVE_VIEW_TESTS_VALIDATE_TEST_UTIL_H

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "live_view_param_validate.h"
#include "live_view_request_pipeline.h"
#include "record_builders.h"

namespace Tavi::Wisp::LiveView::ValidateTest {

using namespace Builders;
using Pic = std::shared_ptr<Media::PixelMap>;
using Validate = LiveViewParamValidate;
constexpr LiveView::Operation START = LiveView::START;
constexpr LiveView::Operation UPDATE = LiveView::UPDATE;
constexpr LiveView::Operation STOP = LiveView::STOP;

// Expected answers: OK is success; any other text is code 401 with exactly that message.
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
// A picture of exactly `bytes` bytes.
inline Pic Image(int32_t bytes) {
    return Picture(bytes, 1, Media::PixelFormat::ALPHA_8);
}
inline std::vector<Pic> Images(size_t count, int32_t bytes = 1) {
    return std::vector<Pic>(count, Image(bytes));
}
// Runs of rich text of the given sizes.
inline std::vector<std::shared_ptr<RichText>> Runs(const std::vector<size_t>& sizes) {
    std::vector<std::shared_ptr<RichText>> runs;
    for (const size_t size : sizes) {
        runs.push_back(Rich(Bytes(size)));
    }
    return runs;
}
inline std::vector<std::string> Names(size_t count) {
    return std::vector<std::string>(count, "icon");
}

// StartRecord() with an extension, a text capsule and external data: every section present.
inline LiveView BaseRecord() {
    LiveView v = StartRecord();
    SetExtension(v, ExtensionForStart());
    SetCapsule(v, TextCapsuleForStart());
    SetExternal(v, ExternalForStart());
    return v;
}

// Puts a section of type T (or the whole record) into a record.
template <typename T>
void Put(LiveView& v, const std::shared_ptr<T>& section) {
    if constexpr (std::is_same_v<T, LiveView>) {
        v = section == nullptr ? LiveView() : *section;
    } else if constexpr (std::is_same_v<T, LiveViewTimer>) {
        v.SetTimer(section);
    } else if constexpr (std::is_same_v<T, PrimaryData>) {
        v.GetLiveViewData()->SetPrimary(section);
    } else if constexpr (std::is_same_v<T, ExtensionData>) {
        SetExtension(v, section);
    } else if constexpr (std::is_base_of_v<LayoutData, T>) {
        SetLayout(v, section);
    } else if constexpr (std::is_base_of_v<CapsuleData, T>) {
        SetCapsule(v, section);
    } else {
        SetExternal(v, section);
    }
}

// A row's change that calls one setter of the section.
#define SET(...) [](auto& s) { s->__VA_ARGS__; }

// One row: the operation, a change to a valid section, the expected answer and, when given, the
// expected hint ("path: text"; empty for none). An accepted row always expects no hint.
inline const std::string UNCHECKED = "unchecked";
template <typename T>
struct Row {
    std::string label;
    LiveView::Operation operation;
    std::function<void(std::shared_ptr<T>&)> change;
    std::string expected;
    std::string hint = UNCHECKED;
};

// Builds each row's record through the request pipeline; an update or stop continues a live
// view of the record's layout kind that holds external data.
template <typename T>
void RunRows(const std::function<std::shared_ptr<T>()>& make, const std::vector<Row<T>>& rows) {
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        std::shared_ptr<T> section = make();
        row.change(section);
        LiveView record = BaseRecord();
        Put(record, section);
        const HeldLiveView held{LiveView::GetLayoutType(record), "held"};
        Notification::NotificationRequest request;
        RuleHint hint{"stale", "stale"};
        const PipelineOutcome outcome =
            LiveViewRequestPipeline::Build(record, row.operation, held, request, &hint);
        EXPECT_EQ(outcome.rsp.GetErr(), row.expected.empty() ? SUCCESS : ERR_PARAM_INVALID);
        EXPECT_EQ(outcome.rsp.GetInfo(), row.expected);
        if (row.expected.empty() || row.hint != UNCHECKED) {
            EXPECT_EQ(hint.ToString(), row.hint == UNCHECKED ? "" : row.hint);
        }
    }
}

}  // namespace Tavi::Wisp::LiveView::ValidateTest

#endif  // LIVE_VIEW_TESTS_VALIDATE_TEST_UTIL_H
