// Shows the right of each initiator on each controller, as the VLUNs grant it.
#pragma once

#include "../QRV_InstanceProvider.h"
#include "../QRV_StringTable.h"

namespace Pegasus {

/// Instance provider of QRV_AuthorizedPrivilege. The array has no such object: a privilege stands
/// for a distinct pair of a controller's DeviceID and an initiator in all VLUNs and templates.
/// Walks of one provider run one after another, each with its own chunk of VLUNs; answers of any
/// length are delivered as the walk goes.
class QRV_AuthorizedPrivilegeProvider : public InstanceProvider<QRV_AuthorizedPrivilegeProvider> {
  public:
    QRV_AuthorizedPrivilegeProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_AuthorizedPrivilegeProvider(const CIMObjectPath&);

    ~QRV_AuthorizedPrivilegeProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// The privilege of the hardware ID `initiatorID` on the controller `spcDeviceID`, with its
    /// path on the host `systemAddress`.
    PEGASUS_EXPORT static CIMInstance buildInstance(CIMClass& privclass, String& spcDeviceID,
                                                    String& initiatorID, String& systemAddress);

    /// The path of the privilege with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(String& nodeAddress, String& instanceID);

    /// Walks the VLUNs and builds each privilege once, in the order of first appearance.
    ///
    /// `host`, `vlunType` and `portLPID` narrow what is read; empty, 0 and QRV_NO_PORT don't.
    /// `hwInstID`, a hardware ID's InstanceID without its vendor mark, narrows what is built,
    /// unless empty. With a `handler` each privilege is delivered as it is built, as an instance to
    /// an InstanceResponseHandler or, with `isdeliverPath`, as a path to an
    /// ObjectPathResponseHandler; without one it is appended to `instances`. `hostNames` gets the
    /// name of the VLUN's host for each.
    ///
    /// Without a table nothing is built. A chunk that can't be read throws
    /// CIMOperationFailedException; exceptions of the handler pass. The table is empty and unlocked
    /// afterwards in any event.
    PEGASUS_EXPORT static void buildOrDeliverInstances(
        CIMOMHandle& cimom, String& nodeAddress, Array<String>& hostNames,
        hashtable_t* stringHashTable, Array<CIMInstance>& instances, Boolean includeQualifiers,
        Boolean includeClassOrigin, const CIMPropertyList& propertyList, String host,
        unsigned int vlunType, lpid_t portLPID, String hwInstID, void* handler, int isdeliverPath);

    /// A privilege's InstanceID; empty when either text is.
    PEGASUS_EXPORT static String buildInstanceID(String& spcDeviceID, String& hwidInstID);

    /// The way back, but `hwidInstID` comes without its vendor mark. A text without vendor mark or
    /// without "::" sets neither.
    PEGASUS_EXPORT static void deReferenceInstanceID(String& instanceID, String& hwidInstID,
                                                     String& spcDeviceID);

  private:
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                      const InstanceShape& shape, InstanceResponseHandler& handler);
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    void _buildInstances(const CIMObjectPath& classReference, const InstanceShape& shape,
                         Array<CIMInstance>& instances, void* handler, int isdeliverPath);

    CIMOMHandle _cimom;
    String _nodeAddress;
    String _systemName;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
