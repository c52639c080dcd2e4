// States each initiator's right on an iSCSI controller as one association.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "../QRV_Common.h"

namespace Pegasus {

class AssociatedPrivilege;

/// Association and instance provider of QRV_iSPCAssociatedPrivilege, from QRV_StorageHardwareID to
/// QRV_iSCSIController. It answers as QRV_SPCAssociatedPrivilegeProvider does, with a table of its
/// own.
class QRV_iSPCAssociatedPrivilegeProvider : public CIMAssociationProvider,
                                            public CIMInstanceProvider {
  public:
    QRV_iSPCAssociatedPrivilegeProvider();
    ~QRV_iSPCAssociatedPrivilegeProvider() override;

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
    AssociatedPrivilege _privileges();

    CIMOMHandle _cimom;
    String _systemAddress;
    String _systemName;
    hashtable_t* _stringHashTable;
};

}  // namespace Pegasus
