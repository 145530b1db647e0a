// Outbound conversion: writes a validated live view into the live-view notification request, its
// live-view content, the extra-info map and the picture map, under the keys of LiveViewConstant.
//
// Every conversion writes only the keys of the fields that are set ("isMute" and
// "LiveViewTimer.time" have defaults). Pictures go into the picture map with insert-if-absent
// semantics: an entry already present under a key is kept. Conversions never fail; a missing
// section (or a capsule or layout whose object is not of the kind its type names) is logged at
// information level and leaves the remaining keys absent.
//
// The caller owns the request, the content, the extra-info map and the picture map; extraInfo and
// content must not be empty.
//
// Thread safety: stateless; calls on different outputs may run on different threads.
#ifndef LIVE_VIEW_LIVE_VIEW_PARAM_CONVERSION_H
#define LIVE_VIEW_LIVE_VIEW_PARAM_CONVERSION_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "live_view.h"
#include "notification_live_view_content.h"
#include "notification_request.h"
#include "pixel_map.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewParamConversion {
public:
    using PictureMap = std::map<std::string, std::vector<std::shared_ptr<Tavi::Media::PixelMap>>>;

    // Identifier, live-view slot, in-progress flag, trimmed event, content version, mute flag.
    static void CommonDataParamConversion(
        const LiveView& liveView, Tavi::Notification::NotificationRequest& request,
        std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
        std::shared_ptr<Tavi::Notification::NotificationLiveViewContent>& content);

    // The timer keys. isUpdateTimer true suppresses the default time 0 of a timer that has flags
    // but no time, so that an update does not reset the running clock.
    static void TimerDataParamConversion(const LiveView& liveView,
                                         std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
                                         bool isUpdateTimer);

    // Title, rich-text content, click action, immersive picture (a pixel map becomes the
    // content's single picture) and parameters; the auto-deleted time on stop only and the
    // immersive ability name on start only.
    static void PrimaryDataParamConversion(
        const LiveView& liveView, Tavi::Notification::NotificationRequest& request,
        std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
        std::shared_ptr<Tavi::Notification::NotificationLiveViewContent>& content,
        const LiveView::Operation& operation);

    // The extension element; its click action becomes one action button of the request. The
    // request's cover flag is only ever raised here, never lowered.
    static void ExtendDataParamConversion(const LiveView& liveView,
                                          Tavi::Notification::NotificationRequest& request,
                                          std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
                                          PictureMap& pictureMap);

    static void ExternalDataParamConversion(const LiveView& liveView,
                                            std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo);

    // A capsule with status -1 yields its status key only.
    static void CapsuleDataParamConversion(const LiveView& liveView,
                                           std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
                                           PictureMap& pictureMap);

    // A layout type without a kind of its own (6, or outside 3 to 8) yields the type key only.
    static void LayoutDataParamConversion(const LiveView& liveView,
                                          std::shared_ptr<Tavi::AAFwk::WantParams>& extraInfo,
                                          PictureMap& pictureMap);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LIVE_VIEW_PARAM_CONVERSION_H
