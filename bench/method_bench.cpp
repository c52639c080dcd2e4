// What the methods of the hardware ID management service cost on an array of 10,000 hosts. Each is
// measured with the one that takes its change back, so that the array stays as it is.
#include <benchmark/benchmark.h>
#include <qrvapi_control.h>

#include <functional>
#include <string>

#include "TestServer.h"

using namespace Pegasus;
using qrvtest::requestOf;

namespace {

using Parameters = Array<CIMParamValue>;

/// Takes results and forgets them.
class DiscardResult : public MethodResultResponseHandler {
  public:
    void processing() override {}
    void complete() override {}
    void deliverParamValue(const CIMParamValue&) override {}
    void deliverParamValue(const Array<CIMParamValue>&) override {}
    void deliver(const CIMValue&) override {}
};

CIMObjectPath path(const std::string& text) {
    return CIMObjectPath(String(("root/qrv:" + text).c_str()));
}

const CIMObjectPath NEW_ID =
    path("QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-2000000000000001\"");
const CIMObjectPath HOST =
    path("QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:host0000000\"");
const CIMObjectPath NEW_HOST = path("QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:new\"");

Array<String> listOf(const CIMObjectPath& member) {
    return Array<String>(1, member.toString());
}

CIMParamValue in(const char* name, const CIMValue& value) {
    return CIMParamValue(name, value);
}

/// 10,000 hosts with two initiators of either transport.
struct LargeArray {
    LargeArray() {
        qrvapi::control::reset();
        qrvapi::control::ArraySize size;
        size.hosts = 10000;
        size.fcPathsPerHost = 2;
        size.iscsiPathsPerHost = 2;
        qrvapi::control::generateArray(size);
    }
};

/// The providers over one array, which is there before they look at it.
struct Service : LargeArray {
    Service() {
        CIMOMHandle handle(&server.broker());
        servicePath =
            handle.enumerateInstanceNames(requestOf("admin"), CIMNamespaceName("root/qrv"),
                                          "QRV_StorageHardwareIDManagementService")[0];
    }

    void call(const char* method, std::initializer_list<CIMParamValue> given) {
        Parameters parameters;
        for (const CIMParamValue& each : given) parameters.append(each);
        DiscardResult handler;
        methods.methods().invokeMethod(requestOf("admin"), servicePath, CIMName(method), parameters,
                                       handler);
    }

    qrvtest::TestServer server;
    qrvtest::ModuleProvider methods{"QRV_StorageHardwareIDManagementServiceProvider",
                                    server.broker()};
    qrvtest::ModuleProvider collections{"QRV_StorageHardwareIDCollectionProvider", server.broker()};
    CIMObjectPath servicePath;
};

void measure(benchmark::State& state, const std::function<void(Service&)>& pair) {
    Service service;
    for (auto _ : state) pair(service);
}

void removeID(Service& service) {
    service.call("DeleteStorageHardwareID", {in("HardwareID", NEW_ID)});
}

void createAndDeleteHardwareID(Service& service) {
    service.call("CreateStorageHardwareID",
                 {in("ElementName", String("host0000000")), in("IDType", Uint16(2)),
                  in("StorageID", String("2000000000000001"))});
    removeID(service);
}

void addAndDeleteHardwareID(Service& service) {
    service.call("AddHardwareIDsToCollection",
                 {in("HardwareIDs", listOf(NEW_ID)), in("Collection", HOST)});
    removeID(service);
}

void createAndDeleteCollection(Service& service) {
    class : public ResponseHandler {
        void processing() override {}
        void complete() override {}
    } done;
    service.call("CreateHardwareIDCollection", {in("ElementName", String("new"))});
    service.collections.instances().deleteInstance(requestOf("admin"), NEW_HOST, done);
}

void setAndRemoveCHAP(Service& service) {
    service.call("SetISCSICHAP",
                 {in("Collection", HOST), in("InitiatorSecret", String("twelve_chars"))});
    service.call("RemoveISCSICHAP", {in("Collection", HOST)});
}

BENCHMARK_CAPTURE(measure, createAndDeleteHardwareID, createAndDeleteHardwareID)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(measure, addAndDeleteHardwareID, addAndDeleteHardwareID)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(measure, createAndDeleteCollection, createAndDeleteCollection)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(measure, setAndRemoveCHAP, setAndRemoveCHAP)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
