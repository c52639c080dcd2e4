#include "QRV_AssociatedPrivilege.h"

#include "QRV_SPCAssociatedPrivilegeProvider.h"

namespace Pegasus {

namespace {

constexpr int REFUSAL_LEVEL = 3;
constexpr int MISSING_SOURCE_LEVEL = 4;

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

}  // namespace

AssociatedPrivilegeKind associatedPrivilegeKind(const char* provider,
                                                const Controllers& controllers) {
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
                "CIM_EnabledLogicalElement", "CIM_LogicalElement", "CIM_ManagedSystemElement"}}}},
            own};
}

void AssociatedPrivilege::associators(const OperationContext& context,
                                      const AssociationRequest& request, const InstanceShape& shape,
                                      ObjectResponseHandler& handler) {
    answer(context, request, shape, QRVCIM_ASSOCIATORS, handlerOf(handler));
}

void AssociatedPrivilege::associatorNames(const OperationContext& context,
                                          const AssociationRequest& request,
                                          ObjectPathResponseHandler& handler) {
    answer(context, request, {}, QRVCIM_ASSOCIATORNAMES, handlerOf(handler));
}

void AssociatedPrivilege::references(const OperationContext& context,
                                     const AssociationRequest& request, const InstanceShape& shape,
                                     ObjectResponseHandler& handler) {
    answer(context, request, shape, QRVCIM_REFERENCES, handlerOf(handler));
}

void AssociatedPrivilege::referenceNames(const OperationContext& context,
                                         const AssociationRequest& request,
                                         ObjectPathResponseHandler& handler) {
    answer(context, request, {}, QRVCIM_REFERENCENAMES, handlerOf(handler));
}

void AssociatedPrivilege::answer(const OperationContext& context, const AssociationRequest& request,
                                 const InstanceShape& shape, cim_method_e method,
                                 cim_handler_u handler) {
    if (beginAssociation(_kind.frame, _kind.rules, REFUSAL_LEVEL, context, request) &&
        sourceExists(_cimom, context, request.objectName, MISSING_SOURCE_LEVEL))
        walk(context, request.objectName, shape, method, handler);
}

void AssociatedPrivilege::walk(const OperationContext& context, const CIMObjectPath& objectName,
                               const InstanceShape& shape, cim_method_e method,
                               cim_handler_u handler) {
    QRV_SPCAssociatedPrivilegeProvider::getRelatedInstances(
        _cimom, objectName, context, _systemName, _systemAddress, _kind.associationClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table, method,
        handler);
}

void AssociatedPrivilege::getInstance(const OperationContext& context,
                                      const CIMObjectPath& instanceName, const InstanceShape& shape,
                                      InstanceResponseHandler& handler) {
    openArray(_kind.frame, context);
    checkClass(_kind.frame, instanceName.getClassName());
    checkKeyCount(_kind.frame, instanceName);
    QRV_SPCAssociatedPrivilegeProvider::deliverAssociationInstance(
        _cimom, instanceName, context, _systemName, _systemAddress, _kind.associationClass,
        shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList, _table,
        QRVCIM_GETINSTANCE, handlerOf(handler));
}

void AssociatedPrivilege::enumerateInstances(const OperationContext& context,
                                             const CIMObjectPath& classReference,
                                             const InstanceShape& shape,
                                             InstanceResponseHandler& handler) {
    beginEnumeration(_kind.frame, context, classReference);
    walk(context, CIMObjectPath(), shape, QRVCIM_ENUMERATEINSTANCES, handlerOf(handler));
}

void AssociatedPrivilege::enumerateInstanceNames(const OperationContext& context,
                                                 const CIMObjectPath& classReference,
                                                 ObjectPathResponseHandler& handler) {
    beginEnumeration(_kind.frame, context, classReference);
    walk(context, CIMObjectPath(), {}, QRVCIM_ENUMERATEINSTANCENAMES, handlerOf(handler));
}

}  // namespace Pegasus
