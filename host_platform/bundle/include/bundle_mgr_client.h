// The platform's bundle manager client: the name of the application bundle behind a uid.
//
// Thread safety: safe to call from any thread.
#ifndef TAVI_BUNDLE_BUNDLE_MGR_CLIENT_H
#define TAVI_BUNDLE_BUNDLE_MGR_CLIENT_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace AppExecFwk {

class BundleMgrClient {
public:
    // Fills bundleName and returns true when uid belongs to an installed application; returns
    // false and leaves bundleName alone otherwise.
    bool GetNameForUid(int32_t uid, std::string& bundleName) const;
};

}  // namespace AppExecFwk
}  // namespace Tavi

#endif  // TAVI_BUNDLE_BUNDLE_MGR_CLIENT_H
