// Shows the system itself: classes that have exactly one instance.
#pragma once

#include <QRV_InstanceProvider.h>

namespace Pegasus {

/// What one such class is made of.
struct SystemElement;

/// QRV_StorageSystem, the array as a whole; QRV_SystemPackage, its cabinet; QRV_StorageSystemView,
/// both in one object for clients that want a summary.
extern const SystemElement STORAGE_SYSTEM;
extern const SystemElement SYSTEM_PACKAGE;
extern const SystemElement STORAGE_SYSTEM_VIEW;

/// Instance provider of one class with one read-only instance.
class QRV_SystemElementProvider : public InstanceProvider<QRV_SystemElementProvider> {
  public:
    /// `element` outlives the provider.
    explicit QRV_SystemElementProvider(const SystemElement& element) : _element(element) {}

    void initialize(CIMOMHandle& cimom) override;

  private:
    template <class, class...>
    friend class InstanceProvider;

    const ProviderFrame& _frame() const;
    Array<CIMInstance> _buildInstances(const CIMObjectPath& path, const InstanceShape& shape);

    const SystemElement& _element;
    CIMOMHandle _cimom;
    String _hostName;
};

}  // namespace Pegasus
