#include "full_records.h"

#include <cstdio>
#include <cstdlib>

#include "record_builders.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Builders {
namespace {

constexpr const char* BLUE = "#FF0A59F7";

// A square picture of side pixels in four bytes a pixel; well under the 30,720-byte limit for
// the sides used here.
std::shared_ptr<Media::PixelMap> Square(int side) {
    return Picture(side, side, Media::PixelFormat::ARGB_8888);
}

// The section builders' layouts of a start, with the fields that a start may leave out set too
// and each picture given in both forms.
std::shared_ptr<LayoutData> FullLayout(LayoutData::LayoutType type) {
    switch (type) {
        case LayoutData::PROGRESS: {
            auto layout = ProgressLayoutForStart();
            layout->SetIndicatorIcon(Square(24));
            return layout;
        }
        case LayoutData::PICKUP: {
            auto layout = PickupLayoutForStart();
            layout->SetDescPic(Square(64));
            return layout;
        }
        case LayoutData::FLIGHT: {
            auto layout = FlightLayoutForStart();
            layout->SetSpaceIcon(Square(32));
            return layout;
        }
        case LayoutData::SCORE: {
            auto layout = ScoreLayoutForStart();
            layout->SetHostIcon(Square(48));
            layout->SetCompetitionDescVector({TextRun("Second half ", BLUE), TextRun("78'", BLUE)});
            layout->SetIsHorizontalLineDisplayed(Bool(false));
            return layout;
        }
        case LayoutData::NAVIGATION: {
            auto layout = NavigationLayoutForStart();
            layout->SetCurrentNavigationIcon(Square(48));
            layout->SetNavigationIcons({Square(32), Square(32), Square(32)});
            return layout;
        }
        default:
            std::fprintf(stderr, "no full layout of type %d\n", static_cast<int>(type));
            std::abort();
    }
}

std::shared_ptr<CapsuleData> FullCapsule(CapsuleData::CapsuleType type) {
    switch (type) {
        case CapsuleData::TEXT: {
            auto capsule = TextCapsuleForStart();
            capsule->SetIcon(Square(32));
            return capsule;
        }
        case CapsuleData::TIMER: {
            auto capsule = TimerCapsuleForStart();
            capsule->SetIsPaused(Bool(false));
            return capsule;
        }
        case CapsuleData::PROGRESS: {
            auto capsule = ProgressCapsuleForStart();
            capsule->SetIndeterminate(Bool(false));
            return capsule;
        }
        default:
            std::fprintf(stderr, "no capsule of type %d\n", static_cast<int>(type));
            std::abort();
    }
}

}  // namespace

const std::vector<FullRecordKinds>& FullRecordKindList() {
    static const std::vector<FullRecordKinds> kinds = {
        {LayoutData::PROGRESS, CapsuleData::PROGRESS, "progress", "progress", "DELIVERY"},
        {LayoutData::PICKUP, CapsuleData::TEXT, "pickup", "text", "PICK_UP"},
        {LayoutData::FLIGHT, CapsuleData::TIMER, "flight", "timer", "FLIGHT"},
        {LayoutData::SCORE, CapsuleData::TEXT, "score", "text", "SCORE"},
        {LayoutData::NAVIGATION, CapsuleData::TIMER, "navigation", "timer", "NAVIGATION"},
    };
    return kinds;
}

std::unique_ptr<LiveView> FullRecord(const FullRecordKinds& kinds, int id) {
    auto liveView =
        std::make_unique<LiveView>(StartRecord(id, kinds.event, FullLayout(kinds.layout)));
    liveView->SetSequence(Int(1));
    liveView->SetIsMute(Bool(false));

    auto primary = LiveView::GetPrimaryData(*liveView);
    primary->SetContent({TextRun("Arriving in ", BLUE), TextRun("12 minutes", BLUE)});
    primary->SetKeepTime(Int(30));
    primary->SetImmersivePicStr(Str("media/immersive.png"));
    primary->SetImmersiveAbilityName(Str("OrderAbility"));
    auto parameters = std::make_shared<AAFwk::WantParams>();
    parameters->SetParam("orderId", AAFwk::String::Box("A-1024"));
    parameters->SetParam("source", AAFwk::String::Box("live_view"));
    primary->SetImmersiveParameters(parameters);

    auto extension = ExtensionForStart();
    extension->SetType(ExtensionData::EXTENSION_TYPE_PICTURE_1);
    extension->SetPic(Square(32));
    extension->SetClickAction(ClickAction("com.example.food/CallRider"));
    extension->SetIsCoverClickAction(true);
    SetExtension(*liveView, extension);
    SetCapsule(*liveView, FullCapsule(kinds.capsule));
    SetExternal(*liveView, ExternalForStart());

    auto timer = std::make_shared<LiveViewTimer>();
    timer->SetTime(Long(900000));
    timer->SetIsCountdown(Bool(true));
    timer->SetIsPaused(Bool(false));
    liveView->SetTimer(timer);
    return liveView;
}

}  // namespace Builders
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
