// Shared by the notification service suites: a fixture that starts every test from a fresh
// service on a manual clock with one calling app, and builders of live view requests.
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
#include "pixel_map.h"
#include "want_params.h"

namespace Tavi {
namespace Host {
namespace Testing {

using LiveViewTest::LiveViewContentOf;
using Notification::ErrCode;
using Notification::LiveViewFilter;
using Notification::NotificationContent;
using Notification::NotificationHelper;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Status = NotificationLiveViewContent::LiveViewStatus;

inline const std::string kBundle = "com.example.rides";
constexpr int32_t kUid = 20010001;
constexpr uint32_t kNoVersion = NotificationLiveViewContent::MAX_VERSION;
// Where the manual service clock starts in every test.
constexpr int64_t kStartMillis = 1000000;

// A live view request on the live view slot with no extra info and no pictures.
inline sptr<NotificationRequest> MakeLiveView(int32_t id, Status status,
                                              uint32_t version = kNoVersion) {
    auto content = std::make_shared<NotificationLiveViewContent>();
    content->SetLiveViewStatus(status);
    content->SetVersion(version);
    auto request = sptr<NotificationRequest>::MakeSptr(id);
    request->SetSlotType(Notification::NotificationConstant::LIVE_VIEW);
    request->SetContent(std::make_shared<NotificationContent>(content));
    return request;
}

inline ErrCode Publish(int32_t id, Status status, uint32_t version = kNoVersion) {
    return NotificationHelper::PublishNotification(*MakeLiveView(id, status, version));
}

inline ErrCode ReadBack(const std::string& bundle, int32_t uid, int32_t id,
                        sptr<NotificationRequest>& out, const std::vector<std::string>& keys = {}) {
    LiveViewFilter filter;
    filter.bundle.SetBundleName(bundle);
    filter.bundle.SetUid(uid);
    filter.notificationKey.id = id;
    filter.extraInfoKeys = keys;
    return NotificationHelper::GetActiveNotificationByFilter(filter, out);
}

// A parameter map of text values.
inline std::shared_ptr<AAFwk::WantParams> TextParams(
    std::initializer_list<std::pair<std::string, std::string>> entries) {
    auto params = std::make_shared<AAFwk::WantParams>();
    for (const auto& [key, value] : entries) {
        params->SetParam(key, AAFwk::String::Box(value));
    }
    return params;
}

// The text under key, or "<absent>" when the map has no text there.
inline std::string TextParam(const std::shared_ptr<AAFwk::WantParams>& params,
                             const std::string& key) {
    if (params == nullptr || !params->HasParam(key)) {
        return "<absent>";
    }
    auto text = AAFwk::IString::Query(params->GetParam(key));
    return text == nullptr ? "<absent>" : AAFwk::String::Unbox(text);
}

inline std::shared_ptr<Media::PixelMap> Picture(int32_t width, int32_t height) {
    return Media::PixelMap::Create(
        Media::InitializationOptions{{width, height}, Media::PixelFormat::RGBA_8888});
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

}  // namespace Testing
}  // namespace Host
}  // namespace Tavi

#endif  // TESTS_HOST_SERVICE_TEST_SUPPORT_H
