// The protocol controllers of each transport, as the libraries that show them build them.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <qrvapi.h>

namespace Pegasus {

/// What tells the controllers of one transport, and the rights on them, from those of the other.
struct Controllers {
    const char* controllerClass;
    const char* privilegeClass;            ///< links privileges to these controllers
    const char* associatedPrivilegeClass;  ///< links hardware IDs to these controllers
    port_type_t portType;                  ///< of the VLUNs behind them
    const char* hardwareIDMark;            ///< stands in the InstanceID of their initiators
    CIMObjectPath (*buildPath)(const String& systemAddress, const String& systemName,
                               const String& deviceID);
    CIMInstance (*buildInstance)(const CIMClass& controllerClass, api_vlun_t& vlun,
                                 const String& systemName, const String& systemAddress);
};

extern const Controllers FC_CONTROLLERS;
extern const Controllers ISCSI_CONTROLLERS;

/// Those whose class, in one role or the other, this is; null when there are none.
const Controllers* controllersOf(const char* const Controllers::*role, const CIMName& className);

}  // namespace Pegasus
