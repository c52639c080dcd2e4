// A server whose answers are as long, as slow and as wrong as a test of the wire wants them: the
// name of the class that is enumerated says so. T_Many_N delivers N instances, T_Fail_N delivers N
// and fails, T_Wait_N delivers one after N milliseconds. User "user", password "pass"; it listens
// at a free port.
#include "ScriptedServer.h"
#include "cimxml/Utf8.h"
#include "http/CimService.h"
#include "http/HttpServer.h"
#include "http/Tls.h"

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

using namespace Pegasus;
using namespace cimserver;

namespace {

CIMInstance makeInstance(const CIMName& className, const std::string& number) {
    const String id = toString("initiator-" + number);
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding("InstanceID", id, CIMKeyBinding::STRING));
    CIMInstance instance(className);
    instance.setPath(CIMObjectPath(String(), CIMNamespaceName(), className, keys));
    instance.addProperty(CIMProperty("InstanceID", CIMValue(id)));
    instance.addProperty(CIMProperty("ElementName", CIMValue(String("an element & its name"))));
    instance.addProperty(CIMProperty("Description", CIMValue(String("a text of some length"))));
    instance.addProperty(CIMProperty("StorageID", CIMValue(String("500000000000ABCD"))));
    instance.addProperty(CIMProperty("Caption", CIMValue(CIMTYPE_STRING, false)));
    instance.addProperty(CIMProperty("IDType", CIMValue(Uint16(2))));
    instance.addProperty(CIMProperty("Size", CIMValue(Uint64(1) << 40)));
    instance.addProperty(CIMProperty("Enabled", CIMValue(true)));
    return instance;
}

void enumerate(const CIMName& className, const Sink<CIMInstance>& sink) {
    const std::string name = toUtf8(className.getString());
    const unsigned number =
        static_cast<unsigned>(std::atoi(name.substr(name.rfind('_') + 1).c_str()));
    const bool waits = name.rfind("T_Wait_", 0) == 0;
    if (waits) std::this_thread::sleep_for(std::chrono::milliseconds(number));
    for (unsigned i = 0; i < (waits ? 1 : number); ++i)
        sink(makeInstance(className, std::to_string(i)));
    if (name.rfind("T_Fail_", 0) == 0) throw CIMException(CIM_ERR_NOT_FOUND, "late");
}

HttpSettings settings(char** arguments) {
    HttpSettings result;
    result.realm = "test";
    result.workers = 4;
    result.maxConnections = 40;
    result.maxConnectionsPerClient = 30;
    result.minBytesPerSecond = 2 << 20;
    result.requestTimeout = result.writeTimeout =
        std::chrono::milliseconds(std::atoi(arguments[1]));
    result.idleTimeout = 2 * result.requestTimeout;
    result.stopGrace = result.requestTimeout;
    return result;
}

std::shared_ptr<boost::asio::ssl::context> tls(int argc, char** argv) {
    return argc == 4 ? makeTlsContext(argv[2], argv[3]) : nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::cerr << "usage: wire_server TIMEOUT-IN-MILLISECONDS [CERTIFICATE KEY]\n";
        return 2;
    }
    test::ScriptedServer scripted;
    scripted.enumerate = enumerate;
    const CimService service(scripted, XmlLimits());
    const auto knows = [](const std::string& user, const std::string& password) {
        return user == "user" && password == "pass";
    };
    HttpServer server(service, {knows, {}}, settings(argv), tls(argc, argv));
    server.stopOnSignals();
    std::cout << server.listen("127.0.0.1", 0).front() << std::endl;
    if (server.run()) return 0;
    std::_Exit(1);  // an operation hangs, and with it its thread
}
