#include "QRV_ControllerPrivilege.h"

#include "QRV_PrivilegeForSCSIControllerProvider.h"

namespace Pegasus {

namespace {

constexpr int REFUSAL_LEVEL = 3;
constexpr int MISSING_SOURCE_LEVEL = 4;

}  // namespace

ControllerPrivilegeKind controllerPrivilegeKind(const char* provider,
                                                const Controllers& controllers,
                                                const ClassNames& associatorResults) {
    const char* const own = controllers.privilegeClass;
    return {{provider, provider, "CIM_AuthorizedTarget", own, 2, " Expect two keys."},
            {{"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "CIM_Privilege",
              "CIM_ManagedElement"},
             {"Privilege", "TargetElement"},
             {own, "CIM_AuthorizedTarget"},
             associatorResults,
             false,
             {{"QRV_AuthorizedPrivilege",
               "Privilege",
               "TargetElement",
               {},
               {"CIM_AuthorizedPrivilege", "CIM_Privilege"}},
              {controllers.controllerClass,
               "TargetElement",
               "Privilege",
               {},
               {"CIM_ProtocolController", "CIM_SCSIProtocolController"}}}},
            own};
}

bool ControllerPrivilege::accepts(const OperationContext& context,
                                  const AssociationRequest& request) {
    return beginAssociation(_kind.frame, _kind.rules, REFUSAL_LEVEL, context, request) &&
           sourceExists(_cimom, context, request.objectName, MISSING_SOURCE_LEVEL);
}

Array<CIMInstance> ControllerPrivilege::related(const CIMObjectPath& objectName,
                                                const OperationContext& context,
                                                const InstanceShape& shape) {
    return QRV_PrivilegeForSCSIControllerProvider::getRelatedInstances(
        _cimom, objectName, context, _systemName, _systemAddress, _kind.associationClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table);
}

Array<CIMInstance> ControllerPrivilege::associations(const CIMObjectPath& objectName,
                                                     const OperationContext& context,
                                                     const InstanceShape& shape) {
    return QRV_PrivilegeForSCSIControllerProvider::buildAssociationInstances(
        _cimom, objectName, context, _systemName, _systemAddress, _kind.associationClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table);
}

void ControllerPrivilege::getInstance(const OperationContext& context,
                                      const CIMObjectPath& instanceName, const InstanceShape& shape,
                                      InstanceResponseHandler& handler) {
    openArray(_kind.frame, context);
    checkClass(_kind.frame, instanceName.getClassName());
    checkKeyCount(_kind.frame, instanceName);
    deliverFound(_kind.frame, matching(instanceName, associations(instanceName, context, shape)),
                 handler);
}

void ControllerPrivilege::enumerateInstances(const OperationContext& context,
                                             const CIMObjectPath& classReference,
                                             const InstanceShape& shape,
                                             InstanceResponseHandler& handler) {
    beginEnumeration(_kind.frame, context, classReference);
    const Array<CIMInstance> found = associations(CIMObjectPath(), context, shape);
    if (found.size() > 0) deliverInstances(found, handler);
}

void ControllerPrivilege::enumerateInstanceNames(const OperationContext& context,
                                                 const CIMObjectPath& classReference,
                                                 ObjectPathResponseHandler& handler) {
    beginEnumeration(_kind.frame, context, classReference);
    deliverPaths(associations(CIMObjectPath(), context, {}), handler);
}

}  // namespace Pegasus
