#include <chrono>
#include <memory>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::ElementsAre;

namespace {

using StringTableTest = ArrayTest;
using Table = std::unique_ptr<hashtable_t, void (*)(hashtable_t*)>;

Table newTable(int size = 500, float loadFactor = 0.75F) {
    return {create_string_hashtable(size, loadFactor), delete_hashtable};
}

TEST_F(StringTableTest, KeysAreThereUntilCleared) {
    const auto table = newTable();
    set_invalid_value(table.get(), -1);
    hashtable_lock(table.get());
    std::string key = "key";
    EXPECT_EQ(hashtable_contains_key(table.get(), "key"), 0);
    EXPECT_EQ(hashtable_put(table.get(), key.c_str(), 7), 0);
    EXPECT_EQ(hashtable_put(table.get(), "", 8), 0);
    key = "yek";
    EXPECT_EQ(hashtable_put(table.get(), "key", 9), 0);
    EXPECT_EQ(hashtable_contains_key(table.get(), "key"), 1);
    EXPECT_EQ(hashtable_contains_key(table.get(), "KEY"), 0);
    EXPECT_EQ(hashtable_get(table.get(), "key"), 7);
    EXPECT_EQ(hashtable_get(table.get(), ""), 8);
    EXPECT_EQ(hashtable_get(table.get(), "yek"), -1);
    EXPECT_EQ(control::outstanding().filledTables, 1U);
    hashtable_clear(table.get());
    EXPECT_EQ(hashtable_contains_key(table.get(), "key"), 0);
    EXPECT_EQ(hashtable_put(table.get(), "key", 1), 0);
    EXPECT_EQ(hashtable_get(table.get(), "key"), 1);
    hashtable_clear(table.get());
    EXPECT_EQ(control::outstanding().lockedTables, 1U);
    hashtable_unlock(table.get());
}

TEST_F(StringTableTest, GrowsFarBeyondItsFirstSize) {
    const auto table = newTable(1, 4.0F);
    hashtable_lock(table.get());
    constexpr int many = 100'000;
    for (int i = 0; i < many; ++i) hashtable_put(table.get(), std::to_string(i).c_str(), i + 1);
    long sum = 0;
    for (int i = 0; i < many; ++i) sum += hashtable_get(table.get(), std::to_string(i).c_str());
    EXPECT_EQ(sum, static_cast<long>(many) * (many + 1) / 2);
    hashtable_clear(table.get());
    hashtable_unlock(table.get());
}

TEST_F(StringTableTest, MisuseIsReportedAndHarmless) {
    EXPECT_EQ(create_string_hashtable(0, 0.75F), nullptr);
    EXPECT_EQ(create_string_hashtable(500, 0), nullptr);
    delete_hashtable(nullptr);
    control::setLogLevel(0);
    const auto table = newTable();
    EXPECT_EQ(hashtable_put(table.get(), "key", 0), -1);
    EXPECT_EQ(hashtable_contains_key(table.get(), "key"), 0);
    hashtable_unlock(table.get());
    hashtable_lock(nullptr);
    hashtable_lock(table.get());
    hashtable_lock(table.get());
    delete_hashtable(table.get());
    EXPECT_EQ(hashtable_put(table.get(), nullptr, 0), -1);
    hashtable_unlock(table.get());
    EXPECT_THAT(takeViolations(),
                ElementsAre("hashtable_put was called without the table's lock",
                            "hashtable_contains_key was called without the table's lock",
                            "hashtable_unlock was called without the table's lock",
                            "hashtable_lock was called without a table",
                            "hashtable_lock was called by its owner",
                            "delete_hashtable was called on a locked table"));
}

TEST_F(StringTableTest, WhatCouldEndInADeadlockIsReported) {
    control::setLogLevel(0);
    control::setGateTimeLimit(std::chrono::milliseconds(1));
    const auto first = newTable(), second = newTable();
    const auto lock = [](const Table& table) { hashtable_lock(table.get()); };
    const auto unlock = [](const Table& table) { hashtable_unlock(table.get()); };

    lock(first);
    lock(second);
    EXPECT_EQ(cim_sem_wait(), 0);
    EXPECT_TRUE(control::heldByThisThread().gate);
    EXPECT_EQ(control::heldByThisThread().tables, 2U);
    cim_sem_post();
    unlock(first);
    unlock(second);
    EXPECT_THAT(takeViolations(), ElementsAre());

    lock(second);
    lock(first);
    unlock(first);
    unlock(second);
    EXPECT_EQ(cim_sem_wait(), 0);
    lock(first);
    EXPECT_NE(cim_sem_wait(), 0);
    cim_sem_post();
    unlock(first);
    EXPECT_EQ(control::heldByThisThread().tables, 0U);
    EXPECT_THAT(takeViolations(),
                ElementsAre("two tables were locked in both orders",
                            "hashtable_lock was called under the access gate",
                            "cim_sem_wait was called by the holder of the access gate"));
}

}  // namespace
