// What turning objects into text and back costs: object paths, and CIM-XML.
#include <Pegasus/Common/CIMInstance.h>
#include <QRV_Common.h>
#include <benchmark/benchmark.h>

#include <string>

#include "cimxml/ObjectDecoder.h"
#include "cimxml/XmlDocument.h"
#include "model/ObjectEncoder.h"

using namespace Pegasus;

namespace {

const char* const HARDWARE_ID =
    "//array.example/root/qrv:QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\"";
const char* const ASSOCIATION =
    "//array.example/root/qrv:QRV_MemberOfStorageHardwareIDCollection."
    "Collection=\"//array.example/root/qrv:QRV_StorageHardwareIDCollection."
    "InstanceID=\\\"ORVELIS:erp-db01\\\"\","
    "Member=\"//array.example/root/qrv:QRV_StorageHardwareID."
    "InstanceID=\\\"ORVELIS:FC-1000000000A1B201\\\"\"";

void parsePath(benchmark::State& state, const char* text) {
    const String path(text);
    for (auto _ : state) benchmark::DoNotOptimize(CIMObjectPath(path));
}

void printPath(benchmark::State& state, const char* text) {
    const CIMObjectPath path((String(text)));
    for (auto _ : state) benchmark::DoNotOptimize(path.toString());
}

/// The same object as another server would name it: with another host.
void matchPath(benchmark::State& state, const char* text) {
    const CIMObjectPath path((String(text)));
    CIMObjectPath other = path;
    other.setHost("other.example");
    for (auto _ : state) benchmark::DoNotOptimize(QRV_Common::matchObjectPath(path, other));
}

CIMInstance hardwareID() {
    CIMInstance instance(CIMName("QRV_StorageHardwareID"));
    for (const char* name : {"Caption", "Description", "ElementName", "InstanceID", "StorageID"})
        instance.addProperty(
            CIMProperty(CIMName(name), CIMValue(String("ORVELIS:FC-1000000000A1B201 <on> host"))));
    instance.addProperty(CIMProperty(CIMName("IDType"), CIMValue(Uint16(2))));
    instance.addProperty(CIMProperty(CIMName("CurrentlyAuthenticated"), CIMValue(false)));
    instance.setPath(CIMObjectPath(String(HARDWARE_ID)));
    return instance;
}

void encodeInstance(benchmark::State& state) {
    const CIMInstance instance = hardwareID();
    std::string text;
    for (auto _ : state) {
        text.clear();
        cimserver::appendNamedInstance(text, instance, {});
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void decodeInstance(benchmark::State& state) {
    std::string text;
    cimserver::appendInstance(text, hardwareID(), {});
    const cimserver::XmlLimits limits;
    for (auto _ : state) {
        const cimserver::XmlDocument document(text, limits);
        benchmark::DoNotOptimize(cimserver::ObjectDecoder(limits).instance(document.root()));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK_CAPTURE(parsePath, hardwareID, HARDWARE_ID);
BENCHMARK_CAPTURE(parsePath, association, ASSOCIATION);
BENCHMARK_CAPTURE(printPath, hardwareID, HARDWARE_ID);
BENCHMARK_CAPTURE(printPath, association, ASSOCIATION);
BENCHMARK_CAPTURE(matchPath, hardwareID, HARDWARE_ID);
BENCHMARK_CAPTURE(matchPath, association, ASSOCIATION);
BENCHMARK(encodeInstance);
BENCHMARK(decodeInstance);

}  // namespace

BENCHMARK_MAIN();
