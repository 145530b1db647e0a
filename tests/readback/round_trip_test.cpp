// A valid live view written by the outbound conversion and read back gives the written record,
// except for the deliberate asymmetries and the keys that are not read back.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "flight_layout.h"
#include "live_view_param_conversion.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "readback_support.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"
#include "want_agent.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

using Conversion = LiveViewParamConversion;

enum class PictureForm { STRING, PIXEL_MAP };

// Builds a valid record of the given kinds, each picture in the given form.
class RecordMaker {
public:
    explicit RecordMaker(PictureForm form) : form_(form) {}

    LiveView Make(int layoutType, int capsuleType) {
        LiveView v;
        v.SetId(std::make_shared<int>(11));
        v.SetEvent("DELIVERY");
        v.SetSequence(std::make_shared<int>(4));
        v.SetIsMute(std::make_shared<bool>(false));
        auto timer = std::make_shared<LiveViewTimer>();
        timer->SetTime(std::make_shared<long>(60000));
        timer->SetIsCountdown(std::make_shared<bool>(true));
        timer->SetIsPaused(std::make_shared<bool>(false));
        v.SetTimer(timer);

        auto primary = std::make_shared<PrimaryData>();
        primary->SetTitle(Str("Order 42"));
        primary->SetContent({TextRun("On the way", "#FF00FF00"), TextRun("soon")});
        primary->SetClickAction(std::make_shared<WantAgent>("app/Order"));
        Pair(*primary, &PrimaryData::SetImmersivePicStr, &PrimaryData::SetImmersivePic);
        primary->SetImmersiveAbilityName(Str("ImmersiveAbility"));
        auto parameters = std::make_shared<AAFwk::WantParams>();
        parameters->SetParam("mode", AAFwk::String::Box("dark"));
        primary->SetImmersiveParameters(parameters);

        auto extension = std::make_shared<ExtensionData>();
        extension->SetText(Str("Call"));
        extension->SetType(ExtensionData::EXTENSION_TYPE_PICTURE_1);
        Pair(*extension, &ExtensionData::SetPicStr, &ExtensionData::SetPic);
        extension->SetClickAction(std::make_shared<WantAgent>("app/Call"));
        extension->SetIsCoverClickAction(true);
        primary->SetExtensionData(extension);
        primary->SetLayoutData(MakeLayout(layoutType));

        auto data = std::make_shared<LiveViewData>();
        data->SetPrimary(primary);
        data->SetCapsule(MakeCapsule(capsuleType));
        auto external = std::make_shared<ExternalData>();
        external->SetTitle(Str("Courier"));
        external->SetContent({TextRun("2 km", "#FFFFFFFF")});
        external->SetBackgroundColor(Str("#123456"));
        data->SetExternal(external);
        v.SetLiveViewData(data);
        return v;
    }

private:
    // One picture of a pair, in the maker's form; every picture is distinct.
    template <typename Object, typename Owner>
    void Pair(Object& object, void (Owner::*setString)(const std::shared_ptr<std::string>&),
              void (Owner::*setPicture)(const std::shared_ptr<Media::PixelMap>&)) {
        ++pictures_;
        if (form_ == PictureForm::STRING) {
            (object.*setString)(Str("res/" + std::to_string(pictures_)));
        } else {
            (object.*setPicture)(Picture(pictures_));
        }
    }
    template <typename Object, typename Owner>
    void List(Object& object, void (Owner::*setStrings)(const std::vector<std::string>&),
              void (Owner::*setPictures)(const std::vector<std::shared_ptr<Media::PixelMap>>&)) {
        pictures_ += 2;
        if (form_ == PictureForm::STRING) {
            (object.*setStrings)({"res/a" + std::to_string(pictures_), "res/b"});
        } else {
            (object.*setPictures)({Picture(pictures_ - 1), Picture(pictures_)});
        }
    }

    std::shared_ptr<LayoutData> MakeLayout(int type) {
        std::shared_ptr<LayoutData> made;
        if (type == LayoutData::PROGRESS) {
            auto layout = std::make_shared<ProgressLayout>();
            layout->SetProgress(std::make_shared<int>(40));
            layout->SetColor(Str("#FF0000FF"));
            layout->SetBackgroundColor(Str("#FF000000"));
            layout->SetIndicatorType(std::make_shared<int>(1));
            Pair(*layout, &ProgressLayout::SetIndicatorIconStr, &ProgressLayout::SetIndicatorIcon);
            layout->SetLineType(std::make_shared<int>(2));
            List(*layout, &ProgressLayout::SetNodeIconsStr, &ProgressLayout::SetNodeIcons);
            made = layout;
        } else if (type == LayoutData::PICKUP) {
            auto layout = std::make_shared<PickupLayout>();
            layout->SetTitle(Str("Pickup code"));
            layout->SetContent(Str("A-17"));
            layout->SetUnderlineColor(Str("#FF00FF00"));
            Pair(*layout, &PickupLayout::SetDescPicStr, &PickupLayout::SetDescPic);
            made = layout;
        } else if (type == LayoutData::FLIGHT) {
            auto layout = std::make_shared<FlightLayout>();
            layout->SetFirstTitle(Str("08:10"));
            layout->SetFirstContent(Str("Oslo"));
            layout->SetLastTitle(Str("10:25"));
            layout->SetLastContent(Str("Rome"));
            Pair(*layout, &FlightLayout::SetSpaceIconStr, &FlightLayout::SetSpaceIcon);
            layout->SetIsHorizontalLineDisplayed(std::make_shared<bool>(true));
            layout->SetAdditionalText(Str("Gate 4"));
            made = layout;
        } else if (type == LayoutData::SCORE) {
            auto layout = std::make_shared<ScoreLayout>();
            layout->SetHostName(Str("Home"));
            Pair(*layout, &ScoreLayout::SetHostIconStr, &ScoreLayout::SetHostIcon);
            layout->SetHostScore(Str("2"));
            layout->SetGuestName(Str("Away"));
            Pair(*layout, &ScoreLayout::SetGuestIconStr, &ScoreLayout::SetGuestIcon);
            layout->SetGuestScore(Str("1"));
            layout->SetCompetitionDescVector({TextRun("Final", "#FFFF0000"), TextRun("2nd half")});
            layout->SetCompetitionTime(Str("78'"));
            layout->SetIsHorizontalLineDisplayed(std::make_shared<bool>(false));
            made = layout;
        } else if (type == LayoutData::NAVIGATION) {
            auto layout = std::make_shared<NavigationLayout>();
            Pair(*layout, &NavigationLayout::SetCurrentNavigationIconStr,
                 &NavigationLayout::SetCurrentNavigationIcon);
            List(*layout, &NavigationLayout::SetNavigationIconsStr,
                 &NavigationLayout::SetNavigationIcons);
            made = layout;
        } else {
            made = std::make_shared<LayoutData>();
        }
        made->SetLayoutType(static_cast<LayoutData::LayoutType>(type));
        return made;
    }

    std::shared_ptr<CapsuleData> MakeCapsule(int type) {
        std::shared_ptr<CapsuleData> made;
        if (type == CapsuleData::TEXT) {
            auto capsule = std::make_shared<TextCapsule>();
            capsule->SetTitle(Str("Courier"));
            capsule->SetContent(Str("5 min"));
            made = capsule;
        } else if (type == CapsuleData::TIMER) {
            auto capsule = std::make_shared<TimerCapsule>();
            capsule->SetContent(Str("Arrives in"));
            capsule->SetTime(std::make_shared<long>(5000));
            capsule->SetIsCountdown(std::make_shared<bool>(true));
            capsule->SetIsPaused(std::make_shared<bool>(true));
            made = capsule;
        } else {
            auto capsule = std::make_shared<ProgressCapsule>();
            capsule->SetMax(std::make_shared<int>(100));
            capsule->SetProgress(std::make_shared<int>(30));
            capsule->SetIndeterminate(std::make_shared<bool>(false));
            made = capsule;
        }
        made->SetStatus(std::make_shared<int>(1));
        made->SetType(static_cast<CapsuleData::CapsuleType>(type));
        Pair(*made, &CapsuleData::SetIconStr, &CapsuleData::SetIcon);
        made->SetBackgroundColor(Str("#FF112233"));
        return made;
    }

    PictureForm form_;
    int pictures_ = 0;
};

// The request that a client operation would publish for liveView.
sptr<Notification::NotificationRequest> Write(const LiveView& liveView,
                                              LiveView::Operation operation) {
    sptr<Notification::NotificationRequest> request = new Notification::NotificationRequest();
    auto content = std::make_shared<Notification::NotificationLiveViewContent>();
    auto extra = std::make_shared<AAFwk::WantParams>();
    Conversion::PictureMap pictures;
    Conversion::CommonDataParamConversion(liveView, *request, extra, content);
    Conversion::TimerDataParamConversion(liveView, extra, false);
    Conversion::PrimaryDataParamConversion(liveView, *request, extra, content, operation);
    Conversion::ExtendDataParamConversion(liveView, *request, extra, pictures);
    Conversion::LayoutDataParamConversion(liveView, extra, pictures);
    Conversion::CapsuleDataParamConversion(liveView, extra, pictures);
    Conversion::ExternalDataParamConversion(liveView, extra);
    content->SetExtraInfo(extra);
    content->SetPicture(pictures);
    request->SetContent(std::make_shared<Notification::NotificationContent>(content));
    return request;
}

class RoundTripTest : public ReadBackTest {
protected:
    LiveView WriteAndRead(const LiveView& written, LiveView::Operation operation) {
        const auto request = Write(written, operation);
        Logs();
        LiveView read;
        const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(request, read);
        EXPECT_TRUE(rsp.Succeed()) << rsp.GetInfo();
        EXPECT_EQ(Logs(), std::vector<std::string>());
        return read;
    }
};

TEST_F(RoundTripTest, EveryLayoutAndCapsuleKindComesBackAsWritten) {
    const int layoutTypes[] = {3, 4, 5, 6, 7, 8, -1};
    for (const int layoutType : layoutTypes) {
        for (const int capsuleType : {1, 2, 3}) {
            for (const PictureForm form : {PictureForm::STRING, PictureForm::PIXEL_MAP}) {
                SCOPED_TRACE("layout " + std::to_string(layoutType) + ", capsule " +
                             std::to_string(capsuleType) +
                             (form == PictureForm::STRING ? ", strings" : ", pixel maps"));
                LiveView expected = RecordMaker(form).Make(layoutType, capsuleType);
                const LiveView read = WriteAndRead(expected, LiveView::START);

                // What is deliberately not read back as written.
                LiveView::GetExtensionData(expected)->SetIsCoverClickAction(false);
                if (const auto progress = AsProgressLayout(LiveView::GetLayoutData(expected))) {
                    progress->SetIndicatorType(progress->GetLineType());
                    progress->SetLineType(nullptr);
                }
                if (layoutType == LayoutData::BASIC) {
                    LiveView::GetPrimaryData(expected)->SetLayoutData(nullptr);
                }
                EXPECT_EQ(Dump(read).Lines(), Dump(expected).Lines());
            }
        }
    }
}

TEST_F(RoundTripTest, StopCarriesTheKeepTimeButNotTheAbilityName) {
    LiveView written = RecordMaker(PictureForm::STRING).Make(LayoutData::PICKUP, CapsuleData::TEXT);
    LiveView::GetPrimaryData(written)->SetKeepTime(std::make_shared<int>(45));
    const LiveView read = WriteAndRead(written, LiveView::STOP);
    EXPECT_EQ(Describe(LiveView::GetPrimaryData(read)->GetKeepTime()), "45");
    EXPECT_EQ(Describe(LiveView::GetPrimaryData(read)->GetImmersiveAbilityName()), "<unset>");
}

TEST_F(RoundTripTest, PlainCompetitionDescriptionComesBackAsOneRichTextItem) {
    LiveView written = RecordMaker(PictureForm::STRING).Make(LayoutData::SCORE, CapsuleData::TEXT);
    AsScoreLayout(LiveView::GetLayoutData(written))->SetCompetitionDesc(Str("Final"));
    const LiveView read = WriteAndRead(written, LiveView::START);
    const auto score = AsScoreLayout(LiveView::GetLayoutData(read));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(score->GetCompetitionDesc(), nullptr);
    EXPECT_EQ(Describe(score->GetCompetitionDescVector()), R"(["Final" <unset>,])");
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
