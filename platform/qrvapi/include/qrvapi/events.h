/// @file
/// The record that tells the array's event log who asked for a change.
#ifndef QRVAPI_EVENTS_H
#define QRVAPI_EVENTS_H

#ifdef __cplusplus
extern "C" {
#endif

/// Goes with every call that changes the array. All texts are NUL-terminated.
typedef struct _api_evtparam_t {
    int cb_code;           ///< For the array's own use.
    char user[32];         ///< Who asks.
    char addr[46];         ///< The address of the client that asks.
    char method[128];      ///< Class name, ":" and method name.
    char inst_op[16];      ///< The operation within the method.
    char inst_param[256];  ///< Free text about the object.
} api_evtparam_t;

#ifdef __cplusplus
}
#endif

#endif
