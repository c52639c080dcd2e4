// What an enumeration costs for each instance, without a wire, at three sizes of the array.
//
// "bare" is the lower bound: a provider that makes the same instances from ready strings, with no
// array, no key table and no text to build.
#include <QRV_Common.h>
#include <benchmark/benchmark.h>
#include <qrvapi_control.h>

#include <functional>

#include "Discard.h"
#include "TestServer.h"

using namespace Pegasus;
using qrvbench::DiscardInstances;
using qrvbench::DiscardPaths;

namespace {

constexpr int PATHS_PER_HOST = 4;

void generate(std::int64_t paths) {
    qrvapi::control::reset();
    qrvapi::control::ArraySize size;
    size.hosts = static_cast<std::size_t>(paths) / PATHS_PER_HOST;
    size.fcPathsPerHost = PATHS_PER_HOST / 2;
    size.iscsiPathsPerHost = PATHS_PER_HOST / 2;
    qrvapi::control::generateArray(size);
}

const CIMObjectPath HARDWARE_IDS("root/qrv:QRV_StorageHardwareID");

template <class Handler>
void measure(benchmark::State& state,
             const std::function<void(CIMInstanceProvider&, Handler&)>& run) {
    generate(state.range(0));
    qrvtest::TestServer server;
    qrvtest::ModuleProvider provider("QRV_StorageHardwareIDProvider", server.broker());
    Handler handler;
    for (auto _ : state) run(provider.instances(), handler);
    state.SetItemsProcessed(handler.delivered);
}

void enumerateInstances(benchmark::State& state) {
    measure<DiscardInstances>(state, [](CIMInstanceProvider& provider, DiscardInstances& handler) {
        provider.enumerateInstances(qrvtest::requestOf("admin"), HARDWARE_IDS, false, false,
                                    CIMPropertyList(), handler);
    });
}

void enumerateInstanceNames(benchmark::State& state) {
    measure<DiscardPaths>(state, [](CIMInstanceProvider& provider, DiscardPaths& handler) {
        provider.enumerateInstanceNames(qrvtest::requestOf("admin"), HARDWARE_IDS, handler);
    });
}

void getInstance(benchmark::State& state) {
    const CIMObjectPath path(
        "root/qrv:QRV_StorageHardwareID.InstanceID=\"ORVELIS:iSCSI-no.such.initiator\"");
    measure<DiscardInstances>(state, [&](CIMInstanceProvider& provider, DiscardInstances& handler) {
        qrvtest::outcomeOf([&] {
            provider.getInstance(qrvtest::requestOf("admin"), path, false, false, CIMPropertyList(),
                                 handler);
        });
        ++handler.delivered;
    });
}

CIMInstance makeReady(CIMClass& cimClass) {
    static const String text(
        "FC StorageHardwareID 2000000000000001 on StorageHardwareIDCollection x");
    static const CIMName names[] = {"ElementName", "Description", "InstanceID", "StorageID"};
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(cimClass);
    for (const CIMName& name : names) QRV_Common::setPropertyValue(instance, name, text);
    QRV_Common::setPropertyValue(instance, CIMName("IDType"), Uint16(2));
    QRV_Common::setPropertyValue(instance, CIMName("CurrentlyAuthenticated"), Boolean(false));
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("InstanceID"), text, CIMKeyBinding::STRING));
    instance.setPath(CIMObjectPath("array7.example", CIMNamespaceName("root/qrv"),
                                   cimClass.getClassName(), keys));
    return instance;
}

void bare(benchmark::State& state) {
    generate(0);
    qrvtest::TestServer server;
    CIMOMHandle handle(&server.broker());
    CIMClass cimClass = QRV_Common::getStoredCIMClass(
        handle, OperationContext(), CIMNamespaceName("root/qrv"), CIMName("QRV_StorageHardwareID"),
        false, false, false, CIMPropertyList());
    DiscardInstances handler;
    for (auto _ : state)
        for (std::int64_t i = 0; i < state.range(0); ++i) handler.deliver(makeReady(cimClass));
    state.SetItemsProcessed(handler.delivered);
}

#define SIZES Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)
BENCHMARK(bare)->SIZES;
BENCHMARK(enumerateInstances)->SIZES;
BENCHMARK(enumerateInstanceNames)->SIZES;
BENCHMARK(getInstance)->SIZES;

}  // namespace

BENCHMARK_MAIN();
