// Shows each domain set of the array as one read-only QRV_StorageDomainGroup.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

/// Instance provider of QRV_StorageHardwareIDCollection. Operations may run at once on any number
/// of threads.
class QRV_StorageDomainGroup : public CIMInstanceProvider {
  public:
    QRV_StorageDomainGroup();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageDomainGroup(const CIMObjectPath&);

    ~QRV_StorageDomainGroup() override;

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
    void deleteInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        ResponseHandler& handler) override;

    /// The object path of the group of the domain set with this name, and with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildObjectPath(String systemAddress, String setName);
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(String nodeAddress, String instanceID);

  private:
    Array<CIMInstance> _buildInstances(const OperationContext& context,
                                       const CIMObjectPath& instanceReference,
                                       Boolean includeQualifiers, Boolean includeClassOrigin,
                                       const CIMPropertyList& propertyList);

    static CIMInstance buildInstance(const api_set_t* pSet, CIMClass& domainGroupClass,
                                     const String& systemAddress);

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus
