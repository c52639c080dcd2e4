#include "QRV_PrivilegeForiSCSIControllerProvider.h"

#include "QRV_ControllerPrivilege.h"

namespace Pegasus {

namespace {

const AssociationKind KIND = controllerPrivilegeKind(
    "QRV_PrivilegeForiSCSIControllerProvider", ISCSI_CONTROLLERS,
    {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "QRV_iSCSIController",
     "CIM_ProtocolController", "CIM_SCSIProtocolController"});

}  // namespace

QRV_PrivilegeForiSCSIControllerProvider::QRV_PrivilegeForiSCSIControllerProvider() = default;

QRV_PrivilegeForiSCSIControllerProvider::~QRV_PrivilegeForiSCSIControllerProvider() = default;

const AssociationKind& QRV_PrivilegeForiSCSIControllerProvider::_kind() {
    return KIND;
}

ControllerPrivilege QRV_PrivilegeForiSCSIControllerProvider::_privileges() {
    return ControllerPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable.get());
}

void QRV_PrivilegeForiSCSIControllerProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_PrivilegeForiSCSIControllerProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

}  // namespace Pegasus
