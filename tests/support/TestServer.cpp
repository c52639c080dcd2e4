#include "TestServer.h"

#include "mof/MofReader.h"

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/InternalException.h>
#include <dlfcn.h>

#include <stdexcept>

using namespace Pegasus;

namespace qrvtest {

namespace {

cimserver::Broker::Settings settings() {
    cimserver::Broker::Settings settings;
    settings.hostName = "server.example";
    settings.libraryDirectory = QRV_TEST_LIBRARIES;
    return settings;
}

using Entry = CIMProvider* (*)(const String&);

Entry entryOf(const std::string& library) {
    void* const module = dlopen((QRV_TEST_LIBRARIES "/" + library).c_str(), RTLD_NOW);
    if (module == nullptr) throw std::runtime_error(dlerror());
    return reinterpret_cast<Entry>(dlsym(module, "PegasusCreateProvider"));
}

CIMProvider* createFromAny(const String& name) {
    for (const char* sibling : {"libQRV_StorageVolumeProvider.so.1",
                                "libQRV_SCSIControllerProvider.so.1", "libQRV_iSCSIProvider.so.1"})
        if (CIMProvider* const provider = entryOf(sibling)(name)) return provider;
    throw std::invalid_argument("no library has such a provider");
}

std::string outcomeText(int code, const String& message) {
    return std::to_string(code) + " " + static_cast<const char*>(message.getCString());
}

}  // namespace

TestServer::TestServer() {
    cimserver::MofReader reader(_repository);
    reader.readFile(QRV_TEST_SCHEMA "/interop.mof", CIMNamespaceName("root/PG_InterOp"));
    reader.readFile(QRV_TEST_SCHEMA "/root_qrv.mof", CIMNamespaceName("root/qrv"));
    reader.readFile(QRV_TEST_SCHEMA "/root_PG_Internal.mof", CIMNamespaceName("root/PG_Internal"));
    reader.readFile(QRV_TEST_SCHEMA "/registration.mof", CIMNamespaceName("root/PG_InterOp"));
    _broker = std::make_unique<cimserver::Broker>(_repository, settings());
}

OperationContext requestOf(const std::string& user) {
    OperationContext context;
    context.insert(IdentityContainer(String(user.c_str()), String("192.0.2.7")));
    return context;
}

CIMProvider* createFromModule(const std::string& name) {
    static const Entry entry = entryOf("libQRV_HostProvider.so.1");
    return entry(String(name.c_str()));
}

ModuleProvider::ModuleProvider(const std::string& name, cimserver::LocalServer& server)
    : _handle(&server),
      _provider(createFromModule(name), [](CIMProvider* provider) { provider->terminate(); }) {
    if (_provider == nullptr) _provider.reset(createFromAny(String(name.c_str())));
    _provider->initialize(_handle);
}

CIMInstanceProvider& ModuleProvider::instances() {
    return dynamic_cast<CIMInstanceProvider&>(*_provider);
}

CIMAssociationProvider& ModuleProvider::associations() {
    return dynamic_cast<CIMAssociationProvider&>(*_provider);
}

CIMMethodProvider& ModuleProvider::methods() {
    return dynamic_cast<CIMMethodProvider&>(*_provider);
}

std::string outcomeOf(const std::function<void()>& operation) {
    try {
        operation();
        return "";
    } catch (const CIMException& e) {
        return outcomeText(e.getCode(), e.getMessage());
    } catch (const Exception& e) {
        return outcomeText(-1, e.getMessage());
    } catch (const std::exception& e) {
        return std::string("foreign ") + e.what();
    }
}

}  // namespace qrvtest
