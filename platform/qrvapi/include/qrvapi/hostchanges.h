/// @file
/// Calls that change hosts and their paths.
///
/// All need an event record; each change that is made is entered with it in the array's event log,
/// and secrets appear neither there nor in any other log. A call that is refused changes nothing.
///
/// An initiator that is given to a host brings along all ports that see it while it belongs to no
/// host; one that the array hasn't seen before becomes a path without a port. An initiator that a
/// host loses stays known on the ports that see it, as a path of no host.
#ifndef QRVAPI_HOSTCHANGES_H
#define QRVAPI_HOSTCHANGES_H

#include "qrvapi/events.h"
#include "qrvapi/status.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What is to become of one direction of CHAP.
typedef enum { API_HOST_CHAP_ENABLE = 0, API_HOST_CHAP_DISABLE = 1 } api_chapOp_t;

/// How a secret is written: 12 to 16 characters, or 32 hexadecimal digits for 16 bytes.
typedef enum { API_HOST_CHAP_SECRET_ASCII = 0, API_HOST_CHAP_SECRET_HEX = 1 } api_chapSecretType_t;

/// A change of one direction of CHAP.
typedef struct {
    api_chapOp_t op;
    char name[224];  ///< Empty for the name of the host, or of the array as the target.
    api_chapSecretType_t secretType;
    char src[33];  ///< The secret; not read when CHAP is disabled.
} api_setChap_t;

/// A change of CHAP; all zeroes change nothing. The target authenticates itself only to initiators
/// that do so too, and the two secrets must differ.
typedef struct {
    qrv_u8 isInitChapSet;    ///< Non-zero when `initChap` counts.
    qrv_u8 isTargetChapSet;  ///< Non-zero when `targetChap` counts.
    api_setChap_t initChap;
    api_setChap_t targetChap;
} api_setHostChap_t;

/// Which note of a host a description is.
typedef enum {
    OBJDESC_NONE = 0,  ///< No description; its text doesn't count.
    OBJDESC_HOST_LOCATION = 1,
    OBJDESC_HOST_IPADDR = 2,
    OBJDESC_HOST_OS = 3,
    OBJDESC_HOST_MODEL = 4,
    OBJDESC_HOST_CONTACT = 5,
    OBJDESC_HOST_COMMENT = 6
} objdesc_type_t;

/// One note of a host.
typedef struct {
    qrv_u32 od_type;     ///< One of objdesc_type_t.
    char od_value[256];  ///< Empty takes the note away.
} objdesc;

/// An iSCSI name in a list of names, NUL-terminated.
typedef char iscsi_name_t[224];

/// In `host_cap_flag`: the value is the number of the host's new persona. There are no other bits.
static const qrv_u32 API_HOST_CAP_PERSONA = 1;

#pragma GCC visibility push(default)

/// Makes the host `hostName` with `wwnCount` FC paths at `wwns`, `iscsiCount` iSCSI paths at
/// `iscsiNames`, a persona, and a domain unless `domain` is null or empty. A list may be null when
/// its count is 0. `descCount` notes stand at `descs`, and `chap` may be null. `reservedNumber`
/// has to be 0 and `reserved` null.
///
/// Fails with ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NAMEINVALID or ERR_QRV_HOST_EXISTS for the name,
/// ERR_QRV_PERSONA_NOTFOUND, ERR_QRV_DOMAIN_NOTFOUND, or as api_addPath() and api_setHost() do.
api_Status_t api_createHost(api_evtparam_t* event, const char* hostName, int wwnCount,
                            const qrv_u64* wwns, int iscsiCount, const iscsi_name_t* iscsiNames,
                            int reservedNumber, const api_setHostChap_t* chap, const void* reserved,
                            const objdesc* descs, int descCount, qrv_u32 persona,
                            const char* domain);

/// Gives initiators to the host `hostName`, and changes its CHAP and one note besides where `chap`
/// and `desc` say so; both may be null. `reservedNumber` has to be 0 and `reserved` null.
///
/// Fails with ERR_QRV_HOST_NOTFOUND, ERR_QRV_HOSTPATH_EXISTS when another host has an initiator,
/// ERR_QRV_HOSTPATH_DUPLICATE when this host has it or when it is given twice,
/// ERR_API_WWN_INVALID, ERR_API_ISCSINAME_INVALID, ERR_API_INVALID_ARGUMENT, or as api_setHost()
/// does.
api_Status_t api_addPath(api_evtparam_t* event, const char* hostName, int wwnCount,
                         const qrv_u64* wwns, int iscsiCount, const iscsi_name_t* iscsiNames,
                         int reservedNumber, const api_setHostChap_t* chap, const void* reserved,
                         const objdesc* desc);

/// Takes one initiator from the host `hostName`, on all ports: the iSCSI name, without case, when
/// `isIscsi` is non-zero, otherwise the WWN. `reservedNumber` has to be 0.
///
/// Fails with ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND or ERR_QRV_HOSTPATH_NOTFOUND.
api_Status_t api_removePath(api_evtparam_t* event, const char* hostName, int isIscsi, qrv_u64 wwn,
                            const char* iscsiName, int reservedNumber);

/// Changes the host `hostName`: its CHAP unless `chap` is null, the `descCount` notes at `descs`,
/// with API_HOST_CAP_PERSONA in `host_cap_flag` its persona, and its name unless `newName` is null
/// or empty.
///
/// Fails with ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND, ERR_QRV_HOST_NAMEINVALID or
/// ERR_QRV_HOST_EXISTS for the new name, ERR_QRV_PERSONA_NOTFOUND,
/// ERR_API_HOST_CHAP_SECRET_INVALID for a secret of the wrong length,
/// ERR_API_HOST_CHAP_HEX_INVALID, ERR_QRV_HOST_CHAP_SECRETSMATCH, ERR_QRV_HOST_TARGETCHAP_ONLY
/// when the target's side would stand alone, or ERR_API_INVALID_ARGUMENT.
api_Status_t api_setHost(api_evtparam_t* event, const char* hostName, const api_setHostChap_t* chap,
                         unsigned int descCount, const objdesc* descs, qrv_u32 host_cap_flag,
                         qrv_u32 host_cap_value, const char* newName);

/// Puts the host `hostName` into `domain`, or takes it out of its domain when that is "-unset".
/// Fails with ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND or ERR_QRV_DOMAIN_NOTFOUND.
api_Status_t api_setHostDomain(api_evtparam_t* event, const char* hostName, const char* domain);

/// Removes the host `hostName`. Fails with ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND,
/// ERR_QRV_HOST_HAS_VLUNS while a VLUN or template exports to it, or ERR_QRV_HOST_IN_SET while a
/// host set holds it.
api_Status_t api_removeHost(api_evtparam_t* event, const char* hostName);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
