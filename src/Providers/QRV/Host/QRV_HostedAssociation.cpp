#include "QRV_HostedAssociation.h"

namespace Pegasus {

Array<CIMInstance> HostedAssociation::associations(const CIMObjectPath& objectName,
                                                   const OperationContext& context,
                                                   const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, _associationClass, shape);
    if (objectName.getClassName().isNull()) return allAssociations(cimClass, context);

    const bool fromSystem = objectName.getClassName().equal(_systemClass);
    const bool fromElement = objectName.getClassName().equal(_elementClass);
    const Array<CIMObjectPath> related = relatedNames(objectName, context);
    Array<CIMInstance> found;
    for (Uint32 i = 0; i < related.size(); ++i) {
        if (fromSystem) found.append(build(cimClass, objectName, related[i]));
        if (fromElement) found.append(build(cimClass, related[i], objectName));
    }
    return found;
}

Array<CIMInstance> HostedAssociation::allAssociations(CIMClass& cimClass,
                                                      const OperationContext& context) {
    const Array<CIMObjectPath> elements =
        _cimom.enumerateInstanceNames(context, QRV_NAMESPACE, _elementClass);
    Array<CIMInstance> found;
    for (Uint32 i = 0; i < elements.size(); ++i)
        found.append(build(cimClass, _systemPath, elements[i]));
    return found;
}

CIMInstance HostedAssociation::build(CIMClass& cimClass, const CIMObjectPath& system,
                                     const CIMObjectPath& element) const {
    return QRV_Common::buildAssocInstance(_associationClass, _kind.systemRole, _kind.elementRole,
                                          system, element, cimClass, _systemAddress, "root/qrv");
}

/// Null for an object that is at neither end.
CIMName HostedAssociation::farClass(const CIMObjectPath& objectName) const {
    if (objectName.getClassName().equal(_elementClass)) return _systemClass;
    if (objectName.getClassName().equal(_systemClass)) return _elementClass;
    return CIMName();
}

Array<CIMInstance> HostedAssociation::relatedInstances(const CIMObjectPath& objectName,
                                                       const OperationContext& context,
                                                       const InstanceShape& shape) {
    const CIMName related = farClass(objectName);
    if (!sourceExists(_cimom, context, objectName, _kind.missingSourceLevel,
                      _kind.missingSourceOfInstances) ||
        related.isNull())
        return Array<CIMInstance>();
    return _cimom.enumerateInstances(context, QRV_NAMESPACE, related, false, false,
                                     shape.includeQualifiers, shape.includeClassOrigin,
                                     shape.propertyList);
}

Array<CIMObjectPath> HostedAssociation::relatedNames(const CIMObjectPath& objectName,
                                                     const OperationContext& context) {
    const CIMName related = farClass(objectName);
    if (!sourceExists(_cimom, context, objectName, _kind.missingSourceLevel,
                      _kind.missingSourceOfNames) ||
        related.isNull())
        return Array<CIMObjectPath>();
    return _cimom.enumerateInstanceNames(context, QRV_NAMESPACE, related);
}

}  // namespace Pegasus
