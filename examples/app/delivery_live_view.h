// The food delivery that the example app shows: the stages an order goes through and the live view
// record of each.
//
// Thread safety: the stage table is constant; MakeDeliveryLiveView builds a new record each call
// and shares nothing between calls.
#ifndef LIVE_VIEW_EXAMPLE_APP_DELIVERY_LIVE_VIEW_H
#define LIVE_VIEW_EXAMPLE_APP_DELIVERY_LIVE_VIEW_H

#include <iterator>
#include <memory>
#include <string>

#include "live_view_manager.h"

namespace Delivery {

namespace LV = Tavi::Wisp::LiveView;

// What the live view says at one moment of the delivery.
struct Stage {
    const char* title;   // the card's title
    const char* detail;  // the card's text
    int percent;         // the capsule's progress, 0 to 100
};

// Stage 0 is what the start shows; the updates go through stages 1 to kLastStage in order.
inline constexpr Stage kStages[] = {
    {"Order placed", "Noodle House has your order", 5},
    {"Your order is being prepared", "Noodle House is cooking it now", 20},
    {"Sam picked up your order", "Leaving Noodle House", 40},
    {"Sam is on the way", "About 12 minutes away", 55},
    {"Sam is on the way", "About 8 minutes away", 70},
    {"Sam is on the way", "About 4 minutes away", 85},
    {"Sam is arriving", "Meet Sam at the door", 95},
};
inline constexpr int kLastStage = static_cast<int>(std::size(kStages)) - 1;

// What the stop shows; it stays readable for kDeliveredKeepSeconds.
inline constexpr Stage kDelivered = {"Delivered. Enjoy your meal!", "Rate your order", 100};
inline constexpr int kDeliveredKeepSeconds = 30;

inline constexpr char kEvent[] = "FOOD_DELIVERY";
// The action of the card's button; the button is known by this name when it is pressed.
inline constexpr char kCallRiderAction[] = "com.example.delivery/CallRider";

// The record of stage under id with sequence. askedToCall: the person pressed the button, so the
// card and the button say that the rider will call.
inline std::shared_ptr<LV::LiveView> MakeDeliveryLiveView(int id, int sequence, const Stage& stage,
                                                          bool askedToCall) {
    using Tavi::AbilityRuntime::WantAgent::WantAgent;
    const auto text = [](const std::string& value) { return std::make_shared<std::string>(value); };

    auto layout = std::make_shared<LV::PickupLayout>();
    layout->SetLayoutType(LV::LayoutData::PICKUP);
    layout->SetTitle(text("Noodle House"));
    layout->SetContent(text("Order #1842, rider Sam"));
    layout->SetDescPicStr(text("res://courier"));

    auto extension = std::make_shared<LV::ExtensionData>();
    extension->SetType(LV::ExtensionData::EXTENSION_TYPE_TEXT_1);
    extension->SetText(text(askedToCall ? "Sam will call you" : "Call Sam"));
    extension->SetClickAction(std::make_shared<WantAgent>(kCallRiderAction));

    auto primary = std::make_shared<LV::PrimaryData>();
    primary->SetTitle(text(stage.title));
    auto detail = std::make_shared<LV::RichText>();
    detail->SetText(text(stage.detail));
    primary->AddContent(detail);
    if (askedToCall) {
        auto call = std::make_shared<LV::RichText>();
        call->SetText(text("Sam was asked to call you"));
        primary->AddContent(call);
    }
    primary->SetClickAction(std::make_shared<WantAgent>("com.example.delivery/Order"));
    primary->SetExtensionData(extension);
    primary->SetLayoutData(layout);

    auto capsule = std::make_shared<LV::ProgressCapsule>();
    capsule->SetStatus(std::make_shared<int>(1));
    capsule->SetType(LV::CapsuleData::PROGRESS);
    capsule->SetIconStr(text("res://scooter"));
    capsule->SetBackgroundColor(text("#FF2E7D32"));
    capsule->SetMax(std::make_shared<int>(100));
    capsule->SetProgress(std::make_shared<int>(stage.percent));

    auto data = std::make_shared<LV::LiveViewData>();
    data->SetPrimary(primary);
    data->SetCapsule(capsule);

    auto liveView = std::make_shared<LV::LiveView>();
    liveView->SetId(std::make_shared<int>(id));
    liveView->SetEvent(kEvent);
    liveView->SetSequence(std::make_shared<int>(sequence));
    liveView->SetLiveViewData(data);
    return liveView;
}

}  // namespace Delivery

#endif  // LIVE_VIEW_EXAMPLE_APP_DELIVERY_LIVE_VIEW_H
