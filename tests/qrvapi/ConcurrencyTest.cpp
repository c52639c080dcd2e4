#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <future>
#include <memory>
#include <thread>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using namespace std::chrono_literals;

namespace {

using ConcurrencyTest = ArrayTest;
constexpr int threadCount = 8;
constexpr int rounds = 200;

/// Runs `work` on several threads at once and waits for all.
template <class Work>
void onThreads(Work&& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) threads.emplace_back(work, i);
    for (auto& thread : threads) thread.join();
}

/// How many paths the hosts of a walk have that begins now.
unsigned pathsOfAWalk() {
    api_spc_param_data walk;
    api_VLUNsInfo query{};
    qrv_u32 cursor = 0;
    EXPECT_EQ(api_initSPCParamData(&walk), 0);
    {
        const GateHeld gate;
        EXPECT_EQ(api_getSCSIProtocolControllers_chunk(&query, &walk, &cursor, 1), 0);
    }
    unsigned count = 0;
    for (unsigned i = 0; i < walk.allHosts.count; ++i) count += walk.allHosts.hosts[i].pathCount;
    api_freeVLUNs(&query);
    api_freeSPCParamData(&walk);
    return count;
}

TEST_F(ConcurrencyTest, OneHolderAtATimePassesTheGate) {
    int plain = 0;  // guarded by the gate alone
    onThreads([&](int) {
        for (int i = 0; i < rounds; ++i) {
            const GateHeld gate;
            ++plain;
        }
    });
    EXPECT_EQ(plain, threadCount * rounds);
}

TEST_F(ConcurrencyTest, AWaitEndsWithItsTime) {
    control::setGateTimeLimit(20ms);
    ASSERT_EQ(cim_sem_wait(), 0);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(std::async(std::launch::async, cim_sem_wait).get(), ETIMEDOUT);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 20ms);
    control::setLogLevel(0);
    EXPECT_EQ(cim_sem_wait(), ETIMEDOUT) << "the holder itself can't get it twice";
    EXPECT_EQ(takeViolations().size(), 1U);
    EXPECT_TRUE(control::outstanding().gateHeld);
    cim_sem_post();
    EXPECT_FALSE(control::outstanding().gateHeld);
}

TEST_F(ConcurrencyTest, APostWakesAWaiter) {
    control::setGateTimeLimit(1min);
    ASSERT_EQ(cim_sem_wait(), 0);
    auto waiter = std::async(std::launch::async, [] {
        const GateHeld gate;
        return 1;
    });
    EXPECT_EQ(waiter.wait_for(20ms), std::future_status::timeout);
    cim_sem_post();
    EXPECT_EQ(waiter.get(), 1);
}

TEST_F(ConcurrencyTest, ScansOfOneTableDoNotMix) {
    const std::unique_ptr<hashtable_t, void (*)(hashtable_t*)> table(
        create_string_hashtable(4, 0.75F), delete_hashtable);
    std::atomic<int> strange{0};
    onThreads([&](int thread) {
        for (int i = 0; i < rounds; ++i) {
            const auto key = std::to_string(thread) + ":" + std::to_string(i);
            hashtable_lock(table.get());
            strange += hashtable_contains_key(table.get(), "always");
            hashtable_put(table.get(), "always", 0);
            hashtable_put(table.get(), key.c_str(), 0);
            strange += 1 - hashtable_contains_key(table.get(), key.c_str());
            hashtable_clear(table.get());
            hashtable_unlock(table.get());
        }
    });
    EXPECT_EQ(strange, 0);
}

TEST_F(ConcurrencyTest, ReadersWritersAndWatchersGetAlong) {
    std::atomic<int> failures{0};
    control::recordCalls(true);
    onThreads([&](int thread) {
        const auto name = "t" + std::to_string(thread);
        for (int i = 0; i < rounds / 4; ++i) {
            control::addHost(R"({"name": ")" + name + R"(", "persona": 1})");
            control::addPath(name,
                             R"({"wwn": "200000000000000)" + std::to_string(thread) + R"("})");
            failures += paths(nullptr, nullptr, name.c_str()).size() != 1;
            failures += hosts({}).size() < 5;
            failures += pathsOfAWalk() < 6;
            failures += control::outstanding().tables != 0;
            control::removeHost(name);
        }
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(control::callCount("api_getHosts"),
              static_cast<std::size_t>(threadCount * (rounds / 4)));
    EXPECT_EQ(hosts({}).size(), 4U);
}

}  // namespace
