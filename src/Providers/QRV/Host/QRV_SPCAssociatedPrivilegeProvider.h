// States each initiator's right on a Fibre Channel controller as one association.
#pragma once

#include "QRV_AssociatedPrivilege.h"

namespace Pegasus {

/// Association and instance provider of QRV_SPCAssociatedPrivilege, from QRV_StorageHardwareID to
/// QRV_SCSIController. Answers are delivered as the walk over the VLUNs goes; walks of one provider
/// run one after another. The static operations also serve QRV_iSPCAssociatedPrivilege.
class QRV_SPCAssociatedPrivilegeProvider
    : public AssociatedPrivilegeProvider<QRV_SPCAssociatedPrivilegeProvider> {
  public:
    QRV_SPCAssociatedPrivilegeProvider();
    ~QRV_SPCAssociatedPrivilegeProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// The InstanceIDs of the hardware IDs that a VLUN lets through, in the order of the host's
    /// paths: the initiator that it names, or else those of its host, on its port if it has one. A
    /// VLUN that names neither lets none through. `allHosts` is the list that `vlunPtr->hostIndex`
    /// points into.
    PEGASUS_EXPORT static Array<String> getAssociatedHWIDInstIDs(api_HostsInfo_t& allHosts,
                                                                 api_vlun_t* vlunPtr);

    /// Answers an association operation or an enumeration, told by `method`, through `handler`:
    /// what is related to `objectName`, or all associations of `assocClassName` when it has no
    /// class. A chunk that can't be read, and any exception of the walk, ends the answer as if it
    /// were complete. Without a table, or for another class of association, the handler isn't
    /// touched.
    PEGASUS_EXPORT static void getRelatedInstances(
        CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
        String& systemName, String& systemAddress, CIMName assocClassName,
        Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList,
        hashtable_t* stringHashTable, cim_method_e method, cim_handler_u handler);

    /// Delivers the association that `objectName` names: one whose keys agree with each other and
    /// whose hardware ID can be read. Throws CIMObjectNotFoundException for all others.
    PEGASUS_EXPORT static void deliverAssociationInstance(
        CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
        String& systemName, String& systemAddress, CIMName assocClassName,
        Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList,
        hashtable_t* stringHashTable, cim_method_e method, cim_handler_u handler);

    /// The key of the pair; empty when either text is.
    PEGASUS_EXPORT static String buildUseKey(String& spcDeviceID, String& hwidInstID);

    /// The way back, but `hwidInstID` comes without its vendor mark. A text without vendor mark or
    /// without "::" sets neither.
    PEGASUS_EXPORT static void deReferenceUseKey(String& useKey, String& hwidInstID,
                                                 String& spcDeviceID);

    /// The association of two ends, with its path. Both ends get `systemAddress` as host.
    PEGASUS_EXPORT static CIMInstance buildAssociationInstance(
        CIMOMHandle& cimom, const String& systemAddress, const CIMName& assocClassName,
        const CIMObjectPath& subjectPath, const CIMObjectPath& targetPath, const String& useKey,
        Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList);

    /// The path of the association; the paths of its ends go in as they come.
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(const String& systemAddress,
                                                          const CIMName& assocClassName,
                                                          const String& useKey,
                                                          const CIMObjectPath& subjectPath,
                                                          const CIMObjectPath& targetPath);

  private:
    template <class, class...>
    friend class InstanceProvider;
    template <class>
    friend class AssociationProvider;
    friend class AssociatedPrivilegeProvider<QRV_SPCAssociatedPrivilegeProvider>;

    static const AssociationKind& _kind();
    AssociatedPrivilege _privileges();

    CIMOMHandle _cimom;
    String _systemAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
