// What copies of an object path share, and how its text is read.
#pragma once

#include "model/Counted.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/String.h>

namespace cimserver {

class ObjectPathRep : public Counted<ObjectPathRep> {
  public:
    Pegasus::String host;
    Pegasus::CIMNamespaceName nameSpace;
    Pegasus::CIMName className;
    Pegasus::Array<Pegasus::CIMKeyBinding> keys;  ///< in canonical order
};

/// Sorts by name, ignoring case; keys of one name keep their order.
void sortKeys(Pegasus::Array<Pegasus::CIMKeyBinding>& keys);

/// The text of a path; see CIMObjectPath::toString().
Pegasus::String writeObjectPath(const ObjectPathRep& path);

/// Whether a text, by its plain form, is surely the one that writeObjectPath() gives for the path
/// in it. That costs much less than to read the path. False says nothing.
bool isPlainPath(const Pegasus::String& text);

/// @throws MalformedObjectNameException
Ref<ObjectPathRep> readObjectPath(const Pegasus::String& text);

}  // namespace cimserver
