// The shape of the association operations: the steps that all association classes share.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "QRV_AssociationRequest.h"
#include "QRV_OperationFrame.h"
#include "QRV_PathMatcher.h"

namespace Pegasus {

/// What makes an association class of several that are alike.
struct AssociationKind {
    ProviderFrame frame;
    AssociationRules rules;
};

/// The opening steps of an association operation: trace of the request, open, check of the names.
/// Returns false, with a log line of `refusalLevel`, for a request that is refused: the operation
/// then ends without touching its handler, so the client gets an empty answer and no error.
bool beginAssociation(const ProviderFrame&, const AssociationRules&, int refusalLevel,
                      const OperationContext&, const AssociationRequest&,
                      Uint32 line = __builtin_LINE());

/// The same without the log line, for a class that words its own.
bool openAssociation(const ProviderFrame&, const AssociationRules&, const OperationContext&,
                     const AssociationRequest&, Uint32 line = __builtin_LINE());

/// Asks the server for the source object. Returns false, with a log line of `level` that is `text`
/// with the path in it, when there is none. Exceptions that aren't the CIM server's pass.
bool sourceExists(CIMOMHandle&, const OperationContext&, const CIMObjectPath& objectName, int level,
                  const char* text = "Instance does not exist for object ");

/// The path of the one instance of a class that has to be there. Throws CIMObjectNotFoundException
/// when there is none.
CIMObjectPath requireOnly(CIMOMHandle&, const CIMName& className);

/// Delivers what an operation found, as deliverInstances() does.
void deliverObjects(const Array<CIMInstance>& found, ObjectResponseHandler&);

/// The paths of instances, in their order.
Array<CIMObjectPath> pathsOf(const Array<CIMInstance>& instances);

/// The path that a reference key holds, in this namespace if it tells none; a path without class
/// when there is no such key. Throws MalformedObjectNameException when the key holds no path.
CIMObjectPath referenceKey(const CIMObjectPath& associationPath, const char* role);

/// The instance behind a path, or an uninitialized one when the server can't give it, for whatever
/// reason.
CIMInstance tryGetInstance(CIMOMHandle&, const OperationContext&, const CIMObjectPath& path,
                           Boolean includeQualifiers, Boolean includeClassOrigin,
                           const CIMPropertyList&);

/// What `build()` makes, if the server can give the instance behind `path`; nothing when it can't
/// or when that fails.
template <class Build>
Array<CIMInstance> whenThereIs(CIMOMHandle& cimom, const OperationContext& context,
                               const CIMObjectPath& path, Build build) {
    Array<CIMInstance> built;
    try {
        if (!cimom.getInstance(context, QRV_NAMESPACE, path, false, false, false, CIMPropertyList())
                 .isUninitialized())
            built.append(build());
    } catch (...) {
        // The path names ends that can't be linked.
    }
    return built;
}

}  // namespace Pegasus
