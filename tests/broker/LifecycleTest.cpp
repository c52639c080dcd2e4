// How providers come and go.
#include "BrokerFixture.h"

#include <chrono>
#include <thread>
#include <vector>

using namespace Pegasus;

namespace cimserver::test {
namespace {

class LifecycleTest : public BrokerTest {};

TEST_F(LifecycleTest, LoadFailuresAreToldToEveryRequest) {
    const std::string dir = PROVIDER_DIR;
    const std::pair<const char*, std::string> failures[] = {
        {"T_Null", "1 ProviderLoadFailure (" + dir +
                       "/libBrokerTestProviders.so:Null):provider is not a CIMProvider."},
        {"T_NoEntry", "1 ProviderLoadFailure (" + dir +
                          "/libBrokerTestNoEntry.so.1:NoEntry):entry point not found."},
        {"T_NoLibrary", "1 File \"libGone.so\" was not found for provider module \"GoneModule\"."},
        {"T_CreateThrows", "1 createfail"},
        {"T_MethodsOnly", "7 Invalid provider interface."}};
    for (const auto& [className, outcome] : failures)
        for (const char* operation : {"enumerateInstances ", "createInstance "})
            EXPECT_EQ(run(operation + std::string(className), ""), outcome);
}

TEST_F(LifecycleTest, FailedInitializationTerminatesAndIsTriedAgain) {
    const auto outcome = [&] { return run("enumerateInstances T_Failing", "deliver complete"); };
    EXPECT_EQ(outcome(), "1 provider initialization failed");
    EXPECT_EQ(outcome(), "1 provider initialization failed");
    journal().open("repaired");
    EXPECT_EQ(outcome(), "T_Failing.Id=\"1\"");
    EXPECT_EQ(journal().take(),
              "Failing initialize, Failing terminate, "
              "Failing initialize, Failing terminate, Failing initialize");
}

TEST_F(LifecycleTest, ManyFirstRequestsInitializeOnce) {
    std::vector<std::thread> clients;
    std::vector<std::string> outcomes(8);
    for (auto& outcome : outcomes)
        clients.emplace_back([&] { outcome = run("enumerateInstances T_Slow", ""); });
    for (auto& client : clients) client.join();
    for (const auto& outcome : outcomes)
        EXPECT_EQ(outcome, "T_Slow.Id=\"//srv.example/root/t:T_Slow NULL\"");
    EXPECT_EQ(journal().take(), "Slow initialize");
}

TEST_F(LifecycleTest, OperationsOfOneProviderRunAtTheSameTime) {
    std::thread held([&] { run("enumerateInstances T_Other", "hold complete"); });
    journal().waitFor("holding");
    EXPECT_EQ(run("getInstance T_Other.Id=\"x\"", "deliver complete"), "T_Other.Id=\"1\"");
    journal().open("hold");
    held.join();
}

TEST_F(LifecycleTest, ShutdownWaitsThenTerminatesTheLastFirst) {
    run("enumerateInstances T_Pair", "complete");
    std::thread held([&] { run("enumerateInstances T_Other", "hold deliver complete"); });
    journal().waitFor("holding");
    std::thread later([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        journal().open("hold");
    });
    broker.reset();
    later.join();
    held.join();
    EXPECT_EQ(journal().take(),
              "Pair initialize, PairSub initialize, Other initialize, holding, released, "
              "Other terminate, PairSub terminate, Pair terminate");
    EXPECT_EQ(localServer(), nullptr);
}

TEST_F(LifecycleTest, ProvidersThatTerminateReachThoseThatAreStillThere) {
    run("enumerateInstances T_Other", "complete");
    run("enumerateInstances T_Parting", "complete");
    broker.reset();
    EXPECT_EQ(journal().take(),
              "Other initialize, Parting initialize, caught the server is shutting down, "
              "T_Other answered, caught the server is shutting down, "
              "Parting terminate, Other terminate");
}

TEST_F(LifecycleTest, ProvidersAskTheServerFromWithinAnOperation) {
    EXPECT_EQ(run("enumerateInstances T_Other", "upcall complete"),
              "T_Other.Id=\"//srv.example/root/t:T_Other NULL\"");
    EXPECT_EQ(localServer(), broker.get());
}

TEST_F(LifecycleTest, InitializationThatWaitsForItselfIsRefused) {
    EXPECT_EQ(run("enumerateInstances T_AsksItself", "complete"), "");
    EXPECT_EQ(journal().take(),
              "AsksItself initialize, "
              "caught provider \"AsksItself\" is still being initialized");
}

TEST_F(LifecycleTest, InitializationsThatWaitForEachOtherEnd) {
    std::thread left([&] { run("enumerateInstances T_AsksLeft", "complete"); });
    std::thread right([&] { run("enumerateInstances T_AsksRight", "complete"); });
    journal().waitFor("AsksLeft initialize");
    journal().waitFor("AsksRight initialize");
    journal().open("both");
    left.join();
    right.join();
    const std::string events = journal().take();
    EXPECT_NE(events.find("is still being initialized"), std::string::npos) << events;
    EXPECT_NE(events.find(" asked"), std::string::npos) << events;
}

}  // namespace
}  // namespace cimserver::test
