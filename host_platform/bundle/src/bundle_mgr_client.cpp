#include "bundle_mgr_client.h"

#include "host_identity.h"

namespace Tavi {
namespace AppExecFwk {

bool BundleMgrClient::GetNameForUid(int32_t uid, std::string& bundleName) const {
    return Host::Identity::BundleNameForUid(uid, bundleName);
}

}  // namespace AppExecFwk
}  // namespace Tavi
