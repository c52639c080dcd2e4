// The operations of the classes that link rights to controllers.
//
// Two classes are of this shape, one for each transport.
#pragma once

#include "../QRV_AssociationFrame.h"
#include "../QRV_StoredClass.h"
#include "../QRV_StringTable.h"
#include "QRV_Controllers.h"

namespace Pegasus {

/// What makes one such class.
struct ControllerPrivilegeKind {
    ProviderFrame frame;
    AssociationRules rules;
    CIMName associationClass;
};

/// The class for these controllers; `associatorResults` are the result classes it takes. `provider`
/// outlives the result.
ControllerPrivilegeKind controllerPrivilegeKind(const char* provider,
                                                const Controllers& controllers,
                                                const ClassNames& associatorResults);

/// One such class at work, over the members of its provider, which outlive it.
class ControllerPrivilege {
  public:
    ControllerPrivilege(const ControllerPrivilegeKind& kind, CIMOMHandle& cimom, String& systemName,
                        String& systemAddress, hashtable_t* table)
        : _kind(kind),
          _cimom(cimom),
          _systemName(systemName),
          _systemAddress(systemAddress),
          _table(table) {}

    /// Whether the request is a valid one about an object that exists. When it isn't, the operation
    /// ends without touching its handler.
    bool accepts(const OperationContext& context, const AssociationRequest& request);

    /// What is related to an object, and the associations that link it: all of them when
    /// `objectName` has no class.
    Array<CIMInstance> related(const CIMObjectPath& objectName, const OperationContext& context,
                               const InstanceShape& shape);
    Array<CIMInstance> associations(const CIMObjectPath& objectName,
                                    const OperationContext& context, const InstanceShape& shape);

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     const InstanceShape& shape, InstanceResponseHandler& handler);

    /// Nothing at all when there is no association.
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            const InstanceShape& shape, InstanceResponseHandler& handler);
    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler);

  private:
    const ControllerPrivilegeKind& _kind;
    CIMOMHandle& _cimom;
    String& _systemName;
    String& _systemAddress;
    hashtable_t* _table;
};

}  // namespace Pegasus
