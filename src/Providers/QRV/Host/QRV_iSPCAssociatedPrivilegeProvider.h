// States each initiator's right on an iSCSI controller as one association.
#pragma once

#include "QRV_AssociatedPrivilege.h"

namespace Pegasus {

/// Association and instance provider of QRV_iSPCAssociatedPrivilege, from QRV_StorageHardwareID to
/// QRV_iSCSIController. It answers as QRV_SPCAssociatedPrivilegeProvider does, with a table of its
/// own.
class QRV_iSPCAssociatedPrivilegeProvider
    : public AssociatedPrivilegeProvider<QRV_iSPCAssociatedPrivilegeProvider> {
  public:
    QRV_iSPCAssociatedPrivilegeProvider();
    ~QRV_iSPCAssociatedPrivilegeProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class AssociatedPrivilegeProvider<QRV_iSPCAssociatedPrivilegeProvider>;

    static const AssociationKind& _kind();
    AssociatedPrivilege _privileges();

    CIMOMHandle _cimom;
    String _systemAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
