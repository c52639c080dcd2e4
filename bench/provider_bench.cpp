// What every operation of every provider costs, without a wire, at three sizes of the array.
//
// A size is a number of initiators, four to a host, with as many VLUNs. "bare" is the lower bound
// of an enumeration: it makes hardware IDs from ready strings, with no array, no table of seen keys
// and no text to build.
#include <QRV_Common.h>
#include <benchmark/benchmark.h>
#include <qrvapi_control.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>

#include "Discard.h"
#include "TestServer.h"

using namespace Pegasus;
using namespace qrvbench;
using qrvtest::requestOf;

namespace {

struct Served {
    const char* provider;
    const char* className;
};

constexpr Served CLASSES[] = {
    {"QRV_StorageHardwareIDProvider", "QRV_StorageHardwareID"},
    {"QRV_StorageHardwareIDCollectionProvider", "QRV_StorageHardwareIDCollection"},
    {"QRV_StorageHardwareIDManagementServiceProvider", "QRV_StorageHardwareIDManagementService"},
    {"QRV_AuthorizedPrivilegeProvider", "QRV_AuthorizedPrivilege"},
    {"QRV_PrivilegeMgmtServiceProvider", "QRV_PrivilegeManagementService"},
    {"QRV_StorageClientSettingDataProvider", "QRV_StorageClientSettingData"},
};

struct Association {
    Served served;
    const char* ends[2];
    const char* inPath[2] = {"", ""};  ///< of the objects that are asked about
};

constexpr Association ASSOCIATIONS[] = {
    {{"QRV_MemberOfStorageHardwareIDCollectionProvider", "QRV_MemberOfStorageHardwareIDCollection"},
     {"QRV_StorageHardwareIDCollection", "QRV_StorageHardwareID"}},
    {{"QRV_HostedStorageHardwareIDCollectionProvider", "QRV_HostedStorageHardwareIDCollection"},
     {"QRV_StorageSystem", "QRV_StorageHardwareIDCollection"}},
    {{"QRV_MgmtServicesForStorageHWIDCollectionProvider",
      "QRV_MgmtServicesForStorageHWIDCollection"},
     {"QRV_StorageHardwareIDManagementService", "QRV_StorageHardwareID"}},
    {{"QRV_PrivilegeForStorageHardwareIDProvider", "QRV_PrivilegeForStorageHardwareID"},
     {"QRV_AuthorizedPrivilege", "QRV_StorageHardwareID"}},
    {{"QRV_PrivilegeForStorageHardwareIDCollectionProvider",
      "QRV_PrivilegeForStorageHardwareIDCollection"},
     {"QRV_AuthorizedPrivilege", "QRV_StorageHardwareIDCollection"}},
    {{"QRV_PrivilegeForSCSIControllerProvider", "QRV_PrivilegeForSCSIController"},
     {"QRV_AuthorizedPrivilege", "QRV_SCSIController"}},
    {{"QRV_PrivilegeForiSCSIControllerProvider", "QRV_PrivilegeForiSCSIController"},
     {"QRV_AuthorizedPrivilege", "QRV_iSCSIController"},
     {"MS:0:2:", ""}},
    {{"QRV_SPCAssociatedPrivilegeProvider", "QRV_SPCAssociatedPrivilege"},
     {"QRV_StorageHardwareID", "QRV_SCSIController"}},
    {{"QRV_iSPCAssociatedPrivilegeProvider", "QRV_iSPCAssociatedPrivilege"},
     {"QRV_StorageHardwareID", "QRV_iSCSIController"},
     {"iSCSI", ""}},
    {{"QRV_MgmtServiceForAuthorizedPrivilege", "QRV_ManagementServiceForAuthorizedPrivilege"},
     {"QRV_PrivilegeManagementService", "QRV_AuthorizedPrivilege"}},
    {{"QRV_HardwareIDElementSettingDataProvider", "QRV_HardwareIDElementSettingData"},
     {"QRV_StorageHardwareID", "QRV_StorageClientSettingData"}},
    {{"QRV_HWIDCollectionElementSettingDataProvider", "QRV_HWIDCollectionElementSettingData"},
     {"QRV_StorageHardwareIDCollection", "QRV_StorageClientSettingData"}},
    {{"QRV_SystemClientSettingDataProvider", "QRV_SystemClientSettingData"},
     {"QRV_StorageSystem", "QRV_StorageClientSettingData"}},
};

/// An array of one size, under a server of its own. One stands at a time.
class Scene {
  public:
    static Scene& ofSize(std::int64_t initiators) {
        static std::unique_ptr<Scene> scene;
        static std::int64_t size = -1;
        if (size != initiators) {
            scene.reset();
            scene.reset(new Scene(initiators));
            size = initiators;
        }
        return *scene;
    }

    qrvtest::ModuleProvider& provider(const char* name) {
        auto& provider = _providers[name];
        if (!provider)
            provider = std::make_unique<qrvtest::ModuleProvider>(name, _server->broker());
        return *provider;
    }

    /// The first object of a class with this in its path, or an empty path.
    CIMObjectPath firstOf(const std::string& className, const char* inPath = "") {
        const auto known = _firsts.find(className + inPath);
        if (known != _firsts.end()) return known->second;
        const Array<CIMObjectPath> paths =
            _handle.enumerateInstanceNames(requestOf("admin"), QRV, CIMName(className.c_str()));
        Uint32 i = 0;
        while (i < paths.size() && !std::strstr(paths[i].toString().getCString(), inPath)) ++i;
        return _firsts[className + inPath] = i < paths.size() ? paths[i] : CIMObjectPath();
    }

    CIMOMHandle& handle() { return _handle; }

    const CIMNamespaceName QRV{"root/qrv"};

  private:
    explicit Scene(std::int64_t initiators) {
        qrvapi::control::reset();
        qrvapi::control::ArraySize size;
        size.hosts = static_cast<std::size_t>(initiators) / 4;
        size.fcPathsPerHost = 2;
        size.iscsiPathsPerHost = 2;
        size.vlunsPerHost = 4;
        qrvapi::control::generateArray(size);
        _server = std::make_unique<qrvtest::TestServer>();
        _handle = CIMOMHandle(&_server->broker());
    }

    std::unique_ptr<qrvtest::TestServer> _server;
    CIMOMHandle _handle;
    std::map<std::string, std::unique_ptr<qrvtest::ModuleProvider>> _providers;
    std::map<std::string, CIMObjectPath> _firsts;
};

/// Runs `ask` and tells the time for each object that it delivers. The first question isn't
/// measured: for that the array lists its hosts and the server loads what it needs.
template <class Handler, class Ask>
void measure(benchmark::State& state, Ask ask) {
    Handler handler;
    ask(handler);
    if (handler.delivered == 0) return state.SkipWithError("nothing is delivered");
    handler.delivered = 0;
    for (auto _ : state) ask(handler);
    const auto questions = static_cast<double>(state.iterations());
    state.counters["delivered"] = static_cast<double>(handler.delivered) / questions;
    state.counters["each"] =
        benchmark::Counter(static_cast<double>(handler.delivered),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void enumerate(benchmark::State& state, Served served, bool names) {
    CIMInstanceProvider& provider =
        Scene::ofSize(state.range(0)).provider(served.provider).instances();
    const CIMObjectPath path(String("root/qrv:") + served.className);
    if (names)
        measure<DiscardPaths>(state, [&](auto& handler) {
            provider.enumerateInstanceNames(requestOf("admin"), path, handler);
        });
    else
        measure<DiscardInstances>(state, [&](auto& handler) {
            provider.enumerateInstances(requestOf("admin"), path, false, false, {}, handler);
        });
}

void getInstance(benchmark::State& state, Served served) {
    Scene& scene = Scene::ofSize(state.range(0));
    CIMInstanceProvider& provider = scene.provider(served.provider).instances();
    const CIMObjectPath path = scene.firstOf(served.className);
    measure<DiscardInstances>(state, [&](auto& handler) {
        provider.getInstance(requestOf("admin"), path, false, false, {}, handler);
    });
}

void associators(benchmark::State& state, Association association, int from) {
    Scene& scene = Scene::ofSize(state.range(0));
    CIMAssociationProvider& provider = scene.provider(association.served.provider).associations();
    const CIMObjectPath source = scene.firstOf(association.ends[from], association.inPath[from]);
    measure<DiscardObjects>(state, [&](auto& handler) {
        provider.associators(requestOf("admin"), source, CIMName(), CIMName(), String(), String(),
                             false, false, {}, handler);
    });
}

void referenceNames(benchmark::State& state, Association association, int from) {
    Scene& scene = Scene::ofSize(state.range(0));
    CIMAssociationProvider& provider = scene.provider(association.served.provider).associations();
    const CIMObjectPath source = scene.firstOf(association.ends[from], association.inPath[from]);
    measure<DiscardPaths>(state, [&](auto& handler) {
        provider.referenceNames(requestOf("admin"), source, CIMName(), String(), handler);
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
    Scene& scene = Scene::ofSize(state.range(0));
    CIMClass cimClass = QRV_Common::getStoredCIMClass(scene.handle(), OperationContext(), scene.QRV,
                                                      CIMName("QRV_StorageHardwareID"), false,
                                                      false, false, CIMPropertyList());
    measure<DiscardInstances>(state, [&](auto& handler) {
        for (std::int64_t i = 0; i < state.range(0); ++i) handler.deliver(makeReady(cimClass));
    });
}

/// One size after the other, so that each array is made once.
void registerSize(std::int64_t size) {
    const auto add = [&](const std::string& name, auto run) {
        benchmark::RegisterBenchmark(name.c_str(), run)->Arg(size)->Unit(benchmark::kMillisecond);
    };
    const auto addClass = [&](Served served) {
        const std::string name = served.className;
        add(name + "/enumerateInstances", [=](auto& state) { enumerate(state, served, false); });
        add(name + "/enumerateInstanceNames", [=](auto& state) { enumerate(state, served, true); });
        add(name + "/getInstance", [=](auto& state) { getInstance(state, served); });
    };
    add("bare", bare);
    for (const Served& served : CLASSES) addClass(served);
    for (const Association& association : ASSOCIATIONS) {
        addClass(association.served);
        for (const int from : {0, 1}) {
            const std::string name =
                std::string(association.served.className) + "/" + association.ends[from];
            add(name + "/associators", [=](auto& state) { associators(state, association, from); });
            add(name + "/referenceNames",
                [=](auto& state) { referenceNames(state, association, from); });
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    for (const std::int64_t size : {1000, 10000, 100000}) registerSize(size);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
