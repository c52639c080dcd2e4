#include "QRV_iSPCAssociatedPrivilegeProvider.h"

#include "QRV_AssociatedPrivilege.h"

namespace Pegasus {

namespace {

const AssociatedPrivilegeKind KIND =
    associatedPrivilegeKind("QRV_iSPCAssociatedPrivilegeProvider", ISCSI_CONTROLLERS);

}  // namespace

QRV_iSPCAssociatedPrivilegeProvider::QRV_iSPCAssociatedPrivilegeProvider()
    : _stringHashTable(nullptr) {}

QRV_iSPCAssociatedPrivilegeProvider::~QRV_iSPCAssociatedPrivilegeProvider() = default;

void QRV_iSPCAssociatedPrivilegeProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::initialize(cimom)");
    _stringHashTable = nullptr;
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

void QRV_iSPCAssociatedPrivilegeProvider::terminate() {
    deleteStringTable(_stringHashTable);
    delete this;
}

AssociatedPrivilege QRV_iSPCAssociatedPrivilegeProvider::_privileges() {
    return AssociatedPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable);
}

void QRV_iSPCAssociatedPrivilegeProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::associators()");
    _privileges().associators(
        context, {"associators", objectName, associationClass, resultClass, role, resultRole},
        {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::associatorNames()");
    _privileges().associatorNames(
        context, {"associatorNames", objectName, associationClass, resultClass, role, resultRole},
        handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::references()");
    _privileges().references(
        context, {"references", objectName, CIMName(), resultClass, role, String::EMPTY},
        {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::referenceNames(const OperationContext& context,
                                                         const CIMObjectPath& objectName,
                                                         const CIMName& resultClass,
                                                         const String& role,
                                                         ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::referenceNames()");
    _privileges().referenceNames(
        context, {"referenceNames", objectName, CIMName(), resultClass, role, String::EMPTY},
        handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::getInstance(const OperationContext& context,
                                                      const CIMObjectPath& instanceName,
                                                      const Boolean includeQualifiers,
                                                      const Boolean includeClassOrigin,
                                                      const CIMPropertyList& propertyList,
                                                      InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::getInstance()");
    _privileges().getInstance(context, instanceName,
                              {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::enumerateInstances(const OperationContext& context,
                                                             const CIMObjectPath& classReference,
                                                             const Boolean includeQualifiers,
                                                             const Boolean includeClassOrigin,
                                                             const CIMPropertyList& propertyList,
                                                             InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::enumerateInstances()");
    _privileges().enumerateInstances(
        context, classReference, {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::enumerateInstanceNames()");
    _privileges().enumerateInstanceNames(context, classReference, handler);
}

void QRV_iSPCAssociatedPrivilegeProvider::modifyInstance(const OperationContext&,
                                                         const CIMObjectPath&, const CIMInstance&,
                                                         const Boolean, const CIMPropertyList&,
                                                         ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_iSPCAssociatedPrivilegeProvider::createInstance(const OperationContext&,
                                                         const CIMObjectPath&, const CIMInstance&,
                                                         ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_iSPCAssociatedPrivilegeProvider::deleteInstance(const OperationContext&,
                                                         const CIMObjectPath&, ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

}  // namespace Pegasus
