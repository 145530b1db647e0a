// WantAgent: an opaque action that the platform runs on the application's behalf, such as opening
// a page when a notification is tapped. On this host it carries only a readable target.
//
// Thread safety: immutable after construction.
#ifndef TAVI_ABILITY_WANT_AGENT_H
#define TAVI_ABILITY_WANT_AGENT_H

#include <string>

namespace Tavi {
namespace AbilityRuntime {
namespace WantAgent {

class WantAgent {
public:
    WantAgent() = default;
    explicit WantAgent(std::string target) : target_(std::move(target)) {}
    virtual ~WantAgent() = default;

    // What the action opens, e.g. "com.example.food/OrderPage"; empty when not given.
    const std::string& GetTarget() const { return target_; }

private:
    std::string target_;
};

}  // namespace WantAgent
}  // namespace AbilityRuntime
}  // namespace Tavi

#endif  // TAVI_ABILITY_WANT_AGENT_H
