// The operations of the classes that state a right as one association, from a hardware ID to a
// controller.
//
// Two classes are of this shape, one for each transport.
#pragma once

#include "../QRV_AssociationFrame.h"
#include "../QRV_StoredClass.h"
#include "../QRV_StringTable.h"
#include "QRV_Controllers.h"

namespace Pegasus {

/// What makes one such class.
struct AssociatedPrivilegeKind {
    ProviderFrame frame;
    AssociationRules rules;
    CIMName associationClass;
};

/// The class for these controllers. `provider` outlives the result.
AssociatedPrivilegeKind associatedPrivilegeKind(const char* provider,
                                                const Controllers& controllers);

/// One such class at work, over the members of its provider, which outlive it.
class AssociatedPrivilege {
  public:
    AssociatedPrivilege(const AssociatedPrivilegeKind& kind, CIMOMHandle& cimom, String& systemName,
                        String& systemAddress, hashtable_t* table)
        : _kind(kind),
          _cimom(cimom),
          _systemName(systemName),
          _systemAddress(systemAddress),
          _table(table) {}

    void associators(const OperationContext& context, const AssociationRequest& request,
                     const InstanceShape& shape, ObjectResponseHandler& handler);
    void associatorNames(const OperationContext& context, const AssociationRequest& request,
                         ObjectPathResponseHandler& handler);
    void references(const OperationContext& context, const AssociationRequest& request,
                    const InstanceShape& shape, ObjectResponseHandler& handler);
    void referenceNames(const OperationContext& context, const AssociationRequest& request,
                        ObjectPathResponseHandler& handler);

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     const InstanceShape& shape, InstanceResponseHandler& handler);
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            const InstanceShape& shape, InstanceResponseHandler& handler);
    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler);

  private:
    void answer(const OperationContext& context, const AssociationRequest& request,
                const InstanceShape& shape, cim_method_e method, cim_handler_u handler);
    void walk(const OperationContext& context, const CIMObjectPath& objectName,
              const InstanceShape& shape, cim_method_e method, cim_handler_u handler);

    const AssociatedPrivilegeKind& _kind;
    CIMOMHandle& _cimom;
    String& _systemName;
    String& _systemAddress;
    hashtable_t* _table;
};

}  // namespace Pegasus
