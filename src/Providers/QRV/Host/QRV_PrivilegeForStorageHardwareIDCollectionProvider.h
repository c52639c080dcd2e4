// Links each right to the host whose initiator holds it.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

struct InstanceShape;

/// Association and instance provider of QRV_PrivilegeForStorageHardwareIDCollection, which links
/// each QRV_AuthorizedPrivilege to the QRV_StorageHardwareIDCollection of its initiator's host. The
/// host is found from the VLUNs behind the privilege's controller.
class QRV_PrivilegeForStorageHardwareIDCollectionProvider : public CIMAssociationProvider,
                                                            public CIMInstanceProvider {
  public:
    QRV_PrivilegeForStorageHardwareIDCollectionProvider();
    ~QRV_PrivilegeForStorageHardwareIDCollectionProvider() override;

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
    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  Boolean includeQualifiers,
                                                  Boolean includeClassOrigin,
                                                  const CIMPropertyList& propertyList);
    Array<CIMInstance> _buildAllAssociationInstances(const OperationContext& context,
                                                     Boolean includeQualifiers,
                                                     Boolean includeClassOrigin,
                                                     const CIMPropertyList& propertyList);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            Boolean includeQualifiers, Boolean includeClassOrigin,
                                            const CIMPropertyList& propertyList);
    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context);
    CIMInstance _build(CIMClass& cimClass, const CIMObjectPath& privilege,
                       const CIMObjectPath& element) const;
    void _associationsOf(Array<CIMInstance>& found, const CIMObjectPath& objectName,
                         const OperationContext& context, const InstanceShape& shape);
    Array<CIMInstance> _privilegesOf(const CIMObjectPath& collection, const InstanceShape& shape);
    Array<CIMInstance> _collectionOf(const CIMObjectPath& privilege,
                                     const OperationContext& context, const InstanceShape& shape);
    CIMObjectPath _collectionPath(const String& hostName) const;

    CIMOMHandle _cimom;
    String _nodeAddress;
    String _systemName;
    hashtable_t* _stringHashTable;
};

}  // namespace Pegasus
