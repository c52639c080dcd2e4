// Links the hardware ID management service to all that it manages.
#pragma once

#include "../QRV_AssociationProvider.h"

namespace Pegasus {

/// Association and instance provider of QRV_MgmtServicesForStorageHWIDCollection, which links the
/// one QRV_StorageHardwareIDManagementService to every QRV_StorageHardwareIDCollection and every
/// QRV_StorageHardwareID. All it knows comes from up-calls.
class QRV_MgmtServicesForStorageHWIDCollectionProvider
    : public AssociationProvider<QRV_MgmtServicesForStorageHWIDCollectionProvider> {
  public:
    QRV_MgmtServicesForStorageHWIDCollectionProvider();
    ~QRV_MgmtServicesForStorageHWIDCollectionProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;

    static const ProviderFrame& _frame();
    static const AssociationRules& _rules();

    static constexpr int MISSING_SOURCE_LEVEL = 4;
    void _associators(const OperationContext& context, const AssociationRequest& request,
                      const InstanceShape& shape, ObjectResponseHandler& handler);
    void _associatorNames(const OperationContext& context, const AssociationRequest& request,
                          ObjectPathResponseHandler& handler);
    void _referenceNames(const OperationContext& context, const AssociationRequest& request,
                         ObjectPathResponseHandler& handler);
    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler);
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    CIMInstance _buildAssociation(CIMClass& cimClass, const CIMObjectPath& service,
                                  const CIMObjectPath& managed) const;
    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape);
    Array<CIMObjectPath> _buildAssociationInstanceNames(const CIMObjectPath& objectName,
                                                        const OperationContext& context);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            const CIMName& resultClass, const InstanceShape& shape);
    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const CIMName& resultClass);

    CIMOMHandle _cimom;
    CIMObjectPath _storageHWIDMgmtServicePath;
    String _systemAddr;
};

}  // namespace Pegasus
