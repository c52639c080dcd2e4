#include "LockOrder.h"

#include <algorithm>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "Gate.h"
#include "Ledger.h"

namespace qrvapi {
namespace {

thread_local std::vector<const StringTable*> held;

/// Pairs of tables of which the second was taken while the first was held.
struct Orders {
    std::mutex mutex;
    std::set<std::pair<const StringTable*, const StringTable*>> seen;
};

Orders& orders() {
    static auto& orders = *new Orders;
    return orders;
}

/// Whether the other order has been seen before.
bool isReverse(const StringTable* first, const StringTable* second) {
    const std::lock_guard lock(orders().mutex);
    orders().seen.emplace(first, second);
    return orders().seen.count({second, first}) != 0;
}

}  // namespace

void LockOrder::beforeGate() {
    if (Gate::instance().heldByThisThread())
        Ledger::instance().report("cim_sem_wait was called by the holder of the access gate");
}

void LockOrder::beforeTable(const StringTable* table) {
    if (Gate::instance().heldByThisThread())
        Ledger::instance().report("hashtable_lock was called under the access gate");
    for (const auto* other : held)
        if (isReverse(other, table))
            Ledger::instance().report("two tables were locked in both orders");
}

void LockOrder::tookTable(const StringTable* table) {
    held.push_back(table);
}

void LockOrder::releasedTable(const StringTable* table) {
    held.erase(std::remove(held.begin(), held.end(), table), held.end());
}

void LockOrder::forgetTable(const StringTable* table) {
    const std::lock_guard lock(orders().mutex);
    auto& seen = orders().seen;
    for (auto order = seen.begin(); order != seen.end();)
        order = order->first == table || order->second == table ? seen.erase(order) : ++order;
}

std::size_t LockOrder::tablesOfThisThread() {
    return held.size();
}

}  // namespace qrvapi
