// Links each right to the iSCSI controller that it is about.
#pragma once

#include "QRV_ControllerPrivilege.h"

namespace Pegasus {

/// Association and instance provider of QRV_PrivilegeForiSCSIController, which links each
/// QRV_AuthorizedPrivilege to its QRV_iSCSIController. It answers as
/// QRV_PrivilegeForSCSIControllerProvider does, with a table of its own.
class QRV_PrivilegeForiSCSIControllerProvider
    : public ControllerPrivilegeProvider<QRV_PrivilegeForiSCSIControllerProvider> {
  public:
    QRV_PrivilegeForiSCSIControllerProvider();
    ~QRV_PrivilegeForiSCSIControllerProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class ControllerPrivilegeProvider<QRV_PrivilegeForiSCSIControllerProvider>;

    static const AssociationKind& _kind();
    ControllerPrivilege _privileges();

    CIMOMHandle _cimom;
    String _systemAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
