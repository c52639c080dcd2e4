// Links the storage system to each client setting that it offers.
#pragma once

#include "QRV_HostedAssociation.h"

namespace Pegasus {

/// Association and instance provider of QRV_SystemClientSettingData: the storage system offers
/// every QRV_StorageClientSettingData.
class QRV_SystemClientSettingDataProvider
    : public HostedAssociationProvider<QRV_SystemClientSettingDataProvider> {
  public:
    QRV_SystemClientSettingDataProvider();
    ~QRV_SystemClientSettingDataProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class HostedAssociationProvider<QRV_SystemClientSettingDataProvider>;

    static const HostedAssociationKind& _kind();
    HostedAssociation _association();

    String _systemAddress;
    CIMObjectPath _systemObjectPath;
    CIMOMHandle _cimom;
    CIMNamespaceName _qrvNameSpaceName;
    CIMName _systemClassName;
    CIMName _assoClassName;
    CIMName _clientSettingDataClassName;
};

}  // namespace Pegasus
