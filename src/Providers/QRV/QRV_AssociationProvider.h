// The operations of an association provider: the steps that all such classes share, once, with the
// points at which a class may differ.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "QRV_AssociationFrame.h"
#include "QRV_PathMatcher.h"
#include "QRV_StoredClass.h"

namespace Pegasus {

/// What the CIM server calls on a provider class that derives from it, `class Provider : public
/// AssociationProvider<Provider>`, and that makes it its friend.
///
/// A class gives
///  - `static const ProviderFrame& _frame()` and `static const AssociationRules& _rules()`,
///  - its handle `_cimom` to the server, and
///  - `_getRelatedInstances(objectName, context, shape)`, the objects at the far ends,
///  - `_buildAssociationInstances(objectName, context, shape)`, the associations of an object,
///  - `_buildAllAssociationInstances(context, shape)`, all of them.
///
/// Where it differs, it declares a function or constant of the protected part anew, and its own
/// counts.
template <class Provider>
class AssociationProvider : public CIMAssociationProvider, public CIMInstanceProvider {
  public:
    /// Destroys the provider.
    void terminate() override { delete this; }

    void associators(const OperationContext& context, const CIMObjectPath& objectName,
                     const CIMName& associationClass, const CIMName& resultClass,
                     const String& role, const String& resultRole, const Boolean includeQualifiers,
                     const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                     ObjectResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "associators");
        const AssociationRequest request{"associators", objectName, associationClass,
                                         resultClass,   role,       resultRole};
        if (_self()._accepts(context, request))
            _self()._associators(context, request,
                                 {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void associatorNames(const OperationContext& context, const CIMObjectPath& objectName,
                         const CIMName& associationClass, const CIMName& resultClass,
                         const String& role, const String& resultRole,
                         ObjectPathResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "associatorNames");
        const AssociationRequest request{"associatorNames", objectName, associationClass,
                                         resultClass,       role,       resultRole};
        if (_self()._accepts(context, request)) _self()._associatorNames(context, request, handler);
    }

    void references(const OperationContext& context, const CIMObjectPath& objectName,
                    const CIMName& resultClass, const String& role, const Boolean includeQualifiers,
                    const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                    ObjectResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "references");
        const AssociationRequest request{"references", objectName, CIMName(),
                                         resultClass,  role,       String::EMPTY};
        if (_self()._accepts(context, request))
            _self()._references(context, request,
                                {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void referenceNames(const OperationContext& context, const CIMObjectPath& objectName,
                        const CIMName& resultClass, const String& role,
                        ObjectPathResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "referenceNames");
        const AssociationRequest request{"referenceNames", objectName, CIMName(),
                                         resultClass,      role,       String::EMPTY};
        if (_self()._accepts(context, request)) _self()._referenceNames(context, request, handler);
    }

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     const Boolean includeQualifiers, const Boolean includeClassOrigin,
                     const CIMPropertyList& propertyList,
                     InstanceResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "getInstance");
        openArray(Provider::_frame(), context);
        _self()._checkPath(instanceName);
        _self()._getInstance(context, instanceName,
                             {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            const Boolean includeQualifiers, const Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList,
                            InstanceResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "enumerateInstances");
        if (_self()._beginEnumeration(context, classReference, "enumerateInstances"))
            _self()._enumerateInstances(
                context, {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler) override {
        const OperationTrace trace(_provider(), "enumerateInstanceNames");
        if (_self()._beginEnumeration(context, classReference, "enumerateInstanceNames"))
            _self()._enumerateInstanceNames(context, handler);
    }

    void modifyInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        const Boolean, const CIMPropertyList&, ResponseHandler&) override {
        refuse(Provider::_frame(), "modifyInstance");
    }

    void createInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        ObjectPathResponseHandler&) override {
        refuse(Provider::_frame(), "createInstance");
    }

    void deleteInstance(const OperationContext&, const CIMObjectPath&, ResponseHandler&) override {
        refuse(Provider::_frame(), "deleteInstance");
    }

  protected:
    /// The level at which a refused request is logged.
    static constexpr int REFUSAL_LEVEL = 2;

    /// The level at which a source object is logged that doesn't exist; 0 for a class that doesn't
    /// ask whether it does.
    static constexpr int MISSING_SOURCE_LEVEL = 0;

    /// Whether the request is a valid one. When it isn't, the operation ends without touching its
    /// handler.
    bool _accepts(const OperationContext& context, const AssociationRequest& request) {
        return beginAssociation(Provider::_frame(), Provider::_rules(), Provider::REFUSAL_LEVEL,
                                context, request) &&
               (Provider::MISSING_SOURCE_LEVEL == 0 ||
                sourceExists(_self()._cimom, context, request.objectName,
                             Provider::MISSING_SOURCE_LEVEL));
    }

    /// The answers to a valid request.
    void _associators(const OperationContext& context, const AssociationRequest& request,
                      const InstanceShape& shape, ObjectResponseHandler& handler) {
        deliverObjects(_self()._getRelatedInstances(request.objectName, context, shape), handler);
    }

    void _associatorNames(const OperationContext& context, const AssociationRequest& request,
                          ObjectPathResponseHandler& handler) {
        deliverPaths(_self()._getRelatedInstanceNames(request.objectName, context), handler);
    }

    void _references(const OperationContext& context, const AssociationRequest& request,
                     const InstanceShape& shape, ObjectResponseHandler& handler) {
        deliverObjects(_self()._buildAssociationInstances(request.objectName, context, shape),
                       handler);
    }

    void _referenceNames(const OperationContext& context, const AssociationRequest& request,
                         ObjectPathResponseHandler& handler) {
        deliverPaths(_self()._buildAssociationInstances(request.objectName, context, {}), handler);
    }

    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context) {
        return pathsOf(_self()._getRelatedInstances(objectName, context, {}));
    }

    /// Throws when a path can't name an instance of the class.
    void _checkPath(const CIMObjectPath& instanceName) {
        checkClass(Provider::_frame(), instanceName.getClassName());
        checkKeyCount(Provider::_frame(), instanceName);
    }

    /// The answer to a getInstance with such a path.
    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler) {
        deliverFound(Provider::_frame(),
                     matching(instanceName,
                              _self()._buildAssociationInstances(instanceName, context, shape)),
                     handler);
    }

    /// The steps of an enumeration before it builds. Whether it is to be answered.
    bool _beginEnumeration(const OperationContext& context, const CIMObjectPath& classReference,
                           const char*) {
        beginEnumeration(Provider::_frame(), context, classReference);
        return true;
    }

    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler) {
        deliverInstances(_self()._buildAllAssociationInstances(context, shape), handler);
    }

    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler) {
        deliverPaths(_self()._buildAllAssociationInstances(context, {}), handler);
    }

    AssociationProvider() = default;
    ~AssociationProvider() override = default;

    Provider& _self() { return static_cast<Provider&>(*this); }

  private:
    static const char* _provider() { return Provider::_frame().provider; }
};

}  // namespace Pegasus
