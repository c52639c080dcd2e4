// Links each right to the iSCSI controller that it is about.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

class ControllerPrivilege;

/// Association and instance provider of QRV_PrivilegeForiSCSIController, which links each
/// QRV_AuthorizedPrivilege to its QRV_iSCSIController. It answers as
/// QRV_PrivilegeForSCSIControllerProvider does, with a table of its own.
class QRV_PrivilegeForiSCSIControllerProvider : public CIMAssociationProvider,
                                                public CIMInstanceProvider {
  public:
    QRV_PrivilegeForiSCSIControllerProvider();
    ~QRV_PrivilegeForiSCSIControllerProvider() override;

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
