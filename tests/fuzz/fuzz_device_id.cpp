// Any bytes as a controller's DeviceID: they tell a host and a port of the array, or none.
#include <Pegasus/Common/Exception.h>
#include <QRV_Common.h>
#include <qrvapi_control.h>

#include <cstddef>
#include <cstdint>

#include "Require.h"

using namespace Pegasus;

namespace {

constexpr const char* ARRAY = R"({
    "system": {"name": "a", "hostName": "a.example", "ipv4Address": "192.0.2.1", "id": 1,
               "type": 3, "serial": "1", "nodes": 2},
    "ports": [{"id": "0:2:1", "type": "iscsi"}],
    "personas": [{"number": 1, "name": "One"}],
    "hosts": [{"name": "alpha", "id": 0, "persona": 1}, {"name": "beta", "id": 10, "persona": 1}]
})";

/// Whether a port is what stands at the head of a text, up to a colon or the end.
bool leads(const String& text, lpid_t port) {
    for (Uint32 end = 0; end <= text.size(); ++end) {
        lpid_t found = QRV_NO_PORT;
        if (end == text.size() || text[end] == ':')
            api_convertStrLPIDtoPortID(text.subString(0, end).getCString(), &found);
        if (found == port) return true;
    }
    return false;
}

void tell(String deviceID) {
    constexpr Uint32 KEPT = 99;
    Uint32 kind = KEPT;
    String host = "before";
    lpid_t port = 7;
    QRV_Common::deReferenceSPCDeviceID(deviceID, kind, host, port, false);
    const bool hasPort = kind == API_VLUN_MATCHED_SET || kind == API_VLUN_PORT_PRESENTS;
    require((kind == KEPT) == (deviceID.find(':') == PEG_NOT_FOUND));
    require(kind == KEPT || kind <= API_VLUN_PORT_PRESENTS);
    require(port == QRV_NO_PORT || (hasPort && leads(deviceID.subString(3), port)));
    require(host.size() == 0 || host == "alpha" || host == "beta");
    require(host.size() == 0 ||
            (kind != 0 && kind < API_VLUN_PORT_PRESENTS && hasPort == (port != QRV_NO_PORT)));

    QRV_Common::deReferenceSPCDeviceID(deviceID, kind, host, port, true);
    require(kind == API_VLUN_PORT_PRESENTS && host.size() == 0);
    require((port != QRV_NO_PORT) == (deviceID == "0:2:1"));
    require(qrvapi::control::outstanding().idle());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool loaded = (qrvapi::control::loadScenarioText(ARRAY), true);
    require(loaded);
    String deviceID;
    try {
        deviceID = String(static_cast<const char*>(static_cast<const void*>(data)), Uint32(size));
    } catch (const Exception&) {
        return 0;  // no UTF-8
    }
    tell(deviceID);
    return 0;
}
