#include "QRV_Authorization.h"

#include <initializer_list>
#include <optional>

#include "QRV_ArrayGate.h"
#include "QRV_ArrayRecords.h"
#include "QRV_Common.h"
#include "QRV_MethodCall.h"

namespace Pegasus {

namespace {

using Parameters = Array<CIMParamValue>;

enum class Method {
    changeElement,
    modifySynchronization,
    changeAllocation,
    changePool,
    deletePool,
    returnToPool,
    createElementReplica,
    createGroupReplica,
    modifyReplica,
    modifyList,
    replicationCapabilities,
    transientSetting,
    persistentSetting
};

/// What a method is asked for, where no parameter's number or volume's kind says it.
enum Asked {
    NOT_GIVEN = -1,
    ALWAYS,
    CREATE_VOLUME,
    GROW_VOLUME,
    RENAME_VOLUME,
    POOL_FROM_POOL,
    VOLUME_FROM_POOL,
    NEW_POOL,
    GIVEN_POOL,
    DYNAMIC_POOL,
    DELTA_REPLICA_POOL
};

/// The Operation that gives a copy back to its pool.
constexpr int RETURN_TO_POOL = 19;

struct Permission {
    Method method;
    int asked;
    const char* name;
};

constexpr const char* RETURN_TO_STORAGE_POOL =
    "qrv_storageconfigurationservice.returntostoragepool";

constexpr Permission PERMISSIONS[] = {
    {Method::changeElement, CREATE_VOLUME,
     "qrv_storageconfigurationservice.createormodifyelementfromstoragepool.createvolume"},
    {Method::changeElement, GROW_VOLUME,
     "qrv_storageconfigurationservice.createormodifyelementfromstoragepool.growvolume"},
    {Method::changeElement, RENAME_VOLUME,
     "qrv_storageconfigurationservice.createormodifyelementfromstoragepool.setvolume"},

    {Method::modifySynchronization, 2,
     "qrv_storageconfigurationservice.modifysynchronization.detach"},
    {Method::modifySynchronization, 4,
     "qrv_storageconfigurationservice.modifysynchronization.resync"},
    {Method::modifySynchronization, 5,
     "qrv_storageconfigurationservice.modifysynchronization.restore"},
    {Method::modifySynchronization, 12,
     "qrv_storageconfigurationservice.modifysynchronization.startcopy"},
    {Method::modifySynchronization, 13,
     "qrv_storageconfigurationservice.modifysynchronization.stopcopy"},

    {Method::changeAllocation, POOL_FROM_POOL,
     "qrv_allocatedfromstoragepool.modifyinstance.setcpg"},
    {Method::changeAllocation, VOLUME_FROM_POOL,
     "qrv_allocatedfromstoragepool.modifyinstance.setvv"},

    {Method::changePool, NEW_POOL,
     "qrv_storageconfigurationservice.createormodifystoragepool.createcpg"},
    {Method::changePool, GIVEN_POOL,
     "qrv_storageconfigurationservice.createormodifystoragepool.setcpg"},

    {Method::deletePool, DYNAMIC_POOL,
     "qrv_storageconfigurationservice.deletestoragepool.deletedynamicstoragepool"},
    {Method::deletePool, DELTA_REPLICA_POOL,
     "qrv_storageconfigurationservice.deletestoragepool.deletedeltareplicastoragepool"},

    {Method::returnToPool, VOL_TYPE_BASE,
     "qrv_storageconfigurationservice.returntostoragepool.basevv"},
    {Method::returnToPool, VOL_TYPE_PHYS_COPY,
     "qrv_storageconfigurationservice.returntostoragepool.physcopyvv"},
    {Method::returnToPool, VOL_TYPE_VIRT_COPY,
     "qrv_storageconfigurationservice.returntostoragepool.virtcopyvv"},
    {Method::returnToPool, VOL_TYPE_REMOTE_COPY, RETURN_TO_STORAGE_POOL},

    {Method::createElementReplica, NOT_GIVEN,
     "qrv_replicationservice.createelementreplica.createvvcopy"},
    {Method::createElementReplica, 7, "qrv_replicationservice.createelementreplica.createsv"},
    {Method::createElementReplica, 8, "qrv_replicationservice.createelementreplica.createvvcopy"},

    {Method::createGroupReplica, NOT_GIVEN,
     "qrv_replicationservice.creategroupreplica.creategroupvvcopy"},
    {Method::createGroupReplica, 6, "qrv_replicationservice.creategroupreplica.createmirror"},
    {Method::createGroupReplica, 7, "qrv_replicationservice.creategroupreplica.creategroupsv"},
    {Method::createGroupReplica, 8, "qrv_replicationservice.creategroupreplica.creategroupvvcopy"},

    {Method::modifyReplica, NOT_GIVEN, "qrv_replicationservice.createelementreplica.createvvcopy"},
    // The array knows this one with a blank at its end.
    {Method::modifyReplica, 2, "qrv_replicationservice.modifyreplicasynchronization.abort "},
    {Method::modifyReplica, 4, "qrv_replicationservice.modifyreplicasynchronization.syncrcopy"},
    {Method::modifyReplica, 8, "qrv_replicationservice.modifyreplicasynchronization.dissolve"},
    {Method::modifyReplica, 9, "qrv_replicationservice.modifyreplicasynchronization.dissolve"},
    {Method::modifyReplica, 10,
     "qrv_replicationservice.modifyreplicasynchronization.setrcopygroup"},
    {Method::modifyReplica, 11,
     "qrv_replicationservice.modifyreplicasynchronization.setrcopygroup"},
    {Method::modifyReplica, 14, "qrv_replicationservice.modifyreplicasynchronization.resync"},
    {Method::modifyReplica, 15, "qrv_replicationservice.modifyreplicasynchronization.restore"},
    {Method::modifyReplica, 20,
     "qrv_replicationservice.modifyreplicasynchronization.setrcopygroup"},
    {Method::modifyReplica, 21, "qrv_replicationservice.modifyreplicasynchronization.split"},

    {Method::modifyList, NOT_GIVEN, "qrv_replicationservice.modifylistsynchronization.resync"},
    {Method::modifyList, 2, "qrv_replicationservice.modifylistsynchronization.abort"},
    {Method::modifyList, 8, "qrv_replicationservice.modifylistsynchronization.dissolve"},
    {Method::modifyList, 9, "qrv_replicationservice.modifylistsynchronization.dissolve"},
    {Method::modifyList, 14, "qrv_replicationservice.modifylistsynchronization.resync"},
    {Method::modifyList, 15, "qrv_replicationservice.modifylistsynchronization.restore"},
    {Method::modifyList, RETURN_TO_POOL, "qrv_replicationservice.deletegroup"},

    {Method::replicationCapabilities, ALWAYS, "qrv_replicationservicecapabilities"},
    {Method::transientSetting, ALWAYS,
     "qrv_storageconfigurationservice.createormodifyelementfromstoragepool.setvolume"},
    {Method::persistentSetting, ALWAYS, "qrv_storagesetting.modifyinstance"},
};

/// The name of a permission; null when the method has no such operation.
const char* permissionFor(Method method, int asked) {
    for (const Permission& each : PERMISSIONS)
        if (each.method == method && each.asked == asked) return each.name;
    return nullptr;
}

/// Who asks, and from where.
class Requester {
  public:
    Requester(const String& user, const String& address)
        : _user(user.getCString()), _address(address.getCString()) {}

    int mayUse(const char* permission) const {
        return api_authorizeCIMUser(_user, _address, permission);
    }

    /// 3 without a question when the method has no such operation.
    int mayRun(Method method, int asked) const {
        const char* const permission = permissionFor(method, asked);
        return permission == nullptr ? API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD
                                     : mayUse(permission);
    }

  private:
    CString _user;
    CString _address;
};

/// Hands each parameter that isn't null to the one of `known` with its name, in the order given.
void read(const Parameters& parameters, std::initializer_list<MethodParameter> known) {
    for (Uint32 i = 0; i < parameters.size(); ++i) {
        const CIMValue value = parameters[i].getValue();
        for (const MethodParameter& each : known)
            if (!value.isNull() && String::equalNoCase(parameters[i].getParameterName(), each.name))
                each.take(value);
    }
}

/// A parameter of which only matters that it is there.
MethodParameter presence(const char* name, bool& given) {
    return {name, [&given](const CIMValue&) { given = true; }};
}

void traceNames(const Parameters& parameters, const char* end) {
    for (Uint32 i = 0; i < parameters.size(); ++i)
        log_message(4, "Param %s%s",
                    static_cast<const char*>(parameters[i].getParameterName().getCString()), end);
}

bool isOf(const CIMName& className, const char* wanted) {
    return className.equal(CIMName(wanted));
}

// ---- Volumes ------------------------------------------------------------------------------------

/// The kind of the volume that a path names; none when the array doesn't find it.
std::optional<int> kindOf(const CIMObjectPath& volRef) {
    const String deviceID = QRV_Common::getStringProperty(volRef, "DeviceID");
    if (volRef.getClassName().isNull() || deviceID.size() == 0) return std::nullopt;
    const CString wanted = deviceID.getCString();
    int count = 0;
    api_vv_t* found = nullptr;
    const int failed = callArray([&] { return api_getVVs(nullptr, wanted, &count, &found, 1); });
    const VolumeRecords volumes(found, count);
    if (failed != 0 || volumes.begin() == volumes.end()) return std::nullopt;
    return volumes.begin()->type;
}

/// Puts the permission that the removal of a volume takes into `methodName`. It stays as it was for
/// a volume that isn't found or whose kind the array doesn't know (0), and for a kind that nobody
/// may remove (3).
int handleDeleteVolumeMethod(CIMObjectPath& volRef, String& methodName) {
    const std::optional<int> kind = kindOf(volRef);
    if (!kind) {
        log_message(2, "Cannot find the volume referenced to in %s\n",
                    static_cast<const char*>(volRef.toString().getCString()));
        return API_CIMUSER_AUTHORIZATION_SUCCESS;
    }
    if (*kind == VOL_TYPE_UNKNOWN) {
        log_message(2, "TheElement parameter is invalid\n");
        return API_CIMUSER_AUTHORIZATION_SUCCESS;
    }
    const char* const permission = permissionFor(Method::returnToPool, *kind);
    if (permission == nullptr) return API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD;
    methodName = permission;
    return API_CIMUSER_AUTHORIZATION_SUCCESS;
}

// ---- Replicas -----------------------------------------------------------------------------------

int authorizeNewReplica(const Requester& requester, Method method, const Parameters& parameters) {
    Uint16 syncType = 0;
    Uint16 mode = 0;
    const bool isTyped = QRV_Common::getParameter(parameters, "SyncType", syncType) != 3;
    const bool hasMode = QRV_Common::getParameter(parameters, "Mode", mode) != 3;
    return requester.mayRun(method, isTyped && hasMode ? int(syncType) : NOT_GIVEN);
}

/// A request to change replicas.
struct ReplicaChange {
    int operation = NOT_GIVEN;
    CIMObjectPath volRef;  ///< the copy
    bool targetGroupSet = false;
};

MethodParameter operationOf(ReplicaChange& change) {
    return {"Operation", [&change](const CIMValue& value) {
                Uint16 number = 0;
                value.get(number);
                change.operation = number;
            }};
}

void readCopy(const CIMObjectPath& synchronization, ReplicaChange& change) {
    const String copy = QRV_Common::getStringProperty(synchronization, "SyncedElement");
    if (copy.size() > 0) change.volRef = CIMObjectPath(copy);
}

int authorizeReplicaChange(const Requester& requester, Method method, ReplicaChange& change) {
    if (change.operation != RETURN_TO_POOL || change.targetGroupSet)
        return requester.mayRun(method, change.operation);
    String methodName;
    const int code = handleDeleteVolumeMethod(change.volRef, methodName);
    return methodName.size() == 0 ? code : requester.mayUse(methodName.getCString());
}

}  // namespace

int authorize_CreateOrModifyElemFromStoragePool(const String& userName, const String& ipAddr,
                                                const Array<CIMParamValue>& inParameters) {
    traceNames(inParameters, "");
    bool volNameSet = false;
    bool volSizeSet = false;
    bool volRefSet = false;
    const auto takeElement = [&](const CIMValue& value) {
        CIMObjectPath volRef;
        value.get(volRef);
        volRefSet = volRefSet || !volRef.getClassName().isNull();
    };
    read(inParameters, {presence("ElementName", volNameSet),
                        presence("Size", volSizeSet),
                        {"TheElement", takeElement}});

    const Requester requester(userName, ipAddr);
    if (!volRefSet) return requester.mayRun(Method::changeElement, CREATE_VOLUME);
    int code = API_CIMUSER_AUTHORIZATION_SUCCESS;
    if (volSizeSet) code = requester.mayRun(Method::changeElement, GROW_VOLUME);
    if (code == 0 && volNameSet) code = requester.mayRun(Method::changeElement, RENAME_VOLUME);
    return code;
}

int authorize_ModifySynchronization(const String& userName, const String& ipAddr,
                                    const Array<CIMParamValue>& inParameters) {
    Uint16 operation = 0;
    QRV_Common::getParameter(inParameters, "Operation", operation);
    return Requester(userName, ipAddr).mayRun(Method::modifySynchronization, operation);
}

int authorize_AllocatedFromStoragePoolModifyInstance(const String& userName, const String& ipAddr,
                                                     const CIMObjectPath& path) {
    const auto classAt = [&](const char* end) {
        const String element = QRV_Common::getStringProperty(path, end);
        return element.size() == 0 ? CIMName() : CIMObjectPath(element).getClassName();
    };
    const CIMName antecedent = classAt("Antecedent");
    const CIMName dependent = classAt("Dependent");
    const Requester requester(userName, ipAddr);
    if (isOf(dependent, "QRV_DynamicStoragePool"))
        return requester.mayRun(Method::changeAllocation, POOL_FROM_POOL);
    if (isOf(antecedent, "QRV_DynamicStoragePool") &&
        (isOf(dependent, "QRV_StorageVolume") || isOf(dependent, "QRV_DeltaReplicaStoragePool")))
        return requester.mayRun(Method::changeAllocation, VOLUME_FROM_POOL);
    return API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD;
}

int authorize_CreateOrModifyStoragePool(const String& userName, const String& ipAddr,
                                        const Array<CIMParamValue>& inParameters) {
    CIMObjectPath pool;
    for (Uint32 i = 0; i < inParameters.size(); ++i) {
        if (!String::equalNoCase(inParameters[i].getParameterName(), "Pool")) continue;
        const CIMValue value = inParameters[i].getValue();
        if (!value.isNull()) value.get(pool);
        break;
    }
    return Requester(userName, ipAddr)
        .mayRun(Method::changePool, pool.getClassName().isNull() ? NEW_POOL : GIVEN_POOL);
}

int authorize_DeleteStoragePool(const String& userName, const String& ipAddr,
                                const Array<CIMParamValue>& inParameters) {
    CIMObjectPath pool;
    QRV_Common::getParameter(inParameters, "Pool", pool);
    const Requester requester(userName, ipAddr);
    if (isOf(pool.getClassName(), "QRV_DynamicStoragePool"))
        return requester.mayRun(Method::deletePool, DYNAMIC_POOL);
    if (isOf(pool.getClassName(), "QRV_DeltaReplicaStoragePool"))
        return requester.mayRun(Method::deletePool, DELTA_REPLICA_POOL);
    return API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD;
}

int authorize_DeleteStorageVolume(const String& userName, const String& ipAddr,
                                  const Array<CIMParamValue>& inParameters) {
    traceNames(inParameters, "\n");
    Array<CIMObjectPath> volRefs;
    const auto addElement = [&](const CIMValue& value) {
        CIMObjectPath volRef;
        value.get(volRef);
        volRefs.append(volRef);
    };
    read(inParameters, {{"TheElement", addElement}, into("TheElements", volRefs)});

    const Requester requester(userName, ipAddr);
    String methodName = RETURN_TO_STORAGE_POOL;
    int code = API_CIMUSER_AUTHORIZATION_SUCCESS;
    for (Uint32 i = 0; i < volRefs.size(); ++i) {
        code = handleDeleteVolumeMethod(volRefs[i], methodName);
        if (code != 0) continue;
        code = requester.mayUse(methodName.getCString());
        if (code != 0) break;
    }
    return code;
}

int authorize_CreateElementReplica(const String& userName, const String& ipAddr,
                                   const Array<CIMParamValue>& inParameters) {
    return authorizeNewReplica({userName, ipAddr}, Method::createElementReplica, inParameters);
}

int authorize_CreateGroupReplica(const String& userName, const String& ipAddr,
                                 const Array<CIMParamValue>& inParameters) {
    return authorizeNewReplica({userName, ipAddr}, Method::createGroupReplica, inParameters);
}

int authorize_ModifyReplicaSynchronization(const String& userName, const String& ipAddr,
                                           const Array<CIMParamValue>& inParameters) {
    ReplicaChange change;
    const auto takeSynchronization = [&](const CIMValue& value) {
        CIMObjectPath synchronization;
        value.get(synchronization);
        readCopy(synchronization, change);
    };
    read(inParameters, {operationOf(change), {"Synchronization", takeSynchronization}});
    return authorizeReplicaChange({userName, ipAddr}, Method::modifyReplica, change);
}

int authorize_ModifyListSynchronization(const String& userName, const String& ipAddr,
                                        const Array<CIMParamValue>& inParameters) {
    ReplicaChange change;
    const auto takeFirst = [&](const CIMValue& value) {
        Array<CIMObjectPath> synchronizations;
        value.get(synchronizations);
        if (synchronizations.size() > 0) readCopy(synchronizations[0], change);
    };
    read(inParameters, {operationOf(change),
                        {"Synchronization", takeFirst},
                        presence("TargetGroup", change.targetGroupSet)});
    return authorizeReplicaChange({userName, ipAddr}, Method::modifyList, change);
}

int authorize_ReplicationServiceCapabilitiesMethod(const String& userName, const String& ipAddr,
                                                   const Array<CIMParamValue>&) {
    return Requester(userName, ipAddr).mayRun(Method::replicationCapabilities, ALWAYS);
}

int authorize_ModifyStorageSetting_Transient(const String& userName, const String& ipAddr,
                                             const Array<CIMParamValue>&) {
    return Requester(userName, ipAddr).mayRun(Method::transientSetting, ALWAYS);
}

int authorize_ModifyStorageSetting_Persistent(const String& userName, const String& ipAddr,
                                              const Array<CIMParamValue>&) {
    return Requester(userName, ipAddr).mayRun(Method::persistentSetting, ALWAYS);
}

}  // namespace Pegasus
