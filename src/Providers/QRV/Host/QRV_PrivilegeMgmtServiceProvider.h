// The service to which the rights of initiators belong.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

/// Instance and method provider of QRV_PrivilegeManagementService, of which there is one. It stands
/// for the privileges as a whole; they follow from the VLUNs, so each of its methods fails.
class QRV_PrivilegeMgmtServiceProvider : public CIMInstanceProvider, public CIMMethodProvider {
  public:
    QRV_PrivilegeMgmtServiceProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_PrivilegeMgmtServiceProvider(const CIMObjectPath&);

    ~QRV_PrivilegeMgmtServiceProvider() override;

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

    void invokeMethod(const OperationContext& context, const CIMObjectPath& objectRef,
                      const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                      MethodResultResponseHandler& handler) override;

  private:
    CIMObjectPath _buildInstanceName();
    CIMInstance _buildInstance(Boolean includeQualifiers, Boolean includeClassOrigin,
                               const CIMPropertyList& propertyList);

    CIMOMHandle _cimom;
    String _systemName;
    String _name;
    String _systemAddress;
    CIMObjectPath _instanceName;
};

}  // namespace Pegasus
