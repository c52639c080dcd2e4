// Links each right to the host whose initiator holds it.
#pragma once

#include "../QRV_StringTable.h"
#include "QRV_PrivilegedElement.h"

namespace Pegasus {

/// Association and instance provider of QRV_PrivilegeForStorageHardwareIDCollection, which links
/// each QRV_AuthorizedPrivilege to the QRV_StorageHardwareIDCollection of its initiator's host. The
/// host is found from the VLUNs behind the privilege's controller.
class QRV_PrivilegeForStorageHardwareIDCollectionProvider
    : public PrivilegedElementProvider<QRV_PrivilegeForStorageHardwareIDCollectionProvider> {
  public:
    QRV_PrivilegeForStorageHardwareIDCollectionProvider();
    ~QRV_PrivilegeForStorageHardwareIDCollectionProvider() override;

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
    void _associationsOf(Array<CIMInstance>& found, const CIMObjectPath& objectName,
                         const OperationContext& context, const InstanceShape& shape);
    Array<CIMInstance> _privilegesOf(const CIMObjectPath& collection, const InstanceShape& shape);
    Array<CIMInstance> _collectionOf(const CIMObjectPath& privilege,
                                     const OperationContext& context, const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _nodeAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
