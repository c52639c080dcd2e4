/// @file
/// Conversions of WWNs and addresses. None needs the gate.
#ifndef QRVAPI_CONVERSIONS_H
#define QRVAPI_CONVERSIONS_H

#include <stddef.h>

#include "qrvapi/status.h"
#include "qrvapi/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What validateConvertIP() makes of a text.
typedef enum { API_IP_INVALID = 0, API_IPV4_OK = 9, API_IPV6_OK = 10 } api_ipcheck_t;

#pragma GCC visibility push(default)

/// Reads a WWN of one to sixteen hexadecimal digits. Sets `*wwn`, and `*digits` to the number of
/// digits unless it is null; on failure (ERR_API_WWN_INVALID) both are left as they were.
api_Status_t api_wwnStringToInt(const char* text, int* digits, qrv_u64* wwn);

/// Writes a WWN as sixteen upper-case hexadecimal digits, NUL-terminated. `reserved` has to be 0.
/// Returns 0, or ERR_API_INVALID_ARGUMENT when `size` is below 17, and the buffer is then left as
/// it was.
int api_wwnIntToString(int reserved, qrv_u64 wwn, char* buffer, size_t size);

/// Writes an IP address in its canonical form into `buffer` of `size` bytes and says of which kind
/// it is. Anything else, and an address that doesn't fit, gives API_IP_INVALID and leaves the
/// buffer as it was.
int validateConvertIP(const char* host, char* buffer, int size);

/// Releases a block that a call handed out for free(). Null is allowed.
void free_if_not_null(void* block);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
