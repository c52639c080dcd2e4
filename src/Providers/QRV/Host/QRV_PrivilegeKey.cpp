#include "QRV_PrivilegeKey.h"

#include "../QRV_ArrayGate.h"
#include "../QRV_ArrayRecords.h"
#include "../QRV_Common.h"
#include "../QRV_Text.h"
#include "QRV_StorageHardwareIDProvider.h"

namespace Pegasus {

namespace {

const String SEPARATOR("::");
const CIMName PRIVILEGE_GRANTED("PrivilegeGranted");
const CIMName ACTIVITIES("Activities");

enum Activity : Uint16 { READ = 5, WRITE = 6 };

Array<Uint16> readAndWrite() {
    Array<Uint16> activities;
    activities.append(READ);
    activities.append(WRITE);
    return activities;
}

}  // namespace

String joinPrivilegeKey(const String& hwidInstID, const String& spcDeviceID) {
    if (hwidInstID.size() == 0 || spcDeviceID.size() == 0) return String();
    String key;
    key.reserveCapacity(hwidInstID.size() + SEPARATOR.size() + spcDeviceID.size());
    key.append(hwidInstID);
    key.append(SEPARATOR);
    key.append(spcDeviceID);
    return key;
}

void splitPrivilegeKey(const String& key, String& hwidInstID, String& spcDeviceID) {
    const String pair = QRV_Common::extractFromInstanceID(key);
    const Uint32 end = pair.find(SEPARATOR);
    if (end == PEG_NOT_FOUND) return;
    hwidInstID = pair.subString(0, end);
    spcDeviceID = pair.subString(end + SEPARATOR.size());
}

void grantReadAndWrite(CIMInstance& privilege) {
    static const Array<Uint16> activities = readAndWrite();
    QRV_Common::setPropertyValue(privilege, PRIVILEGE_GRANTED, Boolean(true));
    QRV_Common::setPropertyValue(privilege, ACTIVITIES, activities);
}

String hostOfInitiator(const CIMObjectPath& hardwareID) {
    const String name = QRV_StorageHardwareIDProvider::extractHostWWNOrISCSIName(hardwareID);
    const bool fc = QRV_StorageHardwareIDProvider::isFCStorageHardwareID(hardwareID);
    qrv_u64 wwn = QRV_NO_WWN;
    char iscsiName[225] = "";
    if (fc)
        readWwn(name, wwn);
    else
        copyText(iscsiName, name.getCString());
    HostList hosts;
    const ArrayAnswer answer = callArrayForStatus(
        [&] { return api_getHosts(nullptr, wwn, iscsiName, hosts.receive(), 1, 0); });
    if (answer.failed() || hosts->count == 0 || hosts->hosts[0].id == QRV_NO_HOST) return String();
    return arrayText(hosts->hosts[0].name);
}

}  // namespace Pegasus
