#include "QRV_HardwareIDElementSettingDataProvider.h"

#include <string>
#include <unordered_map>

#include "../QRV_StoredClass.h"
#include "../QRV_Text.h"
#include "QRV_HardwareIDMethods.h"
#include "QRV_StorageHardwareIDProvider.h"

namespace Pegasus {

namespace {

const CIMName HARDWARE_ID("QRV_StorageHardwareID");

/// The persona of the first host that holds the initiator.
Persona personaOfInitiator(const CIMObjectPath& hardwareID) {
    const String storageID = QRV_StorageHardwareIDProvider::extractHostWWNOrISCSIName(hardwareID);
    if (storageID.size() == 0) return std::nullopt;
    if (!QRV_StorageHardwareIDProvider::isFCStorageHardwareID(hardwareID))
        return personaOfFirstHost(nullptr, QRV_NO_WWN, storageID.getCString());
    qrv_u64 hostWWN = QRV_NO_WWN;
    // The number that selects no WWN would select every host.
    if (!readWwn(storageID, hostWWN) || hostWWN == QRV_NO_WWN) return std::nullopt;
    return personaOfFirstHost(nullptr, hostWWN, nullptr);
}

Persona personaOfEnd(const SettingRequest&, const CIMObjectPath& hardwareID) {
    return personaOfInitiator(hardwareID);
}

Array<CIMInstance> hardwareIDsOf(const SettingRequest& request, Uint32 persona) {
    Array<CIMInstance> hardwareIDs;
    HostList hosts;
    if (!readHosts(hosts, nullptr, QRV_NO_WWN, nullptr)) {
        log_message(2,
                    "--> QRV_HardwareIDElementSettingDataProvider::_getRelatedInstances()  "
                    "api_getHosts failed.\n");
        return hardwareIDs;
    }
    CIMClass hardwareIDClass = storedClass(request.cimom, HARDWARE_ID, request.shape);
    for (unsigned int i = 0; i < hosts->count; ++i) {
        const api_Host_t& host = hosts->hosts[i];
        if (host.name[0] != '\0' && host.host_persona == persona)
            hardwareIDs.appendArray(QRV_StorageHardwareIDProvider::buildInstance(
                request.systemAddress, hardwareIDClass, host.name, host.paths, host.pathCount));
    }
    return hardwareIDs;
}

/// Persona 0 is no host's own. Of hosts with one name the first that has a persona counts.
using PersonasByHost = std::unordered_map<std::string, Uint32>;

PersonasByHost readPersonas() {
    PersonasByHost personas;
    HostList hosts;
    if (!readHosts(hosts, nullptr, QRV_NO_WWN, nullptr) || hosts->count == 0)
        log_message(3, "\tNo valid host gets returned.\n");
    for (unsigned int i = 0; i < hosts->count; ++i) {
        const api_Host_t& host = hosts->hosts[i];
        if (host.name[0] != '\0' && host.host_persona != 0)
            personas.emplace(host.name, host.host_persona);
    }
    return personas;
}

std::function<Persona(const CIMInstance&)> personasOfAll() {
    return [personas = readPersonas()](const CIMInstance& hardwareID) -> Persona {
        if (QRV_Common::getStringProperty(hardwareID, "StorageID").size() == 0) return std::nullopt;
        const String hostName = QRV_Common::getStringProperty(hardwareID, "ElementName");
        const auto found = personas.find(static_cast<const char*>(hostName.getCString()));
        return found == personas.end() ? Persona() : found->second;
    };
}

const ElementSettingKind KIND{
    {"QRV_HardwareIDElementSettingDataProvider", "QRV_HardwareIDElementSettingDataProvider",
     "CIM_ElementSettingData", "QRV_HardwareIDElementSettingData", 2, " Expect two keys."},
    {{},
     {"ManagedElement", "SettingData"},
     {"CIM_ElementSettingData", "QRV_HardwareIDElementSettingData"},
     {"CIM_Identity", "CIM_StorageHardwareID", "QRV_StorageHardwareID", "CIM_ManagedElement",
      "CIM_SettingData", "CIM_StorageClientSettingData", "QRV_StorageClientSettingData"},
     true,
     {}},
    HARDWARE_ID,
    false,
    true,
    personaOfInitiator,
    personaOfEnd,
    hardwareIDsOf,
    personasOfAll};

}  // namespace

QRV_HardwareIDElementSettingDataProvider::QRV_HardwareIDElementSettingDataProvider() = default;
QRV_HardwareIDElementSettingDataProvider::~QRV_HardwareIDElementSettingDataProvider() = default;

void QRV_HardwareIDElementSettingDataProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_HardwareIDElementSettingDataProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

const ElementSettingKind& QRV_HardwareIDElementSettingDataProvider::_kind() {
    return KIND;
}

ElementSettingAssociation QRV_HardwareIDElementSettingDataProvider::_association(
    const OperationContext& context, const InstanceShape& shape) {
    return ElementSettingAssociation(KIND, {_cimom, _systemAddress, context, shape});
}

}  // namespace Pegasus
