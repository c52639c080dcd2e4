#pragma once

#include <atomic>
#include <cstdarg>
#include <mutex>
#include <string>
#include <vector>

#include "qrvapi_control.h"

namespace qrvapi {

class Log {
  public:
    static constexpr int usualLevel = 2;

    static Log& instance();

    /// Whether anyone wants entries of this level.
    bool wants(int level) const noexcept {
        return level <= level_.load(std::memory_order_relaxed) ||
               level <= capturedLevel_.load(std::memory_order_relaxed);
    }
    void add(int level, const std::string& text);

    void setLevel(int level) { level_ = level; }
    void capture(int level) { capturedLevel_ = level; }
    std::vector<control::LogLine> take();

  private:
    std::atomic<int> level_{usualLevel};
    std::atomic<int> capturedLevel_{0};
    std::mutex mutex_;
    std::vector<control::LogLine> captured_;
};

}  // namespace qrvapi
