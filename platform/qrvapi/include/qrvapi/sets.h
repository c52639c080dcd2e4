/// @file
/// Named sets of the array's objects. All texts are NUL-terminated.
#ifndef QRVAPI_SETS_H
#define QRVAPI_SETS_H

#include "qrvapi/status.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What a set holds.
typedef enum {
    SET_TYPE_HOST = 0,
    SET_TYPE_VV = 1,
    SET_TYPE_CPG = 2,
    SET_TYPE_LD = 3,
    SET_TYPE_RCOPYGROUP = 4,
    SET_TYPE_DOMAIN = 5,
    SET_TYPE_COUNT = 6,
    SET_TYPE_INVALID = 7
} api_settype_t;

/// One set.
typedef struct api_set {
    qrv_u32 type;  ///< One of api_settype_t.
    qrv_u32 id;
    char name[32];
    char comment[257];
    char domain[32];  ///< The domain that the set itself is in; a set of domains is in none.
    qrv_u32 count;
    char (*values)[32];  ///< `count` names of members that belong to the whole list.
} api_set_t;

/// A list of sets.
typedef struct api_setlist {
    api_settype_t type;
    qrv_u32 count;
    api_set_t* sets;
} api_setlist;

#pragma GCC visibility push(default)

/// Reads the set of domains named `setName`, with case, or all in the order of their IDs when that
/// is null or empty. `reserved` has to be 0. On success `*list` is overwritten and has to go back
/// through api_freeSets(). On failure, ERR_QRV_SET_NOTFOUND for an unknown name, it is left as it
/// was.
api_Status_t api_getDomainSets(const char* setName, int reserved, api_setlist* list);

/// Releases the list in `*list` and makes it empty, as api_freeHosts() does. Needs no gate.
void api_freeSets(api_setlist* list);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
