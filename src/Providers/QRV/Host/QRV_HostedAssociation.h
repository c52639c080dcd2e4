// The associations between the one storage system and the elements that it hosts or offers.
//
// Three classes are of this shape; they differ in names, in which requests they take and in what
// they log.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "../QRV_AssociationFrame.h"

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
                                    const OperationContext& context, Boolean includeQualifiers,
                                    Boolean includeClassOrigin,
                                    const CIMPropertyList& propertyList);

    /// Everything at the far side of an object that exists: all elements from the system, the
    /// system from an element.
    Array<CIMInstance> relatedInstances(const CIMObjectPath& objectName,
                                        const OperationContext& context, Boolean includeQualifiers,
                                        Boolean includeClassOrigin,
                                        const CIMPropertyList& propertyList);
    Array<CIMObjectPath> relatedNames(const CIMObjectPath& objectName,
                                      const OperationContext& context);

    /// getInstance, with no look at the path's class.
    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     Boolean includeQualifiers, Boolean includeClassOrigin,
                     const CIMPropertyList& propertyList, InstanceResponseHandler& handler);

    /// The enumerations. A request for another class than the association's own does nothing at
    /// all.
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            Boolean includeQualifiers, Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList, InstanceResponseHandler& handler);
    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler);

  private:
    bool isOwnClass(const OperationContext& context, const CIMObjectPath& classReference);
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

}  // namespace Pegasus
