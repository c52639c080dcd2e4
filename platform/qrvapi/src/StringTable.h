#pragma once

#include <atomic>
#include <cstddef>
#include <memory_resource>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

namespace qrvapi {

/// A map from strings, with open addressing and its keys in one arena: a scan of a million records
/// asks it twice for each, and gives up the whole content at once.
class StringTable {
  public:
    /// Load factors outside 0.1 to 0.9 count as the nearer of these.
    StringTable(std::size_t size, float loadFactor);

    void lock();
    void unlock();
    bool locked() const { return owner_ != std::thread::id(); }
    bool ownedByThisThread() const { return owner_ == std::this_thread::get_id(); }

    // For the owner of the lock.
    void put(std::string_view key, long value);
    bool contains(std::string_view key) const { return find(key) != nullptr; }
    long valueOf(std::string_view key) const;
    void clear();

    void setInvalidValue(long value) { invalidValue_ = value; }
    /// Of any thread; exact when no owner is at work.
    std::size_t size() const { return size_; }

  private:
    struct Entry {
        std::string_view key;
        long value;
    };
    struct Slot {
        std::size_t hash;
        const Entry* entry;  // null in a free slot
    };

    const Entry* find(std::string_view key) const;
    /// Where the key is, or the free slot where it belongs.
    static std::size_t placeOf(const std::vector<Slot>& slots, std::string_view key,
                               std::size_t hash);
    const Entry* newEntry(std::string_view key, long value);
    void grow();

    const float loadFactor_;
    const std::size_t firstSlots_;
    long invalidValue_ = 0;
    std::mutex mutex_;
    std::atomic<std::thread::id> owner_{std::thread::id()};
    std::atomic<std::size_t> size_{0};
    std::pmr::monotonic_buffer_resource arena_;
    std::vector<Slot> slots_;  // a power of two of them, never all in use
};

}  // namespace qrvapi

/// What callers of the C interface hold.
struct hashtable : qrvapi::StringTable {
    using StringTable::StringTable;
};
