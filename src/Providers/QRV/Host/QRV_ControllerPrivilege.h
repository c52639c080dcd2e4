// The operations of the classes that link rights to controllers.
//
// Two classes are of this shape, one for each transport.
#pragma once

#include "../QRV_AssociationProvider.h"
#include "../QRV_StringTable.h"
#include "QRV_Controllers.h"

namespace Pegasus {

/// The class for these controllers; `associatorResults` are the result classes it takes. `provider`
/// outlives the result.
AssociationKind controllerPrivilegeKind(const char* provider, const Controllers& controllers,
                                        const ClassNames& associatorResults);

/// One such class at work, over the members of its provider, which outlive it.
class ControllerPrivilege {
  public:
    ControllerPrivilege(const AssociationKind& kind, CIMOMHandle& cimom, String& systemName,
                        String& systemAddress, hashtable_t* table)
        : _kind(kind),
          _cimom(cimom),
          _systemName(systemName),
          _systemAddress(systemAddress),
          _table(table) {}

    /// What is related to an object, and the associations that link it: all of them when
    /// `objectName` has no class.
    Array<CIMInstance> related(const CIMObjectPath& objectName, const OperationContext& context,
                               const InstanceShape& shape);
    Array<CIMInstance> associations(const CIMObjectPath& objectName,
                                    const OperationContext& context, const InstanceShape& shape);

  private:
    const AssociationKind& _kind;
    CIMOMHandle& _cimom;
    String& _systemName;
    String& _systemAddress;
    hashtable_t* _table;
};

/// A provider of such a class, which has a `_kind()` and its `_privileges()` over its members.
template <class Provider>
class ControllerPrivilegeProvider : public AssociationProvider<Provider> {
  protected:
    static constexpr int REFUSAL_LEVEL = 3;
    static constexpr int MISSING_SOURCE_LEVEL = 4;

    static const ProviderFrame& _frame() { return Provider::_kind().frame; }
    static const AssociationRules& _rules() { return Provider::_kind().rules; }

    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectName,
                                            const OperationContext& context,
                                            const InstanceShape& shape) {
        return this->_self()._privileges().related(objectName, context, shape);
    }

    /// The controllers' provider makes their paths, and gets the whole class for it.
    Array<CIMObjectPath> _getRelatedInstanceNames(const CIMObjectPath& objectName,
                                                  const OperationContext& context) {
        return pathsOf(
            _getRelatedInstances(objectName, context, {false, false, CIMPropertyList()}));
    }

    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectName,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape) {
        return this->_self()._privileges().associations(objectName, context, shape);
    }

    Array<CIMInstance> _buildAllAssociationInstances(const OperationContext& context,
                                                     const InstanceShape& shape) {
        return _buildAssociationInstances(CIMObjectPath(), context, shape);
    }

    /// Nothing at all when there is no association.
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler) {
        const Array<CIMInstance> found = _buildAllAssociationInstances(context, shape);
        if (found.size() > 0) deliverInstances(found, handler);
    }
};

}  // namespace Pegasus
