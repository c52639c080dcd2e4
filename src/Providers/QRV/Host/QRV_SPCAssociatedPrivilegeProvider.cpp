#include "QRV_SPCAssociatedPrivilegeProvider.h"

#include "QRV_AssociatedPrivilege.h"
#include "QRV_PrivilegeKey.h"

namespace Pegasus {

namespace {

const AssociatedPrivilegeKind KIND =
    associatedPrivilegeKind("QRV_SPCAssociatedPrivilegeProvider", FC_CONTROLLERS);

}  // namespace

QRV_SPCAssociatedPrivilegeProvider::QRV_SPCAssociatedPrivilegeProvider()
    : _stringHashTable(nullptr) {}

QRV_SPCAssociatedPrivilegeProvider::~QRV_SPCAssociatedPrivilegeProvider() = default;

void QRV_SPCAssociatedPrivilegeProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::initialize(cimom)");
    _stringHashTable = nullptr;
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

void QRV_SPCAssociatedPrivilegeProvider::terminate() {
    deleteStringTable(_stringHashTable);
    delete this;
}

AssociatedPrivilege QRV_SPCAssociatedPrivilegeProvider::_privileges() {
    return AssociatedPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable);
}

void QRV_SPCAssociatedPrivilegeProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::associators()");
    _privileges().associators(
        context, {"associators", objectName, associationClass, resultClass, role, resultRole},
        {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_SPCAssociatedPrivilegeProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::associatorNames()");
    _privileges().associatorNames(
        context, {"associatorNames", objectName, associationClass, resultClass, role, resultRole},
        handler);
}

void QRV_SPCAssociatedPrivilegeProvider::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::references()");
    _privileges().references(
        context, {"references", objectName, CIMName(), resultClass, role, String::EMPTY},
        {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_SPCAssociatedPrivilegeProvider::referenceNames(const OperationContext& context,
                                                        const CIMObjectPath& objectName,
                                                        const CIMName& resultClass,
                                                        const String& role,
                                                        ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::referenceNames()");
    _privileges().referenceNames(
        context, {"referenceNames", objectName, CIMName(), resultClass, role, String::EMPTY},
        handler);
}

void QRV_SPCAssociatedPrivilegeProvider::getInstance(const OperationContext& context,
                                                     const CIMObjectPath& instanceName,
                                                     const Boolean includeQualifiers,
                                                     const Boolean includeClassOrigin,
                                                     const CIMPropertyList& propertyList,
                                                     InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::getInstance()");
    _privileges().getInstance(context, instanceName,
                              {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_SPCAssociatedPrivilegeProvider::enumerateInstances(const OperationContext& context,
                                                            const CIMObjectPath& classReference,
                                                            const Boolean includeQualifiers,
                                                            const Boolean includeClassOrigin,
                                                            const CIMPropertyList& propertyList,
                                                            InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::enumerateInstances()");
    _privileges().enumerateInstances(
        context, classReference, {includeQualifiers, includeClassOrigin, propertyList}, handler);
}

void QRV_SPCAssociatedPrivilegeProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::enumerateInstanceNames()");
    _privileges().enumerateInstanceNames(context, classReference, handler);
}

void QRV_SPCAssociatedPrivilegeProvider::modifyInstance(const OperationContext&,
                                                        const CIMObjectPath&, const CIMInstance&,
                                                        const Boolean, const CIMPropertyList&,
                                                        ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_SPCAssociatedPrivilegeProvider::createInstance(const OperationContext&,
                                                        const CIMObjectPath&, const CIMInstance&,
                                                        ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_SPCAssociatedPrivilegeProvider::deleteInstance(const OperationContext&,
                                                        const CIMObjectPath&, ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

CIMObjectPath QRV_SPCAssociatedPrivilegeProvider::buildInstanceName(
    const String& systemAddress, const CIMName& assocClassName, const String& useKey,
    const CIMObjectPath& subjectPath, const CIMObjectPath& targetPath) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("UseKey"), useKey, CIMKeyBinding::STRING));
    keys.append(
        CIMKeyBinding(CIMName("Subject"), subjectPath.toString(), CIMKeyBinding::REFERENCE));
    keys.append(CIMKeyBinding(CIMName("Target"), targetPath.toString(), CIMKeyBinding::REFERENCE));
    CIMObjectPath path(systemAddress, QRV_NAMESPACE, assocClassName);
    path.setKeyBindings(keys);
    return path;
}

String QRV_SPCAssociatedPrivilegeProvider::buildUseKey(String& spcDeviceID, String& hwidInstID) {
    return joinPrivilegeKey(hwidInstID, spcDeviceID);
}

void QRV_SPCAssociatedPrivilegeProvider::deReferenceUseKey(String& useKey, String& hwidInstID,
                                                           String& spcDeviceID) {
    splitPrivilegeKey(useKey, hwidInstID, spcDeviceID);
}

}  // namespace Pegasus
