/// @file
/// Volumes. All texts are NUL-terminated.
#ifndef QRVAPI_VOLUMES_H
#define QRVAPI_VOLUMES_H

#include "qrvapi/events.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What a volume is. An array may have further kinds.
typedef enum {
    VOL_TYPE_UNKNOWN = 0,
    VOL_TYPE_BASE = 1,
    VOL_TYPE_PHYS_COPY = 2,
    VOL_TYPE_VIRT_COPY = 3,
    VOL_TYPE_REMOTE_COPY = 4
} volType;

/// One volume.
typedef struct api_vv {
    char elementName[32];  ///< The volume's name.
    char deviceID[33];     ///< The volume's WWN, 32 upper-case hexadecimal digits.
    qrv_u32 id;
    volType type;
    qrv_u64 sizeMB;
    char domain[32];  ///< Empty when the volume is in no domain.
    char comment[257];
    qrv_u8 isLocked;  ///< Non-zero while another operation keeps the volume from being removed.
} api_vv_t;

/// The name of a volume in a list of names.
typedef struct {
    char name[32];
} api_name_t;

/// The field that a condition looks at.
enum { API_VV_FIELD_DEVICEID = 5 };
/// How a condition compares: with each of its values, without case.
enum { API_VV_OP_EQUALS_ANY = 1 };

/// One condition.
typedef struct _api_getvv_filter_t {
    int ffield;        ///< API_VV_FIELD_DEVICEID.
    int fop;           ///< API_VV_OP_EQUALS_ANY.
    qrv_u32 fval_len;  ///< The length of `fval`.
    char fval[256];    ///< The values, with vertical bars between them.
} api_getvv_filter_t;

/// Conditions that all have to hold. Made, filled and released through the calls below.
typedef struct _api_getvv_filters_t {
    qrv_u32 init_count;  ///< Room for conditions.
    qrv_u32 used_count;  ///< Conditions in use.
    qrv_u32 okv_posnum;  ///< For the array's own use.
    qrv_u32 total_fvallen;
    api_getvv_filter_t* vvfilter;
} api_getvv_filters_t;

/// What removing volumes answers when some of them are gone and others weren't there.
static const int API_VV_SOME_NOTFOUND = 1119;

/// What was built into a unit of the array when it was made.
typedef struct {
    char vendor[32];
    char model[65];
    char serial[32];
    char saleable_serial[32];
    char saleable_product[32];
    char spare_part[32];
    char orvelis_model_name[32];
    char asmbly_rev[32];
    char checksum[32];
} api_mfg_t;

/// What the loss of a volume's data may take at least. Other numbers than these occur.
typedef enum { API_HA_UNKNOWN = 0, API_HA_DEFAULT = 9, API_HA_LAST = 0xFFFF } api_ha_t;

/// Bits of a volume's policy.
enum {
    VV_POLICY_NO_ZERO_DETECT = 1048576,
    VV_POLICY_ZERO_DETECT = 2097152,
    VV_POLICY_NO_ONE_HOST = 16777216,
    VV_POLICY_STALE_SS = 1073741824
};

/// One of the spaces that make up a volume.
typedef struct {
    int size;  ///< In MiB.
    int haPath;
    api_ha_t haJbod;
    int chunkletCharacteristics;
} api_vol_part_t;

/// The settings that a volume is made with.
typedef struct {
    int vvID;
    char templateName[32];
    char domain[32];
    char comment[513];
    int raidType;  ///< 0, 10, 50 or 60.
    qrv_u8 dryRun;
    qrv_u8 verboseCLI;
    int setSize;
    int faultTolerance;
    int rowSize;
    int maxRowSize;
    int stepSizeKB;
    int reuseDisks;
    int frequency;
    int primaryPath;
    int nodePair;
    int vvSystem;
    int keepPinned;
    unsigned int policy;  ///< VV_POLICY_... bits.
    int vvCnt;
    int admSetPerNode;
    int geomSPT;  ///< Sectors per track.
    int geomHPC;  ///< Heads per cylinder.
    int geomSSZ;  ///< Sector size in bytes.
    int tpSnapAllocLimit;
    int tpSnapAllocWarning;
    int tpUserAllocLimit;
    int tpUserAllocWarning;
    int vvTemplateType;
    qrv_u8 isTP;  ///< Non-zero for thin provisioning.
    qrv_u8 tpType;
    char snapCPGName[32];
    char userCPGName[32];
    qrv_u8 reclaimSpace;
    api_vol_part_t usrVol;
    api_vol_part_t snpVol;
    api_vol_part_t admVol;
    int snpSizePct;
    qrv_u8 provisionFromCPG;
    char patternString[512];  ///< Disk patterns, one behind the other; see api_constructPattern().
    qrv_u32 expirationTime;
    qrv_u32 retentionTime;
} api_vol_setting_t;

#pragma GCC visibility push(default)

/// Reads volumes in the order of their IDs: the one named `name`, the one of the WWN `deviceID`,
/// or all when both are null or empty. `reserved` has to be 1.
///
/// On success (0) `*records` is one block of `*count` records that the caller releases with free();
/// it is null when the count is 0, as for a volume that isn't there. On failure both are left as
/// they were.
int api_getVVs(const char* name, const char* deviceID, int* count, api_vv_t** records,
               int reserved);

/// Reads the next volumes that meet `filters`, which may be null. `*cursor` is 0 at the start and
/// again once all have been read; between that it is the array's own. At most `chunkSize` volumes
/// come at once, or all the rest when that is 0. Results are those of api_getVVs().
int api_getVVs_chunk(qrv_u32* cursor, qrv_u32 chunkSize, const api_getvv_filters_t* filters,
                     int* count, api_vv_t** records, int reserved);

/// Makes an empty list with room for `count` conditions, which api_getvv_filter_free() takes back.
/// Returns 0, or the code of the failure. Needs no gate.
int api_getvv_filter_init(api_getvv_filters_t* filters, qrv_u32 count);

/// Adds a condition whose `value` has at most 255 characters. Returns 0; a full list, a longer
/// value or a comparison that the array doesn't have give ERR_API_INVALID_ARGUMENT. Needs no gate.
int api_getvv_filter_add(api_getvv_filters_t* filters, int field, int op, const char* value);

/// Releases a list of conditions, as api_freeHosts() does. Needs no gate.
void api_getvv_filter_free(api_getvv_filters_t* filters);

/// Removes `count` volumes at once, and takes them out of their sets. With `noWait` non-zero the
/// array wouldn't wait for their space to be clean; here that takes no time. `reserved` has to be
/// 0.
///
/// Returns 0; API_VV_SOME_NOTFOUND when some weren't there and the others are gone;
/// ERR_QRV_VV_NOTFOUND when none was there. Nothing is removed with ERR_API_VV_LOCKED_ERROR, when
/// one of them is locked, and with ERR_QRV_VV_HAS_VLUNS, when one is exported.
int api_removeVVs(api_evtparam_t* event, const api_name_t* names, unsigned int count, qrv_u8 noWait,
                  int reserved);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
