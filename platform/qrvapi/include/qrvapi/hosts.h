/// @file
/// Hosts and their paths. A path is one initiator of a host: a Fibre Channel WWN, an iSCSI name or
/// a SAS address, as seen on one port of the array. All texts are NUL-terminated.
#ifndef QRVAPI_HOSTS_H
#define QRVAPI_HOSTS_H

#include <time.h>

#include "qrvapi/status.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef unsigned char uuid_t[16];

/// One path.
typedef struct api_HostPath {
    lpid_t port;          ///< Where the array sees the initiator; QRV_NO_PORT when nowhere.
    port_type_t type;     ///< Tells which of the identities below counts.
    qrv_u64 host_wwn;     ///< The initiator's WWN (FC).
    qrv_u64 port_wwn;     ///< The WWN of the array's port (FC).
    qrv_u64 sas_addr;     ///< The initiator's address (SAS).
    char iscsiName[224];  ///< The initiator's name (iSCSI).
    qrv_u32 ipaddr;  ///< The initiator's IPv4 address in network byte order (iSCSI); 0 unknown.
    char hbafirmver[32];  ///< The adapter data are empty unless the host reports them.
    char hbavendor[32];
    char hbamodel[32];
    char hbadrvver[32];
    qrv_u8 hostspeed;
} api_HostPath_t;

/// One direction of CHAP, as the array reports it.
typedef struct {
    qrv_u8 isChapEnabled;
    char name[224];
    char altSecret[17];
} api_Chap_t;

/// Both directions of CHAP of a host.
typedef struct {
    api_Chap_t initChap;
    api_Chap_t targetChap;
} api_HostChap_t;

/// What an administrator noted about a host.
typedef struct api_HostDesc {
    char location[257];
    char ipaddr[257];
    char os[257];
    char model[257];
    char contact[257];
    char comment[257];
} api_HostDesc_t;

/// One host definition.
typedef struct api_Host {
    qrv_u32 id;       ///< QRV_NO_HOST in the record that gathers initiators of no host.
    char name[32];    ///< Empty in that record.
    char domain[32];  ///< Empty when the host is in no domain.
    uuid_t uuid;
    unsigned int host_persona;  ///< Number of the host's persona; 0 in the record of no host.
    qrv_u32 host_caps;
    char hp_name[32];  ///< Name of the persona.
    api_HostChap_t chap;
    api_HostDesc_t desc;
    qrv_u64
        hostid;  ///< From here to `ha_version`: what an agent on the host reports, empty without.
    time_t info_update;
    char hostname[32];
    char os[32];
    char arch[32];
    char osver[32];
    char ospatch[32];
    char ip[32];
    char mpsw[32];
    char mpswver[32];
    char clustersw[32];
    char clusterswver[32];
    char clusterid[32];
    char clustername[32];
    char ha_version[32];
    unsigned int pathCount;
    api_HostPath_t* paths;  ///< `pathCount` paths that belong to the whole list.
} api_Host_t;

/// A list of hosts.
typedef struct api_HostsInfo {
    unsigned int count;
    api_Host_t* hosts;
} api_HostsInfo_t;

/// One path with the host that holds it.
typedef struct api_hardwareID {
    char hostName[32];  ///< Empty when no host holds the initiator.
    qrv_u32 hostpersona;
    api_HostPath_t pathInfo;
} api_hardwareID_t;

#pragma GCC visibility push(default)

/// Reads hosts in the array's order, with their paths. At most one of the first three arguments
/// selects: the host of a name (with case), the hosts that hold a WWN, or those that hold an iSCSI
/// name (without case). Null or empty texts and QRV_NO_WWN don't select; without a selection all
/// hosts come.
///
/// With `withUnassigned` non-zero initiators of no host are looked at too, and those that are
/// selected come last, in one record without a name. With `brief` non-zero the records hold name,
/// ID, domain and persona only.
///
/// On success `*info` is overwritten and has to go back through api_freeHosts(). On failure it is
/// left as it was. A selection that no host meets fails with ERR_QRV_HOST_NOTFOUND (by name) or
/// ERR_QRV_HOSTPATH_NOTFOUND (by path). An array without hosts is no failure.
api_Status_t api_getHosts(const char* hostName, qrv_u64 wwn, const char* iscsiName,
                          api_HostsInfo_t* info, int withUnassigned, int brief);

/// Releases the list in `*info` and makes it empty. Null and empty lists are allowed; a list that
/// didn't come from api_getHosts(), or went back before, is reported in the log and left alone.
/// Needs no gate.
void api_freeHosts(api_HostsInfo_t* info);

/// Reads paths, those of the hosts first and in the array's order. At most one filter counts:
/// `wwn`, up to 16 hexadecimal digits, gives the FC paths of that WWN; `iscsiName` gives the iSCSI
/// paths of that name, without case. `hostName` limits the answer to one host. Null or empty texts
/// don't filter. With `withUnassigned` non-zero paths that no host holds come too. An initiator
/// that is seen on several ports gives a record for each.
///
/// On success (0) `*records` is one block of `*count` records that the caller releases with free();
/// it is null when the count is 0. On failure both are left as they were.
int api_getHostPaths(const char* wwn, const char* iscsiName, const char* hostName, int* count,
                     api_hardwareID_t** records, int withUnassigned);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
