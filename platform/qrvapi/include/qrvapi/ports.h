/// @file
/// The array's ports. All texts are NUL-terminated.
#ifndef QRVAPI_PORTS_H
#define QRVAPI_PORTS_H

#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The state of a port.
typedef enum {
    PORT_CONFIG_WAIT = 0,
    PORT_ALPA_WAIT = 1,
    PORT_LOGIN_WAIT = 2,
    PORT_OK = 3,
    PORT_LOSS_SYNC = 4,
    PORT_ERROR = 5,
    PORT_XXX = 6,
    PORT_NONPARTICIPATE = 7,
    PORT_COREDUMP = 8,
    PORT_OFFLINE = 9,
    PORT_FWDEAD = 10,
    PORT_IDLE_FOR_RESET = 11,
    PORT_DHCP_IN_PROGRESS = 12,
    PORT_PENDING_RESET = 13,
    PORT_UNKNOWN = 99
} api_port_status_t;

/// A list of port IDs.
typedef struct {
    unsigned int count;
    qrv_u16* portIDs;
} api_portids_t;

/// One FC port.
typedef struct {
    char deviceID[65];  ///< The port's LPID as text.
    lpid_t portID;
    qrv_u64 wwn;
} api_FCPort_t;

/// A list of FC ports.
typedef struct {
    unsigned int count;
    api_FCPort_t* ports;
} api_FCPortsInfo_t;

/// One iSCSI port.
typedef struct {
    char deviceID[65];  ///< The port's LPID as text.
    lpid_t portID;
    char iscsiName[225];  ///< The port's own name.
} api_ISCSIPort_t;

/// A list of iSCSI ports.
typedef struct {
    unsigned int count;
    api_ISCSIPort_t* ports;
} api_ISCSIPortsInfo_t;

#pragma GCC visibility push(default)

/// Reads the iSCSI ports in the order of their IDs. On success (0) `info->ports` is one block that
/// the caller releases with free(); it is null when there are none. On failure `*info` is left as
/// it was.
int api_getISCSIPorts(api_ISCSIPortsInfo_t* info);

/// Reads a port's LPID as text, "node:slot:port", whether or not the array has the port. Returns 0
/// and sets `*port`, or ERR_API_INVALID_ARGUMENT and leaves it as it was. Needs no gate.
int api_convertStrLPIDtoPortID(const char* text, qrv_u16* port);

/// Finds the array's FC port of a WWN. Returns 0 and sets `*port`, or ERR_QRV_PORT_NOTFOUND and
/// leaves it as it was. Needs no gate.
int api_getFCPortLPID(qrv_u64 wwn, lpid_t* port);

/// Finds the array's iSCSI port of a name, without case; otherwise as api_getFCPortLPID().
int api_getiSCSIPortLPID(const char* name, lpid_t* port);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
