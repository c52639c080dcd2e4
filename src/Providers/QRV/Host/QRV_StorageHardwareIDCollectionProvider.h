// Shows each host of the array as one QRV_StorageHardwareIDCollection, and changes and removes
// hosts.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

/// Instance provider of QRV_StorageHardwareIDCollection. Operations may run at once on any number
/// of threads.
class QRV_StorageHardwareIDCollectionProvider : public CIMInstanceProvider {
  public:
    QRV_StorageHardwareIDCollectionProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageHardwareIDCollectionProvider(const CIMObjectPath&);

    ~QRV_StorageHardwareIDCollectionProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// Destroys the provider.
    void terminate() override;

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
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

    /// Sets the host's persona (HostPersonaID) and then its domain (Domain; an empty one takes the
    /// host out of its domain). Nothing else can be set. The persona stands even if the domain is
    /// refused.
    void modifyInstance(const OperationContext& context, const CIMObjectPath& objectRef,
                        const CIMInstance& instanceObject, const Boolean includeQualifiers,
                        const CIMPropertyList& propertyList, ResponseHandler& handler) override;

    void createInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        const CIMInstance& instanceObject,
                        ObjectPathResponseHandler& handler) override;

    /// Removes the host from the array.
    void deleteInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        ResponseHandler& handler) override;

    /// The object path of the collection with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(String nodeAddress, String instanceID);

  private:
    Array<CIMInstance> _buildInstances(const OperationContext& context,
                                       const CIMObjectPath& instanceReference,
                                       Boolean includeQualifiers, Boolean includeClassOrigin,
                                       const CIMPropertyList& propertyList);

    CIMOMHandle _cimom;
    String _nodeAddress;
};

}  // namespace Pegasus
