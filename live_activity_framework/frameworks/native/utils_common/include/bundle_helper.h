// The calling application's bundle.
//
// Thread safety: GetCurrBundle may be called from any thread.
#ifndef LIVE_VIEW_BUNDLE_HELPER_H
#define LIVE_VIEW_BUNDLE_HELPER_H

#include <string>

#include "base_rsp.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class BundleHelper {
public:
    // Fills bundleName with the calling application's bundle name. When the caller has no bundle
    // name, fails with ERR_INTERNAL and "Get current bundle name failed, uid is <uid>." and leaves
    // bundleName alone.
    static BaseRsp GetCurrBundle(std::string& bundleName);
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_BUNDLE_HELPER_H
