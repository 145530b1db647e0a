// A member of the wrong JSON type or out of its number range, anywhere in a live view, is left
// by the reader as a refusal in the library's pattern that names the member's path, for
// validation to answer as code 401.
#include <gtest/gtest.h>

#include <string>

#include "live_view_manager.h"
#include "tools_test_support.h"

namespace LiveViewToolsTest {
namespace {

using namespace Tavi::Wisp::LiveView;

// The param-failed texts of every part of a record, in order.
std::string Refusals(const LiveView& v) {
    std::string all = v.GetParamFailed();
    const auto add = [&all](const auto& part) {
        all += part == nullptr ? "" : part->GetParamFailed();
    };
    add(v.GetTimer());
    add(v.GetLiveViewData());
    add(LiveView::GetPrimaryData(v));
    add(LiveView::GetLayoutData(v));
    add(LiveView::GetExtensionData(v));
    add(LiveView::GetCapsuleData(v));
    add(LiveView::GetExternalData(v));
    return all;
}

TEST(FrontEndTypeTest, EachShapeOfMemberNamesItsPath) {
    const std::string range = " mustbe number [or the parameter range is incorrect].";
    const std::string picture = " mustbe string | image.PixelMap.";
    const auto primary = [](const std::string& members) {
        return R"({"liveViewData": {"primary": {)" + members + "}}}";
    };
    const auto layout = [&primary](const std::string& members) {
        return primary(R"("layoutData": {"layoutType": 3, )" + members + "}");
    };
    const struct {
        std::string json, message;  // message: after "The type of "
    } rows[] = {
        {R"({"id": "101"})", "liveView.id mustbe number."},
        {R"({"id": 2147483648})", "liveView.id" + range},
        {R"({"sequence": -2147483649})", "liveView.sequence" + range},
        {R"({"timer": {"time": 9223372036854775808}})", "liveView.timer.time" + range},
        {R"({"liveViewData": {"primary": 3}})", "liveViewData.primary mustbe PrimaryData."},
        {primary(R"("content": [{"text": "a"}, "x"])"), "primary.content[1] mustbe RichText."},
        {primary(R"("content": [{"textColor": false}])"),
         "primary.content[0].textColor mustbe string."},
        {primary(R"("keepTime": 1e300)"), "primary.keepTime" + range},
        {primary(R"("immersiveParameters": {"mode": [1]})"),
         "primary.immersiveParameters.mode mustbe string | number | boolean."},
        {primary(R"("extensionData": {"pic": true})"), "extensionData.pic" + picture},
        {layout(R"("nodeIcons": ["a", 5])"), "layoutData.nodeIcons[1]" + picture},
        {layout(R"("indicatorIcon": {"width": "48", "height": 48})"),
         "layoutData.indicatorIcon.width mustbe number."},
        {layout(R"("indicatorIcon": {"width": 4, "height": 4, "format": "RGB_888"})"),
         "layoutData.indicatorIcon.format mustbe ALPHA_8 | RGB_565 | RGBA_8888 | ARGB_8888 | "
         "BGRA_8888."},
        {layout(R"("indicatorIcon": {"width": 46340, "height": 46340})"),
         "layoutData.indicatorIcon mustbe image.PixelMap [or the parameter range is incorrect]."},
        {R"({"liveViewData": {"capsule": {"type": 2, "time": 0.25}}})", "capsule.time" + range},
        {R"({"liveViewData": {"external": {"content": "x"}}})",
         "external.content mustbe Array<RichText>."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.json);
        LiveView liveView;
        ASSERT_TRUE(ReadFromText(row.json, liveView));
        EXPECT_EQ(Refusals(liveView), "Parameter error. The type of " + row.message);
    }
}

}  // namespace
}  // namespace LiveViewToolsTest
