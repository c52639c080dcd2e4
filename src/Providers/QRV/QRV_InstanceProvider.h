// The operations of an instance provider: the steps that all classes share, once, with the points
// at which a class may differ.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "QRV_OperationFrame.h"
#include "QRV_StoredClass.h"

namespace Pegasus {

/// What the CIM server calls on a provider class that derives from it, `class Provider : public
/// InstanceProvider<Provider>`, and that makes it its friend. `Interfaces` stand before the
/// instance interface; a class with methods derives from CIMMethodProvider behind this template.
///
/// A class gives `_frame()` and `_buildInstances(path, shape)`, the instances that answer for a
/// path, or all of them when it has no class. Where it differs, it declares a function of the
/// protected part anew, and its own counts. An instance can't be modified, created or deleted
/// unless the class overrides that.
template <class Provider, class... Interfaces>
class InstanceProvider : public Interfaces..., public CIMInstanceProvider {
  public:
    /// Destroys the provider.
    void terminate() override { delete this; }

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     const Boolean includeQualifiers, const Boolean includeClassOrigin,
                     const CIMPropertyList& propertyList,
                     InstanceResponseHandler& handler) override {
        const OperationTrace trace(_frameOfSelf().provider, "getInstance");
        openArray(_frameOfSelf(), context);
        _self()._checkPath(instanceName);
        _self()._getInstance(context, instanceName,
                             {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            const Boolean includeQualifiers, const Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList,
                            InstanceResponseHandler& handler) override {
        const OperationTrace trace(_frameOfSelf().provider, "enumerateInstances");
        if (_self()._beginEnumeration(context, classReference, "enumerateInstances"))
            _self()._enumerateInstances(
                context, {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler) override {
        const OperationTrace trace(_frameOfSelf().provider, "enumerateInstanceNames");
        if (_self()._beginEnumeration(context, classReference, "enumerateInstanceNames"))
            _self()._enumerateInstanceNames(context, handler);
    }

    void modifyInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        const Boolean, const CIMPropertyList&, ResponseHandler&) override {
        refuse(_frameOfSelf(), "modifyInstance");
    }

    void createInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        ObjectPathResponseHandler&) override {
        refuse(_frameOfSelf(), "createInstance");
    }

    void deleteInstance(const OperationContext&, const CIMObjectPath&, ResponseHandler&) override {
        refuse(_frameOfSelf(), "deleteInstance");
    }

  protected:
    InstanceProvider() = default;
    ~InstanceProvider() override = default;

    /// Throws when a path can't name an instance of the class.
    void _checkPath(const CIMObjectPath& instanceName) {
        checkClass(_frameOfSelf(), instanceName.getClassName());
        checkKeyCount(_frameOfSelf(), instanceName);
    }

    /// The answer to a getInstance with such a path.
    void _getInstance(const OperationContext&, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler) {
        deliverFound(_frameOfSelf(), _self()._buildInstances(instanceName, shape), handler);
    }

    /// The steps of an enumeration before it builds. Whether it is to be answered.
    bool _beginEnumeration(const OperationContext& context, const CIMObjectPath& classReference,
                           const char* /*operation*/) {
        beginEnumeration(_frameOfSelf(), context, classReference);
        return true;
    }

    void _enumerateInstances(const OperationContext&, const InstanceShape& shape,
                             InstanceResponseHandler& handler) {
        deliverInstances(_self()._buildInstances(CIMObjectPath(), shape), handler);
    }

    void _enumerateInstanceNames(const OperationContext&, ObjectPathResponseHandler& handler) {
        deliverPaths(_self()._buildInstances(CIMObjectPath(), {}), handler);
    }

    Provider& _self() { return static_cast<Provider&>(*this); }
    const ProviderFrame& _frameOfSelf() { return _self()._frame(); }
};

}  // namespace Pegasus
