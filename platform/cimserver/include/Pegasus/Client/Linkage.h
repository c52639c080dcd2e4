// How the Client part of the CIM API is exported.
#pragma once

#include <Pegasus/Common/Config.h>

#define PEGASUS_CLIENT_LINKAGE PEGASUS_EXPORT
