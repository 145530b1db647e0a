// LiveViewBase: the part that every record of a live view shares besides its own fields, a text
// naming a parameter that the record's builder could not read.
//
// Records are plain value classes with no virtual operations: own a derived record through a
// std::shared_ptr made for its own class (std::make_shared<PrimaryData>() and the like), never
// delete it through a pointer to a base class.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_LIVE_VIEW_BASE_H
#define TAVI_WISP_LIVE_VIEW_LIVE_VIEW_BASE_H

#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

class LiveViewBase {
public:
    // Empty unless whoever filled the record from the application's input met a parameter it
    // could not read; validation rejects a record whose text is not empty. This library never
    // writes it.
    std::string GetParamFailed() const;
    void SetParamFailed(const std::string& paramFailed);

private:
    std::string paramFailed_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_LIVE_VIEW_BASE_H
