// What providers are told about a request besides its arguments.
#pragma once

#include <Pegasus/Common/OperationContext.h>

namespace cimserver {

/// Identity and languages of the caller, nothing else. A caller without identity is the server
/// itself: the user name is empty.
Pegasus::OperationContext providerContext(const Pegasus::OperationContext& caller);

}  // namespace cimserver
