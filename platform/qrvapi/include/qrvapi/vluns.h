/// @file
/// VLUNs: the rules that export volumes to hosts and ports, and the protocol controllers that they
/// make. All texts are NUL-terminated.
#ifndef QRVAPI_VLUNS_H
#define QRVAPI_VLUNS_H

#include "qrvapi/hosts.h"
#include "qrvapi/ports.h"
#include "qrvapi/stringtable.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What a VLUN exports to, with the form of its DeviceID.
enum {
    API_VLUN_MATCHED_SET = 1,   ///< A host on a port: "MS:" port LPID ":" host ID.
    API_VLUN_HOST_SEES = 2,     ///< A host on any port: "HS:" host ID.
    API_VLUN_HOST_SET = 3,      ///< A set of hosts: "HSet:" host ID, a record for each host.
    API_VLUN_PORT_PRESENTS = 4  ///< Any host on a port: "PP:" port LPID.
};

/// What a host may do with the volume.
typedef enum {
    VOL_MODE_UNKNOWN = 0,
    VOL_MODE_READ = 1,
    VOL_MODE_WRITE = 2,
    VOL_MODE_READWRITE = 3
} vol_mode_t;

/// One VLUN.
typedef struct vlun {
    char deviceID[65];  ///< Names the protocol controller; see the kinds above.
    char vvname[32];    ///< The volume, or "set:" and a volume set.
    char vvwwn[33];     ///< Empty for a volume set.
    char hostname[32];  ///< Empty without a host.
    qrv_u32 hostID;     ///< QRV_NO_HOST without a host.
    char hostwwn[17];   ///< The initiator, when the VLUN names one: upper-case hexadecimal (FC)
    char hostiscsiname[225];  ///< or the name (iSCSI).
    unsigned int lun;
    unsigned int accessPriority;  ///< The kind, API_VLUN_...
    vol_mode_t volAccess;
    char parentDeviceID[65];  ///< The port's LPID as text; empty without a port.
    lpid_t port;              ///< QRV_NO_PORT without a port.
    char portwwn[17];         ///< What the port is called, as its type has it.
    char portsasaddr[17];
    char portiscsiname[225];
    port_type_t hporttype;
    qrv_u8 isTemplate;     ///< Non-zero for a template, zero for an active VLUN.
    qrv_u8 isempty_vvset;  ///< Non-zero when a template exports a volume set without members.
    qrv_u32 hostIndex;     ///< The host in `allHosts` of the walk; QRV_NO_HOST when not there.
} api_vlun_t;

/// A question about VLUNs together with its answer. Zeroed before use; a filter counts only when
/// its flag is set.
typedef struct api_VLUNsInfo {
    char vvname[32];
    char hostname[32];
    unsigned int lun;
    lpid_t port;
    unsigned int vluntype;
    unsigned int vvnameIsSet : 1;
    unsigned int hostnameIsSet : 1;
    unsigned int lunIsSet : 1;
    unsigned int portIsSet : 1;
    unsigned int vluntypeIsSet : 1;
    unsigned int count;
    api_vlun_t* vluns;  ///< One block of `count` records, null for none.
} api_VLUNsInfo;
typedef api_VLUNsInfo api_VLUNsInfo_t;

/// What a walk in chunks carries from one to the next. Only `allHosts` is for the caller's eyes.
typedef struct _api_spc_param_data {
    int spc_count;   ///< Records handed out so far.
    int mcallRetry;  ///< Chunks read so far.
    unsigned int sysid;
    api_HostsInfo_t allHosts;  ///< All hosts with their paths, as they were at the first chunk.
    api_FCPortsInfo_t fcPorts;
    api_ISCSIPortsInfo_t iscsiPorts;
    char* hostsetlist;
    char* vvsetlist;
    hashtable_t* stringHashTable;
    hashtable_t* hostHashTable;
} api_spc_param_data;

#pragma GCC visibility push(default)

/// Prepares a walk in chunks, whatever the record held before; it has to go back through
/// api_freeSPCParamData(). Returns 0, or ERR_API_NO_MEMORY with a record that is all zeroes. Needs
/// no gate.
int api_initSPCParamData(api_spc_param_data* param);

/// Releases all that a walk holds and zeroes its record. A zeroed record is allowed; one that isn't
/// out is reported in the log and left alone. Needs no gate.
void api_freeSPCParamData(api_spc_param_data* param);

/// Reads the protocol controllers that meet the filters of `query`, those of active VLUNs first.
/// VLUNs with the same DeviceID, port type and host make one controller, which the first of them
/// describes; `hostIndex` is QRV_NO_HOST.
///
/// On success (0) `count` and `vluns` are overwritten, and the records have to go to
/// api_freeVLUNs() or to free(). On failure both are left as they were.
int api_getSCSIProtocolControllers(api_VLUNsInfo* query);

/// Reads the next controllers of a walk, at most `chunk_size` or all the rest when that is 0, with
/// `hostIndex`. `*cursor_id` is 0 at the start and again at the end. A chunk may have fewer records
/// than it could, and even none, before the end. After a failure the walk can't go on.
int api_getSCSIProtocolControllers_chunk(api_VLUNsInfo* query, api_spc_param_data* param,
                                         qrv_u32* cursor_id, qrv_u32 chunk_size);

/// Reads the next records of a walk over all active VLUNs and then all templates, in the same way.
/// `*query_switch` is 0 at the start. The walk is at its end when `*cursor_id` is 0 and
/// `*query_switch` is 2.
int api_getActiveAndTemplateVLUNs_chunk(api_VLUNsInfo* query, qrv_u32* query_switch,
                                        api_spc_param_data* param, qrv_u32* cursor_id,
                                        qrv_u32 chunk_size);

/// Releases the records of `*query` and makes its list empty; the filters stay. Null and empty
/// lists are allowed. Needs no gate.
void api_freeVLUNs(api_VLUNsInfo* query);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
