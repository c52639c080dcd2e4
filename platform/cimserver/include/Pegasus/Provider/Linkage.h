// How the Provider part of the CIM API is exported.
#pragma once

#include <Pegasus/Common/Config.h>

#define PEGASUS_PROVIDER_LINKAGE PEGASUS_EXPORT
