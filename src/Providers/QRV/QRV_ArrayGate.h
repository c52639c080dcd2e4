// The access semaphore: one gate for all providers, held across exactly one array call.
//
// Nothing else in the module waits for the semaphore or posts it.
#pragma once

#include <qrvapi.h>

#include <utility>

namespace Pegasus {

/// The semaphore for the length of a scope, unless the wait ended without it.
class ArrayGate {
  public:
    ArrayGate() : _waitResult(cim_sem_wait()) {}

    ~ArrayGate() {
        if (held()) cim_sem_post();
    }

    ArrayGate(const ArrayGate&) = delete;
    ArrayGate& operator=(const ArrayGate&) = delete;

    bool held() const { return _waitResult == 0; }

    /// 0 when the semaphore is held, else why not.
    int waitResult() const { return _waitResult; }

  private:
    int _waitResult;
};

/// Makes an array call that returns a plain code. A wait that failed gives its result in place of
/// the call's, so the caller sees a non-zero code either way.
template <class Call>
int callArray(Call&& call) {
    const ArrayGate gate;
    return gate.held() ? std::forward<Call>(call)() : gate.waitResult();
}

/// What an array call that returns a status record gave.
struct ArrayAnswer {
    int waitResult = 0;     ///< non-zero: the semaphore timed out and the call wasn't made
    api_Status_t status{};  ///< code 0 is success; a time-out is an internal error with its text

    bool failed() const { return status.code != ERR_UNKNOWN; }
};

/// Makes an array call that returns a status record.
template <class Call>
ArrayAnswer callArrayForStatus(Call&& call) {
    const ArrayGate gate;
    ArrayAnswer answer{gate.waitResult(), {}};
    api_initStatus(&answer.status);
    if (gate.held())
        answer.status = std::forward<Call>(call)();
    else
        errinfo_set_str(&answer.status, ERR_QRV_INTERNAL_ERROR, "Semaphore Timed-Out");
    return answer;
}

}  // namespace Pegasus
