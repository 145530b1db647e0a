// Shared by the read-back suites: a listing of every field of a record for comparing records and a
// fixture that captures log lines; requests assembled piece by piece and value makers come from
// record_builders.h.
#ifndef LIVE_VIEW_TESTS_READBACK_SUPPORT_H
#define LIVE_VIEW_TESTS_READBACK_SUPPORT_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "flight_layout.h"
#include "host_control.h"
#include "live_view.h"
#include "navigation_layout.h"
#include "notification_content.h"
#include "notification_live_view_content.h"
#include "notification_request.h"
#include "notification_request_conversion.h"
#include "pickup_layout.h"
#include "pixel_map.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "record_builders.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"
#include "want_agent.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

using Builders::Picture;
using Builders::PictureMap;
using Builders::RequestParts;
using Builders::Str;
using Builders::TextRun;

using WantAgent = AbilityRuntime::WantAgent::WantAgent;

template <typename T>
inline std::string Describe(const std::shared_ptr<T>& value);
template <typename T>
inline std::string Describe(const std::vector<T>& list);

inline std::string Describe(const std::string& text) {
    return '"' + text + '"';
}
inline std::string Describe(int value) {
    return std::to_string(value);
}
inline std::string Describe(long value) {
    return std::to_string(value) + "L";
}
inline std::string Describe(bool value) {
    return value ? "true" : "false";
}
inline std::string Describe(const Media::PixelMap& picture) {
    return "picture " + std::to_string(picture.GetWidth());
}
inline std::string Describe(const WantAgent& agent) {
    return "agent " + agent.GetTarget();
}
inline std::string Describe(const AAFwk::WantParams& params) {
    std::string keys;
    for (const auto& entry : params.GetParams()) {
        keys += entry.first + ";";
    }
    return "params " + keys;
}
inline std::string Describe(const RichText& run) {
    return Describe(run.GetText()) + " " + Describe(run.GetTextColor());
}
template <typename T>
inline std::string Describe(const std::shared_ptr<T>& value) {
    return value == nullptr ? "<unset>" : Describe(*value);
}
template <typename T>
inline std::string Describe(const std::vector<T>& list) {
    std::string text = "[";
    for (const auto& element : list) {
        text += Describe(element) + ",";
    }
    return text + "]";
}

#define FIELD(object, getter) \
    lines_.push_back(std::string(#object "." #getter "=") + Describe((object)->getter()))

// Every field of a record as one "object.Getter=value" line, in record order.
class Dump {
public:
    explicit Dump(const LiveView& v) {
        const LiveView* const liveView = &v;
        FIELD(liveView, GetId);
        FIELD(liveView, GetEvent);
        FIELD(liveView, GetSequence);
        FIELD(liveView, GetIsMute);
        if (const auto timer = v.GetTimer()) {
            FIELD(timer, GetTime);
            FIELD(timer, GetIsCountdown);
            FIELD(timer, GetIsPaused);
        }
        if (const auto primary = LiveView::GetPrimaryData(v)) {
            FIELD(primary, GetTitle);
            FIELD(primary, GetContent);
            FIELD(primary, GetKeepTime);
            FIELD(primary, GetClickAction);
            FIELD(primary, GetImmersivePicStr);
            FIELD(primary, GetImmersivePic);
            FIELD(primary, GetImmersiveAbilityName);
            FIELD(primary, GetImmersiveParameters);
        }
        if (const auto extension = LiveView::GetExtensionData(v)) {
            FIELD(extension, GetText);
            FIELD(extension, GetType);
            FIELD(extension, GetPicStr);
            FIELD(extension, GetPic);
            FIELD(extension, GetClickAction);
            FIELD(extension, GetIsCoverClickAction);
        }
        AddLayout(LiveView::GetLayoutData(v));
        AddCapsule(LiveView::GetCapsuleData(v));
        if (const auto external = LiveView::GetExternalData(v)) {
            FIELD(external, GetTitle);
            FIELD(external, GetContent);
            FIELD(external, GetBackgroundColor);
        }
    }
    std::vector<std::string> Lines() const { return lines_; }

private:
    void AddLayout(const std::shared_ptr<LayoutData>& layout) {
        if (layout == nullptr) {
            return;
        }
        FIELD(layout, GetLayoutType);
        if (const auto progress = AsProgressLayout(layout)) {
            FIELD(progress, GetProgress);
            FIELD(progress, GetColor);
            FIELD(progress, GetBackgroundColor);
            FIELD(progress, GetIndicatorType);
            FIELD(progress, GetIndicatorIconStr);
            FIELD(progress, GetIndicatorIcon);
            FIELD(progress, GetLineType);
            FIELD(progress, GetNodeIconsStr);
            FIELD(progress, GetNodeIcons);
        } else if (const auto pickup = AsPickupLayout(layout)) {
            FIELD(pickup, GetTitle);
            FIELD(pickup, GetContent);
            FIELD(pickup, GetUnderlineColor);
            FIELD(pickup, GetDescPicStr);
            FIELD(pickup, GetDescPic);
        } else if (const auto flight = AsFlightLayout(layout)) {
            FIELD(flight, GetFirstTitle);
            FIELD(flight, GetFirstContent);
            FIELD(flight, GetLastTitle);
            FIELD(flight, GetLastContent);
            FIELD(flight, GetSpaceIconStr);
            FIELD(flight, GetSpaceIcon);
            FIELD(flight, GetIsHorizontalLineDisplayed);
            FIELD(flight, GetAdditionalText);
        } else if (const auto score = AsScoreLayout(layout)) {
            FIELD(score, GetHostName);
            FIELD(score, GetHostIconStr);
            FIELD(score, GetHostIcon);
            FIELD(score, GetHostScore);
            FIELD(score, GetGuestName);
            FIELD(score, GetGuestIconStr);
            FIELD(score, GetGuestIcon);
            FIELD(score, GetGuestScore);
            FIELD(score, GetCompetitionDesc);
            FIELD(score, GetCompetitionDescVector);
            FIELD(score, GetCompetitionTime);
            FIELD(score, GetIsHorizontalLineDisplayed);
        } else if (const auto navigation = AsNavigationLayout(layout)) {
            FIELD(navigation, GetCurrentNavigationIconStr);
            FIELD(navigation, GetCurrentNavigationIcon);
            FIELD(navigation, GetNavigationIconsStr);
            FIELD(navigation, GetNavigationIcons);
        }
    }
    void AddCapsule(const std::shared_ptr<CapsuleData>& capsule) {
        if (capsule == nullptr) {
            return;
        }
        FIELD(capsule, GetStatus);
        FIELD(capsule, GetType);
        FIELD(capsule, GetIconStr);
        FIELD(capsule, GetIcon);
        FIELD(capsule, GetBackgroundColor);
        if (const auto text = AsTextCapsule(capsule)) {
            FIELD(text, GetTitle);
            FIELD(text, GetContent);
        } else if (const auto timer = AsTimerCapsule(capsule)) {
            FIELD(timer, GetContent);
            FIELD(timer, GetTime);
            FIELD(timer, GetIsCountdown);
            FIELD(timer, GetIsPaused);
        } else if (const auto progress = AsProgressCapsule(capsule)) {
            FIELD(progress, GetMax);
            FIELD(progress, GetProgress);
            FIELD(progress, GetIndeterminate);
        }
    }

    std::vector<std::string> lines_;
};

class ReadBackTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetLogMode(Host::SinkMode::CAPTURE);
    }
    void TearDown() override { Host::ResetAll(); }

    // A fresh record read back from parts; the read must succeed.
    LiveView ReadBack(RequestParts& parts) {
        LiveView liveView;
        const BaseRsp rsp =
            NotificationRequestConversion::ConvertToLiveView(parts.Build(), liveView);
        EXPECT_TRUE(rsp.Succeed()) << rsp.GetInfo();
        return liveView;
    }

    // The log lines since the last call, each as "<level> <text>".
    static std::vector<std::string> Logs() {
        std::vector<std::string> lines;
        for (const auto& line : Host::TakeLogLines()) {
            lines.push_back(std::to_string(line.level) + " " + line.text);
        }
        return lines;
    }
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_TESTS_READBACK_SUPPORT_H
