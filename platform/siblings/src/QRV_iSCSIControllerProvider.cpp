#include "QRV_iSCSIControllerProvider.h"

#include <QRV_Common.h>

namespace Pegasus {

CIMObjectPath QRV_iSCSIControllerProvider::buildObjectPath(String systemClass,
                                                           const String& address,
                                                           const String& deviceID,
                                                           const String& systemName) {
    static const CIMName className("QRV_iSCSIController");
    return QRV_Common::buildSPCObjectPath(systemClass, address, systemName, deviceID, className);
}

CIMInstance QRV_iSCSIControllerProvider::buildInstance(String systemClass, CIMClass cimClass,
                                                       vlun* record, const String& systemName,
                                                       const String& address) {
    return QRV_Common::buildSPCInstance(systemClass, cimClass, record, systemName, address);
}

}  // namespace Pegasus
