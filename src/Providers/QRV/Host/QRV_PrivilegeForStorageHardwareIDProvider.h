// Links each right to the initiator that holds it.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

struct InstanceShape;

/// Association and instance provider of QRV_PrivilegeForStorageHardwareID, which links each
/// QRV_AuthorizedPrivilege to the QRV_StorageHardwareID that it is for. The privilege's InstanceID
/// names the hardware ID; the way back walks the VLUNs of the initiator's host.
class QRV_PrivilegeForStorageHardwareIDProvider : public CIMAssociationProvider,
                                                  public CIMInstanceProvider {
  public:
    QRV_PrivilegeForStorageHardwareIDProvider();
    ~QRV_PrivilegeForStorageHardwareIDProvider() override;

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
    Array<CIMInstance> _proven(CIMClass& cimClass, const CIMObjectPath& association,
                               const OperationContext& context);
    Array<CIMInstance> _privilegesOf(const CIMObjectPath& hardwareID, const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _nodeAddress;
    String _systemName;
    hashtable_t* _stringHashTable;
};

}  // namespace Pegasus
