#pragma once

#include <mutex>
#include <shared_mutex>
#include <utility>

namespace qrvapi {

/// A value that can only be reached through its lock. What a visitor returns must not refer into
/// it.
template <class T>
class Guarded {
  public:
    template <class Visitor>
    auto read(Visitor&& visit) const {
        const std::shared_lock lock(mutex_);
        return visit(value_);
    }

    template <class Visitor>
    auto write(Visitor&& visit) {
        const std::unique_lock lock(mutex_);
        return visit(value_);
    }

  private:
    mutable std::shared_mutex mutex_;
    T value_{};
};

}  // namespace qrvapi
