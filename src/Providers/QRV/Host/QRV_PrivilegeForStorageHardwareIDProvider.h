// Links each right to the initiator that holds it.
#pragma once

#include "../QRV_StringTable.h"
#include "QRV_PrivilegedElement.h"

namespace Pegasus {

/// Association and instance provider of QRV_PrivilegeForStorageHardwareID, which links each
/// QRV_AuthorizedPrivilege to the QRV_StorageHardwareID that it is for. The privilege's InstanceID
/// names the hardware ID; the way back walks the VLUNs of the initiator's host.
class QRV_PrivilegeForStorageHardwareIDProvider
    : public PrivilegedElementProvider<QRV_PrivilegeForStorageHardwareIDProvider> {
  public:
    QRV_PrivilegeForStorageHardwareIDProvider();
    ~QRV_PrivilegeForStorageHardwareIDProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    template <class>
    friend class PrivilegedElementProvider;

    static const ProviderFrame& _frame();
    static const AssociationRules& _rules();

    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape);
    Array<CIMInstance> _buildAllAssociationInstances(const OperationContext& context,
                                                     const InstanceShape& shape);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            const InstanceShape& shape);
    Array<CIMInstance> _proven(CIMClass& cimClass, const CIMObjectPath& association,
                               const OperationContext& context);
    Array<CIMInstance> _privilegesOf(const CIMObjectPath& hardwareID, const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _nodeAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
