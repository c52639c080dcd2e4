#pragma once

#include <string>
#include <string_view>

#include "Errors.h"
#include "Functions.h"
#include "Gate.h"
#include "Instruments.h"
#include "Ledger.h"

namespace qrvapi {

inline void watchGate(Function function) {
    const auto& row = describe(function);
    if (row.gated && !Gate::instance().heldByThisThread()) {
        Ledger::instance().report(std::string(row.name) + " was called without the access gate");
    }
}

/// For the arguments of a call, which are named when they don't hold.
inline void refuseUnless(bool holds, std::string_view argument) {
    if (!holds) throw Refusal(ERR_API_INVALID_ARGUMENT, {argument});
}

/// The boundary of the library, for calls that answer with an int: no exception passes it, and a
/// failure that is to be injected comes before the call has done anything.
template <class Describe, class Body>
int codeCall(Function function, Describe&& describeArguments, Body&& body) noexcept {
    try {
        watchGate(function);
        if (const auto failure = instrumented(function, describeArguments)) return *failure;
        return body();
    } catch (...) {
        return statusOfCurrentException().code;
    }
}

/// The same for calls that answer with a status.
template <class Describe, class Body>
api_Status_t statusCall(Function function, Describe&& describeArguments, Body&& body) noexcept {
    try {
        watchGate(function);
        if (const auto failure = instrumented(function, describeArguments)) {
            return makeStatus(static_cast<api_ErrorCode_t>(*failure));
        }
        body();
        return makeStatus(ERR_UNKNOWN);
    } catch (...) {
        return statusOfCurrentException();
    }
}

/// The same for calls that can't fail.
template <class Describe, class Body>
void plainCall(Function function, Describe&& describeArguments, Body&& body) noexcept {
    codeCall(function, describeArguments, [&] {
        body();
        return 0;
    });
}

}  // namespace qrvapi
