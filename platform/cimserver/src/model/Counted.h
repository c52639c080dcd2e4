// How the representations behind handles count their owners.
#pragma once

#include <atomic>
#include <cstdint>

namespace cimserver {

/// A count of owners that starts at one and may change on any thread.
class OwnerCount {
  public:
    void add(std::uint32_t n) const noexcept { _owners.fetch_add(n, std::memory_order_relaxed); }

    /// Takes `n` owners away; true if no owner is left.
    bool take(std::uint32_t n) const noexcept {
        // Nobody else can become an owner while these are all: they need no atomic write.
        return is(n) || _owners.fetch_sub(n, std::memory_order_acq_rel) == n;
    }

    bool is(std::uint32_t n) const noexcept { return _owners.load(std::memory_order_acquire) == n; }

  private:
    mutable std::atomic<std::uint32_t> _owners{1};
};

/// Base of a `T` on the heap that its last owner deletes. What it gives is what Ref<T> needs.
template <class T>
class Counted {
  public:
    void retain(std::uint32_t n = 1) const noexcept { _owners.add(n); }
    void release(std::uint32_t n = 1) const noexcept {
        if (_owners.take(n)) delete static_cast<const T*>(this);
    }

    /// Whether there are more than `n` owners.
    bool isShared(std::uint32_t n = 1) const noexcept { return !_owners.is(n); }

  protected:
    Counted() noexcept = default;
    Counted(const Counted&) noexcept {}
    Counted& operator=(const Counted&) = delete;
    ~Counted() = default;

  private:
    OwnerCount _owners;
};

}  // namespace cimserver
