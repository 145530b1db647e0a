// Shared by the conversion tests: the request that the pipeline builds for a record, listed as
// sorted "name=value" lines (its extra info, its pictures under "@pictures.", and its own fields
// under "@").
#ifndef LIVE_VIEW_TESTS_CONVERSION_TEST_UTIL_H
#define LIVE_VIEW_TESTS_CONVERSION_TEST_UTIL_H

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "array_wrapper.h"
#include "live_view_content_of.h"
#include "live_view_request_pipeline.h"
#include "record_builders.h"
#include "want_box.h"

namespace Tavi::Wisp::LiveView::Test {

using namespace Builders;
using Lines = std::vector<std::string>;

// Texts as they are, integers as digits, longs with an L, flags as true or false, lists in [],
// maps in {}.
inline std::string ValueText(const sptr<AAFwk::IInterface>& value) {
    if (const auto* text = AAFwk::IString::Query(value)) {
        return AAFwk::String::Unbox(text);
    }
    if (const auto* number = AAFwk::IInteger::Query(value)) {
        return std::to_string(AAFwk::Integer::Unbox(number));
    }
    if (const auto* number = AAFwk::ILong::Query(value)) {
        return std::to_string(AAFwk::Long::Unbox(number)) + "L";
    }
    if (const auto* flag = AAFwk::IBoolean::Query(value)) {
        return AAFwk::Boolean::Unbox(flag) ? "true" : "false";
    }
    std::string text;
    if (const auto* array = AAFwk::IArray::Query(value)) {
        long length = 0;
        array->GetLength(length);
        for (long i = 0; i < length; ++i) {
            sptr<AAFwk::IInterface> element;
            array->Get(i, element);
            text += (i == 0 ? "" : ",") + ValueText(element);
        }
        return "[" + text + "]";
    }
    if (const auto* map = AAFwk::IWantParams::Query(value)) {
        const AAFwk::WantParams params = AAFwk::WantParamWrapper::Unbox(map);
        for (const auto& [key, item] : params.GetParams()) {
            text += key + ":" + ValueText(item) + ";";
        }
        return "{" + text + "}";
    }
    return value == nullptr ? "null" : "?";
}

inline std::string PictureText(const std::shared_ptr<Media::PixelMap>& picture) {
    return picture == nullptr ? "-" : "w" + std::to_string(picture->GetWidth());
}

inline Lines Listing(const Notification::NotificationRequest& request) {
    const auto content = LiveViewContentOf(request);
    const auto agent = request.GetWantAgent();
    std::string buttons;
    for (const auto& button : request.GetActionButtons()) {
        buttons += button->GetTitle() + ">" + button->GetWantAgent()->GetTarget() + ";";
    }
    Lines lines = {
        "@id=" + std::to_string(request.GetNotificationId()),
        "@slot=" + std::to_string(static_cast<int>(request.GetSlotType())),
        "@inProgress=" + std::to_string(request.IsInProgress()),
        "@autoDeletedTime=" + std::to_string(request.GetAutoDeletedTime()),
        "@wantAgent=" + (agent == nullptr ? "-" : agent->GetTarget()),
        "@buttons=" + buttons,
        "@cover=" + std::to_string(request.IsCoverActionButtons()),
        "@version=" + std::to_string(content->GetVersion()),
        "@singlePicture=" + PictureText(content->GetSinglePicture()),
    };
    for (const auto& [key, pictures] : content->GetPicture()) {
        std::string text;
        for (const auto& picture : pictures) {
            text += PictureText(picture) + ";";
        }
        lines.push_back("@pictures." + key + "=" + text);
    }
    for (const auto& [key, value] : content->GetExtraInfo()->GetParams()) {
        lines.push_back(key + "=" + ValueText(value));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

// The request that the pipeline builds for record; the build must succeed.
inline sptr<Notification::NotificationRequest> Built(const LiveView& record,
                                                     LiveView::Operation operation,
                                                     const HeldLiveView& held = HeldLiveView()) {
    sptr<Notification::NotificationRequest> request = new Notification::NotificationRequest();
    const BaseRsp rsp = LiveViewRequestPipeline::Build(record, operation, held, *request).rsp;
    EXPECT_TRUE(rsp.Succeed()) << rsp.GetInfo();
    return request;
}

}  // namespace Tavi::Wisp::LiveView::Test

#endif  // LIVE_VIEW_TESTS_CONVERSION_TEST_UTIL_H
