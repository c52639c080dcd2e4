// Names for hosts that the system makes up itself.
#pragma once

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The part of the controller configuration service that other provider libraries call.
class PEGASUS_EXPORT QRV_ControllerConfigurationServiceProvider {
  public:
    QRV_ControllerConfigurationServiceProvider() = delete;

    /// A name for a new host with this initiator, a WWN or an iSCSI name: one that the array takes
    /// and has no host of. The same initiator gives the same name as long as no host has it. May be
    /// called on any thread, not under the access semaphore.
    static String generateHostName(String& storageID, Boolean isFC);
};

}  // namespace Pegasus
