#pragma once

#include <string_view>

#include "qrvapi_control.h"

namespace qrvapi {

/// Every call of the library, in the order of the table in Functions.cpp.
enum class Function : unsigned {
    api_addPath,
    api_authorizeCIMUser,
    api_constructPattern,
    api_convertStrLPIDtoPortID,
    api_createHost,
    api_freeHostPersonas,
    api_freeHosts,
    api_freeSPCParamData,
    api_freeSets,
    api_freeVLUNs,
    api_getActiveAndTemplateVLUNs_chunk,
    api_getDomainSets,
    api_getErrorTextNoNL,
    api_getFCPortLPID,
    api_getHostPaths,
    api_getHostPersonaList,
    api_getHosts,
    api_getISCSIPorts,
    api_getOwnerName,
    api_getSCSIProtocolControllers,
    api_getSCSIProtocolControllers_chunk,
    api_getSystemContact,
    api_getSystemDualIP,
    api_getSystemFacts,
    api_getVVs,
    api_getVVs_chunk,
    api_getiSCSIPortLPID,
    api_getvv_filter_add,
    api_getvv_filter_free,
    api_getvv_filter_init,
    api_initPattern,
    api_initSPCParamData,
    api_initStatus,
    api_is_eos,
    api_qrvOpenForCimserver,
    api_removeHost,
    api_removePath,
    api_removeVVs,
    api_setHost,
    api_setHostDomain,
    api_wwnIntToString,
    api_wwnStringToInt,
    cim_sem_post,
    cim_sem_wait,
    cluster_num_nodes_alive,
    create_string_hashtable,
    delete_hashtable,
    errinfo_set_str,
    free_if_not_null,
    hashtable_clear,
    hashtable_contains_key,
    hashtable_get,
    hashtable_lock,
    hashtable_put,
    hashtable_unlock,
    set_invalid_value,
    validateConvertIP,
};

const control::ApiFunction& describe(Function function);
/// Throws std::invalid_argument for a name that the library doesn't have.
Function functionNamed(std::string_view name);

}  // namespace qrvapi
