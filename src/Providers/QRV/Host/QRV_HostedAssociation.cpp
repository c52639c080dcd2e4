#include "QRV_HostedAssociation.h"

#include <Pegasus/Provider/ProviderException.h>

#include "../QRV_PathMatcher.h"
#include "../QRV_StoredClass.h"

namespace Pegasus {

Array<CIMInstance> HostedAssociation::associations(const CIMObjectPath& objectName,
                                                   const OperationContext& context,
                                                   Boolean includeQualifiers,
                                                   Boolean includeClassOrigin,
                                                   const CIMPropertyList& propertyList) {
    CIMClass cimClass = storedClass(_cimom, _associationClass,
                                    {includeQualifiers, includeClassOrigin, propertyList});
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
                                                       Boolean includeQualifiers,
                                                       Boolean includeClassOrigin,
                                                       const CIMPropertyList& propertyList) {
    const CIMName related = farClass(objectName);
    if (!sourceExists(_cimom, context, objectName, _kind.missingSourceLevel,
                      _kind.missingSourceOfInstances) ||
        related.isNull())
        return Array<CIMInstance>();
    return _cimom.enumerateInstances(context, QRV_NAMESPACE, related, false, false,
                                     includeQualifiers, includeClassOrigin, propertyList);
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

void HostedAssociation::getInstance(const OperationContext& context,
                                    const CIMObjectPath& instanceName, Boolean includeQualifiers,
                                    Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                                    InstanceResponseHandler& handler) {
    openArray(_kind.frame, context);
    checkKeyCount(_kind.frame, instanceName);
    deliverFound(_kind.frame,
                 matching(instanceName, associations(CIMObjectPath(), context, includeQualifiers,
                                                     includeClassOrigin, propertyList)),
                 handler);
}

bool HostedAssociation::isOwnClass(const OperationContext& context,
                                   const CIMObjectPath& classReference) {
    traceClassName(classReference.getClassName());
    openArray(_kind.frame, context);
    return classReference.getClassName().equal(_associationClass);
}

void HostedAssociation::enumerateInstances(const OperationContext& context,
                                           const CIMObjectPath& classReference,
                                           Boolean includeQualifiers, Boolean includeClassOrigin,
                                           const CIMPropertyList& propertyList,
                                           InstanceResponseHandler& handler) {
    if (!isOwnClass(context, classReference)) return;
    deliverInstances(
        associations(CIMObjectPath(), context, includeQualifiers, includeClassOrigin, propertyList),
        handler);
}

void HostedAssociation::enumerateInstanceNames(const OperationContext& context,
                                               const CIMObjectPath& classReference,
                                               ObjectPathResponseHandler& handler) {
    if (!isOwnClass(context, classReference)) return;
    deliverPaths(associations(CIMObjectPath(), context, false, false, CIMPropertyList()), handler);
}

}  // namespace Pegasus
