#include <optional>

#include "QRV_ArrayGate.h"
#include "QRV_ArrayRecords.h"
#include "QRV_CimServer.h"
#include "QRV_Common.h"
#include "QRV_OperationFrame.h"
#include "QRV_Text.h"
#include "QRV_VlunWalk.h"

namespace Pegasus {

namespace {

/// The kind of VLUN that the prefix of a DeviceID names.
struct DeviceIDForm {
    const char* prefix;
    Uint32 vlunType;
    bool namesPort;
    bool namesHost;
};

constexpr DeviceIDForm DEVICE_ID_FORMS[] = {
    {"MS:", API_VLUN_MATCHED_SET, true, true},
    {"PP:", API_VLUN_PORT_PRESENTS, true, false},
    {"HSet:", API_VLUN_HOST_SET, false, true},
    {"HS:", API_VLUN_HOST_SEES, false, true},
};

const DeviceIDForm* formOf(const String& prefix) {
    for (const DeviceIDForm& form : DEVICE_ID_FORMS)
        if (prefix == form.prefix) return &form;
    return nullptr;
}

/// The colon that ends the three fields of a port's LPID, which begin behind the colon at `before`.
Uint32 endOfPort(const String& deviceID, Uint32 before) {
    Uint32 colon = before;
    for (int field = 0; field < 3 && colon != PEG_NOT_FOUND; ++field)
        colon = deviceID.find(colon + 1, ':');
    return colon;
}

lpid_t portOf(const String& text) {
    lpid_t port = QRV_NO_PORT;
    api_convertStrLPIDtoPortID(text.getCString(), &port);
    return port;
}

/// The iSCSI port whose DeviceID this is; QRV_NO_PORT when there is none.
lpid_t iscsiPortOf(const String& deviceID) {
    api_ISCSIPortsInfo_t info{};
    const int failed = callArray([&] { return api_getISCSIPorts(&info); });
    const ISCSIPorts ports(info.ports, static_cast<int>(info.count));
    if (failed != 0) return QRV_NO_PORT;
    for (const api_ISCSIPort_t& port : ports)
        if (deviceID == arrayText(port.deviceID)) return port.portID;
    return QRV_NO_PORT;
}

/// The name of the host with the number that a text begins with; empty when there is none.
String hostNameOf(const String& idText) {
    const std::optional<Uint32> id = leadingNumber(idText);
    if (!id) return String();
    HostList hosts;
    callArrayForStatus(
        [&] { return api_getHosts(nullptr, QRV_NO_WWN, nullptr, hosts.receive(), 1, 1); });
    for (unsigned int i = 0; i < hosts->count; ++i)
        if (hosts->hosts[i].id == *id) return arrayText(hosts->hosts[i].name);
    return String();
}

/// A class of controllers, and what tells its VLUNs and their ends from those of the other.
struct ControllerClass {
    const char* name;
    port_type_t portType;
    Uint16 nameFormat;
    const char* (*portName)(const api_vlun_t&);
    const char* (*hostName)(const api_vlun_t&);
};

constexpr ControllerClass CONTROLLER_CLASSES[] = {
    {"QRV_SCSIController", PORT_TYPE_FC, 2, [](const api_vlun_t& vlun) { return vlun.portwwn; },
     [](const api_vlun_t& vlun) { return vlun.hostwwn; }},
    {"QRV_iSCSIController", PORT_TYPE_ISCSI, 3,
     [](const api_vlun_t& vlun) { return vlun.portiscsiname; },
     [](const api_vlun_t& vlun) { return vlun.hostiscsiname; }},
};

const ControllerClass* controllerClassOf(const CIMName& className) {
    for (const ControllerClass& each : CONTROLLER_CLASSES)
        if (className.equal(each.name)) return &each;
    return nullptr;
}

const CIMName SYSTEM_CREATION_CLASS_NAME("SystemCreationClassName");
const CIMName SYSTEM_NAME("SystemName");
const CIMName CREATION_CLASS_NAME("CreationClassName");
const CIMName DEVICE_ID("DeviceID");
const CIMName ELEMENT_NAME("ElementName");
const CIMName NAME("Name");
const CIMName NAME_FORMAT("NameFormat");
const CIMName OTHER_NAME_FORMAT("OtherNameFormat");
const CIMName OPERATIONAL_STATUS("OperationalStatus");
const CIMName STATUS_DESCRIPTIONS("StatusDescriptions");
const CIMName HEALTH_STATE("HealthState");

const String NAME_FORMAT_TEXT(
    "Name (and DeviceID) is constructed in the following format:\n"
    " MS:<port LPID>:<host id>  for matched set vlun\n"
    " HS:<host id>  for host see vlun\n"
    " PP:<port LPID>  for port present vlun");

enum Status : Uint16 { OK = 2, DORMANT = 15 };
constexpr Uint16 HEALTHY = 5;

void setName(CIMInstance& instance, const ControllerClass* ofClass, const api_vlun_t& vlun) {
    String name;
    if (ofClass != nullptr)
        name = vlun.accessPriority == API_VLUN_PORT_PRESENTS ? ofClass->portName(vlun)
                                                             : ofClass->hostName(vlun);
    QRV_Common::setPropertyValue(instance, NAME, name);
    QRV_Common::setPropertyValue(instance, NAME_FORMAT,
                                 ofClass == nullptr ? Uint16(0) : ofClass->nameFormat);
    QRV_Common::setPropertyValue(instance, OTHER_NAME_FORMAT, NAME_FORMAT_TEXT);
}

/// A template exports nothing until a volume comes to it.
void setStatus(CIMInstance& instance, bool isTemplate) {
    const Array<Uint16> status(1, isTemplate ? DORMANT : OK);
    const Array<String> description(1, isTemplate ? "Dormant" : "OK");
    QRV_Common::setPropertyValue(instance, OPERATIONAL_STATUS, status);
    QRV_Common::setPropertyValue(instance, STATUS_DESCRIPTIONS, description);
    QRV_Common::setPropertyValue(instance, HEALTH_STATE, HEALTHY);
}

/// What a read of controllers is for: the one with a DeviceID, or all.
struct WantedControllers {
    port_type_t portType;
    bool one = false;
    String deviceID = String();
    VlunFilter filter = {};

    bool includes(const api_vlun_t& vlun) const {
        return vlun.hporttype == portType && (!one || String::equalNoCase(vlun.deviceID, deviceID));
    }
};

WantedControllers wantedControllers(port_type_t portType, const CIMObjectPath& instanceReference) {
    if (instanceReference.getClassName().isNull()) return {portType};
    const String deviceID = QRV_Common::getStringProperty(instanceReference, "DeviceID");
    if (deviceID.size() == 0) return {portType, true};
    const VlunFilter filter = filterOf(deviceID);
    log_message(4, "vlunType = %u, host = %s\n", filter.vlunType,
                static_cast<const char*>(filter.host.getCString()));
    return {portType, true, deviceID, filter};
}

/// A walk can't go on behind a chunk that couldn't be read: the client is told unless it has seen
/// nothing of it yet.
void endWalk(api_spc_param_data* spcParam, Uint32 cursor) {
    if (cursor != 0) throw methodFailure(CIM_ERR_INVALID_PARAMETER, "Failed to retrieve SPC data.");
    api_freeSPCParamData(spcParam);
}

}  // namespace

void QRV_Common::deReferenceSPCDeviceID(String& deviceID, Uint32& vlunType, String& host,
                                        lpid_t& portLPID, Boolean isISCSINode) {
    host.clear();
    portLPID = isISCSINode ? iscsiPortOf(deviceID) : QRV_NO_PORT;
    if (isISCSINode) vlunType = API_VLUN_PORT_PRESENTS;
    Uint32 colon = isISCSINode ? PEG_NOT_FOUND : deviceID.find(':');
    if (colon == PEG_NOT_FOUND) return;

    const DeviceIDForm* const form = formOf(deviceID.subString(0, colon + 1));
    vlunType = form == nullptr ? 0 : form->vlunType;
    if (form == nullptr) return;
    if (form->namesPort) {
        const Uint32 begin = colon + 1;
        colon = endOfPort(deviceID, colon);
        portLPID = portOf(
            deviceID.subString(begin, colon == PEG_NOT_FOUND ? PEG_NOT_FOUND : colon - begin));
        if (portLPID == QRV_NO_PORT || colon == PEG_NOT_FOUND) return;
    }
    if (form->namesHost) host = hostNameOf(deviceID.subString(colon + 1));
}

CIMObjectPath QRV_Common::buildSPCObjectPath(String systemClass, const String& hostAddr,
                                             const String& sysName, const String& deviceID,
                                             CIMName className) {
    Array<CIMKeyBinding> keys;
    const auto addKey = [&](const CIMName& name, const String& value) {
        keys.append(CIMKeyBinding(name, value, CIMKeyBinding::STRING));
    };
    addKey(SYSTEM_CREATION_CLASS_NAME, systemClass);
    addKey(SYSTEM_NAME, sysName);
    addKey(CREATION_CLASS_NAME, className.getString());
    addKey(DEVICE_ID, deviceID);
    return CIMObjectPath(hostAddr, QRV_NAMESPACE, className, keys);
}

CIMInstance QRV_Common::buildSPCInstance(String systemClass, CIMClass scsiControllerClass,
                                         api_vlun_t* curVlunPtr, const String& sysName,
                                         const String& hostAddr) {
    const CIMName className = scsiControllerClass.getClassName();
    const String deviceID = arrayText(curVlunPtr->deviceID);
    CIMInstance instance = buildInstanceSkeleton(scsiControllerClass);
    setPropertyValue(instance, SYSTEM_CREATION_CLASS_NAME, systemClass);
    setPropertyValue(instance, SYSTEM_NAME, sysName);
    setPropertyValue(instance, CREATION_CLASS_NAME, className.getString());
    setPropertyValue(instance, DEVICE_ID, deviceID);
    setPropertyValue(instance, ELEMENT_NAME, arrayText(curVlunPtr->hostname));
    setName(instance, controllerClassOf(className), *curVlunPtr);
    setStatus(instance, curVlunPtr->isTemplate != 0);
    instance.setPath(buildSPCObjectPath(systemClass, hostAddr, sysName, deviceID, className));
    return instance;
}

void QRV_Common::buildSPCInstances(CIMOMHandle& cimom, const OperationContext&,
                                   const CIMObjectPath& instanceReference, String& systemName,
                                   String& hostAddr, CIMName className, Boolean includeQualifiers,
                                   Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                                   Uint32, Array<CIMInstance>& controllerInsts,
                                   api_spc_param_data* spcParam, Uint32* cursor_id,
                                   Uint32 chunk_size) {
    const OperationTrace trace("QRV_Common::buildSPCInstances()");
    const ControllerClass* const ofClass = controllerClassOf(className);
    if (ofClass == nullptr) return;
    const CIMClass cimClass =
        getStoredCIMClass(cimom, OperationContext(), QRV_NAMESPACE, className, false,
                          includeQualifiers, includeClassOrigin, propertyList);
    const WantedControllers wanted = wantedControllers(ofClass->portType, instanceReference);
    if (wanted.one && wanted.deviceID.size() == 0) return;

    VlunQuery query;
    addFilter(*query.change(), wanted.filter);
    const int failed = callArray([&] {
        return api_getSCSIProtocolControllers_chunk(query.change(), spcParam, cursor_id,
                                                    chunk_size);
    });
    if (failed != 0)
        log_message(2,
                    "QRV_Common::buildSPCInstances ()  api_getSCSIProtocolControllers_chunk "
                    "failed, status = %d\n",
                    failed);
    if (failed != 0 && chunk_size == 0) return;
    try {
        if (failed != 0) return endWalk(spcParam, *cursor_id);
        for (unsigned int i = 0; i < query->count; ++i) {
            if (!wanted.includes(query->vluns[i])) continue;
            controllerInsts.append(buildSPCInstance("QRV_StorageSystem", cimClass, &query->vluns[i],
                                                    systemName, hostAddr));
            if (wanted.one) return;
        }
    } catch (...) {
        query = VlunQuery();
        api_freeSPCParamData(spcParam);
        log_message(2,
                    "<--QRV_Common::buildSPCInstances: exception thrown while building instances, "
                    "# of instances assembled so far = %u\n",
                    controllerInsts.size());
        throw;
    }
}

String QRV_Common::RCTargetToSysname(const api_rcopy_t& rcopy, const String& targetName) {
    for (unsigned int i = 0; i < rcopy.target_count; ++i)
        if (targetName == rcopy.targets[i].rm_hdr.rm_name)
            return rcopy.targets[i].rm_remote_sysname;
    return String::EMPTY;
}

}  // namespace Pegasus
