// Indications.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// An indication is an instance of an indication class.
using CIMIndication = CIMInstance;

PEGASUS_NAMESPACE_END
