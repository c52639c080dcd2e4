// Links the rights of initiators to the service that they belong to.
#pragma once

#include "../QRV_AssociationProvider.h"

namespace Pegasus {

/// Association and instance provider of QRV_ManagementServiceForAuthorizedPrivilege, which links
/// the one QRV_PrivilegeManagementService to every QRV_AuthorizedPrivilege. All it knows comes from
/// up-calls.
class QRV_MgmtServiceForAuthorizedPrivilege
    : public AssociationProvider<QRV_MgmtServiceForAuthorizedPrivilege> {
  public:
    QRV_MgmtServiceForAuthorizedPrivilege();
    ~QRV_MgmtServiceForAuthorizedPrivilege() override;

    /// The service has to be there. Exceptions of the up-call pass.
    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;

    static const ProviderFrame& _frame();
    static const AssociationRules& _rules();

    bool _accepts(const OperationContext& context, const AssociationRequest& request);
    static void _checkPath(const CIMObjectPath& instanceName);
    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler);
    static bool _beginEnumeration(const OperationContext& context,
                                  const CIMObjectPath& classReference, const char* operation);
    Array<CIMInstance> _buildAllAssociationInstances(const OperationContext& context,
                                                     const InstanceShape& shape);
    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            const InstanceShape& shape);
    Array<CIMInstance> _proven(CIMClass& cimClass, const CIMObjectPath& association,
                               const OperationContext& context);
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
