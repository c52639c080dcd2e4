// Controllers on Fibre Channel, for other provider libraries.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <qrvapi.h>

namespace Pegasus {

/// The part of the provider of QRV_SCSIController that other provider libraries call. Its functions
/// may be called on any thread and ask the array for nothing.
class PEGASUS_EXPORT QRV_SCSIControllerProvider {
  public:
    QRV_SCSIControllerProvider() = delete;

    /// The path of the controller with this DeviceID, whether or not the array has it.
    /// `systemClass` is the class of the system that it belongs to.
    static CIMObjectPath buildObjectPath(String systemClass, const String& address,
                                         const String& systemName, const String& deviceID);

    /// The controller that a VLUN makes, with its path; as `cimClass` has them, with all properties
    /// set. The record stays the caller's.
    static CIMInstance buildInstance(String systemClass, CIMClass cimClass, vlun* record,
                                     const String& systemName, const String& address);
};

}  // namespace Pegasus
