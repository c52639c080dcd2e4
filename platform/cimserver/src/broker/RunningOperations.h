// Knows whether operations are running.
#pragma once

#include <future>
#include <memory>

namespace cimserver {

/// Every operation holds a token while it runs; draining waits until all are given back.
class RunningOperations {
  public:
    using Token = std::shared_ptr<void>;

    RunningOperations() : RunningOperations(std::make_shared<std::promise<void>>()) {}

    /// To be held while an operation runs. One begun after everything was drained is not counted.
    Token begin() const { return _running.lock(); }

    /// Waits for the end of all operations, also of those that they start meanwhile. For one call.
    void drain() {
        _own.reset();
        _drained.wait();
    }

  private:
    explicit RunningOperations(const std::shared_ptr<std::promise<void>>& last)
        : _drained(last->get_future()),
          _own(static_cast<void*>(nullptr), [last](void*) { last->set_value(); }),
          _running(_own) {}

    std::future<void> _drained;
    Token _own;
    const std::weak_ptr<void> _running;
};

}  // namespace cimserver
