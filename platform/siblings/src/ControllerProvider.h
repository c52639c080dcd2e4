// Shows the protocol controllers that VLUNs make, those of one transport.
#pragma once

#include <QRV_InstanceProvider.h>

namespace Pegasus {

/// QRV_SCSIController, on Fibre Channel; QRV_iSCSIController, on iSCSI.
extern const ProviderFrame SCSI_CONTROLLER;
extern const ProviderFrame ISCSI_CONTROLLER;

/// Instance provider of one class of controllers. Enumerations deliver as the array hands out
/// controllers, one chunk at a time. A controller's ElementName may be changed, which renames the
/// host.
class ControllerProvider : public InstanceProvider<ControllerProvider> {
  public:
    /// `frame` outlives the provider.
    explicit ControllerProvider(const ProviderFrame& frame) : _controllers(frame) {}

    void initialize(CIMOMHandle& cimom) override;

    void modifyInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                        const CIMInstance& instance, const Boolean includeQualifiers,
                        const CIMPropertyList& propertyList, ResponseHandler& handler) override;

  private:
    template <class, class...>
    friend class InstanceProvider;

    const ProviderFrame& _frame() const { return _controllers; }
    Array<CIMInstance> _buildInstances(const CIMObjectPath& path, const InstanceShape& shape);
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    template <class Take>
    void _walk(const CIMObjectPath& instanceReference, const InstanceShape& shape, Take take);
    CIMPropertyList _differences(const CIMObjectPath& instanceName, const CIMInstance& instance);

    const ProviderFrame& _controllers;
    CIMOMHandle _cimom;
    String _systemName;
    String _systemAddress;
};

}  // namespace Pegasus
