// Links each host to the setting of its persona.
#pragma once

#include "QRV_ElementSettingAssociation.h"

namespace Pegasus {

/// Association and instance provider of QRV_HWIDCollectionElementSettingData, which links each
/// QRV_StorageHardwareIDCollection to the QRV_StorageClientSettingData of the host's persona. The
/// collections tell it themselves; the array is asked only on the way from one to its setting.
class QRV_HWIDCollectionElementSettingDataProvider
    : public ElementSettingProvider<QRV_HWIDCollectionElementSettingDataProvider> {
  public:
    QRV_HWIDCollectionElementSettingDataProvider();
    ~QRV_HWIDCollectionElementSettingDataProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class ElementSettingProvider<QRV_HWIDCollectionElementSettingDataProvider>;

    static const ElementSettingKind& _kind();
    ElementSettingAssociation _association(const OperationContext& context,
                                           const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus
