// Links the storage system to each host collection.
#pragma once

#include "QRV_HostedAssociation.h"

namespace Pegasus {

/// Association and instance provider of QRV_HostedStorageHardwareIDCollection: the storage system
/// hosts every QRV_StorageHardwareIDCollection.
class QRV_HostedStorageHardwareIDCollectionProvider
    : public HostedAssociationProvider<QRV_HostedStorageHardwareIDCollectionProvider> {
  public:
    QRV_HostedStorageHardwareIDCollectionProvider();
    ~QRV_HostedStorageHardwareIDCollectionProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class HostedAssociationProvider<QRV_HostedStorageHardwareIDCollectionProvider>;

    static const HostedAssociationKind& _kind();
    HostedAssociation _association();

    CIMOMHandle _cimom;
    String _systemAddress;
    CIMObjectPath _systemObjectPath;
    CIMNamespaceName _qrvNameSpaceName;
    CIMName _systemClassName;
    CIMName _assoClassName;
    CIMName _storageHWIDCollectionClassName;
};

}  // namespace Pegasus
