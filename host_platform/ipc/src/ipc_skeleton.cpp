#include "ipc_skeleton.h"

#include <unistd.h>

#include "host_identity.h"

namespace Tavi {

int32_t IPCSkeleton::GetCallingUid() {
    return Host::Identity::CallingUid();
}

int32_t IPCSkeleton::GetCallingPid() {
    return static_cast<int32_t>(getpid());
}

}  // namespace Tavi
