#include "QRV_AssociatedPrivilege.h"

#include "QRV_SPCAssociatedPrivilegeProvider.h"

namespace Pegasus {

AssociationKind associatedPrivilegeKind(const char* provider, const Controllers& controllers) {
    const char* const own = controllers.associatedPrivilegeClass;
    const char* const controller = controllers.controllerClass;
    return {{provider, provider, "CIM_AssociatedPrivilege", own, 3, " Expect three keys."},
            {{"QRV_StorageHardwareID", "CIM_StorageHardwareID"},
             {"Subject", "Target"},
             {own, "CIM_AssociatedPrivilege"},
             {"QRV_StorageHardwareID", "CIM_StorageHardwareID", "CIM_Identity", controller,
              "CIM_SCSIProtocolController", "CIM_ProtocolController", "CIM_LogicalDevice",
              "CIM_EnabledLogicalElement", "CIM_LogicalElement", "CIM_ManagedSystemElement",
              "CIM_ManagedElement"},
             false,
             {{"QRV_StorageHardwareID",
               "Subject",
               "Target",
               {},
               {"CIM_StorageHardwareID", "CIM_Identity"}},
              {controller,
               "Target",
               "Subject",
               {},
               {"CIM_SCSIProtocolController", "CIM_ProtocolController", "CIM_LogicalDevice",
                "CIM_EnabledLogicalElement", "CIM_LogicalElement", "CIM_ManagedSystemElement"}}}}};
}

void AssociatedPrivilege::walk(const OperationContext& context, const CIMObjectPath& objectName,
                               const InstanceShape& shape, cim_method_e method,
                               cim_handler_u handler) {
    QRV_SPCAssociatedPrivilegeProvider::getRelatedInstances(
        _cimom, objectName, context, _systemName, _systemAddress, _kind.frame.qrvClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table, method,
        handler);
}

void AssociatedPrivilege::getInstance(const OperationContext& context,
                                      const CIMObjectPath& instanceName, const InstanceShape& shape,
                                      InstanceResponseHandler& handler) {
    QRV_SPCAssociatedPrivilegeProvider::deliverAssociationInstance(
        _cimom, instanceName, context, _systemName, _systemAddress, _kind.frame.qrvClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table,
        QRVCIM_GETINSTANCE, handlerOf(handler));
}

cim_handler_u handlerOf(ObjectResponseHandler& handler) {
    cim_handler_u result;
    result.objectResponse = &handler;
    return result;
}

cim_handler_u handlerOf(ObjectPathResponseHandler& handler) {
    cim_handler_u result;
    result.objectPathResponse = &handler;
    return result;
}

cim_handler_u handlerOf(InstanceResponseHandler& handler) {
    cim_handler_u result;
    result.instanceResponse = &handler;
    return result;
}

}  // namespace Pegasus
