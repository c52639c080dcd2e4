// Shows the system itself: classes that have exactly one instance.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

/// What one such class is made of.
struct SystemElement;

/// QRV_StorageSystem, the array as a whole; QRV_SystemPackage, its cabinet; QRV_StorageSystemView,
/// both in one object for clients that want a summary.
extern const SystemElement STORAGE_SYSTEM;
extern const SystemElement SYSTEM_PACKAGE;
extern const SystemElement STORAGE_SYSTEM_VIEW;

/// Instance provider of one class with one read-only instance.
class QRV_SystemElementProvider : public CIMInstanceProvider {
  public:
    /// `element` outlives the provider.
    explicit QRV_SystemElementProvider(const SystemElement& element) : _element(element) {}

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
    CIMInstance _build(Boolean includeQualifiers, Boolean includeClassOrigin,
                       const CIMPropertyList& propertyList);

    const SystemElement& _element;
    CIMOMHandle _cimom;
    String _hostName;
};

}  // namespace Pegasus
