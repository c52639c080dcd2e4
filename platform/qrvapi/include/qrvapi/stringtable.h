/// @file
/// A table of strings with a lock of its own, made to take out duplicates in one scan.
///
/// A scan locks the table, puts and looks up, clears and unlocks. The lock belongs to the thread
/// that took it. Calls that look at the content are for the holder of the lock; without it they are
/// reported in the log and do nothing. None of these calls needs the gate; a thread that holds the
/// gate must not wait for a table.
#ifndef QRVAPI_STRINGTABLE_H
#define QRVAPI_STRINGTABLE_H

#ifdef __cplusplus
extern "C" {
#endif

typedef struct hashtable hashtable_t;

#pragma GCC visibility push(default)

/// Makes an empty table that at first has room for `size` keys at the fill of `loadFactor`, and
/// that grows as needed. Returns null when there is no memory, or when `size` or `loadFactor` isn't
/// positive; a `loadFactor` outside 0.1 to 0.9 counts as the nearer of
/// these. The caller releases the table with delete_hashtable().
hashtable_t* create_string_hashtable(int size, float loadFactor);

/// Sets the value that stands for no entry; it is 0 at first. Called before the table is shared.
void set_invalid_value(hashtable_t* table, long value);

/// Releases the table. Null is allowed. A locked table is reported and stays.
void delete_hashtable(hashtable_t* table);

/// Waits until the caller alone has the table. Holders don't lock again.
void hashtable_lock(hashtable_t* table);

/// Lets the next thread have the table.
void hashtable_unlock(hashtable_t* table);

/// Puts a copy of `key` with `value` into the table; a key that is there keeps its first value.
/// Returns 0, or -1 when there is no memory or no lock.
int hashtable_put(hashtable_t* table, const char* key, long value);

/// Returns 1 when `key` is in the table, otherwise 0.
int hashtable_contains_key(hashtable_t* table, const char* key);

/// Returns the value of `key`, or the value that stands for no entry.
long hashtable_get(hashtable_t* table, const char* key);

/// Takes all keys out, and gives back the memory of a table that has grown.
void hashtable_clear(hashtable_t* table);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
