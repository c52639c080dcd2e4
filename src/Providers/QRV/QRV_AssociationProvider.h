// The operations of an association provider: the steps that all such classes share, once, with the
// points at which a class may differ.
#pragma once

#include <Pegasus/Provider/CIMAssociationProvider.h>

#include "QRV_AssociationFrame.h"
#include "QRV_InstanceProvider.h"
#include "QRV_PathMatcher.h"

namespace Pegasus {

/// What the CIM server calls on a provider class that derives from it, `class Provider : public
/// AssociationProvider<Provider>`, and that makes it its friend.
///
/// A class gives
///  - `_frame()` and `static const AssociationRules& _rules()`,
///  - its handle `_cimom` to the server, and
///  - `_getRelatedInstances(objectName, context, shape)`, the objects at the far ends,
///  - `_buildAssociationInstances(objectName, context, shape)`, the associations of an object,
///  - `_buildAllAssociationInstances(context, shape)`, all of them.
///
/// Where it differs, it declares a function or constant of the protected part anew, and its own
/// counts.
template <class Provider>
class AssociationProvider : public InstanceProvider<Provider, CIMAssociationProvider> {
  public:
    void associators(const OperationContext& context, const CIMObjectPath& objectName,
                     const CIMName& associationClass, const CIMName& resultClass,
                     const String& role, const String& resultRole, const Boolean includeQualifiers,
                     const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                     ObjectResponseHandler& handler) override {
        const OperationTrace trace(_frameOfSelf().provider, "associators");
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
        const OperationTrace trace(_frameOfSelf().provider, "associatorNames");
        const AssociationRequest request{"associatorNames", objectName, associationClass,
                                         resultClass,       role,       resultRole};
        if (_self()._accepts(context, request)) _self()._associatorNames(context, request, handler);
    }

    void references(const OperationContext& context, const CIMObjectPath& objectName,
                    const CIMName& resultClass, const String& role, const Boolean includeQualifiers,
                    const Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                    ObjectResponseHandler& handler) override {
        const OperationTrace trace(_frameOfSelf().provider, "references");
        const AssociationRequest request{"references", objectName, CIMName(),
                                         resultClass,  role,       String::EMPTY};
        if (_self()._accepts(context, request))
            _self()._references(context, request,
                                {includeQualifiers, includeClassOrigin, propertyList}, handler);
    }

    void referenceNames(const OperationContext& context, const CIMObjectPath& objectName,
                        const CIMName& resultClass, const String& role,
                        ObjectPathResponseHandler& handler) override {
        const OperationTrace trace(_frameOfSelf().provider, "referenceNames");
        const AssociationRequest request{"referenceNames", objectName, CIMName(),
                                         resultClass,      role,       String::EMPTY};
        if (_self()._accepts(context, request)) _self()._referenceNames(context, request, handler);
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
        return beginAssociation(_frameOfSelf(), Provider::_rules(), Provider::REFUSAL_LEVEL,
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

    /// The answer to a getInstance with such a path.
    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler) {
        deliverFound(_frameOfSelf(),
                     matching(instanceName,
                              _self()._buildAssociationInstances(instanceName, context, shape)),
                     handler);
    }

    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler) {
        deliverInstances(_self()._buildAllAssociationInstances(context, shape), handler);
    }

    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler) {
        deliverPaths(_self()._buildAllAssociationInstances(context, {}), handler);
    }

    using InstanceProvider<Provider, CIMAssociationProvider>::_self;
    using InstanceProvider<Provider, CIMAssociationProvider>::_frameOfSelf;
};

}  // namespace Pegasus
