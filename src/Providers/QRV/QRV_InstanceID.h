// InstanceIDs: the vendor's mark in front, and paths that have one as their key.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

#include "QRV_OperationFrame.h"

namespace Pegasus {

/// What InstanceIDs begin with.
constexpr const char* VENDOR_MARK = "ORVELIS:";

/// The InstanceID of what has this name.
inline String markedID(const String& name) {
    return String(VENDOR_MARK) + name;
}

/// What follows the first colon, or all of a text without one. The vendor's mark in front isn't
/// looked at.
inline String textBehindColon(const String& instanceID) {
    const Uint32 colon = instanceID.find(':');
    return colon == PEG_NOT_FOUND ? instanceID : instanceID.subString(colon + 1);
}

/// The path of the instance of a class with this InstanceID.
inline CIMObjectPath pathByInstanceID(const String& host, const CIMName& className,
                                      const String& instanceID) {
    static const CIMName INSTANCE_ID("InstanceID");
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(INSTANCE_ID, instanceID, CIMKeyBinding::STRING));
    return CIMObjectPath(host, QRV_NAMESPACE, className, keys);
}

}  // namespace Pegasus
