// PrimaryData: the body of the expanded live view notification: title, rich-text content, keep
// time, click action, immersive picture and parameters, extension element and layout.
//
// Getters return a copy of the field's pointer (sharing the pointee) or a copy of the list;
// setters replace the pointer or the list; an empty pointer means the field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_PRIMARY_DATA_H
#define TAVI_WISP_LIVE_VIEW_PRIMARY_DATA_H

#include <memory>
#include <string>
#include <vector>

#include "extension_data.h"
#include "layout_data.h"
#include "live_view_base.h"
#include "pixel_map.h"
#include "rich_text.h"
#include "want_agent.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class PrimaryData : public LiveViewBase {
public:
    std::shared_ptr<std::string> GetTitle() const;
    void SetTitle(const std::shared_ptr<std::string>& title);

    std::vector<std::shared_ptr<RichText>> GetContent() const;
    void SetContent(const std::vector<std::shared_ptr<RichText>>& content);
    // Appends the run at the end; an empty pointer is ignored.
    void AddContent(const std::shared_ptr<RichText>& content);

    // How long the notification is kept after it ends.
    std::shared_ptr<int> GetKeepTime() const;
    void SetKeepTime(const std::shared_ptr<int>& keepTime);

    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> GetClickAction() const;
    void SetClickAction(const std::shared_ptr<AbilityRuntime::WantAgent::WantAgent>& clickAction);

    // The immersive picture, as a resource string or as a pixel map.
    std::shared_ptr<std::string> GetImmersivePicStr() const;
    void SetImmersivePicStr(const std::shared_ptr<std::string>& immersivePicStr);
    std::shared_ptr<Media::PixelMap> GetImmersivePic() const;
    void SetImmersivePic(const std::shared_ptr<Media::PixelMap>& immersivePic);

    std::shared_ptr<std::string> GetImmersiveAbilityName() const;
    void SetImmersiveAbilityName(const std::shared_ptr<std::string>& immersiveAbilityName);

    std::shared_ptr<AAFwk::WantParams> GetImmersiveParameters() const;
    void SetImmersiveParameters(const std::shared_ptr<AAFwk::WantParams>& immersiveParameters);

    std::shared_ptr<ExtensionData> GetExtensionData() const;
    void SetExtensionData(const std::shared_ptr<ExtensionData>& extensionData);

    // The object is expected to be of the kind that its layout type names; take it as a kind
    // only through the As...Layout helpers.
    std::shared_ptr<LayoutData> GetLayoutData() const;
    void SetLayoutData(const std::shared_ptr<LayoutData>& layoutData);

private:
    std::shared_ptr<std::string> title_;
    std::vector<std::shared_ptr<RichText>> content_;
    std::shared_ptr<int> keepTime_;
    std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> clickAction_;
    std::shared_ptr<std::string> immersivePicStr_;
    std::shared_ptr<Media::PixelMap> immersivePic_;
    std::shared_ptr<std::string> immersiveAbilityName_;
    std::shared_ptr<AAFwk::WantParams> immersiveParameters_;
    std::shared_ptr<ExtensionData> extensionData_;
    std::shared_ptr<LayoutData> layoutData_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_PRIMARY_DATA_H
