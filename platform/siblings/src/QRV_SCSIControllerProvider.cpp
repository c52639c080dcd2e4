#include "QRV_SCSIControllerProvider.h"

#include <QRV_Common.h>

namespace Pegasus {

CIMObjectPath QRV_SCSIControllerProvider::buildObjectPath(String systemClass, const String& address,
                                                          const String& systemName,
                                                          const String& deviceID) {
    static const CIMName className("QRV_SCSIController");
    return QRV_Common::buildSPCObjectPath(systemClass, address, systemName, deviceID, className);
}

CIMInstance QRV_SCSIControllerProvider::buildInstance(String systemClass, CIMClass cimClass,
                                                      vlun* record, const String& systemName,
                                                      const String& address) {
    return QRV_Common::buildSPCInstance(systemClass, cimClass, record, systemName, address);
}

}  // namespace Pegasus
