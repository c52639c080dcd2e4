// Making an initiator known to the array, and taking it away.

#include <QRV_ControllerConfigurationServiceProvider.h>
#include <cstring>

#include "../QRV_ArrayRecords.h"
#include "../QRV_Common.h"
#include "../QRV_Text.h"
#include "QRV_HardwareIDMethods.h"
#include "QRV_StorageHardwareIDManagementServiceProvider.h"
#include "QRV_StorageHardwareIDProvider.h"

namespace Pegasus {

namespace {

/// CIM_StorageHardwareID.IDType, as far as the array has initiators of that kind.
constexpr Uint16 ID_TYPE_NOT_GIVEN = 65535;

/// One initiator in the form that the array's calls take: a list of one WWN or of one iSCSI name.
struct ArrayInitiator {
    qrv_u64 wwn = QRV_NO_WWN;
    iscsi_name_t iscsiName = {};
    int wwn_cnt = 0;
    int iscsi_cnt = 0;

    /// Whether the array's record is of this initiator; iSCSI names count with case. The text is
    /// the one that the client sent, which may be longer than the array's.
    bool isIn(const api_HostPath_t& path, const char* hostpath) const {
        return (wwn_cnt != 0 && path.type == PORT_TYPE_FC && path.host_wwn == wwn) ||
               (iscsi_cnt != 0 && path.type == PORT_TYPE_ISCSI &&
                std::strcmp(path.iscsiName, hostpath) == 0);
    }
};

/// The parameters of CreateStorageHardwareID.
struct Creation {
    String hostname;
    String hostpath;
    Uint16 idtype = ID_TYPE_NOT_GIVEN;
    CIMObjectPath cltSettingPath;
    Uint32 personaNum = 0;
    ArrayInitiator initiator;
};

void takeIdType(const MethodCall& call, Creation& creation, const CIMValue& value) {
    constexpr const char* refusal = "IDType must be PortWWN or iscsiName";
    value.get(creation.idtype);
    if (creation.idtype != PORT_WWN && creation.idtype != ISCSI_NAME)
        call.fail(METHOD_BAD_ID_TYPE, refusal, refusal);
}

void readCreation(const MethodCall& call, Creation& creation, const String& systemAddress) {
    call.requireParameters("Invalid number of parameters");
    call.read({into("ElementName", creation.hostname),
               into("StorageID", creation.hostpath),
               {"IDType", [&](const CIMValue& value) { takeIdType(call, creation, value); }},
               settingParameter(call, creation.cltSettingPath, systemAddress),
               {"OtherIDType", [](const CIMValue&) {}}});
}

void requireWwn(const MethodCall& call, Creation& creation) {
    int digits = 0;
    const CString text = creation.hostpath.getCString();
    if (api_wwnStringToInt(text, &digits, &creation.initiator.wwn).code == ERR_UNKNOWN) return;
    const String line = String("Invalid WWN for an FC path, StorageID = ") + creation.hostpath;
    call.fail(METHOD_BAD_PARAMETER,
              String("Invalid WWN for an FC path, StorageID ") + creation.hostpath,
              line.getCString());
}

void requireInitiator(const MethodCall& call, Creation& creation) {
    constexpr const char* noStorageID =
        "StorageID is mandatory. To create host without specifying StorageID, use "
        "CreateHardwareIDCollection instead";
    if (creation.hostpath.size() == 0) call.fail(METHOD_BAD_PARAMETER, noStorageID, noStorageID);
    if (creation.idtype == ID_TYPE_NOT_GIVEN)
        call.fail(METHOD_BAD_PARAMETER, "IDType is mandatory", " IDType is mandatory");
    if (creation.idtype == PORT_WWN) {
        requireWwn(call, creation);
        creation.initiator.wwn_cnt = 1;
    } else {
        copyIscsiName(creation.initiator.iscsiName, creation.hostpath);
        creation.initiator.iscsi_cnt = 1;
    }
}

/// What is to be done to make the initiator known on the wanted host.
struct Plan {
    String hostname;  ///< empty: a new host that has no name yet
    bool isCreate = false;
    bool isAdd = false;
    bool updatePersona = false;
};

/// Works out the plan from the array's paths, in their order.
class Planner {
  public:
    explicit Planner(const Creation& creation)
        : _creation(creation), _hostpath(creation.hostpath.getCString()) {
        setHost(creation.hostname);
    }

    Plan plan(const HardwareIDRecords& records) {
        for (const api_hardwareID_t& record : records)
            if (settles(record)) break;
        if (!_foundStorageID && *_matchedHostName != '\0') addToMatchedHost();
        if (!_foundStorageID) {
            _plan.isCreate = true;
            _plan.updatePersona = false;
        }
        return _plan;
    }

  private:
    void setHost(const String& hostname) {
        _plan.hostname = hostname;
        _hostname = hostname.getCString();
    }

    /// Notes what the record says; true when it is the wanted path on the right host.
    bool settles(const api_hardwareID_t& record) {
        if (*_hostname != '\0' && std::strcmp(_hostname, record.hostName) == 0) {
            _matchedHostName = record.hostName;
            _matchedHostPersonaNum = record.hostpersona;
        }
        const bool onHost = record.hostName[0] != '\0';
        if (onHost && _creation.initiator.isIn(record.pathInfo, _hostpath)) takeOwner(record);
        if (_foundStorageID) _plan.updatePersona = record.hostpersona != _creation.personaNum;
        return _foundStorageID;
    }

    /// The host that holds the wanted path. When it isn't the one that was named, the array decides
    /// whether the path may go there.
    void takeOwner(const api_hardwareID_t& record) {
        if (*_hostname == '\0') setHost(record.hostName);
        if (std::strcmp(_hostname, record.hostName) == 0) {
            _foundStorageID = true;
            return;
        }
        log_message(
            3, "ElementName %s does not match the host (%s) that the StorageID (%s) belongs to\n",
            static_cast<const char*>(_hostname), record.hostName,
            static_cast<const char*>(_hostpath));
        _plan.isAdd = true;
    }

    void addToMatchedHost() {
        _plan.isAdd = true;
        _foundStorageID = true;
        setHost(_matchedHostName);
        _plan.updatePersona = _matchedHostPersonaNum != _creation.personaNum;
    }

    const Creation& _creation;
    CString _hostpath;
    CString _hostname;
    Plan _plan;
    bool _foundStorageID = false;
    const char* _matchedHostName = "";
    qrv_u32 _matchedHostPersonaNum = 0;
};

/// All paths that the array knows, with their hosts; none when it doesn't answer, which leaves the
/// decision to the array.
HardwareIDRecords readAllPaths() {
    int count = 0;
    api_hardwareID_t* hbaList = nullptr;
    const int failed =
        callArray([&] { return api_getHostPaths(nullptr, nullptr, nullptr, &count, &hbaList, 1); });
    return failed == 0 ? HardwareIDRecords(hbaList, count) : HardwareIDRecords();
}

ArrayAnswer makeKnown(api_evtparam_t* event, const Plan& plan, const Creation& creation) {
    const CString host = plan.hostname.getCString();
    const ArrayInitiator& initiator = creation.initiator;
    const api_setHostChap_t chap{};
    const objdesc desc{};
    if (plan.isCreate)
        return callArrayForStatus([&] {
            return api_createHost(event, host, initiator.wwn_cnt, &initiator.wwn,
                                  initiator.iscsi_cnt, &initiator.iscsiName, 0, &chap, nullptr,
                                  &desc, 0, creation.personaNum, "");
        });
    if (plan.isAdd)
        return callArrayForStatus([&] {
            return api_addPath(event, host, initiator.wwn_cnt, &initiator.wwn, initiator.iscsi_cnt,
                               &initiator.iscsiName, 0, &chap, nullptr, &desc);
        });
    return ArrayAnswer();
}

ArrayAnswer setPersona(api_evtparam_t* event, const String& hostname, Uint32 personaNum) {
    const CString host = hostname.getCString();
    const api_setHostChap_t chap{};
    const objdesc desc{};
    return callArrayForStatus([&] {
        return api_setHost(event, host, &chap, 0, &desc, API_HOST_CAP_PERSONA, personaNum, nullptr);
    });
}

/// The key of the initiator, made of the text that the client sent.
String instanceIDOf(Creation& creation) {
    return creation.idtype == PORT_WWN
               ? QRV_StorageHardwareIDProvider::makeFCHardwareIDInstanceID(creation.hostpath)
               : QRV_StorageHardwareIDProvider::makeISCSIHardwareIDInstanceID(creation.hostpath);
}

CIMObjectPath requireHardwareID(const MethodCall& call, const String& systemAddress) {
    CIMObjectPath path;
    call.requireParameters(" Invalid number of parameters");
    call.read({reference(call, "HardwareID", path, "QRV_StorageHardwareID", systemAddress,
                         "Invalid HardwareID parameter ")});
    if (!isGiven(path))
        call.fail(METHOD_BAD_PARAMETER, "HardwareID is mandatory", " HardwareID is mandatory");
    return path;
}

ArrayInitiator requireInitiator(const MethodCall& call, const CIMObjectPath& path,
                                const String& hostpath) {
    ArrayInitiator initiator;
    if (QRV_StorageHardwareIDProvider::isFCStorageHardwareID(path)) {
        const String line = String(" invalid path WWN ") + hostpath;
        if (!readWwn(hostpath, initiator.wwn))
            call.fail(METHOD_BAD_PARAMETER, String("Invalid path WWN ") + hostpath,
                      line.getCString());
    } else if (QRV_StorageHardwareIDProvider::isISCSIStorageHardwareID(path)) {
        copyIscsiName(initiator.iscsiName, hostpath);
        initiator.iscsi_cnt = 1;
    } else {
        call.fail(METHOD_BAD_PARAMETER, String("Invalid path ") + path.toString(),
                  " invalid object path");
    }
    return initiator;
}

/// The host that holds the hardware ID, as its own provider tells it.
String requireOwner(const MethodCall& call, CIMOMHandle& cimom, const OperationContext& context,
                    const CIMObjectPath& path) {
    String hostname;
    try {
        cimom.getProperty(context, QRV_NAMESPACE, path, "ElementName").get(hostname);
    } catch (...) {
        call.fail(METHOD_EXISTS_OR_GONE,
                  String("StorageHardwareID ") + path.toString() + " not found");
    }
    return hostname;
}

}  // namespace

void QRV_StorageHardwareIDManagementServiceProvider::_createStorageHardwareID(
    api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
    MethodResultResponseHandler& handler) {
    const MethodCall call(
        "QRV_StorageHardwareIDManagementServiceProvider::_createStorageHardwareID()", inParameters,
        handler);
    Creation creation;
    readCreation(call, creation, _systemAddress);
    creation.personaNum = personaOf(call, creation.cltSettingPath);
    requireInitiator(call, creation);

    const HardwareIDRecords known = readAllPaths();
    Plan plan = Planner(creation).plan(known);
    if (plan.hostname.size() == 0)
        plan.hostname = QRV_ControllerConfigurationServiceProvider::generateHostName(
            creation.hostpath, creation.idtype == PORT_WWN);

    ArrayAnswer answer = makeKnown(apiEventp, plan, creation);
    if (!answer.failed() && plan.updatePersona)
        answer = setPersona(apiEventp, plan.hostname, creation.personaNum);
    call.requireChanged(answer, "api_createHost",
                        {{ERR_QRV_HOSTPATH_EXISTS, METHOD_EXISTS_OR_GONE},
                         {ERR_QRV_HOST_NOTFOUND, METHOD_BAD_PARAMETER},
                         {ERR_QRV_HOSTPATH_DUPLICATE, METHOD_BAD_PARAMETER}});
    call.succeed("HardwareID", QRV_StorageHardwareIDProvider::buildInstanceName(
                                   _systemAddress, instanceIDOf(creation)));
}

void QRV_StorageHardwareIDManagementServiceProvider::_deleteStorageHardwareID(
    api_evtparam_t* apiEventp, const OperationContext& context,
    const Array<CIMParamValue>& inParameters, MethodResultResponseHandler& handler) {
    const MethodCall call(
        "QRV_StorageHardwareIDManagementServiceProvider::_deleteStorageHardwareID()", inParameters,
        handler);
    const CIMObjectPath path = requireHardwareID(call, _systemAddress);
    const String hostpath = QRV_StorageHardwareIDProvider::extractHostWWNOrISCSIName(path);
    if (hostpath.size() == 0)
        call.fail(METHOD_BAD_PARAMETER, String("invalid HardwareID path ") + path.toString(),
                  " invalid HardwareID path");
    const CString hostname = requireOwner(call, _cimom, context, path).getCString();
    const ArrayInitiator initiator = requireInitiator(call, path, hostpath);
    const ArrayAnswer answer = callArrayForStatus([&] {
        return api_removePath(apiEventp, hostname, initiator.iscsi_cnt, initiator.wwn,
                              initiator.iscsiName, 0);
    });
    call.requireChanged(answer, "api_removeHost",
                        {{ERR_QRV_HOST_NOTFOUND, METHOD_EXISTS_OR_GONE},
                         {ERR_QRV_HOSTPATH_NOTFOUND, METHOD_EXISTS_OR_GONE}});
    call.succeed("Collection", path);
}

}  // namespace Pegasus
