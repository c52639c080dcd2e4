#include "StringTable.h"

#include <algorithm>
#include <functional>
#include <new>

namespace qrvapi {
namespace {

constexpr float lowestLoadFactor = 0.1F, highestLoadFactor = 0.9F;
constexpr std::size_t fewestSlots = 16;

std::size_t slotsFor(std::size_t keys, float loadFactor) {
    std::size_t slots = fewestSlots;
    while (static_cast<float>(slots) * loadFactor < static_cast<float>(keys)) slots *= 2;
    return slots;
}

std::size_t hashOf(std::string_view key) {
    return std::hash<std::string_view>()(key);
}

}  // namespace

StringTable::StringTable(std::size_t size, float loadFactor)
    : loadFactor_(std::clamp(loadFactor, lowestLoadFactor, highestLoadFactor)),
      firstSlots_(slotsFor(size, loadFactor_)),
      slots_(firstSlots_) {}

void StringTable::lock() {
    mutex_.lock();
    owner_ = std::this_thread::get_id();
}

void StringTable::unlock() {
    owner_ = std::thread::id();
    mutex_.unlock();
}

std::size_t StringTable::placeOf(const std::vector<Slot>& slots, std::string_view key,
                                 std::size_t hash) {
    const auto mask = slots.size() - 1;
    const auto isElsewhere = [&](const Slot& slot) {
        return slot.entry != nullptr && (slot.hash != hash || slot.entry->key != key);
    };
    auto place = hash & mask;
    while (isElsewhere(slots[place])) place = (place + 1) & mask;
    return place;
}

const StringTable::Entry* StringTable::find(std::string_view key) const {
    return slots_[placeOf(slots_, key, hashOf(key))].entry;
}

const StringTable::Entry* StringTable::newEntry(std::string_view key, long value) {
    void* const memory = arena_.allocate(sizeof(Entry) + key.size(), alignof(Entry));
    char* const text = static_cast<char*>(memory) + sizeof(Entry);
    std::copy(key.begin(), key.end(), text);
    return new (memory) Entry{std::string_view(text, key.size()), value};
}

void StringTable::grow() {
    std::vector<Slot> larger(slots_.size() * 2);
    for (const auto& slot : slots_) {
        if (slot.entry == nullptr) continue;
        larger[placeOf(larger, slot.entry->key, slot.hash)] = slot;
    }
    slots_.swap(larger);
}

void StringTable::put(std::string_view key, long value) {
    const auto hash = hashOf(key);
    if (slots_[placeOf(slots_, key, hash)].entry != nullptr) return;
    const auto needed = static_cast<float>(size_ + 1);
    if (needed > static_cast<float>(slots_.size()) * loadFactor_) grow();
    const auto* const entry = newEntry(key, value);
    slots_[placeOf(slots_, key, hash)] = {hash, entry};
    size_.store(size_ + 1, std::memory_order_relaxed);
}

long StringTable::valueOf(std::string_view key) const {
    const auto* const entry = find(key);
    return entry == nullptr ? invalidValue_ : entry->value;
}

void StringTable::clear() {
    slots_.resize(firstSlots_);
    slots_.shrink_to_fit();
    std::fill(slots_.begin(), slots_.end(), Slot{});
    arena_.release();
    size_ = 0;
}

}  // namespace qrvapi
