// What the array says of itself, for providers of this library.
#pragma once

#include <Pegasus/Common/String.h>
#include <Pegasus/Provider/ProviderException.h>
#include <qrvapi.h>

namespace Pegasus {

/// The array's own facts, read anew. Throws CIMOperationFailedException when the array gives none.
inline api_SystemFacts_t readSystemFacts() {
    api_SystemFacts_t facts;
    if (api_getSystemFacts(&facts) != 0)
        throw CIMOperationFailedException("The array doesn't tell its own name and address.");
    return facts;
}

}  // namespace Pegasus
