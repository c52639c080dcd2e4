#include <memory>

#include "Call.h"
#include "LockOrder.h"
#include "StringTable.h"
#include "qrvapi/stringtable.h"

using namespace qrvapi;

namespace {

void describeKey(Arguments& arguments, const char* key) {
    arguments.text("key", key);
}

hashtable_t* newTable(int size, float loadFactor) {
    if (size <= 0 || !(loadFactor > 0)) {
        throw Refusal(ERR_API_INVALID_ARGUMENT, {"size and load factor must be positive"});
    }
    failAllocationIfAsked();
    auto table = std::make_unique<hashtable>(static_cast<std::size_t>(size), loadFactor);
    Ledger::instance().addTable(table.get());
    return table.release();
}

void report(Function function, const char* fault) {
    Ledger::instance().report(std::string(describe(function).name) + " was called " + fault);
}

bool isThere(Function function, const hashtable_t* table) {
    if (table == nullptr) report(function, "without a table");
    return table != nullptr;
}

/// Whether the caller may look into the table.
bool isOpen(Function function, const hashtable_t* table) {
    if (!isThere(function, table)) return false;
    if (!table->ownedByThisThread()) report(function, "without the table's lock");
    return table->ownedByThisThread();
}

/// Calls on the content: `otherwise` is the answer when the caller may not look, or when it fails.
template <class Answer, class Body>
Answer contentCall(Function function, hashtable_t* table, const char* key, Answer otherwise,
                   Body&& body) noexcept {
    try {
        const auto describeArguments = [&](Arguments& arguments) { describeKey(arguments, key); };
        if (instrumented(function, describeArguments) || key == nullptr) return otherwise;
        return isOpen(function, table) ? body() : otherwise;
    } catch (const std::exception&) {
        return otherwise;
    }
}

}  // namespace

hashtable_t* create_string_hashtable(int size, float loadFactor) {
    hashtable_t* table = nullptr;
    const auto describeArguments = [&](Arguments& arguments) { arguments.number("size", size); };
    codeCall(Function::create_string_hashtable, describeArguments, [&] {
        table = newTable(size, loadFactor);
        return 0;
    });
    return table;
}

void set_invalid_value(hashtable_t* table, long value) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.number("value", value); };
    plainCall(Function::set_invalid_value, describeArguments, [&] {
        if (isThere(Function::set_invalid_value, table)) table->setInvalidValue(value);
    });
}

void delete_hashtable(hashtable_t* table) {
    plainCall(Function::delete_hashtable, noArguments, [&] {
        if (table == nullptr) return;
        if (table->locked()) return report(Function::delete_hashtable, "on a locked table");
        Ledger::instance().removeTable(table);
        LockOrder::forgetTable(table);
        std::unique_ptr<hashtable>(table).reset();
    });
}

void hashtable_lock(hashtable_t* table) {
    plainCall(Function::hashtable_lock, noArguments, [&] {
        if (!isThere(Function::hashtable_lock, table)) return;
        if (table->ownedByThisThread()) return report(Function::hashtable_lock, "by its owner");
        LockOrder::beforeTable(table);
        table->lock();
        LockOrder::tookTable(table);
    });
}

void hashtable_unlock(hashtable_t* table) {
    plainCall(Function::hashtable_unlock, noArguments, [&] {
        if (!isOpen(Function::hashtable_unlock, table)) return;
        LockOrder::releasedTable(table);
        table->unlock();
    });
}

int hashtable_put(hashtable_t* table, const char* key, long value) {
    return contentCall(Function::hashtable_put, table, key, -1, [&] {
        failAllocationIfAsked();
        table->put(key, value);
        return 0;
    });
}

int hashtable_contains_key(hashtable_t* table, const char* key) {
    return contentCall(Function::hashtable_contains_key, table, key, 0,
                       [&] { return table->contains(key) ? 1 : 0; });
}

long hashtable_get(hashtable_t* table, const char* key) {
    return contentCall(Function::hashtable_get, table, key, 0L,
                       [&] { return table->valueOf(key); });
}

void hashtable_clear(hashtable_t* table) {
    plainCall(Function::hashtable_clear, noArguments, [&] {
        if (isOpen(Function::hashtable_clear, table)) table->clear();
    });
}
