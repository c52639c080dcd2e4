#include "Gate.h"

namespace qrvapi {

Gate& Gate::instance() {
    static auto& gate = *new Gate;
    return gate;
}

bool Gate::wait() {
    std::unique_lock lock(mutex_);
    if (!free_.wait_for(lock, timeLimit_, [&] { return !held(); })) return false;
    holder_ = std::this_thread::get_id();
    return true;
}

bool Gate::post() {
    const std::lock_guard lock(mutex_);
    const bool wasHeld = held();
    holder_ = std::thread::id();
    free_.notify_one();
    return wasHeld;
}

void Gate::setTimeLimit(std::chrono::milliseconds limit) {
    const std::lock_guard lock(mutex_);
    timeLimit_ = limit;
}

}  // namespace qrvapi
