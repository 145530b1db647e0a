// LiveView: the record of one live view that an application fills in to start, update or stop
// it, and that the library fills in when the active live view is read back; the root of the tree
// of records.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time. The static navigators
// only read the record.
#ifndef TAVI_WISP_LIVE_VIEW_LIVE_VIEW_H
#define TAVI_WISP_LIVE_VIEW_LIVE_VIEW_H

#include <cstdint>
#include <memory>
#include <string>

#include "capsule_data.h"
#include "extension_data.h"
#include "external_data.h"
#include "layout_data.h"
#include "live_view_base.h"
#include "live_view_data.h"
#include "live_view_timer.h"
#include "primary_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveView : public LiveViewBase {
public:
    // The operation for which a record is checked and converted.
    enum Operation : int32_t {
        START = 1,
        UPDATE = 2,
        STOP = 3,
    };

    // The notification id of the live view.
    std::shared_ptr<int> GetId() const;
    void SetId(const std::shared_ptr<int>& id);

    // The scenario name, such as "NAVIGATION"; empty when not given.
    std::string GetEvent() const;
    void SetEvent(const std::string& event);

    // The sender's sequence number of this state; the notification service refuses stale ones.
    std::shared_ptr<int> GetSequence() const;
    void SetSequence(const std::shared_ptr<int>& sequence);

    std::shared_ptr<bool> GetIsMute() const;
    void SetIsMute(const std::shared_ptr<bool>& isMute);

    std::shared_ptr<LiveViewData> GetLiveViewData() const;
    void SetLiveViewData(const std::shared_ptr<LiveViewData>& liveViewData);

    std::shared_ptr<LiveViewTimer> GetTimer() const;
    void SetTimer(const std::shared_ptr<LiveViewTimer>& timer);

    // Navigators into the tree. None fails: where a record on the way is missing, the pointer
    // navigators answer an empty pointer and the two type navigators -1.
    // liveViewData, then primary.
    static std::shared_ptr<PrimaryData> GetPrimaryData(const LiveView& liveView);
    // liveViewData, then capsule.
    static std::shared_ptr<CapsuleData> GetCapsuleData(const LiveView& liveView);
    // liveViewData, then external.
    static std::shared_ptr<ExternalData> GetExternalData(const LiveView& liveView);
    // liveViewData, primary, then extensionData.
    static std::shared_ptr<ExtensionData> GetExtensionData(const LiveView& liveView);
    // liveViewData, primary, then layoutData.
    static std::shared_ptr<LayoutData> GetLayoutData(const LiveView& liveView);
    // The layout's layout type, or -1 when there is no layout. The -1 is reported as such and
    // must not be read as a type.
    static int GetLayoutType(const LiveView& liveView);
    // The capsule's type, or -1 when there is no capsule. The -1 is reported as such and must not
    // be read as a type.
    static int GetCapsuleType(const LiveView& liveView);

private:
    std::shared_ptr<int> id_;
    std::string event_;
    std::shared_ptr<int> sequence_;
    std::shared_ptr<bool> isMute_;
    std::shared_ptr<LiveViewData> liveViewData_;
    std::shared_ptr<LiveViewTimer> timer_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_LIVE_VIEW_H
