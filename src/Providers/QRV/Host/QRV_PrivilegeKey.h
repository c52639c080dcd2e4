// What the classes of privileges have in common: a key for the pair of initiator and controller,
// and what every privilege grants.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The InstanceID of a hardware ID, "::" and the DeviceID of a controller; empty when either is.
String joinPrivilegeKey(const String& hwidInstID, const String& spcDeviceID);

/// The way back, but `hwidInstID` comes without its vendor mark. A text without vendor mark or
/// without "::" sets neither.
void splitPrivilegeKey(const String& key, String& hwidInstID, String& spcDeviceID);

/// Sets what is granted, which is the same for every initiator that an array lets through.
void grantReadAndWrite(CIMInstance& privilege);

/// The host that an initiator belongs to, by the path of its hardware ID. Empty when it belongs to
/// none or the array doesn't tell.
String hostOfInitiator(const CIMObjectPath& hardwareID);

}  // namespace Pegasus
