// Objects as CIM-XML text, for reading by people and for values that are turned into text.
#pragma once

#include "model/ObjectRep.h"

#include <Pegasus/Common/String.h>

namespace cimserver {

/// The INSTANCE or CLASS element of the object, without line breaks.
Pegasus::String objectText(const ObjectRep& object);

}  // namespace cimserver
