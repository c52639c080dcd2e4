// The one boundary between the server and the code of providers.
#pragma once

#include "broker/Delivery.h"

#include <Pegasus/Common/Exception.h>

#include <utility>

namespace cimserver {

/// The exception in flight as what a client is told: a CIMException as it is, whatever its code;
/// any other Pegasus or standard exception as CIM_ERR_FAILED with its text; all else "Unknown
/// error.". To be called in a catch block.
Pegasus::CIMException exceptionInFlight();

/// Runs an operation of a provider and returns how it ended; code CIM_ERR_SUCCESS is success, also
/// when the provider threw it. What the receiver of results threw is not the provider's: it leaves
/// as itself.
template <class Operation>
[[nodiscard]] Pegasus::CIMException runProvider(Delivery& delivery, Operation&& operation) {
    try {
        std::forward<Operation>(operation)();
    } catch (...) {
        delivery.rethrowSinkFailure();
        return exceptionInFlight();
    }
    delivery.finish();
    return Pegasus::CIMException();
}

/// Throws an outcome that is not success.
inline void requireSuccess(const Pegasus::CIMException& outcome) {
    if (outcome.getCode() != Pegasus::CIM_ERR_SUCCESS) throw outcome;
}

}  // namespace cimserver
