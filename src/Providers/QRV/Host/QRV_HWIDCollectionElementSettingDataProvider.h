// Links each host to the setting of its persona.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "QRV_ElementSettingAssociation.h"

namespace Pegasus {

/// Association and instance provider of QRV_HWIDCollectionElementSettingData, which links each
/// QRV_StorageHardwareIDCollection to the QRV_StorageClientSettingData of the host's persona. The
/// collections tell it themselves; the array is asked only on the way from one to its setting.
class QRV_HWIDCollectionElementSettingDataProvider : public CIMAssociationProvider,
                                                     public CIMInstanceProvider {
  public:
    QRV_HWIDCollectionElementSettingDataProvider();
    ~QRV_HWIDCollectionElementSettingDataProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// Destroys the provider.
    void terminate() override;

    void associators(const OperationContext& context, const CIMObjectPath& objectPath,
                     const CIMName& associationClass, const CIMName& resultClass,
                     const String& role, const String& resultRole, const Boolean includeQualifiers,
                     const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                     ObjectResponseHandler& handler) override;
    void associatorNames(const OperationContext& context, const CIMObjectPath& objectPath,
                         const CIMName& associationClass, const CIMName& resultClass,
                         const String& role, const String& resultRole,
                         ObjectPathResponseHandler& handler) override;
    void references(const OperationContext& context, const CIMObjectPath& objectPath,
                    const CIMName& resultClass, const String& role, const Boolean includeQualifiers,
                    const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                    ObjectResponseHandler& handler) override;
    void referenceNames(const OperationContext& context, const CIMObjectPath& objectPath,
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
    ElementSettingAssociation _association(const OperationContext& context,
                                           Boolean includeQualifiers, Boolean includeClassOrigin,
                                           const CIMPropertyList& propertyList);
    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectPath,
                                                  const OperationContext& context,
                                                  Boolean includeQualifiers,
                                                  Boolean includeClassOrigin,
                                                  const CIMPropertyList& propertyList);
    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectPath,
                                            const OperationContext& context,
                                            Boolean includeQualifiers, Boolean includeClassOrigin,
                                            const CIMPropertyList& propertyList);
    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectPath,
                                                  const OperationContext& context);

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus
