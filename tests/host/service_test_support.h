// Shared by the notification service suites: a fixture that starts every test from a fresh
// service on a manual clock with one calling app, builders of live view requests, and a one-line
// summary of extra info for exact comparisons.
#ifndef TESTS_HOST_SERVICE_TEST_SUPPORT_H
#define TESTS_HOST_SERVICE_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host_control.h"
#include "live_view_content.h"
#include "notification_helper.h"
#include "notification_live_view_content.h"
#include "want_params.h"

namespace Tavi::Host::Testing {

using LiveViewTest::LiveViewContentOf;
using Notification::ErrCode;
using Notification::NotificationHelper;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Status = NotificationLiveViewContent::LiveViewStatus;
using Texts = std::initializer_list<std::pair<std::string, std::string>>;

constexpr Status kCreate = Status::LIVE_VIEW_CREATE, kEnd = Status::LIVE_VIEW_END;
constexpr Status kUpdate = Status::LIVE_VIEW_INCREMENTAL_UPDATE,
                 kFull = Status::LIVE_VIEW_FULL_UPDATE;
// The error numbers the service answers.
constexpr ErrCode kInvalid = 0x4000003, kNotExists = 0x4000010, kOverRate = 0x4000012;
constexpr ErrCode kNotConfigured = 0x4000018, kSlotDisabled = 0x4000022;
constexpr ErrCode kRepeatCreate = 0x4000028, kEnded = 0x4000029, kStale = 0x400002A;

inline const std::string kBundle = "com.example.rides";
constexpr int32_t kUid = 20010001;
constexpr int32_t kId = 7;
constexpr uint32_t kNoVersion = NotificationLiveViewContent::MAX_VERSION;
constexpr int64_t kStartMillis = 1000000;

// A live view request on the live view slot; extra info of the given texts, none when empty.
inline sptr<NotificationRequest> MakeLiveView(int32_t id, Status status,
                                              uint32_t version = kNoVersion, Texts texts = {}) {
    auto content = std::make_shared<NotificationLiveViewContent>();
    content->SetLiveViewStatus(status);
    content->SetVersion(version);
    if (texts.size() > 0) {
        auto params = std::make_shared<AAFwk::WantParams>();
        for (const auto& [key, value] : texts) {
            params->SetParam(key, AAFwk::String::Box(value));
        }
        content->SetExtraInfo(params);
    }
    auto request = sptr<NotificationRequest>::MakeSptr(id);
    request->SetSlotType(Notification::NotificationConstant::LIVE_VIEW);
    request->SetContent(std::make_shared<Notification::NotificationContent>(content));
    return request;
}

inline ErrCode Send(const sptr<NotificationRequest>& request) {
    return NotificationHelper::PublishNotification(*request);
}

inline ErrCode Publish(int32_t id, Status status, uint32_t version = kNoVersion) {
    return Send(MakeLiveView(id, status, version));
}

inline ErrCode ReadBack(const std::string& bundle, int32_t uid, int32_t id,
                        sptr<NotificationRequest>& out, const std::vector<std::string>& keys = {}) {
    Notification::LiveViewFilter filter;
    filter.bundle.SetBundleName(bundle);
    filter.bundle.SetUid(uid);
    filter.notificationKey.id = id;
    filter.extraInfoKeys = keys;
    return NotificationHelper::GetActiveNotificationByFilter(filter, out);
}

inline ErrCode SlotEnabled(bool& enabled) {
    return NotificationHelper::GetEnabledForBundleSlotSelf(
        Notification::NotificationConstant::LIVE_VIEW, enabled);
}

// The request's extra info as "key=text" entries in key order ("key" alone for a value that is
// not text), e.g. "a=1 b=2 list"; "<none>" without extra info.
inline std::string ExtraInfo(const NotificationRequest& request) {
    const auto params = LiveViewContentOf(request)->GetExtraInfo();
    if (params == nullptr) {
        return "<none>";
    }
    std::string out;
    for (const auto& [key, value] : params->GetParams()) {
        const auto* text = AAFwk::IString::Query(value);
        out += (out.empty() ? "" : " ") + key + (text ? "=" + AAFwk::String::Unbox(text) : "");
    }
    return out;
}

class ServiceTest : public ::testing::Test {
public:
    // A fresh service, silent sinks, the manual clock at kStartMillis and kBundle/kUid calling.
    static void StartFresh() {
        ResetAll();
        SetAllModes(SinkMode::DISCARD);
        SetClockMillis(kStartMillis);
        SetCallingApp(kBundle, kUid);
    }

protected:
    void SetUp() override { StartFresh(); }
    void TearDown() override { ResetAll(); }
};

}  // namespace Tavi::Host::Testing

#endif  // TESTS_HOST_SERVICE_TEST_SUPPORT_H
