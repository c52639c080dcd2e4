#pragma once

#include <atomic>
#include <cstdlib>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "Functions.h"

namespace qrvapi {

class StringTable;

struct FreeRecords {
    void operator()(void* records) const noexcept { std::free(records); }
};

/// Records on their way to the caller; memory of malloc(), as the caller may release it by free().
template <class Record>
using Records = std::unique_ptr<Record[], FreeRecords>;

/// Keeps the books of all that callers hold and of what they did wrong.
class Ledger {
  public:
    static Ledger& instance();

    /// A list that goes back through the library.
    void handOutList(const void* list);
    /// Whether the list was out; it is no longer.
    bool takeBackList(const void* list);

    bool isOut(const void* list) const;

    /// A block that goes back through free(), which is only known where free() is watched.
    void handOutBlock(const void* block);
    void noteFreed(const void* block) noexcept;
    /// False only where free() is watched, so that nothing can have been missed.
    bool mayBeOut(const void* block);
    void freeIsWatched() noexcept { freeWatched_ = true; }

    void addTable(const StringTable* table);
    void removeTable(const StringTable* table);

    void report(const std::string& violation);
    std::vector<std::string> violations() const;
    void forgetViolations();

    control::Outstanding outstanding() const;

  private:
    mutable std::mutex mutex_;
    std::unordered_set<const void*> lists_;
    std::unordered_set<const StringTable*> tables_;
    std::vector<std::string> violations_;

    // Apart from the rest: free() comes here on every road, also while mutex_ is held. Nothing is
    // allocated or freed under this mutex.
    std::mutex blockMutex_;
    std::list<const void*> blocks_;
    std::atomic<std::size_t> blockCount_{0};
    std::atomic<bool> freeWatched_{false};
};

/// Stands for an allocation that a test may want to fail; throws std::bad_alloc then.
void failAllocationIfAsked();

/// Zeroed memory for `count` records. Throws std::bad_alloc, also when a test wants it.
void* allocateRecords(std::size_t count, std::size_t size);

template <class Record>
Records<Record> newRecords(std::size_t count) {
    return Records<Record>(static_cast<Record*>(allocateRecords(count, sizeof(Record))));
}

/// Takes a list back from its caller, whose pointer becomes null; one that isn't out is reported.
template <class Record>
void giveBackList(Function function, Record*& records) {
    Record* const list = std::exchange(records, nullptr);
    if (list == nullptr) return;
    if (Ledger::instance().takeBackList(list)) return FreeRecords()(list);
    Ledger::instance().report(std::string(describe(function).name) +
                              " was given a list that isn't out");
}

/// Records of two kinds in one piece of memory: the outer ones, and behind them all the inner ones
/// that the outer ones point to.
template <class Outer, class Inner>
class NestedRecords {
  public:
    NestedRecords(std::size_t outer, std::size_t inner)
        : memory_(newRecords<char>(outer * sizeof(Outer) + inner * sizeof(Inner))),
          nextOuter_(static_cast<Outer*>(static_cast<void*>(memory_.get()))),
          nextInner_(static_cast<Inner*>(static_cast<void*>(nextOuter_ + outer))) {
        static_assert(alignof(Outer) >= alignof(Inner));
    }

    Outer& addOuter() { return ++count_, *nextOuter_++; }
    Inner& addInner() { return *nextInner_++; }
    /// Where the next inner record will be.
    Inner* innerPlace() const { return nextInner_; }
    unsigned count() const { return count_; }

    Records<Outer> take() {
        return Records<Outer>(static_cast<Outer*>(static_cast<void*>(memory_.release())));
    }
    /// For the caller, who gives the list back through the library.
    Outer* handOut() {
        Ledger::instance().handOutList(memory_.get());
        return take().release();
    }

  private:
    Records<char> memory_;
    Outer* nextOuter_;
    Inner* nextInner_;
    unsigned count_ = 0;
};

/// Hands out a block that goes back through free().
template <class Record>
Record* handOutBlock(Records<Record> records) {
    if (records) Ledger::instance().handOutBlock(records.get());
    return records.release();
}

}  // namespace qrvapi
