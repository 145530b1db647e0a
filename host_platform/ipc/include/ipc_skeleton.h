// The identity of the caller of the current platform call. On the host, the calling application
// is set with the host-only controls; every thread of the process sees the same caller.
//
// Thread safety: safe to call from any thread.
#ifndef TAVI_IPC_IPC_SKELETON_H
#define TAVI_IPC_IPC_SKELETON_H

#include <cstdint>

namespace Tavi {

class IPCSkeleton {
public:
    // The uid of the calling application; -1 when no application identity is set.
    static int32_t GetCallingUid();
    static int32_t GetCallingPid();
};

}  // namespace Tavi

#endif  // TAVI_IPC_IPC_SKELETON_H
