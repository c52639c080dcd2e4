// Links each initiator to the setting of its host's persona.
#pragma once

#include "QRV_ElementSettingAssociation.h"

namespace Pegasus {

/// Association and instance provider of QRV_HardwareIDElementSettingData, which links each
/// QRV_StorageHardwareID to the QRV_StorageClientSettingData of its host's persona. Only the
/// array's host records tell the persona of an initiator.
class QRV_HardwareIDElementSettingDataProvider
    : public ElementSettingProvider<QRV_HardwareIDElementSettingDataProvider> {
  public:
    QRV_HardwareIDElementSettingDataProvider();
    ~QRV_HardwareIDElementSettingDataProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class ElementSettingProvider<QRV_HardwareIDElementSettingDataProvider>;

    static const ElementSettingKind& _kind();
    ElementSettingAssociation _association(const OperationContext& context,
                                           const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus
