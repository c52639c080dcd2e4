// Links the rights of initiators to the service that they belong to.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

struct AssociationRequest;

/// Association and instance provider of QRV_ManagementServiceForAuthorizedPrivilege, which links
/// the one QRV_PrivilegeManagementService to every QRV_AuthorizedPrivilege. All it knows comes from
/// up-calls.
class QRV_MgmtServiceForAuthorizedPrivilege : public CIMAssociationProvider,
                                              public CIMInstanceProvider {
  public:
    QRV_MgmtServiceForAuthorizedPrivilege();
    ~QRV_MgmtServiceForAuthorizedPrivilege() override;

    /// The service has to be there. Exceptions of the up-call pass.
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
    bool _accepts(const OperationContext& context, const AssociationRequest& request);
    Array<CIMInstance> _buildAssocInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            Boolean includeQualifiers, Boolean includeClassOrigin,
                                            const CIMPropertyList& propertyList);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            Boolean includeQualifiers, Boolean includeClassOrigin,
                                            const CIMPropertyList& propertyList);
    CIMInstance _build(CIMClass& cimClass, const CIMObjectPath& service,
                       const CIMObjectPath& privilege) const;

    CIMOMHandle _cimom;
    CIMObjectPath _mgmtSvcPath;
    CIMNamespaceName _qrvNameSpaceName;
    CIMName _assocClassName;
    CIMName _mgmtSvcClassName;
    CIMName _authPrvlClassName;
    String _systemAddr;
};

}  // namespace Pegasus
