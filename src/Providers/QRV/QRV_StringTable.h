// A provider's string table, used within one operation to remove duplicates.
#pragma once

#include <qrvapi.h>

#include <memory>

namespace Pegasus {

/// Gives a table back to the library.
struct DeleteStringTable {
    void operator()(hashtable_t* table) const { delete_hashtable(table); }
};

/// A provider's table; null when there is no memory for it.
using StringTable = std::unique_ptr<hashtable_t, DeleteStringTable>;

inline StringTable createStringTable() {
    StringTable table(create_string_hashtable(500, 0.75f));
    if (table) set_invalid_value(table.get(), 0);
    return table;
}

/// One scan over a provider's table: locks it, and clears and unlocks it when the scope ends. Scans
/// of one table run one after another. A table lock is taken before the access semaphore, never
/// after it.
class StringTableScan {
  public:
    /// `table` isn't null and outlives the scan.
    explicit StringTableScan(hashtable_t* table) : _table(table) { hashtable_lock(_table); }

    ~StringTableScan() {
        hashtable_clear(_table);
        hashtable_unlock(_table);
    }

    StringTableScan(const StringTableScan&) = delete;
    StringTableScan& operator=(const StringTableScan&) = delete;

    /// Whether this scan sees `text` for the first time.
    bool isNew(const char* text) {
        if (hashtable_contains_key(_table, text) == 1) return false;
        hashtable_put(_table, text, 0);
        return true;
    }

  private:
    hashtable_t* _table;
};

}  // namespace Pegasus
