// The associations between rights and those that hold them.
//
// Two classes are of this shape; they differ in who these are and in how they are found.
#pragma once

#include "../QRV_AssociationProvider.h"

namespace Pegasus {

/// A provider of such a class, which has a `_nodeAddress`.
template <class Provider>
class PrivilegedElementProvider : public AssociationProvider<Provider> {
  protected:
    static constexpr int REFUSAL_LEVEL = 3;

    /// The answer begins before the array is asked.
    void _referenceNames(const OperationContext& context, const AssociationRequest& request,
                         ObjectPathResponseHandler& handler) {
        handler.processing();
        const Array<CIMInstance> found =
            this->_self()._buildAssociationInstances(request.objectName, context, {});
        for (Uint32 i = 0; i < found.size(); ++i) handler.deliver(found[i].getPath());
        handler.complete();
    }

    CIMInstance _build(CIMClass& cimClass, const CIMObjectPath& privilege,
                       const CIMObjectPath& element) {
        return QRV_Common::buildAssocInstance(this->_frameOfSelf().qrvClass, "Privilege",
                                              "PrivilegedElement", privilege, element, cimClass,
                                              this->_self()._nodeAddress, "root/qrv");
    }

    /// Appends the associations between an object and each that is related to it.
    void _link(Array<CIMInstance>& found, CIMClass& cimClass, const CIMObjectPath& objectName,
               const CIMName& elementClass, const Array<CIMObjectPath>& related) {
        const bool fromPrivilege = objectName.getClassName().equal("QRV_AuthorizedPrivilege");
        const bool fromElement = objectName.getClassName().equal(elementClass);
        for (Uint32 i = 0; i < related.size(); ++i) {
            if (fromPrivilege) found.append(_build(cimClass, objectName, related[i]));
            if (fromElement) found.append(_build(cimClass, related[i], objectName));
        }
    }
};

}  // namespace Pegasus
