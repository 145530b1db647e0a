// CapsuleData: the compact form of a live view shown in the status bar, and the base of the
// three capsule kinds (TextCapsule, TimerCapsule, ProgressCapsule).
//
// Kind safety: every capsule object carries a private tag of its real class, set by its
// constructor and never changed afterwards. A copy constructed as a CapsuleData (a sliced copy of
// a kind) is a plain CapsuleData; copy assignment copies fields and keeps the target's tag. The
// tag is independent of the `type` field, which is only the caller's claim of the kind. Take a
// capsule as a kind only through AsTextCapsule, AsTimerCapsule or AsProgressCapsule (declared in
// the kind's header), which answer an empty pointer when the object is not of that kind.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_CAPSULE_DATA_H
#define TAVI_WISP_LIVE_VIEW_CAPSULE_DATA_H

#include <cstdint>
#include <memory>
#include <string>

#include "live_view_base.h"
#include "pixel_map.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class TextCapsule;
class TimerCapsule;
class ProgressCapsule;

class CapsuleData : public LiveViewBase {
public:
    // Any other value may be stored (through static_cast); validation rejects it.
    enum CapsuleType : int32_t {
        CAPSULE_TYPE_NONE = -1,  // not set; the type of a new capsule
        TEXT = 1,                // TextCapsule
        TIMER = 2,               // TimerCapsule
        PROGRESS = 3,            // ProgressCapsule
    };

    CapsuleData();
    // Copies the fields; the result is a plain CapsuleData whatever the real class of other.
    CapsuleData(const CapsuleData& other);
    // Copies the fields; this object keeps its own real class.
    CapsuleData& operator=(const CapsuleData& other);
    ~CapsuleData() = default;

    // 1: validated in full; -1: accepted without further rules.
    std::shared_ptr<int> GetStatus() const;
    void SetStatus(const std::shared_ptr<int>& status);

    CapsuleType GetType() const;
    void SetType(const CapsuleType& type);

    std::shared_ptr<std::string> GetIconStr() const;
    void SetIconStr(const std::shared_ptr<std::string>& iconStr);

    std::shared_ptr<Media::PixelMap> GetIcon() const;
    void SetIcon(const std::shared_ptr<Media::PixelMap>& icon);

    // "#" and eight hexadecimal ARGB digits; checked by validation only.
    std::shared_ptr<std::string> GetBackgroundColor() const;
    void SetBackgroundColor(const std::shared_ptr<std::string>& backgroundColor);

private:
    // The real class of the object.
    enum class Kind : int32_t { CAPSULE, TEXT, TIMER, PROGRESS };

    // Only the kind classes may claim a kind other than CAPSULE.
    explicit CapsuleData(Kind kind);
    CapsuleData(const CapsuleData& other, Kind kind);

    friend class TextCapsule;
    friend class TimerCapsule;
    friend class ProgressCapsule;
    friend std::shared_ptr<TextCapsule> AsTextCapsule(const std::shared_ptr<CapsuleData>& capsule);
    friend std::shared_ptr<TimerCapsule> AsTimerCapsule(
        const std::shared_ptr<CapsuleData>& capsule);
    friend std::shared_ptr<ProgressCapsule> AsProgressCapsule(
        const std::shared_ptr<CapsuleData>& capsule);

    std::shared_ptr<int> status_;
    CapsuleType type_ = CAPSULE_TYPE_NONE;
    std::shared_ptr<std::string> iconStr_;
    std::shared_ptr<Media::PixelMap> icon_;
    std::shared_ptr<std::string> backgroundColor_;
    Kind kind_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_CAPSULE_DATA_H
