#include "event_hub.h"

namespace LiveViewSimulator {

namespace {
constexpr size_t MAX_WAITING_NOTICES = 1000;
}

void EventHub::Changed() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        ++changes_;
    }
    changed_.notify_all();
}

int64_t EventHub::ChangeCount() {
    std::lock_guard<std::mutex> lock(mutex_);
    return changes_;
}

int64_t EventHub::WaitForChange(int64_t seen, std::chrono::milliseconds timeout) {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait_for(lock, timeout, [&] { return changes_ > seen || stopped_; });
    return changes_;
}

void EventHub::Post(const Tavi::Host::AppId& app, AppNotice notice) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        auto& queue = notices_[app];
        if (queue.size() >= MAX_WAITING_NOTICES) {
            queue.pop_front();
        }
        queue.push_back(std::move(notice));
    }
    changed_.notify_all();
}

void EventHub::Clear(const Tavi::Host::AppId& app) {
    std::lock_guard<std::mutex> lock(mutex_);
    notices_.erase(app);
}

bool EventHub::WaitForNotice(const Tavi::Host::AppId& app, std::chrono::milliseconds timeout,
                             AppNotice& notice) {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto has = [&] {
        auto it = notices_.find(app);
        return it != notices_.end() && !it->second.empty();
    };
    changed_.wait_for(lock, timeout, [&] { return has() || stopped_; });
    if (!has()) {
        return false;
    }
    auto& queue = notices_[app];
    notice = std::move(queue.front());
    queue.pop_front();
    return true;
}

void EventHub::Stop() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopped_ = true;
    }
    changed_.notify_all();
}

bool EventHub::Stopped() {
    std::lock_guard<std::mutex> lock(mutex_);
    return stopped_;
}

}  // namespace LiveViewSimulator
