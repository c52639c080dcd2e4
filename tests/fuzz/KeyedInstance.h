// A small array, and the module's answer to any InstanceID.
#pragma once

#include <Pegasus/Common/Exception.h>
#include <qrvapi_control.h>

#include <cstdlib>
#include <map>
#include <string>

#include "Require.h"
#include "TestServer.h"

inline constexpr const char* ARRAY = R"({
    "system": {"name": "a", "hostName": "a.example", "ipv4Address": "192.0.2.1", "id": 1,
               "type": 3, "serial": "1", "nodes": 2},
    "users": [{"name": "admin", "password": "admin", "rights": "all"}],
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"}],
    "personas": [{"number": 1, "name": "One"}],
    "domainSets": [{"name": "coast", "id": 1, "members": []}],
    "hosts": [{"name": "alpha", "id": 0, "persona": 1,
               "paths": [{"wwn": "00000000000000A1", "ports": ["0:1:1"]}, {"iscsiName": "iqn.a"}]}],
    "volumes": [{"name": "v", "wwn": "60000000000000000000000000000001"}],
    "vluns": [{"kind": "hostSees", "host": "alpha", "volume": "v", "lun": 1},
              {"kind": "matchedSet", "host": "alpha", "port": "0:1:1", "volume": "v", "lun": 2}]
})";

struct KeyHandler : Pegasus::InstanceResponseHandler {
    void processing() override {}
    void complete() override {}
    void deliver(const Pegasus::CIMInstance& instance) override {
        found = instance.getPath().getKeyBindings()[0].getValue();
    }
    void deliver(const Pegasus::Array<Pegasus::CIMInstance>&) override { std::abort(); }

    Pegasus::String found;
};

inline qrvtest::ModuleProvider& providerOf(const std::string& name) {
    static const bool loaded = (qrvapi::control::loadScenarioText(ARRAY), true);
    static qrvtest::TestServer server;
    static std::map<std::string, qrvtest::ModuleProvider> providers;
    require(loaded);
    return providers.try_emplace(name, name, server.broker()).first->second;
}

/// The InstanceID of what a class's provider finds for a key; empty when it says that there is no
/// such instance, which is all that it may say otherwise.
inline Pegasus::String findInstance(const std::string& className, const Pegasus::String& key,
                                    const std::string& ending = "Provider") {
    using namespace Pegasus;
    CIMObjectPath path(String(("root/qrv:" + className + ".InstanceID=\"\"").c_str()));
    path.setKeyBindings(
        Array<CIMKeyBinding>(1, CIMKeyBinding(CIMName("InstanceID"), key, CIMKeyBinding::STRING)));
    KeyHandler handler;
    try {
        providerOf(className + ending)
            .instances()
            .getInstance(qrvtest::requestOf("admin"), path, false, false, {}, handler);
    } catch (const CIMException& e) {
        require(e.getCode() == CIM_ERR_NOT_FOUND);
    }
    require(qrvapi::control::outstanding().idle());
    return handler.found;
}
