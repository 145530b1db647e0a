// Host-internal: the process-wide identity of the calling application. Set through the host-only
// controls; read by the platform stand-ins.
//
// Thread safety: all functions may be called from any thread.
#ifndef TAVI_HOST_IDENTITY_H
#define TAVI_HOST_IDENTITY_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace Host {
namespace Identity {

// Sets the caller and registers bundleName as the name of uid.
void SetCallingApp(const std::string& bundleName, int32_t uid);
// Forgets the caller and every registered name.
void Clear();
int32_t CallingUid();
// False when uid has no registered bundle name.
bool BundleNameForUid(int32_t uid, std::string& bundleName);

}  // namespace Identity
}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_IDENTITY_H
