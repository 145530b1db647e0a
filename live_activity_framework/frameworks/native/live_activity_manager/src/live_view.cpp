#include "live_view.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

std::shared_ptr<int> LiveView::GetId() const {
    return id_;
}

void LiveView::SetId(const std::shared_ptr<int>& id) {
    id_ = id;
}

std::string LiveView::GetEvent() const {
    return event_;
}

void LiveView::SetEvent(const std::string& event) {
    event_ = event;
}

std::shared_ptr<int> LiveView::GetSequence() const {
    return sequence_;
}

void LiveView::SetSequence(const std::shared_ptr<int>& sequence) {
    sequence_ = sequence;
}

std::shared_ptr<bool> LiveView::GetIsMute() const {
    return isMute_;
}

void LiveView::SetIsMute(const std::shared_ptr<bool>& isMute) {
    isMute_ = isMute;
}

std::shared_ptr<LiveViewData> LiveView::GetLiveViewData() const {
    return liveViewData_;
}

void LiveView::SetLiveViewData(const std::shared_ptr<LiveViewData>& liveViewData) {
    liveViewData_ = liveViewData;
}

std::shared_ptr<LiveViewTimer> LiveView::GetTimer() const {
    return timer_;
}

void LiveView::SetTimer(const std::shared_ptr<LiveViewTimer>& timer) {
    timer_ = timer;
}

std::shared_ptr<PrimaryData> LiveView::GetPrimaryData(const LiveView& liveView) {
    const std::shared_ptr<LiveViewData> data = liveView.GetLiveViewData();
    return data == nullptr ? nullptr : data->GetPrimary();
}

std::shared_ptr<CapsuleData> LiveView::GetCapsuleData(const LiveView& liveView) {
    const std::shared_ptr<LiveViewData> data = liveView.GetLiveViewData();
    return data == nullptr ? nullptr : data->GetCapsule();
}

std::shared_ptr<ExternalData> LiveView::GetExternalData(const LiveView& liveView) {
    const std::shared_ptr<LiveViewData> data = liveView.GetLiveViewData();
    return data == nullptr ? nullptr : data->GetExternal();
}

std::shared_ptr<ExtensionData> LiveView::GetExtensionData(const LiveView& liveView) {
    const std::shared_ptr<PrimaryData> primary = GetPrimaryData(liveView);
    return primary == nullptr ? nullptr : primary->GetExtensionData();
}

std::shared_ptr<LayoutData> LiveView::GetLayoutData(const LiveView& liveView) {
    const std::shared_ptr<PrimaryData> primary = GetPrimaryData(liveView);
    return primary == nullptr ? nullptr : primary->GetLayoutData();
}

int LiveView::GetLayoutType(const LiveView& liveView) {
    const std::shared_ptr<LayoutData> layout = GetLayoutData(liveView);
    return layout == nullptr ? -1 : layout->GetLayoutType();
}

int LiveView::GetCapsuleType(const LiveView& liveView) {
    const std::shared_ptr<CapsuleData> capsule = GetCapsuleData(liveView);
    return capsule == nullptr ? -1 : capsule->GetType();
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
