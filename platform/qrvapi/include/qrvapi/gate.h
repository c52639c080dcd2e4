/// @file
/// The access gate: one call reads or changes the array at a time.
#ifndef QRVAPI_GATE_H
#define QRVAPI_GATE_H

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/// Waits for the gate, for at most the time that the array allows.
///
/// Returns 0 when the caller holds the gate and has to post it once. Anything else means that the
/// time ran out and the caller doesn't hold it. The gate can't be held twice: a thread that waits
/// while it holds the gate runs into the time limit.
int cim_sem_wait(void);

/// Gives the gate back. A post of a gate that nobody holds is reported in the log and does nothing.
void cim_sem_post(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
