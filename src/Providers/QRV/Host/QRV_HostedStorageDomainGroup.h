// Links the storage system to each domain group.
#pragma once

#include "QRV_HostedAssociation.h"

namespace Pegasus {

/// Association and instance provider of the class of the same name: the storage system hosts every
/// QRV_StorageDomainGroup.
class QRV_HostedStorageDomainGroup
    : public HostedAssociationProvider<QRV_HostedStorageDomainGroup> {
  public:
    QRV_HostedStorageDomainGroup();
    ~QRV_HostedStorageDomainGroup() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class HostedAssociationProvider<QRV_HostedStorageDomainGroup>;

    static const HostedAssociationKind& _kind();
    HostedAssociation _association();

    String _systemAddress;
    CIMObjectPath _systemObjectPath;
    CIMOMHandle _cimom;
    CIMNamespaceName _qrvNameSpaceName;
    CIMName _systemClassName;
    CIMName _assoClassName;
    CIMName _storageDomainGroupClassName;
};

}  // namespace Pegasus
