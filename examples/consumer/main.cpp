// Starts a pickup live view against the embedded notification service and reads it back: what an
// application's own test or desktop build does with the installed package.
#include <iostream>
#include <memory>
#include <string>

#include "host_control.h"
#include "live_view_manager.h"

namespace LV = Tavi::Wisp::LiveView;

namespace {

std::shared_ptr<LV::LiveView> MakePickupLiveView() {
    auto layout = std::make_shared<LV::PickupLayout>();
    layout->SetLayoutType(LV::LayoutData::PICKUP);
    layout->SetTitle(std::make_shared<std::string>("Noodle House"));
    layout->SetContent(std::make_shared<std::string>("Order #1842"));
    layout->SetDescPicStr(std::make_shared<std::string>("res://courier"));

    auto text = std::make_shared<LV::RichText>();
    text->SetText(std::make_shared<std::string>("Ready in 15 minutes"));

    auto primary = std::make_shared<LV::PrimaryData>();
    primary->SetTitle(std::make_shared<std::string>("Your order is being prepared"));
    primary->AddContent(text);
    primary->SetClickAction(
        std::make_shared<Tavi::AbilityRuntime::WantAgent::WantAgent>("com.example.food/Order"));
    primary->SetLayoutData(layout);

    auto data = std::make_shared<LV::LiveViewData>();
    data->SetPrimary(primary);

    auto liveView = std::make_shared<LV::LiveView>();
    liveView->SetId(std::make_shared<int>(1));
    liveView->SetEvent("FOOD_DELIVERY");
    liveView->SetSequence(std::make_shared<int>(1));
    liveView->SetLiveViewData(data);
    return liveView;
}

}  // namespace

int main() {
    // The embedded service serves one app at a time: this one.
    Tavi::Host::SetCallingApp("com.example.food", 20010001);
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);

    LV::LiveViewClient client;
    LV::LiveViewClient::LiveViewResult result;
    const auto liveView = MakePickupLiveView();
    const LV::BaseRsp rsp = client.StartLiveView(*liveView, result);
    if (!rsp.Succeed()) {
        std::cout << "start: " << rsp.GetErrAsInt32() << ' ' << rsp.GetInfo() << '\n';
        return 1;
    }
    std::cout << "start: " << result.code << ' ' << result.message << '\n';

    LV::LiveView active;
    const int code = client.GetActiveLiveView(1, active);
    const auto primary = LV::LiveView::GetPrimaryData(active);
    std::cout << "get: " << code << ' '
              << (primary != nullptr && primary->GetTitle() != nullptr ? *primary->GetTitle() : "")
              << '\n';
    return code == 0 ? 0 : 1;
}
