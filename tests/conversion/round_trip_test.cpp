// A record of every layout and capsule kind, each picture in one form or the other, converted,
// read back and converted again: the second request is the first but for the deliberate
// asymmetries of the read-back. The first request also holds the names that the service relies on.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "conversion_test_util.h"
#include "notification_request_conversion.h"

namespace Tavi::Wisp::LiveView::Test {
namespace {

// Every field set; each picture as a resource string, or as a pixel map of its own width.
class RecordMaker {
public:
    explicit RecordMaker(bool pixelMaps) : pixelMaps_(pixelMaps) {}

    LiveView Make(int layoutType, int capsuleType) {
        LiveView v = StartRecord(11, "DELIVERY", MakeLayout(layoutType));
        v.SetSequence(Int(4)), v.SetIsMute(Bool(false));
        v.SetTimer(std::make_shared<LiveViewTimer>());
        v.GetTimer()->SetTime(Long(60000)), v.GetTimer()->SetIsCountdown(Bool(true));
        v.GetTimer()->SetIsPaused(Bool(false));
        auto primary = LiveView::GetPrimaryData(v);
        primary->SetContent({TextRun("On the way", "#FF00FF00"), TextRun("soon")});
        primary->SetKeepTime(Int(30)), primary->SetImmersiveAbilityName(Str("Immersive"));
        Pair(*primary, &PrimaryData::SetImmersivePicStr, &PrimaryData::SetImmersivePic);
        auto parameters = std::make_shared<AAFwk::WantParams>();
        parameters->SetParam("mode", AAFwk::String::Box("dark"));
        primary->SetImmersiveParameters(parameters);
        auto extension = ExtensionForStart();
        extension->SetType(ExtensionData::EXTENSION_TYPE_PICTURE_1);
        extension->SetClickAction(ClickAction("app/Call")), extension->SetIsCoverClickAction(true);
        Pair(*extension, &ExtensionData::SetPicStr, &ExtensionData::SetPic);
        SetExtension(v, extension);
        SetCapsule(v, MakeCapsule(capsuleType));
        SetExternal(v, ExternalForStart());
        return v;
    }

private:
    template <typename Object, typename Owner>
    void Pair(Object& object, void (Owner::*setString)(const std::shared_ptr<std::string>&),
              void (Owner::*setPicture)(const std::shared_ptr<Media::PixelMap>&)) {
        ++pictures_;
        (object.*setString)(pixelMaps_ ? nullptr : Str("res/" + std::to_string(pictures_)));
        (object.*setPicture)(pixelMaps_ ? Picture(pictures_) : nullptr);
    }
    template <typename Object, typename Owner>
    void List(Object& object, void (Owner::*setStrings)(const std::vector<std::string>&),
              void (Owner::*setPictures)(const std::vector<std::shared_ptr<Media::PixelMap>>&)) {
        pictures_ += 2;
        using Pics = std::vector<std::shared_ptr<Media::PixelMap>>;
        (object.*setStrings)(pixelMaps_ ? std::vector<std::string>()
                                        : std::vector<std::string>{"a", "b"});
        (object.*setPictures)(pixelMaps_ ? Pics{Picture(pictures_ - 1), Picture(pictures_)}
                                         : Pics());
    }

    std::shared_ptr<LayoutData> MakeLayout(int type) {
        if (type == LayoutData::PROGRESS) {
            auto layout = ProgressLayoutForStart();
            layout->SetIndicatorType(Int(1)), layout->SetLineType(Int(2));
            Pair(*layout, &ProgressLayout::SetIndicatorIconStr, &ProgressLayout::SetIndicatorIcon);
            List(*layout, &ProgressLayout::SetNodeIconsStr, &ProgressLayout::SetNodeIcons);
            return layout;
        }
        if (type == LayoutData::PICKUP) {
            auto layout = PickupLayoutForStart();
            Pair(*layout, &PickupLayout::SetDescPicStr, &PickupLayout::SetDescPic);
            return layout;
        }
        if (type == LayoutData::FLIGHT) {
            auto layout = FlightLayoutForStart();
            Pair(*layout, &FlightLayout::SetSpaceIconStr, &FlightLayout::SetSpaceIcon);
            return layout;
        }
        if (type == LayoutData::SCORE) {
            // The plain description travels as a list of one item and comes back as that list.
            auto layout = ScoreLayoutForStart();
            if (pixelMaps_) {
                layout->SetCompetitionDesc(nullptr);
                layout->SetCompetitionDescVector({TextRun("Final", "#FFFF0000"), TextRun("78'")});
            }
            layout->SetIsHorizontalLineDisplayed(Bool(false));
            Pair(*layout, &ScoreLayout::SetHostIconStr, &ScoreLayout::SetHostIcon);
            Pair(*layout, &ScoreLayout::SetGuestIconStr, &ScoreLayout::SetGuestIcon);
            return layout;
        }
        if (type == LayoutData::NAVIGATION) {
            auto layout = NavigationLayoutForStart();
            Pair(*layout, &NavigationLayout::SetCurrentNavigationIconStr,
                 &NavigationLayout::SetCurrentNavigationIcon);
            List(*layout, &NavigationLayout::SetNavigationIconsStr,
                 &NavigationLayout::SetNavigationIcons);
            return layout;
        }
        return std::make_shared<LayoutData>();
    }

    std::shared_ptr<CapsuleData> MakeCapsule(int type) {
        std::shared_ptr<CapsuleData> capsule = TextCapsuleForStart();
        if (type == CapsuleData::TIMER) {
            auto timer = TimerCapsuleForStart();
            timer->SetIsPaused(Bool(true));
            capsule = timer;
        } else if (type == CapsuleData::PROGRESS) {
            auto progress = ProgressCapsuleForStart();
            progress->SetIndeterminate(Bool(false));
            capsule = progress;
        }
        Pair(*capsule, &CapsuleData::SetIconStr, &CapsuleData::SetIcon);
        return capsule;
    }

    bool pixelMaps_;
    int pictures_ = 0;
};

// The extra-info names of every record, then those of each layout and capsule kind.
const std::string COMMON_NAMES =
    "event isMute LiveViewTimer.time LiveViewTimer.isCountdown LiveViewTimer.isPaused "
    "PrimaryData.title PrimaryData.content PrimaryData.immersivePic.res "
    "LiveViewTimer.isUpdateTimer PrimaryData.immersiveParameters ExtendData.text "
    "ExtendData.type ExtendData.pic.res LayoutData.layoutType CapsuleData.status CapsuleData.type "
    "CapsuleData.icon.res CapsuleData.backgroundColor ExternalData.title ExternalData.content "
    "ExternalData.backgroundColor";
const std::map<int, std::string> LAYOUT_NAMES = {
    {LayoutData::PROGRESS,
     "ProgressLayout.progress ProgressLayout.color ProgressLayout.backgroundColor "
     "ProgressLayout.indicatorType ProgressLayout.indicatorIcon.res ProgressLayout.lineType "
     "ProgressLayout.nodeIcons.res"},
    {LayoutData::PICKUP,
     "PickupLayout.title PickupLayout.content PickupLayout.underlineColor "
     "PickupLayout.descPic.res"},
    {LayoutData::FLIGHT,
     "FlightLayout.firstTitle FlightLayout.firstContent FlightLayout.lastTitle "
     "FlightLayout.lastContent FlightLayout.spaceIcon.res FlightLayout.isDisplayHorizontalLine "
     "FlightLayout.additionalText"},
    {LayoutData::SCORE,
     "ScoreLayout.hostName ScoreLayout.hostIcon.res ScoreLayout.hostScore ScoreLayout.guestName "
     "ScoreLayout.guestIcon.res ScoreLayout.guestScore ScoreLayout.competitionDesc "
     "ScoreLayout.competitionTime ScoreLayout.isDisplayHorizontalLine"},
    {LayoutData::NAVIGATION,
     "NavigationLayout.currentNavigationIcon.res NavigationLayout.navigationIcons.res"},
    {LayoutData::LAYOUT_TYPE_NONE, ""},
};
const std::map<int, std::string> CAPSULE_NAMES = {
    {CapsuleData::TEXT, "TextCapsule.title TextCapsule.content"},
    {CapsuleData::TIMER,
     "TimerCapsule.content TimerCapsule.time TimerCapsule.isCountdown TimerCapsule.isPause"},
    {CapsuleData::PROGRESS,
     "ProgressCapsule.max ProgressCapsule.progress ProgressCapsule.indeterminate"},
};

Lines Sorted(Lines lines) {
    std::sort(lines.begin(), lines.end());
    return lines;
}
Lines Words(const std::string& text) {
    std::istringstream in(text);
    return Sorted(Lines(std::istream_iterator<std::string>(in), {}));
}
std::string NameOf(const std::string& line) {
    return line.substr(0, line.find('='));
}

// The request converted from the record that `request` reads back as.
Lines Rewritten(const sptr<Notification::NotificationRequest>& request,
                LiveView::Operation operation) {
    LiveView read;
    const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(request, read);
    EXPECT_TRUE(rsp.Succeed()) << rsp.GetInfo();
    return Listing(*Built(read, operation));
}

TEST(RoundTripTest, EveryKindComesBackAsWritten) {
    for (const auto& [layoutType, layoutNames] : LAYOUT_NAMES) {
        for (const auto& [capsuleType, capsuleNames] : CAPSULE_NAMES) {
            for (const auto operation : {LiveView::START, LiveView::UPDATE, LiveView::STOP}) {
                for (const bool pixelMaps : {false, true}) {
                    SCOPED_TRACE("layout " + std::to_string(layoutType) + ", capsule " +
                                 std::to_string(capsuleType) + ", operation " +
                                 std::to_string(operation) + (pixelMaps ? ", pixel maps" : ""));
                    const auto request =
                        Built(RecordMaker(pixelMaps).Make(layoutType, capsuleType), operation);
                    const Lines written = Listing(*request);
                    Lines names;
                    for (const std::string& line : written) {
                        if (line[0] != '@') {
                            names.push_back(NameOf(line));
                        }
                    }
                    EXPECT_EQ(names, Words(COMMON_NAMES + " " + layoutNames + " " + capsuleNames +
                                           (operation == LiveView::START
                                                ? " PrimaryData.immersiveAbilityName"
                                                : " TimerCapsule.isUpdateTimer")));

                    // The line type is read back as the indicator type, and not as itself.
                    Lines expected = written;
                    const auto lineType =
                        std::find(expected.begin(), expected.end(), "ProgressLayout.lineType=2");
                    if (lineType != expected.end()) {
                        expected.erase(lineType);
                        *std::find(expected.begin(), expected.end(),
                                   "ProgressLayout.indicatorType=1") =
                            "ProgressLayout.indicatorType=2";
                    }
                    EXPECT_EQ(Rewritten(request, operation), Sorted(expected));
                }
            }
        }
    }
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView::Test
