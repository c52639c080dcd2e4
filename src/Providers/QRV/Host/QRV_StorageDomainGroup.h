// Shows each domain set of the array as one read-only QRV_StorageDomainGroup.
#pragma once

#include "../QRV_InstanceProvider.h"

namespace Pegasus {

/// Instance provider of the class of the same name. Operations may run at once on any number of
/// threads.
class QRV_StorageDomainGroup : public InstanceProvider<QRV_StorageDomainGroup> {
  public:
    QRV_StorageDomainGroup();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageDomainGroup(const CIMObjectPath&);

    ~QRV_StorageDomainGroup() override;

    void initialize(CIMOMHandle& cimom) override;

    /// The object path of the group of the domain set with this name, and with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildObjectPath(String systemAddress, String setName);
    PEGASUS_EXPORT static CIMObjectPath buildInstanceName(String nodeAddress, String instanceID);

  private:
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    Array<CIMInstance> _buildInstances(const CIMObjectPath& instanceReference,
                                       const InstanceShape& shape);

    static CIMInstance buildInstance(const api_set_t* pSet, CIMClass& domainGroupClass,
                                     const String& systemAddress);

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus
