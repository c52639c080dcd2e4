// The operations of the classes that state a right as one association, from a hardware ID to a
// controller.
//
// Two classes are of this shape, one for each transport.
#pragma once

#include "../QRV_AssociationProvider.h"
#include "../QRV_StringTable.h"
#include "QRV_Controllers.h"

namespace Pegasus {

/// The class for these controllers. `provider` outlives the result.
AssociationKind associatedPrivilegeKind(const char* provider, const Controllers& controllers);

/// One such class at work, over the members of its provider, which outlive it.
class AssociatedPrivilege {
  public:
    AssociatedPrivilege(const AssociationKind& kind, CIMOMHandle& cimom, String& systemName,
                        String& systemAddress, hashtable_t* table)
        : _kind(kind),
          _cimom(cimom),
          _systemName(systemName),
          _systemAddress(systemAddress),
          _table(table) {}

    /// Delivers what an operation of this kind asks for as it is found: what is related to
    /// `objectName`, or all associations when it has no class.
    void walk(const OperationContext& context, const CIMObjectPath& objectName,
              const InstanceShape& shape, cim_method_e method, cim_handler_u handler);

    /// Delivers the association that a path names.
    void getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                     const InstanceShape& shape, InstanceResponseHandler& handler);

  private:
    const AssociationKind& _kind;
    CIMOMHandle& _cimom;
    String& _systemName;
    String& _systemAddress;
    hashtable_t* _table;
};

cim_handler_u handlerOf(ObjectResponseHandler& handler);
cim_handler_u handlerOf(ObjectPathResponseHandler& handler);
cim_handler_u handlerOf(InstanceResponseHandler& handler);

/// A provider of such a class, which has a `_kind()` and its `_privileges()` over its members. No
/// answer is ever collected.
template <class Provider>
class AssociatedPrivilegeProvider : public AssociationProvider<Provider> {
  protected:
    static constexpr int REFUSAL_LEVEL = 3;
    static constexpr int MISSING_SOURCE_LEVEL = 4;

    static const ProviderFrame& _frame() { return Provider::_kind().frame; }
    static const AssociationRules& _rules() { return Provider::_kind().rules; }

    void _associators(const OperationContext& context, const AssociationRequest& request,
                      const InstanceShape& shape, ObjectResponseHandler& handler) {
        _walk(context, request.objectName, shape, QRVCIM_ASSOCIATORS, handler);
    }

    void _associatorNames(const OperationContext& context, const AssociationRequest& request,
                          ObjectPathResponseHandler& handler) {
        _walk(context, request.objectName, {}, QRVCIM_ASSOCIATORNAMES, handler);
    }

    void _references(const OperationContext& context, const AssociationRequest& request,
                     const InstanceShape& shape, ObjectResponseHandler& handler) {
        _walk(context, request.objectName, shape, QRVCIM_REFERENCES, handler);
    }

    void _referenceNames(const OperationContext& context, const AssociationRequest& request,
                         ObjectPathResponseHandler& handler) {
        _walk(context, request.objectName, {}, QRVCIM_REFERENCENAMES, handler);
    }

    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler) {
        this->_self()._privileges().getInstance(context, instanceName, shape, handler);
    }

    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler) {
        _walk(context, CIMObjectPath(), shape, QRVCIM_ENUMERATEINSTANCES, handler);
    }

    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler) {
        _walk(context, CIMObjectPath(), {}, QRVCIM_ENUMERATEINSTANCENAMES, handler);
    }

  private:
    template <class Handler>
    void _walk(const OperationContext& context, const CIMObjectPath& objectName,
               const InstanceShape& shape, cim_method_e method, Handler& handler) {
        this->_self()._privileges().walk(context, objectName, shape, method, handlerOf(handler));
    }
};

}  // namespace Pegasus
