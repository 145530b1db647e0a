// Shared by the renderer suites: a fixture that starts every test from a fresh host with one
// calling app and silent sinks, publishing a record through the client to get the request the
// service holds, and matchers for the renderer's data-part markup.
#ifndef TESTS_RENDER_RENDER_TEST_SUPPORT_H
#define TESTS_RENDER_RENDER_TEST_SUPPORT_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "host_control.h"
#include "live_view_manager.h"
#include "record_builders.h"
#include "render_page.h"
#include "render_presentations.h"

namespace RenderTest {

using namespace Tavi::Wisp::LiveView;
using namespace Tavi::Wisp::LiveView::Builders;
using ::testing::HasSubstr;
using ::testing::Not;

class RenderFixture : public ::testing::Test {
protected:
    void SetUp() override {
        Tavi::Host::ResetAll();
        Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
        Tavi::Host::SetCallingApp("com.example.render", 20010009);
    }
    void TearDown() override { Tavi::Host::ResetAll(); }

    // Starts liveView through the client and answers what the service then holds.
    static Tavi::sptr<Tavi::Notification::NotificationRequest> Publish(LiveView liveView) {
        LiveViewClient client;
        LiveViewClient::LiveViewResult result;
        const BaseRsp rsp = client.StartLiveView(liveView, result);
        EXPECT_TRUE(rsp.Succeed()) << rsp.GetErrAsInt32() << " " << rsp.GetInfo();
        for (const auto& held : Tavi::Host::HeldLiveViews()) {
            if (held.id == *liveView.GetId()) {
                return held.request;
            }
        }
        return nullptr;
    }

    static LiveViewRender::Presentations Render(
        const Tavi::sptr<Tavi::Notification::NotificationRequest>& request,
        const LiveViewRender::RenderOptions& options = {}) {
        return LiveViewRender::RenderPresentations(request, options);
    }
};

// The opening of an element that carries data-part="part".
inline std::string Part(const std::string& part) {
    return "data-part=\"" + part + "\"";
}

// A text field exactly: data-part="part">text<.
inline std::string Field(const std::string& part, const std::string& text) {
    return Part(part) + ">" + text + "<";
}

}  // namespace RenderTest

#endif  // TESTS_RENDER_RENDER_TEST_SUPPORT_H
