/// @file
/// Who may use the array.
#ifndef QRVAPI_ACCESS_H
#define QRVAPI_ACCESS_H

#ifdef __cplusplus
extern "C" {
#endif

/// What api_authorizeCIMUser() answers.
typedef enum {
    API_CIMUSER_AUTHORIZATION_SUCCESS = 0,
    API_CIMUSER_AUTHORIZATION_UNAUTH_USER = 1,        ///< The user may not change the array.
    API_CIMUSER_AUTHORIZATION_USER_NOTFOUND = 2,      ///< The array knows no such user.
    API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD = 3  ///< The key names nothing that has rights.
} api_CimUserAuthorization_t;

#pragma GCC visibility push(default)

/// Opens the array for one operation of `user`. There is no close; each operation opens anew. The
/// empty name, and the name of the account that the CIM server runs as, are the server itself.
///
/// Returns 0 when the user may read the array, otherwise the code of the refusal. Needs no gate.
int api_qrvOpenForCimserver(const char* user);

/// Asks whether `user`, calling from `clientAddress`, may run `method`: a class name and an
/// operation joined by a point, all in lower case, with a further point and word for finer rights.
///
/// The user is looked at before the method. Returns an api_CimUserAuthorization_t. Needs no gate.
int api_authorizeCIMUser(const char* user, const char* clientAddress, const char* method);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
