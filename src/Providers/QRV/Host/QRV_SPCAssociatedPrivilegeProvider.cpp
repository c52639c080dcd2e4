#include "QRV_SPCAssociatedPrivilegeProvider.h"

#include "QRV_AssociatedPrivilege.h"
#include "QRV_PrivilegeKey.h"

namespace Pegasus {

namespace {

const AssociationKind KIND =
    associatedPrivilegeKind("QRV_SPCAssociatedPrivilegeProvider", FC_CONTROLLERS);

}  // namespace

QRV_SPCAssociatedPrivilegeProvider::QRV_SPCAssociatedPrivilegeProvider() = default;

QRV_SPCAssociatedPrivilegeProvider::~QRV_SPCAssociatedPrivilegeProvider() = default;

const AssociationKind& QRV_SPCAssociatedPrivilegeProvider::_kind() {
    return KIND;
}

AssociatedPrivilege QRV_SPCAssociatedPrivilegeProvider::_privileges() {
    return AssociatedPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable.get());
}

void QRV_SPCAssociatedPrivilegeProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
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
