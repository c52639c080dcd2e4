/// @file
/// The array as a whole.
#ifndef QRVAPI_SYSTEM_H
#define QRVAPI_SYSTEM_H

#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What the array knows about itself. All texts are NUL-terminated.
typedef struct api_SystemFacts {
    char name[32];         ///< The array's own name.
    char hostName[256];    ///< The name that management clients reach it under.
    char ipv4Address[16];  ///< Dotted decimal.
    char ipv6Address[46];  ///< Empty on an array without IPv6.
    qrv_u32 id;
    int type;  ///< The generation of the array; a higher number is a later one.
    char serial[32];
    char model[65];
    char contact[256];       ///< Whom to call about the array; may be empty.
    char owner[256];         ///< Whose array it is; may be empty.
    unsigned int nodeCount;  ///< How many controller nodes are alive.
    qrv_u8 isQuadPort;       ///< Non-zero when adapters have four ports.
    qrv_u8 hasUnitRecords;   ///< What api_is_eos() answers.
} api_SystemFacts_t;

/// The addresses that management clients reach the array under.
typedef struct api_ipaddr {
    int dual_flag;                ///< 1 with an IPv4 address only, 3 with one of either kind.
    qrv_u32 ipv4_addr;            ///< Network byte order.
    unsigned char ipv6_addr[16];  ///< Network byte order; zeroes without one.
} api_ipaddr_t;

#pragma GCC visibility push(default)

/// Fills `*facts`. Returns 0, or the code of the failure; `*facts` is then left as it was. Needs no
/// gate.
int api_getSystemFacts(api_SystemFacts_t* facts);

/// Writes whom to call about the array into `buffer` of 256 bytes. Returns 0, or the code of the
/// failure, and the buffer is then left as it was. Needs no gate.
int api_getSystemContact(char* buffer);

/// Writes whose array it is, in the same way.
int api_getOwnerName(char* buffer);

/// Fills `*address`, in the same way.
int api_getSystemDualIP(api_ipaddr_t* address);

/// Sets `*count` to the number of controller nodes that are alive, in the same way.
int cluster_num_nodes_alive(int* count);

/// Returns 1 when the array's units carry the records of api_mfg_t, otherwise 0. Needs no gate.
int api_is_eos(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
