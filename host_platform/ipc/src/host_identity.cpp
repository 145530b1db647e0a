#include "host_identity.h"

#include <map>
#include <mutex>

namespace Tavi {
namespace Host {
namespace Identity {

namespace {
struct State {
    std::mutex mutex;
    int32_t uid = -1;
    std::map<int32_t, std::string> names;
};

State& GetState() {
    static State state;
    return state;
}
}  // namespace

void SetCallingApp(const std::string& bundleName, int32_t uid) {
    State& state = GetState();
    std::lock_guard<std::mutex> lock(state.mutex);
    state.uid = uid;
    state.names[uid] = bundleName;
}

void Clear() {
    State& state = GetState();
    std::lock_guard<std::mutex> lock(state.mutex);
    state.uid = -1;
    state.names.clear();
}

int32_t CallingUid() {
    State& state = GetState();
    std::lock_guard<std::mutex> lock(state.mutex);
    return state.uid;
}

bool BundleNameForUid(int32_t uid, std::string& bundleName) {
    State& state = GetState();
    std::lock_guard<std::mutex> lock(state.mutex);
    auto it = state.names.find(uid);
    if (it == state.names.end() || it->second.empty()) {
        return false;
    }
    bundleName = it->second;
    return true;
}

}  // namespace Identity
}  // namespace Host
}  // namespace Tavi
