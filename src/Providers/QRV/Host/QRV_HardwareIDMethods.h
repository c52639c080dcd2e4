// What the methods of the hardware ID management service have in common: references to the objects
// they work on, and initiators in the form that the array takes.
#pragma once

#include <qrvapi.h>

#include "../QRV_MethodCall.h"

namespace Pegasus {

/// The parameter goes to `target`. It has to name an object of class `className` on this system;
/// otherwise the call fails with `refusal` and the path.
MethodParameter reference(const MethodCall& call, const char* name, CIMObjectPath& target,
                          const CIMName& className, const String& systemAddress,
                          const char* refusal);

/// The reference parameters that several methods take.
MethodParameter collectionParameter(const MethodCall& call, CIMObjectPath& target,
                                    const String& systemAddress);
MethodParameter settingParameter(const MethodCall& call, CIMObjectPath& target,
                                 const String& systemAddress);

/// Whether a reference parameter was given.
bool isGiven(const CIMObjectPath& reference);

/// The persona that a Setting chooses, or the array's default without one. A Setting that names no
/// persona fails the call.
Uint32 personaOf(const MethodCall& call, const CIMObjectPath& setting);

/// Fails the call when no Collection was given.
void requireCollection(const MethodCall& call, const CIMObjectPath& collection);

/// The host that a Collection names. One that names none fails the call.
String requireHost(const MethodCall& call, const CIMObjectPath& collection);

/// Copies an iSCSI name as the array takes it: cut to its size, always NUL-terminated.
void copyIscsiName(iscsi_name_t& field, const String& name);

}  // namespace Pegasus
