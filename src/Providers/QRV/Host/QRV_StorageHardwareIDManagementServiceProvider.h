// The service through which clients change the array's hosts.
#pragma once

#include <Pegasus/Provider/CIMMethodProvider.h>

#include <qrvapi.h>

#include "../QRV_InstanceProvider.h"

namespace Pegasus {

/// Instance and method provider of QRV_StorageHardwareIDManagementService, of which there is one.
/// Operations may run at once on any number of threads.
///
/// A method either delivers the return value 0 or throws a CIMException that carries the method's
/// own return code and the reason. A method that throws has changed nothing, unless it says
/// otherwise.
class QRV_StorageHardwareIDManagementServiceProvider
    : public InstanceProvider<QRV_StorageHardwareIDManagementServiceProvider>,
      public CIMMethodProvider {
  public:
    QRV_StorageHardwareIDManagementServiceProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageHardwareIDManagementServiceProvider(const CIMObjectPath&);

    ~QRV_StorageHardwareIDManagementServiceProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    void invokeMethod(const OperationContext& context, const CIMObjectPath& objectRef,
                      const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                      MethodResultResponseHandler& handler) override;

  private:
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    Array<CIMInstance> _buildInstances(const CIMObjectPath& path, const InstanceShape& shape);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    void _buildInstanceName();
    CIMInstance _buildInstance(const InstanceShape& shape);
    void _requireThisService(const CIMObjectPath& path) const;
    void _dispatch(api_evtparam_t* apiEventp, const OperationContext& context,
                   const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                   MethodResultResponseHandler& handler);

    /// Makes an initiator known to the array: creates a host, adds the initiator to one, or leaves
    /// the hosts as they are and sets the persona. A host created or an initiator added stays when
    /// setting the persona then fails.
    void _createStorageHardwareID(api_evtparam_t* apiEventp,
                                  const Array<CIMParamValue>& inParameters,
                                  MethodResultResponseHandler& handler);

    /// Takes an initiator from its host.
    void _deleteStorageHardwareID(api_evtparam_t* apiEventp, const OperationContext& context,
                                  const Array<CIMParamValue>& inParameters,
                                  MethodResultResponseHandler& handler);

    /// Creates a host with any mix of initiators, or with none.
    void _createHardwareIDCollection(api_evtparam_t* apiEventp,
                                     const Array<CIMParamValue>& inParameters,
                                     MethodResultResponseHandler& handler);

    /// Adds initiators to a host.
    void _addHardwareIDsToCollection(api_evtparam_t* apiEventp,
                                     const Array<CIMParamValue>& inParameters,
                                     MethodResultResponseHandler& handler);

    /// Set and remove the CHAP credentials of a host. Secrets appear in no log, text or event.
    void _setISCSICHAP(api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
                       MethodResultResponseHandler& handler);
    void _removeISCSICHAP(api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
                          MethodResultResponseHandler& handler);

    CIMOMHandle _cimom;
    String _systemName;
    String _name;
    String _systemAddress;
    CIMObjectPath _instanceName;
};

}  // namespace Pegasus
