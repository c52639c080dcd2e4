// What providers under test do, told to the test program, and gates that hold them up.
#pragma once

#include <condition_variable>
#include <mutex>
#include <set>
#include <string>
#include <vector>

class Journal {
  public:
    void add(const std::string& event) {
        const std::lock_guard lock(_mutex);
        _events.push_back(event);
        _changed.notify_all();
    }

    /// Blocks until open() was called for the gate.
    void passGate(const std::string& gate) {
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [&] { return _open.count(gate) != 0; });
    }

    void open(const std::string& gate) {
        const std::lock_guard lock(_mutex);
        _open.insert(gate);
        _changed.notify_all();
    }

    bool isOpen(const std::string& gate) {
        const std::lock_guard lock(_mutex);
        return _open.count(gate) != 0;
    }

    void waitFor(const std::string& event) {
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [&] { return count(event) != 0; });
    }

    /// The events so far, joined by ", "; forgets them and closes all gates.
    std::string take() {
        const std::lock_guard lock(_mutex);
        std::string all;
        for (const auto& event : _events) all += (all.empty() ? "" : ", ") + event;
        _events.clear();
        _open.clear();
        return all;
    }

  private:
    std::size_t count(const std::string& event) const {
        std::size_t n = 0;
        for (const auto& e : _events) n += e == event ? 1 : 0;
        return n;
    }

    std::mutex _mutex;
    std::condition_variable _changed;
    std::vector<std::string> _events;
    std::set<std::string> _open;
};

/// The journal of the test program.
__attribute__((visibility("default"))) Journal& journal();
