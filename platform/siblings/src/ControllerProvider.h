// Shows the protocol controllers that VLUNs make, those of one transport.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <QRV_OperationFrame.h>

namespace Pegasus {

/// QRV_SCSIController, on Fibre Channel; QRV_iSCSIController, on iSCSI.
extern const ProviderFrame SCSI_CONTROLLER;
extern const ProviderFrame ISCSI_CONTROLLER;

/// Instance provider of one class of controllers. Enumerations deliver as the array hands out
/// controllers, one chunk at a time. A controller's ElementName may be changed, which renames the
/// host.
class ControllerProvider : public CIMInstanceProvider {
  public:
    /// `frame` outlives the provider.
    explicit ControllerProvider(const ProviderFrame& frame) : _frame(frame) {}

    void initialize(CIMOMHandle& cimom) override;

    /// Destroys the provider.
    void terminate() override;

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
    template <class Take>
    void _walk(const CIMObjectPath& instanceReference, Boolean includeQualifiers,
               Boolean includeClassOrigin, const CIMPropertyList& propertyList, Take take);
    CIMPropertyList _differences(const CIMObjectPath& instanceName, const CIMInstance& instance);

    const ProviderFrame& _frame;
    CIMOMHandle _cimom;
    String _systemName;
    String _systemAddress;
};

}  // namespace Pegasus
