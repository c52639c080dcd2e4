// Links each host to its initiators.
#pragma once

#include "../QRV_AssociationProvider.h"

namespace Pegasus {

/// Association and instance provider of QRV_MemberOfStorageHardwareIDCollection, which links each
/// QRV_StorageHardwareIDCollection to the QRV_StorageHardwareIDs of the host. A hardware ID is a
/// member when its ElementName is the name of the collection's host. All it knows comes from
/// up-calls.
class QRV_MemberOfStorageHardwareIDCollectionProvider
    : public AssociationProvider<QRV_MemberOfStorageHardwareIDCollectionProvider> {
  public:
    QRV_MemberOfStorageHardwareIDCollectionProvider();
    ~QRV_MemberOfStorageHardwareIDCollectionProvider() override;

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;

    static const ProviderFrame& _frame();
    static const AssociationRules& _rules();

    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler);
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    CIMInstance _buildAssociation(CIMClass& cimClass, const CIMObjectPath& collection,
                                  const CIMObjectPath& member) const;
    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape);
    template <class Handler, class Deliver>
    void _enumerate(const OperationContext& context, const CIMPropertyList& propertyList,
                    Handler& handler, Deliver deliver);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            const InstanceShape& shape);
    Array<CIMInstance> _collectionOf(const CIMObjectPath& hardwareID,
                                     const OperationContext& context, const InstanceShape& shape);
    Array<CIMInstance> _membersOf(const CIMObjectPath& collection, const OperationContext& context,
                                  const InstanceShape& shape);
    Array<CIMInstance> _allHardwareIDs(const OperationContext& context);

    CIMOMHandle _cimom;
    String _nodeAddress;
};

}  // namespace Pegasus
