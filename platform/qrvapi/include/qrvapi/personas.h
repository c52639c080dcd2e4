/// @file
/// Host personas: how the array behaves towards a kind of host. All texts are NUL-terminated.
#ifndef QRVAPI_PERSONAS_H
#define QRVAPI_PERSONAS_H

#include "qrvapi/status.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One persona.
typedef struct host_persona_entry {
    int hpe_num;
    char hpe_name[32];
    qrv_u8 hpe_valid;          ///< Zero when new hosts shouldn't have the persona.
    qrv_u32 hpe_capabilities;  ///< Capability bits.
    qrv_u32 hpe_feature;       ///< Feature bits; 0 in this release.
} host_persona_entry_t;

/// One operating system that a persona is meant for.
typedef struct host_os_entry {
    char hos_name[32];
    int hos_persona;  ///< Number of the persona.
    qrv_u8 hos_valid;
} host_os_entry_t;

/// One persona with its operating systems.
typedef struct api_hostpersonaentry {
    host_persona_entry_t hpe;
    unsigned int oscount;
    host_os_entry_t* hos;  ///< `oscount` entries that belong to the whole list.
} api_hostpersonaentry_t;

/// A list of personas.
typedef struct api_hostpersonalist {
    unsigned int count;
    api_hostpersonaentry_t* hpes;
} api_hostpersonalist_t;

#pragma GCC visibility push(default)

/// Reads all personas in the order of their numbers; with `exp_filter` non-zero only those that new
/// hosts should have. On success `*list` is overwritten and has to go back through
/// api_freeHostPersonas(). On failure it is left as it was.
api_Status_t api_getHostPersonaList(api_hostpersonalist_t* list, qrv_u8 exp_filter);

/// Releases the list in `*list` and makes it empty, as api_freeHosts() does. Needs no gate.
void api_freeHostPersonas(api_hostpersonalist_t* list);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
