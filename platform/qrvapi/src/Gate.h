#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace qrvapi {

/// A semaphore of one whose wait has a limit, and which knows its holder.
class Gate {
  public:
    static constexpr std::chrono::milliseconds usualTimeLimit{30'000};

    static Gate& instance();

    /// Whether the caller got the gate in time.
    bool wait();
    /// Whether there was a holder. The next in line need not be the longest waiting.
    bool post();

    bool held() const { return holder_ != std::thread::id(); }
    bool heldByThisThread() const { return holder_ == std::this_thread::get_id(); }
    void setTimeLimit(std::chrono::milliseconds limit);

  private:
    std::mutex mutex_;
    std::condition_variable free_;
    std::atomic<std::thread::id> holder_{std::thread::id()};
    std::chrono::milliseconds timeLimit_ = usualTimeLimit;
};

}  // namespace qrvapi
