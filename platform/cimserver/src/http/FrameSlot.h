// Hands frames from the thread that produces an answer to the thread that sends it.
#pragma once

#include "cimxml/Answer.h"
#include "http/Frame.h"

#include <condition_variable>
#include <mutex>

namespace cimserver {

/// Room for one frame: the producer waits while the frame before is on its way.
class FrameSlot {
  public:
    /// Producer: puts a frame once the slot is empty. Throws ClientGone when the way is broken.
    void put(Frame frame) {
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [this] { return !_full || _broken; });
        if (_broken) throw ClientGone();
        _frame = std::move(frame);
        _full = true;
    }

    /// Sender: the frame in the slot, which stays there until release().
    const Frame& frame() const { return _frame; }

    void release() {
        const std::lock_guard lock(_mutex);
        _frame = Frame();
        _full = false;
        _changed.notify_one();
    }

    /// The frame stays: it may still be on its way.
    void breakOff() {
        const std::lock_guard lock(_mutex);
        _broken = true;
        _full = false;
        _changed.notify_one();
    }

    bool empty() const {
        const std::lock_guard lock(_mutex);
        return !_full;
    }

    bool broken() const {
        const std::lock_guard lock(_mutex);
        return _broken;
    }

  private:
    mutable std::mutex _mutex;
    std::condition_variable _changed;
    Frame _frame;
    bool _full = false;
    bool _broken = false;
};

}  // namespace cimserver
