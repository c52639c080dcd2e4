// The CIM classes that instances are built from.
#pragma once

#include "QRV_Common.h"
#include "QRV_OperationFrame.h"

namespace Pegasus {

/// What a client wants to see of each instance. By default nothing but its path counts.
struct InstanceShape {
    Boolean includeQualifiers = false;
    Boolean includeClassOrigin = false;
    CIMPropertyList propertyList = CIMPropertyList(Array<CIMName>());
};

/// A class of the module's namespace, limited to what the client wants to see of its instances.
inline CIMClass storedClass(CIMOMHandle& cimom, const CIMName& className,
                            const InstanceShape& shape) {
    return QRV_Common::getStoredCIMClass(cimom, OperationContext(), QRV_NAMESPACE, className, false,
                                         shape.includeQualifiers, shape.includeClassOrigin,
                                         shape.propertyList);
}

}  // namespace Pegasus
