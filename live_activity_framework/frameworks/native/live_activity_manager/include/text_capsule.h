// TextCapsule: a capsule that shows a title and a line of text.
//
// Getters return a copy of the field's pointer (sharing the pointee); setters replace the pointer;
// an empty pointer means the field was not given. A new TextCapsule has type CAPSULE_TYPE_NONE
// like every capsule; whoever makes it sets the type to TEXT.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_TEXT_CAPSULE_H
#define TAVI_WISP_LIVE_VIEW_TEXT_CAPSULE_H

#include <memory>
#include <string>

#include "capsule_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class TextCapsule : public CapsuleData {
public:
    TextCapsule();
    TextCapsule(const TextCapsule& other);
    TextCapsule& operator=(const TextCapsule& other) = default;
    ~TextCapsule() = default;

    std::shared_ptr<std::string> GetTitle() const;
    void SetTitle(const std::shared_ptr<std::string>& title);

    std::shared_ptr<std::string> GetContent() const;
    void SetContent(const std::shared_ptr<std::string>& content);

private:
    std::shared_ptr<std::string> title_;
    std::shared_ptr<std::string> content_;
};

// The same object as a TextCapsule (sharing ownership with capsule) when its real class is
// TextCapsule or derives from it; an empty pointer when capsule is empty or of another class,
// whatever its type field says.
std::shared_ptr<TextCapsule> AsTextCapsule(const std::shared_ptr<CapsuleData>& capsule);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_TEXT_CAPSULE_H
