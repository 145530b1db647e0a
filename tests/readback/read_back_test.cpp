// Reading a live view back from requests assembled by hand: missing parts, the "not set"
// sentinels, the kind types that choose a section, and the extension's buttons. What a converted
// record reads back as is held by the round trip of the conversion suite.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "live_view_constant.h"
#include "log_capture.h"
#include "notification_action_button.h"
#include "notification_request_conversion.h"
#include "record_builders.h"

namespace Tavi::Wisp::LiveView {
namespace {

using namespace Builders;
using Keys = LiveViewConstant;
using Notification::NotificationRequest;
using Strings = std::vector<std::string>;

const std::string WHERE = "[notification_request_conversion.cpp:";

sptr<AAFwk::IInterface> Boxed(int value) {
    return AAFwk::Integer::Box(value);
}
sptr<AAFwk::IInterface> Boxed(const std::string& value) {
    return AAFwk::String::Box(value);
}
std::string ValueOf(const sptr<AAFwk::IInterface>& box) {
    const auto* text = AAFwk::IString::Query(box);
    return text == nullptr ? std::to_string(AAFwk::Integer::Unbox(AAFwk::IInteger::Query(box)))
                           : "\"" + AAFwk::String::Unbox(text) + "\"";
}

// The record that parts read back as; the read must succeed.
LiveView ReadBack(RequestParts& parts) {
    LiveView liveView;
    const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView);
    EXPECT_TRUE(rsp.Succeed()) << rsp.GetInfo();
    return liveView;
}

TEST(ReadBackTest, MissingRequestPartsFailAndLeaveTheRecordUntouched) {
    LiveViewTest::HostCapture host;
    RequestParts noExtraInfo;
    noExtraInfo.extra = nullptr;
    const std::pair<sptr<NotificationRequest>, std::string> rows[] = {
        {nullptr, "1050] ConvertToLiveView# The notificationRequest is nullptr."},
        {new NotificationRequest(7), "1056] ConvertToLiveView# The liveViewContent is nullptr."},
        {noExtraInfo.Build(), "1061] ConvertToLiveView# The liveViewExtraInfo is nullptr."},
    };
    for (const auto& [request, line] : rows) {
        SCOPED_TRACE(line);
        LiveView liveView;
        liveView.SetEvent("kept");
        const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(request, liveView);
        EXPECT_EQ(rsp.GetErrAsInt32(), 1003500001);
        EXPECT_EQ(rsp.GetInfo(), line.substr(line.find("# ") + 2));
        EXPECT_EQ(host.LogTexts(), Strings{WHERE + line});
        EXPECT_EQ(liveView.GetEvent(), "kept");
        EXPECT_EQ(liveView.GetId(), nullptr);
        EXPECT_EQ(liveView.GetLiveViewData(), nullptr);
    }
}

// The version and the auto-deleted time count only their low 32 bits; all ones means not set.
TEST(ReadBackTest, SequenceAndKeepTimeSentinels) {
    struct Row {
        const char* label;
        uint32_t version;
        int64_t autoDeletedTime;
        std::string sequence;
        std::string keepTime;
    };
    const Row rows[] = {
        {"not set", 0xFFFFFFFF, -1, "<unset>", "<unset>"},
        {"high bits ignored", 5, 0x100000005, "5", "5"},
        {"low bits all ones", 1, 0x1FFFFFFFF, "1", "<unset>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        RequestParts parts;
        parts.content->SetVersion(row.version);
        parts.request->SetAutoDeletedTime(row.autoDeletedTime);
        const LiveView liveView = ReadBack(parts);
        EXPECT_EQ(Text(liveView.GetSequence()), row.sequence);
        EXPECT_EQ(Text(LiveView::GetPrimaryData(liveView)->GetKeepTime()), row.keepTime);
    }
}

// A layout is read for the types -1, 3, 4, 5, 7 and 8 and a capsule for 1, 2 and 3, as Integer
// boxes only; any other type leaves the section out, silently.
TEST(ReadBackTest, KindTypesChooseTheCapsuleAndTheLayout) {
    LiveViewTest::HostCapture host;
    for (const bool isLayout : {true, false}) {
        const std::string& key = isLayout ? Keys::LAYOUT_DATA_LAYOUT_TYPE : Keys::CAPSULE_DATA_TYPE;
        const std::vector<int> read =
            isLayout ? std::vector<int>{-1, 3, 4, 5, 7, 8} : std::vector<int>{1, 2, 3};
        for (int type = -2; type <= 9; ++type) {
            for (const sptr<AAFwk::IInterface>& box : {Boxed(type), Boxed(std::to_string(type))}) {
                SCOPED_TRACE(key + " " + ValueOf(box));
                RequestParts parts;
                parts.extra->SetParam(key, box);
                const LiveView v = ReadBack(parts);
                const bool expected = AAFwk::IInteger::Query(box) != nullptr &&
                                      std::count(read.begin(), read.end(), type) == 1;
                EXPECT_EQ(isLayout ? LiveView::GetLayoutData(v) != nullptr
                                   : LiveView::GetCapsuleData(v) != nullptr,
                          expected);
                if (expected) {
                    EXPECT_EQ(isLayout ? LiveView::GetLayoutType(v) : LiveView::GetCapsuleType(v),
                              type);
                }
            }
        }
    }
    EXPECT_EQ(host.LogTexts(), Strings());
}

// The extension is read when its type key is there, whatever its box; its click action is the
// first button's, and the cover flag is never read back.
TEST(ReadBackTest, ExtensionNeedsItsTypeKeyAndTakesTheFirstButtonsAction) {
    struct Row {
        const char* label;
        sptr<AAFwk::IInterface> type;
        std::string expected;  // type and action, or "none"
    };
    const Row rows[] = {
        {"absent", nullptr, "none"},
        {"Integer", Boxed(3), "3 first"},
        {"String", Boxed("3"), "-1 first"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        RequestParts parts;
        if (row.type != nullptr) {
            parts.extra->SetParam(Keys::EXTEND_DATA_TYPE, row.type);
        }
        parts.request->SetIsCoverActionButtons(true);
        for (const char* target : {"first", "second"}) {
            parts.request->AddActionButton(
                Notification::NotificationActionButton::Create(nullptr, "", ClickAction(target)));
        }
        const auto extension = LiveView::GetExtensionData(ReadBack(parts));
        EXPECT_EQ(extension == nullptr ? "none"
                                       : std::to_string(extension->GetType()) + " " +
                                             extension->GetClickAction()->GetTarget(),
                  row.expected);
        EXPECT_TRUE(extension == nullptr || !extension->GetIsCoverClickAction());
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView
