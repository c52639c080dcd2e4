// The associations between the one storage system and the elements that it hosts or offers.
//
// Three classes are of this shape; they differ in names, in which requests they take and in what
// they log.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "../QRV_AssociationProvider.h"

namespace Pegasus {

/// What makes one such class.
struct HostedAssociationKind {
    ProviderFrame frame;
    AssociationRules rules;
    String systemRole;   ///< the end at which the system stands
    String elementRole;  ///< the other end

    /// How a source object that doesn't exist is logged, by the operations that give instances and
    /// by those that give names.
    int missingSourceLevel;
    const char* missingSourceOfInstances;
    const char* missingSourceOfNames;
};

/// One such class at work, over the members of its provider, which outlive it.
class HostedAssociation {
  public:
    HostedAssociation(const HostedAssociationKind& kind, CIMOMHandle& cimom,
                      const CIMName& systemClass, const CIMName& associationClass,
                      const CIMName& elementClass, const CIMObjectPath& systemPath,
                      const String& systemAddress)
        : _kind(kind),
          _cimom(cimom),
          _systemClass(systemClass),
          _associationClass(associationClass),
          _elementClass(elementClass),
          _systemPath(systemPath),
          _systemAddress(systemAddress) {}

    /// The associations of one object, or all of them when `objectName` has no class.
    Array<CIMInstance> associations(const CIMObjectPath& objectName,
                                    const OperationContext& context, const InstanceShape& shape);

    /// Everything at the far side of an object that exists: all elements from the system, the
    /// system from an element.
    Array<CIMInstance> relatedInstances(const CIMObjectPath& objectName,
                                        const OperationContext& context,
                                        const InstanceShape& shape);
    Array<CIMObjectPath> relatedNames(const CIMObjectPath& objectName,
                                      const OperationContext& context);

  private:
    CIMName farClass(const CIMObjectPath& objectName) const;
    CIMInstance build(CIMClass& cimClass, const CIMObjectPath& system,
                      const CIMObjectPath& element) const;
    Array<CIMInstance> allAssociations(CIMClass& cimClass, const OperationContext& context);

    const HostedAssociationKind& _kind;
    CIMOMHandle& _cimom;
    const CIMName& _systemClass;
    const CIMName& _associationClass;
    const CIMName& _elementClass;
    const CIMObjectPath& _systemPath;
    const String& _systemAddress;
};

/// A provider of such a class, which has a `_kind()` and an `_association()` over its members.
template <class Provider>
class HostedAssociationProvider : public AssociationProvider<Provider> {
  protected:
    static const ProviderFrame& _frame() { return Provider::_kind().frame; }
    static const AssociationRules& _rules() { return Provider::_kind().rules; }

    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            const InstanceShape& shape) {
        return this->_self()._association().relatedInstances(objectName, context, shape);
    }

    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context) {
        return this->_self()._association().relatedNames(objectName, context);
    }

    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape) {
        return this->_self()._association().associations(objectName, context, shape);
    }

    Array<CIMInstance> _buildAllAssociationInstances(const OperationContext& context,
                                                     const InstanceShape& shape) {
        return _buildAssociationInstances(CIMObjectPath(), context, shape);
    }

    /// An association is named by its ends alone: the path's class plays no part.
    void _checkPath(const CIMObjectPath& instanceName) { checkKeyCount(_frame(), instanceName); }

    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler) {
        deliverFound(_frame(),
                     matching(underClass(instanceName, _frame().qrvClass),
                              _buildAllAssociationInstances(context, shape)),
                     handler);
    }

    /// A request for another class than the association's own does nothing at all.
    bool _beginEnumeration(const OperationContext& context, const CIMObjectPath& classReference,
                           const char*) {
        traceClassName(classReference.getClassName());
        openArray(_frame(), context);
        return classReference.getClassName().equal(_frame().qrvClass);
    }
};

}  // namespace Pegasus
