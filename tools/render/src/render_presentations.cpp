#include "render_presentations.h"

#include "base_rsp.h"
#include "capsule_html.h"
#include "card_html.h"
#include "external_html.h"
#include "live_view_content_of.h"
#include "notification_request_conversion.h"
#include "picture_html.h"

namespace LiveViewRender {

using namespace Tavi::Wisp::LiveView;

Presentations RenderPresentations(
    const Tavi::sptr<Tavi::Notification::NotificationRequest>& request,
    const RenderOptions& options) {
    Presentations out;
    LiveView liveView;
    const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(request, liveView);
    if (!rsp.Succeed()) {
        out.readBack = Answer{rsp.GetErrAsInt32(), rsp.GetInfo()};
        return out;
    }
    const auto content = LiveViewContentOf(*request);
    CardHead head;
    head.app = request->GetOwnerBundleName();
    head.ended = content != nullptr &&
                 content->GetLiveViewStatus() ==
                     Tavi::Notification::NotificationLiveViewContent::LiveViewStatus::LIVE_VIEW_END;

    out.id = request->GetNotificationId();
    out.event = liveView.GetEvent();
    out.ended = head.ended;
    PictureDrawer pictures(options);
    out.capsule = CapsuleHtml(LiveView::GetCapsuleData(liveView), pictures);
    out.card = ShadeCardHtml(liveView, head, *request, pictures);
    out.lockScreen = LockScreenCardHtml(liveView, head, pictures);
    out.external = ExternalHtml(LiveView::GetExternalData(liveView));
    return out;
}

}  // namespace LiveViewRender
