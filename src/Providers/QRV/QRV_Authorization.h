// Who may run an operation, by what its arguments ask for; exported to the sibling provider
// libraries.
//
// The array keeps rights by permission names, and one method may need different ones: the same
// method creates, grows and renames volumes. Each function looks at the arguments of one method and
// asks the array about the permissions that they need.
//
// All return an api_CimUserAuthorization_t: 0 when the user may go on, 3 when the arguments name no
// operation that the array knows, otherwise the array's refusal. Parameters are found without case,
// and one that is null isn't there. A parameter of another type throws TypeMismatchException, and a
// reference within a key that can't be read MalformedObjectNameException: what can't be read is
// never let through.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>

namespace Pegasus {

/// Without TheElement a volume is created, with it one is changed: grown with Size, renamed with
/// ElementName, and both take both permissions. TheElement alone takes none.
PEGASUS_EXPORT int authorize_CreateOrModifyElemFromStoragePool(
    const String& userName, const String& ipAddr, const Array<CIMParamValue>& inParameters);

/// By Operation; without one the answer is 3.
PEGASUS_EXPORT int authorize_ModifySynchronization(const String& userName, const String& ipAddr,
                                                   const Array<CIMParamValue>& inParameters);

/// By the classes at the ends of the association. An end that is missing or empty has none.
PEGASUS_EXPORT int authorize_AllocatedFromStoragePoolModifyInstance(const String& userName,
                                                                    const String& ipAddr,
                                                                    const CIMObjectPath& path);

/// With Pool one is changed, without it one is created. The first Pool decides, null or not.
PEGASUS_EXPORT int authorize_CreateOrModifyStoragePool(const String& userName, const String& ipAddr,
                                                       const Array<CIMParamValue>& inParameters);

/// By the class of Pool.
PEGASUS_EXPORT int authorize_DeleteStoragePool(const String& userName, const String& ipAddr,
                                               const Array<CIMParamValue>& inParameters);

/// By the kind of each volume in TheElement and TheElements, up to the first refusal. A volume that
/// the array doesn't find is asked about under the name of the one before it, or under the method's
/// own.
PEGASUS_EXPORT int authorize_DeleteStorageVolume(const String& userName, const String& ipAddr,
                                                 const Array<CIMParamValue>& inParameters);

/// By SyncType. A call without SyncType or Mode, which the method itself will refuse, is asked
/// about as a full copy is, so that nobody goes on unasked.
PEGASUS_EXPORT int authorize_CreateElementReplica(const String& userName, const String& ipAddr,
                                                  const Array<CIMParamValue>& inParameters);
PEGASUS_EXPORT int authorize_CreateGroupReplica(const String& userName, const String& ipAddr,
                                                const Array<CIMParamValue>& inParameters);

/// By Operation, and for the return of a copy to its pool by the kind of the copy, which
/// Synchronization names; a copy that the array doesn't find takes no permission. A call without
/// Operation is asked about as the copying of a volume is, or as a resync of the list.
PEGASUS_EXPORT int authorize_ModifyReplicaSynchronization(const String& userName,
                                                          const String& ipAddr,
                                                          const Array<CIMParamValue>& inParameters);
PEGASUS_EXPORT int authorize_ModifyListSynchronization(const String& userName, const String& ipAddr,
                                                       const Array<CIMParamValue>& inParameters);

/// One permission each, whatever the arguments.
PEGASUS_EXPORT int authorize_ReplicationServiceCapabilitiesMethod(
    const String& userName, const String& ipAddr, const Array<CIMParamValue>& inParameters);
PEGASUS_EXPORT int authorize_ModifyStorageSetting_Transient(
    const String& userName, const String& ipAddr, const Array<CIMParamValue>& inParameters);
PEGASUS_EXPORT int authorize_ModifyStorageSetting_Persistent(
    const String& userName, const String& ipAddr, const Array<CIMParamValue>& inParameters);

}  // namespace Pegasus
