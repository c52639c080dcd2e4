// Property lists as providers get them.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMPropertyList.h>

namespace cimserver {

/// The list with every name once, in its first spelling.
Pegasus::CIMPropertyList withoutDuplicates(const Pegasus::CIMPropertyList&);

/// The names of all properties of a class, inherited ones included.
Pegasus::CIMPropertyList allProperties(const Pegasus::CIMConstClass&);

}  // namespace cimserver
