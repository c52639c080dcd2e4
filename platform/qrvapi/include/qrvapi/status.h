/// @file
/// The outcome of a call: a code of the array's error table, with the words that belong in its
/// text.
#ifndef QRVAPI_STATUS_H
#define QRVAPI_STATUS_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The array's error table. Numbers that aren't named here have no text of their own.
typedef enum {
    ERR_UNKNOWN = 0,  ///< In a fresh status record: no failure.
    ERR_QRV_HOST_EXISTS = 1,
    ERR_QRV_HOST_NONAME = 2,
    ERR_QRV_HOST_NOTFOUND = 3,
    ERR_QRV_HOST_NAMEINVALID = 4,
    ERR_QRV_HOST_IDEXISTS = 5,
    ERR_QRV_HOST_HAS_VLUNS = 6,
    ERR_QRV_HOST_IN_SET = 7,
    ERR_QRV_HOST_CHAP_SECRETSMATCH = 10,
    ERR_QRV_HOST_TARGETCHAP_ONLY = 12,
    ERR_QRV_HOSTPATH_NOTFOUND = 16,
    ERR_QRV_HOSTPATH_EXISTS = 17,     ///< The path belongs to another host.
    ERR_QRV_HOSTPATH_DUPLICATE = 19,  ///< The host has the path already, or it was given twice.
    ERR_QRV_PERSONA_NOTFOUND = 20,
    ERR_QRV_PERSONA_EXISTS = 21,
    ERR_QRV_DOMAIN_NOTFOUND = 22,
    ERR_QRV_DOMAIN_EXISTS = 23,
    ERR_QRV_PORT_NOTFOUND = 24,
    ERR_QRV_PORT_EXISTS = 25,
    ERR_QRV_PORT_TYPE = 26,  ///< The path and its port speak different protocols.
    ERR_QRV_USER_NOTFOUND = 27,
    ERR_QRV_PERMISSION_DENIED = 28,
    ERR_QRV_INTERNAL_ERROR = 29,
    ERR_QRV_USER_EXISTS = 30,
    ERR_QRV_SET_NOTFOUND = 31,
    ERR_QRV_SET_EXISTS = 32,
    ERR_QRV_SET_EMPTY = 33,
    ERR_QRV_VV_NOTFOUND = 34,
    ERR_QRV_VV_EXISTS = 35,
    ERR_QRV_VV_HAS_VLUNS = 36,
    ERR_QRV_VLUN_NOTFOUND = 37,
    ERR_API_GETHOST_FAILED = 51,
    ERR_API_INVALID_ARGUMENT = 52,
    ERR_API_NO_MEMORY = 53,
    ERR_API_WWN_INVALID = 54,
    ERR_API_ISCSINAME_INVALID = 55,
    ERR_API_NO_SPACE = 56,  ///< The caller's buffer is too small.
    ERR_API_VV_LOCKED_ERROR = 70,
    ERR_API_HOST_CHAP_SECRET_INVALID = 150,
    ERR_API_HOST_CHAP_HEX_INVALID = 151,
    ERR_LAST = 165  ///< The end of the table, not an error.
} api_ErrorCode_t;

/// One word of an error text.
typedef struct {
    char value[64];  ///< NUL-terminated, cut to fit.
} api_StatusParm_t;

/// The words of an error text.
typedef struct {
    int count;  ///< How many of `parm` are in use.
    api_StatusParm_t parm[5];
} api_StatusParms_t;

/// What became of a call.
typedef struct {
    api_ErrorCode_t code;  ///< 0 after api_initStatus() and on success; anything else is a failure.
    api_StatusParms_t parms;
} api_Status_t;

#pragma GCC visibility push(default)

/// Makes `*status` a success without words. A null pointer is left alone. Needs no gate.
void api_initStatus(api_Status_t* status);

/// Makes `*status` the failure `code` with `text` as its only word, cut to 63 characters. A null
/// `text` gives no words; a null `status` is left alone. Needs no gate.
void errinfo_set_str(api_Status_t* status, int code, const char* text);

/// Writes the text of `*status` into `buffer`, without a newline, cut to `size` - 1 characters and
/// always NUL-terminated. A code without a text of its own gives its number. Does nothing when
/// `buffer` is null or `size` is 0. Needs no gate.
void api_getErrorTextNoNL(char* buffer, size_t size, const api_Status_t* status);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
