#include <cerrno>

#include "Call.h"
#include "LockOrder.h"
#include "qrvapi/gate.h"

using namespace qrvapi;

int cim_sem_wait() {
    return codeCall(Function::cim_sem_wait, noArguments, [] {
        LockOrder::beforeGate();
        return Gate::instance().wait() ? 0 : ETIMEDOUT;
    });
}

void cim_sem_post() {
    plainCall(Function::cim_sem_post, noArguments, [] {
        if (!Gate::instance().post()) {
            Ledger::instance().report("cim_sem_post was called while nobody held the access gate");
        }
    });
}
