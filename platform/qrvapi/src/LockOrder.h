#pragma once

#include <cstddef>

namespace qrvapi {

class StringTable;

/// Watches in which order threads take the access gate and their string tables, and reports every
/// step that could end in a deadlock: a table after the gate, the gate or a table twice, and two
/// tables in both orders.
class LockOrder {
  public:
    /// To be told before the caller waits.
    static void beforeGate();
    static void beforeTable(const StringTable* table);

    static void tookTable(const StringTable* table);
    static void releasedTable(const StringTable* table);
    /// The table is no more; another one may get its place.
    static void forgetTable(const StringTable* table);

    static std::size_t tablesOfThisThread();
};

}  // namespace qrvapi
