#include "Functions.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "qrvapi/access.h"
#include "qrvapi/status.h"
#include "qrvapi/volumes.h"

namespace qrvapi {
namespace {

using control::ApiFunction;
using control::Returns;

enum class Needs { nothing, gate };
enum class Allocates { no, yes };

/// A call that fails with one of `codes`; with the first, unless a test names another.
ApiFunction fails(std::string_view name, Returns returns, std::vector<int> codes,
                  Needs needs = Needs::nothing, Allocates allocates = Allocates::no) {
    const int usual = codes.front();
    return {
        name, returns, usual, std::move(codes), needs == Needs::gate, allocates == Allocates::yes};
}

ApiFunction cannotFail(std::string_view name) {
    return {name, Returns::nothing, 0, {}, false, false};
}

// The one place that says what each call can answer: fault injection, the gate's watch and the
// sweeps of tests all follow it. It outlives the destructors of other libraries.
const auto& table = *new const std::vector<ApiFunction>{
    fails("api_addPath", Returns::status,
          {ERR_QRV_HOSTPATH_EXISTS, ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND,
           ERR_QRV_HOSTPATH_DUPLICATE, ERR_API_WWN_INVALID, ERR_API_ISCSINAME_INVALID,
           ERR_API_HOST_CHAP_SECRET_INVALID, ERR_API_HOST_CHAP_HEX_INVALID,
           ERR_QRV_HOST_CHAP_SECRETSMATCH, ERR_QRV_HOST_TARGETCHAP_ONLY, ERR_API_INVALID_ARGUMENT,
           ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    fails("api_authorizeCIMUser", Returns::code,
          {API_CIMUSER_AUTHORIZATION_UNAUTH_USER, API_CIMUSER_AUTHORIZATION_USER_NOTFOUND,
           API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD, ERR_QRV_INTERNAL_ERROR}),
    fails("api_constructPattern", Returns::code,
          {ERR_API_NO_SPACE, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR}),
    fails("api_convertStrLPIDtoPortID", Returns::code,
          {ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}),
    fails("api_createHost", Returns::status,
          {ERR_QRV_HOST_EXISTS, ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NAMEINVALID,
           ERR_QRV_PERSONA_NOTFOUND, ERR_QRV_DOMAIN_NOTFOUND, ERR_QRV_HOSTPATH_EXISTS,
           ERR_QRV_HOSTPATH_DUPLICATE, ERR_API_WWN_INVALID, ERR_API_ISCSINAME_INVALID,
           ERR_API_HOST_CHAP_SECRET_INVALID, ERR_API_HOST_CHAP_HEX_INVALID,
           ERR_QRV_HOST_CHAP_SECRETSMATCH, ERR_QRV_HOST_TARGETCHAP_ONLY, ERR_API_INVALID_ARGUMENT,
           ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    cannotFail("api_freeHostPersonas"),
    cannotFail("api_freeHosts"),
    cannotFail("api_freeSPCParamData"),
    cannotFail("api_freeSets"),
    cannotFail("api_freeVLUNs"),
    fails("api_getActiveAndTemplateVLUNs_chunk", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails(
        "api_getDomainSets", Returns::status,
        {ERR_QRV_INTERNAL_ERROR, ERR_QRV_SET_NOTFOUND, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY},
        Needs::gate, Allocates::yes),
    cannotFail("api_getErrorTextNoNL"),
    fails("api_getFCPortLPID", Returns::code,
          {ERR_QRV_PORT_NOTFOUND, ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}),
    fails("api_getHostPaths", Returns::code,
          {ERR_API_GETHOST_FAILED, ERR_QRV_HOST_NOTFOUND, ERR_API_INVALID_ARGUMENT,
           ERR_API_WWN_INVALID, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate, Allocates::yes),
    fails("api_getHostPersonaList", Returns::status,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails("api_getHosts", Returns::status,
          {ERR_API_GETHOST_FAILED, ERR_QRV_HOST_NOTFOUND, ERR_QRV_HOSTPATH_NOTFOUND,
           ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate, Allocates::yes),
    fails("api_getISCSIPorts", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails("api_getOwnerName", Returns::code, {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT}),
    fails("api_getSCSIProtocolControllers", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails("api_getSCSIProtocolControllers_chunk", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails("api_getSystemContact", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT}),
    fails("api_getSystemDualIP", Returns::code, {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT}),
    fails("api_getSystemFacts", Returns::code, {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT}),
    fails("api_getVVs", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails("api_getVVs_chunk", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY}, Needs::gate,
          Allocates::yes),
    fails("api_getiSCSIPortLPID", Returns::code,
          {ERR_QRV_PORT_NOTFOUND, ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}),
    fails("api_getvv_filter_add", Returns::code,
          {ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}),
    cannotFail("api_getvv_filter_free"),
    fails("api_getvv_filter_init", Returns::code,
          {ERR_API_NO_MEMORY, ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}, Needs::nothing,
          Allocates::yes),
    fails("api_initPattern", Returns::code, {ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}),
    fails("api_initSPCParamData", Returns::code,
          {ERR_API_NO_MEMORY, ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}, Needs::nothing,
          Allocates::yes),
    cannotFail("api_initStatus"),
    cannotFail("api_is_eos"),
    fails("api_qrvOpenForCimserver", Returns::code,
          {ERR_QRV_PERMISSION_DENIED, ERR_QRV_USER_NOTFOUND, ERR_QRV_INTERNAL_ERROR}),
    fails("api_removeHost", Returns::status,
          {ERR_QRV_HOST_NOTFOUND, ERR_QRV_HOST_NONAME, ERR_QRV_HOST_HAS_VLUNS, ERR_QRV_HOST_IN_SET,
           ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    fails("api_removePath", Returns::status,
          {ERR_QRV_HOSTPATH_NOTFOUND, ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND,
           ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    fails("api_removeVVs", Returns::code,
          {ERR_API_VV_LOCKED_ERROR, ERR_QRV_VV_NOTFOUND, ERR_QRV_VV_HAS_VLUNS, API_VV_SOME_NOTFOUND,
           ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    fails("api_setHost", Returns::status,
          {ERR_QRV_HOST_NOTFOUND, ERR_QRV_HOST_NONAME, ERR_API_GETHOST_FAILED,
           ERR_QRV_HOST_NAMEINVALID, ERR_QRV_HOST_EXISTS, ERR_QRV_PERSONA_NOTFOUND,
           ERR_API_HOST_CHAP_SECRET_INVALID, ERR_API_HOST_CHAP_HEX_INVALID,
           ERR_QRV_HOST_CHAP_SECRETSMATCH, ERR_QRV_HOST_TARGETCHAP_ONLY, ERR_API_INVALID_ARGUMENT,
           ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    fails("api_setHostDomain", Returns::status,
          {ERR_QRV_DOMAIN_NOTFOUND, ERR_QRV_HOST_NONAME, ERR_QRV_HOST_NOTFOUND,
           ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR},
          Needs::gate),
    fails("api_wwnIntToString", Returns::code,
          {ERR_API_INVALID_ARGUMENT, ERR_API_NO_MEMORY, ERR_QRV_INTERNAL_ERROR}),
    fails("api_wwnStringToInt", Returns::status,
          {ERR_API_WWN_INVALID, ERR_API_INVALID_ARGUMENT, ERR_QRV_INTERNAL_ERROR}),
    cannotFail("cim_sem_post"),
    fails("cim_sem_wait", Returns::code, {ETIMEDOUT}),
    fails("cluster_num_nodes_alive", Returns::code,
          {ERR_QRV_INTERNAL_ERROR, ERR_API_INVALID_ARGUMENT}),
    fails("create_string_hashtable", Returns::pointer, {0}, Needs::nothing, Allocates::yes),
    cannotFail("delete_hashtable"),
    cannotFail("errinfo_set_str"),
    cannotFail("free_if_not_null"),
    cannotFail("hashtable_clear"),
    cannotFail("hashtable_contains_key"),
    cannotFail("hashtable_get"),
    cannotFail("hashtable_lock"),
    fails("hashtable_put", Returns::code, {-1}, Needs::nothing, Allocates::yes),
    cannotFail("hashtable_unlock"),
    cannotFail("set_invalid_value"),
    cannotFail("validateConvertIP"),
};

}  // namespace

const ApiFunction& describe(Function function) {
    return table[static_cast<std::size_t>(function)];
}

Function functionNamed(std::string_view name) {
    const auto row = std::find_if(table.begin(), table.end(),
                                  [&](const ApiFunction& entry) { return entry.name == name; });
    if (row == table.end()) {
        throw std::invalid_argument("the library has no call " + std::string(name));
    }
    return static_cast<Function>(row - table.begin());
}

const std::vector<ApiFunction>& control::functions() {
    return table;
}

}  // namespace qrvapi
