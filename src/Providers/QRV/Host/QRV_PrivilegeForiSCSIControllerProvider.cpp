#include "QRV_PrivilegeForiSCSIControllerProvider.h"

#include "QRV_ControllerPrivilege.h"

namespace Pegasus {

namespace {

const ControllerPrivilegeKind KIND = controllerPrivilegeKind(
    "QRV_PrivilegeForiSCSIControllerProvider", ISCSI_CONTROLLERS,
    {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "QRV_iSCSIController",
     "CIM_ProtocolController", "CIM_SCSIProtocolController"});

}  // namespace

QRV_PrivilegeForiSCSIControllerProvider::QRV_PrivilegeForiSCSIControllerProvider()
    : _stringHashTable(nullptr) {}

QRV_PrivilegeForiSCSIControllerProvider::~QRV_PrivilegeForiSCSIControllerProvider() = default;

void QRV_PrivilegeForiSCSIControllerProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::initialize(cimom)");
    _stringHashTable = nullptr;
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

void QRV_PrivilegeForiSCSIControllerProvider::terminate() {
    deleteStringTable(_stringHashTable);
    delete this;
}

ControllerPrivilege QRV_PrivilegeForiSCSIControllerProvider::_privileges() {
    return ControllerPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable);
}

void QRV_PrivilegeForiSCSIControllerProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::associators()");
    if (!_privileges().accepts(
            context, {"associators", objectName, associationClass, resultClass, role, resultRole}))
        return;
    deliverObjects(_privileges().related(objectName, context,
                                         {includeQualifiers, includeClassOrigin, propertyList}),
                   handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::associatorNames()");
    if (!_privileges().accepts(context, {"associatorNames", objectName, associationClass,
                                         resultClass, role, resultRole}))
        return;
    deliverPaths(_getRelatedInstanceNames(objectName, context), handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::references()");
    if (!_privileges().accepts(
            context, {"references", objectName, CIMName(), resultClass, role, String::EMPTY}))
        return;
    deliverObjects(_privileges().associations(
                       objectName, context, {includeQualifiers, includeClassOrigin, propertyList}),
                   handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::referenceNames(const OperationContext& context,
                                                             const CIMObjectPath& objectName,
                                                             const CIMName& resultClass,
                                                             const String& role,
                                                             ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::referenceNames()");
    if (!_privileges().accepts(
            context, {"referenceNames", objectName, CIMName(), resultClass, role, String::EMPTY}))
        return;
    deliverPaths(_buildAssociationInstanceNames(objectName, context), handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::getInstance(const OperationContext& context,
                                                          const CIMObjectPath& instanceName,
                                                          const Boolean includeQualifiers,
                                                          const Boolean includeClassOrigin,
                                                          const CIMPropertyList& propertyList,
                                                          InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::getInstance()");
    _privileges().getInstance(context, instanceName,
                              {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::enumerateInstances(
    const OperationContext& context, const CIMObjectPath& classReference,
    const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::enumerateInstances()");
    _privileges().enumerateInstances(
        context, classReference, {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::enumerateInstanceNames()");
    _privileges().enumerateInstanceNames(context, classReference, handler);
}

void QRV_PrivilegeForiSCSIControllerProvider::modifyInstance(const OperationContext&,
                                                             const CIMObjectPath&,
                                                             const CIMInstance&, const Boolean,
                                                             const CIMPropertyList&,
                                                             ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_PrivilegeForiSCSIControllerProvider::createInstance(const OperationContext&,
                                                             const CIMObjectPath&,
                                                             const CIMInstance&,
                                                             ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_PrivilegeForiSCSIControllerProvider::deleteInstance(const OperationContext&,
                                                             const CIMObjectPath&,
                                                             ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

Array<CIMObjectPath> QRV_PrivilegeForiSCSIControllerProvider::_buildAssociationInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context) {
    return pathsOf(_privileges().associations(objectName, context, {}));
}

Array<CIMObjectPath> QRV_PrivilegeForiSCSIControllerProvider::_getRelatedInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context) {
    return pathsOf(_privileges().related(objectName, context, {}));
}

}  // namespace Pegasus
