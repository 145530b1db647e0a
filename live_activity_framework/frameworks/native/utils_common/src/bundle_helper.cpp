#include "bundle_helper.h"

#include "bundle_mgr_client.h"
#include "ipc_skeleton.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

BaseRsp BundleHelper::GetCurrBundle(std::string& bundleName) {
    const int32_t uid = IPCSkeleton::GetCallingUid();
    if (!AppExecFwk::BundleMgrClient().GetNameForUid(uid, bundleName)) {
        return BaseRsp(ERR_INTERNAL, "Get current bundle name failed, uid is %d.", uid);
    }
    return BaseRsp();
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
