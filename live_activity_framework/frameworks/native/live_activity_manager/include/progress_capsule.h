// ProgressCapsule: a capsule that shows a progress value.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given. A new ProgressCapsule has type
// CAPSULE_TYPE_NONE like every capsule; whoever makes it sets the type to PROGRESS.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_PROGRESS_CAPSULE_H
#define TAVI_WISP_LIVE_VIEW_PROGRESS_CAPSULE_H

#include <memory>

#include "capsule_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class ProgressCapsule : public CapsuleData {
public:
    ProgressCapsule();
    ProgressCapsule(const ProgressCapsule& other);
    ProgressCapsule& operator=(const ProgressCapsule& other) = default;
    ~ProgressCapsule() = default;

    // The value of a full bar.
    std::shared_ptr<int> GetMax() const;
    void SetMax(const std::shared_ptr<int>& max);

    std::shared_ptr<int> GetProgress() const;
    void SetProgress(const std::shared_ptr<int>& progress);

    // True when the progress has no known end.
    std::shared_ptr<bool> GetIndeterminate() const;
    void SetIndeterminate(const std::shared_ptr<bool>& indeterminate);

private:
    std::shared_ptr<int> max_;
    std::shared_ptr<int> progress_;
    std::shared_ptr<bool> indeterminate_;
};

// The same object as a ProgressCapsule (sharing ownership with capsule) when its real class is
// ProgressCapsule or derives from it; an empty pointer when capsule is empty or of another class,
// whatever its type field says.
std::shared_ptr<ProgressCapsule> AsProgressCapsule(const std::shared_ptr<CapsuleData>& capsule);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_PROGRESS_CAPSULE_H
