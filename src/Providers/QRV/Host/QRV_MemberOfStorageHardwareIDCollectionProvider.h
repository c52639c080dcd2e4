// Links each host to its initiators.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

/// Association and instance provider of QRV_MemberOfStorageHardwareIDCollection, which links each
/// QRV_StorageHardwareIDCollection to the QRV_StorageHardwareIDs of the host. A hardware ID is a
/// member when its ElementName is the name of the collection's host. All it knows comes from
/// up-calls.
class QRV_MemberOfStorageHardwareIDCollectionProvider : public CIMAssociationProvider,
                                                        public CIMInstanceProvider {
  public:
    QRV_MemberOfStorageHardwareIDCollectionProvider();
    ~QRV_MemberOfStorageHardwareIDCollectionProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// Destroys the provider.
    void terminate() override;

    void associators(const OperationContext& context, const CIMObjectPath& objectName,
                     const CIMName& associationClass, const CIMName& resultClass,
                     const String& role, const String& resultRole, const Boolean includeQualifiers,
                     const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                     ObjectResponseHandler& handler) override;
    void associatorNames(const OperationContext& context, const CIMObjectPath& objectName,
                         const CIMName& associationClass, const CIMName& resultClass,
                         const String& role, const String& resultRole,
                         ObjectPathResponseHandler& handler) override;
    void references(const OperationContext& context, const CIMObjectPath& objectName,
                    const CIMName& resultClass, const String& role, const Boolean includeQualifiers,
                    const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                    ObjectResponseHandler& handler) override;
    void referenceNames(const OperationContext& context, const CIMObjectPath& objectName,
                        const CIMName& resultClass, const String& role,
                        ObjectPathResponseHandler& handler) override;

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     const Boolean includeQualifiers, const Boolean includeClassOrigin,
                     const CIMPropertyList& propertyList,
                     InstanceResponseHandler& handler) override;
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            const Boolean includeQualifiers, const Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList,
                            InstanceResponseHandler& handler) override;
    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler) override;
    void modifyInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                        const CIMInstance& instance, const Boolean includeQualifiers,
                        const CIMPropertyList& propertyList, ResponseHandler& handler) override;
    void createInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                        const CIMInstance& instance, ObjectPathResponseHandler& handler) override;
    void deleteInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                        ResponseHandler& handler) override;

  private:
    CIMInstance _buildAssociation(CIMClass& cimClass, const CIMObjectPath& collection,
                                  const CIMObjectPath& member) const;
    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  Boolean includeQualifiers,
                                                  Boolean includeClassOrigin,
                                                  const CIMPropertyList& propertyList);
    template <class Handler, class Deliver>
    void _enumerate(const OperationContext& context, const CIMPropertyList& propertyList,
                    Handler& handler, Deliver deliver);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            Boolean includeQualifiers, Boolean includeClassOrigin,
                                            const CIMPropertyList& propertyList);
    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context);
    Array<CIMInstance> _collectionOf(const CIMObjectPath& hardwareID,
                                     const OperationContext& context, Boolean includeQualifiers,
                                     Boolean includeClassOrigin,
                                     const CIMPropertyList& propertyList);
    Array<CIMInstance> _membersOf(const CIMObjectPath& collection, const OperationContext& context,
                                  Boolean includeQualifiers, Boolean includeClassOrigin,
                                  const CIMPropertyList& propertyList);
    Array<CIMInstance> _allHardwareIDs(const OperationContext& context);

    CIMOMHandle _cimom;
    String _nodeAddress;
};

}  // namespace Pegasus
