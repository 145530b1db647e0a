// LiveViewData: the sections of a live view's content: primary data, capsule and external data.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the section was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_LIVE_VIEW_DATA_H
#define TAVI_WISP_LIVE_VIEW_LIVE_VIEW_DATA_H

#include <memory>

#include "capsule_data.h"
#include "external_data.h"
#include "live_view_base.h"
#include "primary_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewData : public LiveViewBase {
public:
    std::shared_ptr<PrimaryData> GetPrimary() const;
    void SetPrimary(const std::shared_ptr<PrimaryData>& primary);

    // The object is expected to be of the kind that its type names; take it as a kind only
    // through the As...Capsule helpers.
    std::shared_ptr<CapsuleData> GetCapsule() const;
    void SetCapsule(const std::shared_ptr<CapsuleData>& capsule);

    std::shared_ptr<ExternalData> GetExternal() const;
    void SetExternal(const std::shared_ptr<ExternalData>& external);

private:
    std::shared_ptr<PrimaryData> primary_;
    std::shared_ptr<CapsuleData> capsule_;
    std::shared_ptr<ExternalData> external_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_LIVE_VIEW_DATA_H
