// What a walk over the VLUNs costs for each record, and what a question about one object costs
// while the array around it grows.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <qrvapi_control.h>

#include <fstream>
#include <functional>
#include <string>

#include "Discard.h"
#include "TestServer.h"

using namespace Pegasus;
using qrvbench::DiscardInstances;
using qrvbench::DiscardObjects;
using qrvbench::DiscardPaths;

namespace {

/// Hosts with two initiators of either transport and a hundred VLUNs each, on any port and on each
/// of theirs by turns: eight rights a host.
void generate(std::int64_t vluns) {
    qrvapi::control::ArraySize size;
    size.hosts = static_cast<std::size_t>(vluns) / 100;
    size.fcPathsPerHost = 2;
    size.iscsiPathsPerHost = 2;
    size.vlunsPerHost = 100;
    qrvapi::control::reset();
    qrvapi::control::generateArray(size);
}

/// Gives back what memory is free and lets the process's peak begin anew. Whether that was allowed.
bool forgetPeak() {
    malloc_trim(0);
    std::ofstream peak("/proc/self/clear_refs");
    peak << 5 << std::flush;
    return peak.good();
}

double peakMegabytes() {
    std::ifstream status("/proc/self/status");
    std::string word;
    double kilobytes = 0;
    while (status >> word && word != "VmHWM:") {
    }
    status >> kilobytes;
    return kilobytes / 1024;
}

using Run = std::function<std::int64_t(qrvtest::ModuleProvider&)>;

/// Counts the records of a walk, or else the questions. The time leaves out the first, for which
/// the array lists its hosts; the memory has that list in it.
void measure(benchmark::State& state, const char* provider, bool walks, const Run& run) {
    generate(state.range(0));
    qrvtest::TestServer server;
    qrvtest::ModuleProvider module(provider, server.broker());
    if (!forgetPeak()) return state.SkipWithError("the peak of memory can't be reset");
    const double idle = peakMegabytes();
    std::int64_t delivered = run(module);
    if (delivered == 0) return state.SkipWithError("nothing is delivered");
    for (auto _ : state) delivered = run(module);
    state.SetItemsProcessed(state.iterations() * (walks ? state.range(0) : 1));
    state.counters["delivered"] = static_cast<double>(delivered);
    state.counters["peakMB"] = peakMegabytes() - idle;
}

constexpr const char* PRIVILEGES = "QRV_AuthorizedPrivilegeProvider";
constexpr const char* ASSOCIATED = "QRV_SPCAssociatedPrivilegeProvider";
constexpr const char* OF_HARDWARE_ID = "QRV_PrivilegeForStorageHardwareIDProvider";

Run enumerating(const char* className) {
    return [className](qrvtest::ModuleProvider& module) {
        DiscardInstances handler;
        module.instances().enumerateInstances(qrvtest::requestOf("admin"), CIMObjectPath(className),
                                              false, false, {}, handler);
        return handler.delivered;
    };
}

Run naming(const char* className) {
    return [className](qrvtest::ModuleProvider& module) {
        DiscardPaths handler;
        module.instances().enumerateInstanceNames(qrvtest::requestOf("admin"),
                                                  CIMObjectPath(className), handler);
        return handler.delivered;
    };
}

Run getting(const char* path) {
    return [path](qrvtest::ModuleProvider& module) {
        DiscardInstances handler;
        module.instances().getInstance(qrvtest::requestOf("admin"), CIMObjectPath(path), false,
                                       false, {}, handler);
        return handler.delivered;
    };
}

Run asking(const char* source) {
    return [source](qrvtest::ModuleProvider& module) {
        DiscardObjects handler;
        module.associations().associators(qrvtest::requestOf("admin"), CIMObjectPath(source),
                                          CIMName(), CIMName(), String(), String(), false, false,
                                          {}, handler);
        return handler.delivered;
    };
}

constexpr const char* ONE_PRIVILEGE =
    "root/qrv:QRV_AuthorizedPrivilege.InstanceID=\"ORVELIS:FC-1000000000000001::HS:0\"";
constexpr const char* ONE_HARDWARE_ID =
    "root/qrv:QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000000001\"";

#define VLUN_BENCHMARK(name, provider, walks, run)         \
    BENCHMARK_CAPTURE(measure, name, provider, walks, run) \
        ->Arg(10000)                                       \
        ->Arg(100000)                                      \
        ->Arg(1000000)                                     \
        ->Unit(benchmark::kMillisecond)
VLUN_BENCHMARK(privileges, PRIVILEGES, true, enumerating("root/qrv:QRV_AuthorizedPrivilege"));
VLUN_BENCHMARK(privilegeNames, PRIVILEGES, true, naming("root/qrv:QRV_AuthorizedPrivilege"));
VLUN_BENCHMARK(associatedPrivileges, ASSOCIATED, true,
               enumerating("root/qrv:QRV_SPCAssociatedPrivilege"));
VLUN_BENCHMARK(getPrivilege, PRIVILEGES, false, getting(ONE_PRIVILEGE));
VLUN_BENCHMARK(controllersOfHardwareID, ASSOCIATED, false, asking(ONE_HARDWARE_ID));
VLUN_BENCHMARK(privilegesOfHardwareID, OF_HARDWARE_ID, false, asking(ONE_HARDWARE_ID));

}  // namespace

BENCHMARK_MAIN();
