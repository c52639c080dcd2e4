#include "QRV_iSPCAssociatedPrivilegeProvider.h"

#include "QRV_AssociatedPrivilege.h"

namespace Pegasus {

namespace {

const AssociationKind KIND =
    associatedPrivilegeKind("QRV_iSPCAssociatedPrivilegeProvider", ISCSI_CONTROLLERS);

}  // namespace

QRV_iSPCAssociatedPrivilegeProvider::QRV_iSPCAssociatedPrivilegeProvider() = default;

QRV_iSPCAssociatedPrivilegeProvider::~QRV_iSPCAssociatedPrivilegeProvider() = default;

const AssociationKind& QRV_iSPCAssociatedPrivilegeProvider::_kind() {
    return KIND;
}

AssociatedPrivilege QRV_iSPCAssociatedPrivilegeProvider::_privileges() {
    return AssociatedPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable.get());
}

void QRV_iSPCAssociatedPrivilegeProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_iSPCAssociatedPrivilegeProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

}  // namespace Pegasus
