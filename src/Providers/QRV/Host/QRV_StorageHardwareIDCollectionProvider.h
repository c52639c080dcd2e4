// Shows each host of the array as one QRV_StorageHardwareIDCollection, and changes and removes
// hosts.
#pragma once

#include "../QRV_InstanceID.h"
#include "../QRV_InstanceProvider.h"

namespace Pegasus {

/// Instance provider of QRV_StorageHardwareIDCollection. Operations may run at once on any number
/// of threads.
class QRV_StorageHardwareIDCollectionProvider
    : public InstanceProvider<QRV_StorageHardwareIDCollectionProvider> {
  public:
    QRV_StorageHardwareIDCollectionProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageHardwareIDCollectionProvider(const CIMObjectPath&);

    ~QRV_StorageHardwareIDCollectionProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// Sets the host's persona (HostPersonaID) and then its domain (Domain; an empty one takes the
    /// host out of its domain). Nothing else can be set. The persona stands even if the domain is
    /// refused.
    void modifyInstance(const OperationContext& context, const CIMObjectPath& objectRef,
                        const CIMInstance& instanceObject, const Boolean includeQualifiers,
                        const CIMPropertyList& propertyList, ResponseHandler& handler) override;

    /// Removes the host from the array.
    void deleteInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        ResponseHandler& handler) override;

    /// The object path of the collection with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(String nodeAddress, String instanceID);

    /// The object path of the host's collection.
    static CIMObjectPath pathOfHost(const String& nodeAddress, const String& hostName) {
        return buildInstanceName(nodeAddress, markedID(hostName));
    }

  private:
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    Array<CIMInstance> _buildInstances(const CIMObjectPath& instanceReference,
                                       const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _nodeAddress;
};

}  // namespace Pegasus
