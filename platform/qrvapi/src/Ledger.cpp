#include "Ledger.h"

#include <sys/mman.h>

#include <algorithm>
#include <memory>
#include <new>

#include "Gate.h"
#include "Instruments.h"
#include "StringTable.h"
#include "qrvapi/log.h"

namespace qrvapi {
namespace {

constexpr std::size_t mostViolations = 100;

}  // namespace

Ledger& Ledger::instance() {
    static auto& ledger = *new Ledger;
    return ledger;
}

void Ledger::handOutList(const void* list) {
    const std::lock_guard lock(mutex_);
    lists_.insert(list);
}

bool Ledger::takeBackList(const void* list) {
    const std::lock_guard lock(mutex_);
    return lists_.erase(list) != 0;
}

bool Ledger::isOut(const void* list) const {
    const std::lock_guard lock(mutex_);
    return lists_.count(list) != 0;
}

void Ledger::handOutBlock(const void* block) {
    if (!freeWatched_) return;
    std::list<const void*> entry{block};
    const std::lock_guard lock(blockMutex_);
    blocks_.splice(blocks_.end(), entry);
    blockCount_ = blocks_.size();
}

void Ledger::noteFreed(const void* block) noexcept {
    if (blockCount_.load(std::memory_order_relaxed) == 0) return;
    std::list<const void*> gone;  // released after the lock, as that comes here again
    const std::lock_guard lock(blockMutex_);
    const auto entry = std::find(blocks_.begin(), blocks_.end(), block);
    if (entry != blocks_.end()) gone.splice(gone.end(), blocks_, entry);
    blockCount_ = blocks_.size();
}

bool Ledger::mayBeOut(const void* block) {
    if (!freeWatched_) return true;
    const std::lock_guard lock(blockMutex_);
    return std::find(blocks_.begin(), blocks_.end(), block) != blocks_.end();
}

void Ledger::addTable(const StringTable* table) {
    const std::lock_guard lock(mutex_);
    tables_.insert(table);
}

void Ledger::removeTable(const StringTable* table) {
    const std::lock_guard lock(mutex_);
    tables_.erase(table);
}

void Ledger::report(const std::string& violation) {
    log_message(2, "%s", violation.c_str());
    const std::lock_guard lock(mutex_);
    if (violations_.size() < mostViolations) violations_.push_back(violation);
}

std::vector<std::string> Ledger::violations() const {
    const std::lock_guard lock(mutex_);
    return violations_;
}

void Ledger::forgetViolations() {
    const std::lock_guard lock(mutex_);
    violations_.clear();
}

control::Outstanding Ledger::outstanding() const {
    control::Outstanding held;
    if (freeWatched_) held.blocks = blockCount_;
    held.gateHeld = Gate::instance().held();
    const std::lock_guard lock(mutex_);
    held.records = lists_.size();
    held.tables = tables_.size();
    for (const auto* table : tables_) {
        held.lockedTables += table->locked();
        held.filledTables += table->size() != 0;
    }
    return held;
}

void failAllocationIfAsked() {
    if (Instruments::instance().allocationFails()) throw std::bad_alloc();
}

namespace {

/// A large block comes untouched from the system: with huge pages it is there in a fraction of the
/// page faults. Where the system has none to give, nothing changes.
void askForHugePages(void* block, std::size_t size) {
    constexpr std::size_t page = std::size_t{2} << 20;
    void* begin = block;
    std::size_t room = size;
    if (std::align(page, page, begin, room) != nullptr)
        madvise(begin, room / page * page, MADV_HUGEPAGE);
}

}  // namespace

void* allocateRecords(std::size_t count, std::size_t size) {
    failAllocationIfAsked();
    void* const records = std::calloc(count, size);
    if (records == nullptr) throw std::bad_alloc();
    askForHugePages(records, count * size);
    return records;
}

}  // namespace qrvapi
