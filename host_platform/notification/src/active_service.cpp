#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <utility>

#include "notification_service.h"
#include "remote_service.h"

namespace Tavi {
namespace Host {

namespace {
std::atomic<ServiceBackend*> g_active{nullptr};
std::once_flag g_fromEnvironment;

// A simulator that cannot be reached: every call answers that the service is not connected, so an
// unusable LIVEVIEW_SERVICE is noticed at the first call instead of silently using another service.
RemoteAddress Unreachable() {
    return RemoteAddress{"127.0.0.1", 0, ""};
}

void ChooseFromEnvironment() {
    const char* url = std::getenv("LIVEVIEW_SERVICE");
    if (url == nullptr || *url == '\0') {
        g_active.store(&NotificationService::Instance());
        return;
    }
    RemoteAddress address;
    std::string error;
    if (!RemoteService::ParseAddress(url, address, error)) {
        std::fprintf(stderr, "LIVEVIEW_SERVICE: %s\n", error.c_str());
        address = Unreachable();
    }
    g_active.store(new RemoteService(address));  // never destroyed: its threads may use it
}
}  // namespace

namespace {
constexpr std::pair<const char*, ServiceCall> CALL_NAMES[] = {
    {"publish", ServiceCall::PUBLISH},
    {"subscribe", ServiceCall::SUBSCRIBE},
    {"getActive", ServiceCall::GET_ACTIVE},
    {"getEnabled", ServiceCall::GET_ENABLED},
};
}  // namespace

const char* ServiceCallName(ServiceCall call) {
    for (const auto& [name, named] : CALL_NAMES) {
        if (named == call) {
            return name;
        }
    }
    return "?";
}

bool ServiceCallNamed(const std::string& name, ServiceCall& call) {
    for (const auto& [known, named] : CALL_NAMES) {
        if (name == known) {
            call = named;
            return true;
        }
    }
    return false;
}

ServiceBackend& ActiveService() {
    ServiceBackend* active = g_active.load();
    if (active == nullptr) {
        std::call_once(g_fromEnvironment, ChooseFromEnvironment);
        active = g_active.load();
    }
    return *active;
}

void UseEmbeddedService() {
    std::call_once(g_fromEnvironment, [] {});
    g_active.store(&NotificationService::Instance());
}

bool UseRemoteService(const std::string& url, std::string& error) {
    RemoteAddress address;
    if (!RemoteService::ParseAddress(url, address, error)) {
        return false;
    }
    std::call_once(g_fromEnvironment, [] {});
    g_active.store(new RemoteService(address));  // never destroyed: its threads may use it
    return true;
}

}  // namespace Host
}  // namespace Tavi
