// Any bytes as the key of a privilege: a pair that makes it again, and an answer from the provider
// that is a privilege of this initiator or none.
#include <Pegasus/Common/Exception.h>
#include <qrvapi_control.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "../../src/Providers/QRV/Host/QRV_AuthorizedPrivilegeProvider.h"
#include "KeyedInstance.h"

using namespace Pegasus;

namespace {

void check(String key) {
    const String mark("ORVELIS:"), separator("::");
    String hwidInstID, spcDeviceID;
    QRV_AuthorizedPrivilegeProvider::deReferenceInstanceID(key, hwidInstID, spcDeviceID);
    String hardwareID = mark + hwidInstID;
    if (hwidInstID.size() > 0 && spcDeviceID.size() > 0)
        require(QRV_AuthorizedPrivilegeProvider::buildInstanceID(spcDeviceID, hardwareID) ==
                key.subString(key.find(mark)));
    const String found = findInstance("QRV_AuthorizedPrivilege", key);
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
