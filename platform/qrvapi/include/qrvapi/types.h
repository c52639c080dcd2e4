/// @file
/// Integers and numbers that all calls share.
#ifndef QRVAPI_TYPES_H
#define QRVAPI_TYPES_H

#ifdef __cplusplus
extern "C" {
#endif

typedef unsigned char qrv_u8;
typedef unsigned short qrv_u16;
typedef unsigned int qrv_u32;
typedef unsigned long long qrv_u64;

/// Names a port of the array; QRV_NO_PORT names none.
typedef qrv_u16 lpid_t;

/// What a port, and a path through it, speaks.
typedef enum {
    PORT_TYPE_UNKNOWN = 0,
    PORT_TYPE_FC = 1,
    PORT_TYPE_ISCSI = 2,
    PORT_TYPE_SAS = 3
} port_type_t;

/// The port of a path that isn't logged in anywhere.
static const lpid_t QRV_NO_PORT = 0xFFFC;
/// The ID of the record that gathers initiators of no host (-13 in 32 bits).
static const qrv_u32 QRV_NO_HOST = 0xFFFFFFF3U;
/// The WWN that stands for none (-10 in 64 bits).
static const qrv_u64 QRV_NO_WWN = 0xFFFFFFFFFFFFFFF6ULL;

#ifdef __cplusplus
}
#endif

#endif
