// Any bytes as the key of a privilege: a pair that makes it again, and an answer from the provider
// that is a privilege of this initiator or none.
#include <Pegasus/Common/Exception.h>
#include <qrvapi_control.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "../../src/Providers/QRV/Host/QRV_AuthorizedPrivilegeProvider.h"
#include "TestServer.h"

using namespace Pegasus;

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

constexpr const char* ARRAY = R"({
    "system": {"name": "a", "hostName": "a.example", "ipv4Address": "192.0.2.1", "id": 1,
               "type": 3, "serial": "1", "nodes": 2},
    "users": [{"name": "admin", "password": "admin", "rights": "all"}],
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"}],
    "personas": [{"number": 1, "name": "One"}],
    "hosts": [{"name": "alpha", "id": 0, "persona": 1,
               "paths": [{"wwn": "00000000000000A1", "ports": ["0:1:1"]}, {"iscsiName": "iqn.a"}]}],
    "volumes": [{"name": "v", "wwn": "60000000000000000000000000000001"}],
    "vluns": [{"kind": "hostSees", "host": "alpha", "volume": "v", "lun": 1},
              {"kind": "matchedSet", "host": "alpha", "port": "0:1:1", "volume": "v", "lun": 2}]
})";

struct Handler : InstanceResponseHandler {
    void processing() override {}
    void complete() override {}
    void deliver(const CIMInstance& instance) override {
        found = instance.getPath().getKeyBindings()[0].getValue();
    }
    void deliver(const Array<CIMInstance>&) override { std::abort(); }

    String found;
};

/// The InstanceID of the privilege that a key gives; empty for none.
String find(const String& key) {
    static const bool loaded = (qrvapi::control::loadScenarioText(ARRAY), true);
    static qrvtest::TestServer server;
    static qrvtest::ModuleProvider provider("QRV_AuthorizedPrivilegeProvider", server.broker());
    require(loaded);
    CIMObjectPath path("root/qrv:QRV_AuthorizedPrivilege.InstanceID=\"\"");
    path.setKeyBindings(
        Array<CIMKeyBinding>(1, CIMKeyBinding(CIMName("InstanceID"), key, CIMKeyBinding::STRING)));
    Handler handler;
    try {
        provider.instances().getInstance(qrvtest::requestOf("admin"), path, false, false, {},
                                         handler);
    } catch (const CIMException& e) {
        require(e.getCode() == CIM_ERR_NOT_FOUND);
    }
    return handler.found;
}

void check(String key) {
    const String mark("ORVELIS:"), separator("::");
    String hwidInstID, spcDeviceID;
    QRV_AuthorizedPrivilegeProvider::deReferenceInstanceID(key, hwidInstID, spcDeviceID);
    String hardwareID = mark + hwidInstID;
    if (hwidInstID.size() > 0 && spcDeviceID.size() > 0)
        require(QRV_AuthorizedPrivilegeProvider::buildInstanceID(spcDeviceID, hardwareID) ==
                key.subString(key.find(mark)));
    const String found = find(key);
    const bool isPrivilege = key == "ORVELIS:FC-00000000000000A1::HS:0" ||
                             key == "ORVELIS:iSCSI-iqn.a::HS:0" ||
                             key == "ORVELIS:FC-00000000000000A1::MS:0:1:1:0";
    require(!isPrivilege || found == key);
    require(found.size() == 0 || found.find(hardwareID + separator) == 0);
    require(qrvapi::control::outstanding().idle());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    String key;
    try {
        key = String(static_cast<const char*>(static_cast<const void*>(data)), Uint32(size));
    } catch (const Exception&) {
        return 0;  // no UTF-8
    }
    check(key);
    return 0;
}
