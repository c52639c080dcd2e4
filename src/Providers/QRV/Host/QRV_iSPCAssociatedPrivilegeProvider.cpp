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

const AssociatedPrivilegeKind& QRV_iSPCAssociatedPrivilegeProvider::_kind() {
    return KIND;
}

AssociatedPrivilege QRV_iSPCAssociatedPrivilegeProvider::_privileges() {
    return AssociatedPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable);
}

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

}  // namespace Pegasus
