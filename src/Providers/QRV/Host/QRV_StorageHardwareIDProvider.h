// Shows each initiator that the array knows as one read-only QRV_StorageHardwareID.
#pragma once

#include "../QRV_InstanceProvider.h"
#include "../QRV_StringTable.h"

namespace Pegasus {

/// CIM_StorageHardwareID.IDType
enum IDType : Uint16 { PORT_WWN = 2, ISCSI_NAME = 5 };

/// Instance provider of QRV_StorageHardwareID. Operations may run at once on any number of threads.
class QRV_StorageHardwareIDProvider : public InstanceProvider<QRV_StorageHardwareIDProvider> {
  public:
    QRV_StorageHardwareIDProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageHardwareIDProvider(const CIMObjectPath&);

    ~QRV_StorageHardwareIDProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// The object path of the hardware ID with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(String nodeAddress, String instanceID);

    /// Whether the path's InstanceID has the prefix of a Fibre Channel WWN or of an iSCSI name. The
    /// prefixes heed case.
    PEGASUS_EXPORT static Boolean isFCStorageHardwareID(const CIMObjectPath& path);
    PEGASUS_EXPORT static Boolean isISCSIStorageHardwareID(const CIMObjectPath& path);

    /// The WWN or iSCSI name behind the prefix of the path's InstanceID; empty without such a
    /// prefix.
    PEGASUS_EXPORT static String extractHostWWNOrISCSIName(const CIMObjectPath& path);

    /// The InstanceID of a WWN, as 16 upper-case hexadecimal digits, or of an iSCSI name.
    PEGASUS_EXPORT static String makeFCHardwareIDInstanceID(String& wwn);
    PEGASUS_EXPORT static String makeISCSIHardwareIDInstanceID(String& name);

    /// One instance for each of `pathCount` initiators of the host `hostName`, in their order, with
    /// no regard to repeated ones. Null arguments or no path give no instance and a log line. The
    /// records stay the caller's.
    PEGASUS_EXPORT static Array<CIMInstance> buildInstance(const String& sysAddr,
                                                           CIMClass& storageHardwareIDClass,
                                                           const char* hostName,
                                                           api_HostPath_t* pHostPaths,
                                                           unsigned int pathCount);

  private:
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    class Selection;

    Selection _select(const CIMObjectPath& path) const;
    void _chooseOnce(Selection& selection, const String& wanted) const;
    Array<CIMInstance> _buildInstances(const CIMObjectPath& path, const InstanceShape& shape);
    template <class Handler, class Deliver>
    void _enumerate(const InstanceShape& shape, Handler& handler, Deliver deliver);

    CIMOMHandle _cimom;
    String _nodeAddress;
    StringTable _stringHashTable;
};

}  // namespace Pegasus
