// Links each right to the Fibre Channel controller that it is about.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

class ControllerPrivilege;

/// Association and instance provider of QRV_PrivilegeForSCSIController, which links each
/// QRV_AuthorizedPrivilege to its QRV_SCSIController. The static operations also serve
/// QRV_PrivilegeForiSCSIController.
class QRV_PrivilegeForSCSIControllerProvider : public CIMAssociationProvider,
                                               public CIMInstanceProvider {
  public:
    QRV_PrivilegeForSCSIControllerProvider();
    ~QRV_PrivilegeForSCSIControllerProvider() override;

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

    /// The associations of `assocClassName`, QRV_PrivilegeForSCSIController or its iSCSI twin:
    /// those that link `objectName`, the one that it names when it is of that class, or all of them
    /// when it has no class. Failures of up-calls leave associations out.
    PEGASUS_EXPORT static Array<CIMInstance> buildAssociationInstances(
        CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
        String& systemName, String& systemAddress, CIMName assocClassName,
        Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList,
        hashtable_t* stringHashTable);

    /// What `assocClassName` links to an object: the controller of a privilege, at most one, or the
    /// privileges on a controller. Throws CIMOperationFailedException when the walk for the latter
    /// fails.
    PEGASUS_EXPORT static Array<CIMInstance> getRelatedInstances(
        CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
        String& systemName, String& systemAddress, CIMName assocClassName,
        Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList,
        hashtable_t* stringHashTable);

  private:
    ControllerPrivilege _privileges();
    Array<CIMObjectPath> _buildAssociationInstanceNames(const CIMObjectPath& objectName,
                                                        const OperationContext& context);
    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context);

    CIMOMHandle _cimom;
    String _systemAddress;
    String _systemName;
    hashtable_t* _stringHashTable;
};

}  // namespace Pegasus
