// Shared fixtures of the conversion tests: record builders, the outputs of a conversion, and a
// reader that checks the extra-info map key by key with the box type each value must have.
#ifndef LIVE_VIEW_TESTS_CONVERSION_TEST_UTIL_H
#define LIVE_VIEW_TESTS_CONVERSION_TEST_UTIL_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "host_control.h"
#include "live_view.h"
#include "live_view_param_conversion.h"
#include "pixel_map.h"
#include "record_builders.h"
#include "want_box.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Test {

using namespace Builders;
using Pic = std::shared_ptr<Media::PixelMap>;
using PictureMap = LiveViewParamConversion::PictureMap;
using Runs = std::vector<std::shared_ptr<RichText>>;

// Distinct pictures have distinct widths, so a mix-up shows in the failure message too.
inline Pic NewPic(int width = 1) {
    return Picture(width, 1, Media::PixelFormat::ALPHA_8);
}

inline LiveView MakeLiveView(const std::shared_ptr<PrimaryData>& primary,
                             const std::shared_ptr<CapsuleData>& capsule = nullptr,
                             const std::shared_ptr<ExternalData>& external = nullptr) {
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(primary);
    data->SetCapsule(capsule);
    data->SetExternal(external);
    LiveView liveView;
    liveView.SetLiveViewData(data);
    return liveView;
}
inline LiveView WithLayout(const std::shared_ptr<LayoutData>& layout) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetLayoutData(layout);
    return MakeLiveView(primary);
}
inline LiveView WithCapsule(const std::shared_ptr<CapsuleData>& capsule) {
    return MakeLiveView(nullptr, capsule);
}
inline LiveView WithExtension(const std::shared_ptr<ExtensionData>& extension) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetExtensionData(extension);
    return MakeLiveView(primary);
}

// What the client hands to the conversions.
struct Outputs {
    Notification::NotificationRequest request;
    std::shared_ptr<AAFwk::WantParams> extra = std::make_shared<AAFwk::WantParams>();
    std::shared_ptr<Notification::NotificationLiveViewContent> content =
        std::make_shared<Notification::NotificationLiveViewContent>();
    PictureMap pictures;
};

// An expected value; its alternative names the box: String, Integer, Long, Boolean, Array of
// String. Write texts as std::string ("x"s) so that they are not taken for a Boolean.
using Expected = std::variant<std::string, int, long, bool, std::vector<std::string>>;
using ExpectedParams = std::map<std::string, Expected>;

// params holds exactly the keys of expected, each with the box and value given.
inline void ExpectParams(const AAFwk::WantParams& params, const ExpectedParams& expected) {
    std::vector<std::string> keys;
    for (const auto& entry : params.GetParams()) {
        keys.push_back(entry.first);
    }
    std::vector<std::string> expectedKeys;
    for (const auto& entry : expected) {
        expectedKeys.push_back(entry.first);
    }
    EXPECT_EQ(keys, expectedKeys);
    for (const auto& [key, value] : expected) {
        SCOPED_TRACE(key);
        const auto boxed = params.GetParam(key);
        std::visit(
            [&boxed](const auto& want) {
                using T = std::decay_t<decltype(want)>;
                if constexpr (std::is_same_v<T, std::vector<std::string>>) {
                    const auto* array = AAFwk::IArray::Query(boxed);
                    ASSERT_TRUE(array != nullptr && AAFwk::Array::IsStringArray(array))
                        << "not an Array of String";
                    long length = -1;
                    array->GetLength(length);
                    ASSERT_EQ(length, static_cast<long>(want.size()));
                    for (long i = 0; i < length; ++i) {
                        sptr<AAFwk::IInterface> element;
                        array->Get(i, element);
                        const auto* text = AAFwk::IString::Query(element);
                        ASSERT_NE(text, nullptr) << "element " << i;
                        EXPECT_EQ(AAFwk::String::Unbox(text), want[static_cast<size_t>(i)]);
                    }
                } else {
                    const auto* typed = BoxOf<T>::Interface::Query(boxed);
                    ASSERT_NE(typed, nullptr) << "value of another box type";
                    T got{};
                    typed->GetValue(got);
                    EXPECT_EQ(got, want);
                }
            },
            value);
    }
}

// Captures the log lines of the test as (level, text).
class ConversionTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetLogMode(Host::SinkMode::CAPTURE);
    }
    void TearDown() override { Host::ResetAll(); }

    static std::vector<std::pair<int, std::string>> Logs() {
        std::vector<std::pair<int, std::string>> lines;
        for (const auto& line : Host::TakeLogLines()) {
            lines.emplace_back(line.level, line.text);
        }
        return lines;
    }

    static constexpr int INFO = 4;
    static constexpr int ERROR = 6;

    // Matches Logs() holding exactly one information line of the conversion unit that ends with
    // ending.
    static auto OneConversionInfoLine(const std::string& ending) {
        return ::testing::ElementsAre(::testing::Pair(
            INFO, ::testing::AllOf(::testing::StartsWith("[live_view_param_conversion.cpp:"),
                                   ::testing::EndsWith(ending))));
    }
};

}  // namespace Test
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TESTS_CONVERSION_TEST_UTIL_H
