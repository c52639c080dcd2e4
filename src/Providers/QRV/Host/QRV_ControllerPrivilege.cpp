#include "QRV_ControllerPrivilege.h"

#include "QRV_PrivilegeForSCSIControllerProvider.h"

namespace Pegasus {

AssociationKind controllerPrivilegeKind(const char* provider, const Controllers& controllers,
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
               {"CIM_ProtocolController", "CIM_SCSIProtocolController"}}}}};
}

Array<CIMInstance> ControllerPrivilege::related(const CIMObjectPath& objectName,
                                                const OperationContext& context,
                                                const InstanceShape& shape) {
    return QRV_PrivilegeForSCSIControllerProvider::getRelatedInstances(
        _cimom, objectName, context, _systemName, _systemAddress, _kind.frame.qrvClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table);
}

Array<CIMInstance> ControllerPrivilege::associations(const CIMObjectPath& objectName,
                                                     const OperationContext& context,
                                                     const InstanceShape& shape) {
    return QRV_PrivilegeForSCSIControllerProvider::buildAssociationInstances(
        _cimom, objectName, context, _systemName, _systemAddress, _kind.frame.qrvClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table);
}

}  // namespace Pegasus
