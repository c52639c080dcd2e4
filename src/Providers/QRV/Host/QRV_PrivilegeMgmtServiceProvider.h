// The service to which the rights of initiators belong.
#pragma once

#include <Pegasus/Provider/CIMMethodProvider.h>

#include "../QRV_InstanceProvider.h"

namespace Pegasus {

/// Instance and method provider of QRV_PrivilegeManagementService, of which there is one. It stands
/// for the privileges as a whole; they follow from the VLUNs, so each of its methods fails.
class QRV_PrivilegeMgmtServiceProvider : public InstanceProvider<QRV_PrivilegeMgmtServiceProvider>,
                                         public CIMMethodProvider {
  public:
    QRV_PrivilegeMgmtServiceProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_PrivilegeMgmtServiceProvider(const CIMObjectPath&);

    ~QRV_PrivilegeMgmtServiceProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    void invokeMethod(const OperationContext& context, const CIMObjectPath& objectRef,
                      const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                      MethodResultResponseHandler& handler) override;

  private:
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    static void _checkPath(const CIMObjectPath& instanceName);
    static bool _beginEnumeration(const OperationContext& context,
                                  const CIMObjectPath& classReference, const char* operation);
    Array<CIMInstance> _buildInstances(const CIMObjectPath& path, const InstanceShape& shape);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    CIMObjectPath _buildInstanceName();
    CIMInstance _buildInstance(const InstanceShape& shape);

    CIMOMHandle _cimom;
    String _systemName;
    String _name;
    String _systemAddress;
    CIMObjectPath _instanceName;
};

}  // namespace Pegasus
