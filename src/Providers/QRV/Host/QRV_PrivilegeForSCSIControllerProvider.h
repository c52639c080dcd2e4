// Links each right to the Fibre Channel controller that it is about.
#pragma once

#include "QRV_ControllerPrivilege.h"

namespace Pegasus {

/// Association and instance provider of QRV_PrivilegeForSCSIController, which links each
/// QRV_AuthorizedPrivilege to its QRV_SCSIController. The static operations also serve
/// QRV_PrivilegeForiSCSIController.
class QRV_PrivilegeForSCSIControllerProvider
    : public ControllerPrivilegeProvider<QRV_PrivilegeForSCSIControllerProvider> {
  public:
    QRV_PrivilegeForSCSIControllerProvider();
    ~QRV_PrivilegeForSCSIControllerProvider() override;

    void initialize(CIMOMHandle& cimom) override;

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
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class ControllerPrivilegeProvider<QRV_PrivilegeForSCSIControllerProvider>;

    static const AssociationKind& _kind();
    ControllerPrivilege _privileges();

    CIMOMHandle _cimom;
    String _systemAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
