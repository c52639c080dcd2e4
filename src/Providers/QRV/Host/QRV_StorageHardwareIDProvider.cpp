#include "QRV_StorageHardwareIDProvider.h"

#include <arpa/inet.h>

#include <optional>
#include <vector>

#include "../QRV_ArrayGate.h"
#include "../QRV_ArrayRecords.h"
#include "../QRV_InstanceID.h"
#include "../QRV_OperationFrame.h"
#include "../QRV_StoredClass.h"
#include "../QRV_StringTable.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_StorageHardwareID",
                              "QRV_StorageHardwareIDProvider",
                              "CIM_StorageHardwareID",
                              "QRV_StorageHardwareID",
                              1,
                              " Expect only one key."};

/// What tells the initiators of one transport from those of the other.
struct Transport {
    const char* prefix;  ///< opens the InstanceID
    const char* noun;    ///< opens the Description
    IDType idType;
};

constexpr Transport FC{"ORVELIS:FC-", "FC", PORT_WWN};
constexpr Transport ISCSI{"ORVELIS:iSCSI-", "iSCSI", ISCSI_NAME};

const CIMName HARDWARE_ID_CLASS("QRV_StorageHardwareID");
const CIMName ELEMENT_NAME("ElementName");
const CIMName DESCRIPTION("Description");
const CIMName IP_ADDRESS("IPAddress");
const CIMName INSTANCE_ID("InstanceID");
const CIMName STORAGE_ID("StorageID");
const CIMName ID_TYPE("IDType");
const CIMName CURRENTLY_AUTHENTICATED("CurrentlyAuthenticated");

/// 16 upper-case hexadecimal digits.
String wwnText(qrv_u64 wwn) {
    char digits[16];
    for (int i = 15; i >= 0; --i, wwn >>= 4) digits[i] = "0123456789ABCDEF"[wwn & 0xF];
    return String(digits, sizeof digits);
}

/// How clients know one initiator.
struct Initiator {
    const Transport* transport;
    String storageID;
    String instanceID;
};

/// Nothing for an initiator of a transport that has no hardware IDs.
std::optional<Initiator> identify(const api_HostPath_t& path) {
    switch (path.type) {
        case PORT_TYPE_FC: {
            String wwn = wwnText(path.host_wwn);
            String instanceID = QRV_StorageHardwareIDProvider::makeFCHardwareIDInstanceID(wwn);
            return Initiator{&FC, wwn, instanceID};
        }
        case PORT_TYPE_ISCSI: {
            String name(path.iscsiName);
            String instanceID = QRV_StorageHardwareIDProvider::makeISCSIHardwareIDInstanceID(name);
            return Initiator{&ISCSI, name, instanceID};
        }
        default:
            return std::nullopt;
    }
}

String describe(const Initiator& initiator, const String& hostName) {
    String text(initiator.transport->noun);
    text.append(" StorageHardwareID ");
    text.append(initiator.storageID);
    if (hostName.size() > 0) {
        text.append(" on StorageHardwareIDCollection ");
        text.append(hostName);
    }
    return text;
}

void setIPAddress(CIMInstance& instance, qrv_u32 address) {
    char text[INET_ADDRSTRLEN];
    if (inet_ntop(AF_INET, &address, text, sizeof text) != nullptr)
        QRV_Common::setPropertyValue(instance, IP_ADDRESS, String(text));
}

enum class Address { Shown, Hidden };

CIMInstance makeInstance(const String& nodeAddress, CIMClass& cimClass, const char* hostName,
                         const api_HostPath_t& path, const Initiator& initiator, Address address) {
    const String host(hostName);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(cimClass);
    QRV_Common::setPropertyValue(instance, ELEMENT_NAME, host);
    QRV_Common::setPropertyValue(instance, DESCRIPTION, describe(initiator, host));
    if (address == Address::Shown && path.type == PORT_TYPE_ISCSI)
        setIPAddress(instance, path.ipaddr);
    QRV_Common::setPropertyValue(instance, INSTANCE_ID, initiator.instanceID);
    QRV_Common::setPropertyValue(instance, STORAGE_ID, initiator.storageID);
    QRV_Common::setPropertyValue(instance, ID_TYPE, Uint16(initiator.transport->idType));
    QRV_Common::setPropertyValue(instance, CURRENTLY_AUTHENTICATED, Boolean(false));
    instance.setPath(
        QRV_StorageHardwareIDProvider::buildInstanceName(nodeAddress, initiator.instanceID));
    return instance;
}

/// The instance of one initiator, or nothing when it has none. A record that can't be turned into
/// an instance is dropped: one bad record doesn't hide the others.
std::optional<CIMInstance> tryMakeInstance(const String& nodeAddress, CIMClass& cimClass,
                                           const char* hostName, const api_HostPath_t& path,
                                           Address address) {
    try {
        if (const auto initiator = identify(path))
            return makeInstance(nodeAddress, cimClass, hostName, path, *initiator, address);
    } catch (...) {
    }
    return std::nullopt;
}

/// The text that tells one hardware ID from another, if the record is one that is looked for.
/// `wanted` is a WWN or an iSCSI name in any case, or empty for all.
std::optional<String> keyText(const api_HostPath_t& path, const String& wanted) {
    try {
        const auto initiator = identify(path);
        if (initiator && (wanted.size() == 0 || String::equalNoCase(initiator->storageID, wanted)))
            return initiator->instanceID;
    } catch (...) {
    }
    return std::nullopt;
}

Boolean hasPrefix(const CIMObjectPath& path, const char* prefix) {
    const String text(prefix);
    return String::compare(QRV_Common::getStringProperty(path, "InstanceID"), text, text.size()) ==
           0;
}

}  // namespace

/// The records that become instances, each initiator once and in the array's order. The instances
/// themselves are built one by one from here, outside the table lock, so that an enumeration of any
/// length holds one of them at a time.
class QRV_StorageHardwareIDProvider::Selection {
  public:
    Selection() = default;
    explicit Selection(HardwareIDRecords records) : _records(std::move(records)) {}

    const HardwareIDRecords& records() const { return _records; }
    void choose(const api_hardwareID_t& record) { _chosen.push_back(&record); }

    /// Calls `take` with each instance until it returns false.
    template <class Take>
    void forEachInstance(const String& nodeAddress, CIMClass& cimClass, Take take) const {
        for (const api_hardwareID_t* record : _chosen) {
            const auto instance = tryMakeInstance(nodeAddress, cimClass, record->hostName,
                                                  record->pathInfo, Address::Shown);
            if (instance && !take(*instance)) return;
        }
    }

  private:
    HardwareIDRecords _records;
    std::vector<const api_hardwareID_t*> _chosen;
};

QRV_StorageHardwareIDProvider::QRV_StorageHardwareIDProvider() = default;

QRV_StorageHardwareIDProvider::QRV_StorageHardwareIDProvider(const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_StorageHardwareIDProvider::~QRV_StorageHardwareIDProvider() = default;

const ProviderFrame& QRV_StorageHardwareIDProvider::_frame() {
    return FRAME;
}

void QRV_StorageHardwareIDProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_StorageHardwareIDProvider::initialize(cimom)");
    _cimom = cimom;
    _nodeAddress = QRV_Common::getSystemHostName(cimom);
    _stringHashTable = createStringTable();
}

void QRV_StorageHardwareIDProvider::_enumerateInstances(const OperationContext&,
                                                        const InstanceShape& shape,
                                                        InstanceResponseHandler& handler) {
    _enumerate(shape, handler, [&](const CIMInstance& instance) { handler.deliver(instance); });
}

void QRV_StorageHardwareIDProvider::_enumerateInstanceNames(const OperationContext&,
                                                            ObjectPathResponseHandler& handler) {
    _enumerate({}, handler,
               [&](const CIMInstance& instance) { handler.deliver(instance.getPath()); });
}

template <class Handler, class Deliver>
void QRV_StorageHardwareIDProvider::_enumerate(const InstanceShape& shape, Handler& handler,
                                               Deliver deliver) {
    CIMClass cimClass = storedClass(_cimom, HARDWARE_ID_CLASS, shape);
    const Selection selection = _select(CIMObjectPath());
    handler.processing();
    selection.forEachInstance(_nodeAddress, cimClass, [&](const CIMInstance& instance) {
        deliver(instance);
        return true;
    });
    handler.complete();
}

Array<CIMInstance> QRV_StorageHardwareIDProvider::_buildInstances(const CIMObjectPath& path,
                                                                  const InstanceShape& shape) {
    const OperationTrace trace("QRV_StorageHardwareIDProvider::_buildInstances()");
    CIMClass cimClass = storedClass(_cimom, HARDWARE_ID_CLASS, shape);
    Array<CIMInstance> instances;
    _select(path).forEachInstance(_nodeAddress, cimClass, [&](const CIMInstance& instance) {
        instances.append(instance);
        return false;
    });
    return instances;
}

/// The records that answer for `path`, or all of them when it names no class. A failed array call
/// selects nothing.
QRV_StorageHardwareIDProvider::Selection QRV_StorageHardwareIDProvider::_select(
    const CIMObjectPath& path) const {
    const bool all = path.getClassName().isNull();
    const String wanted = all ? String() : extractHostWWNOrISCSIName(path);
    if (!all && wanted.size() == 0) {
        const String key = QRV_Common::getStringProperty(path, "InstanceID");
        log_message(3, "Invalid instanceID %s\n", static_cast<const char*>(key.getCString()));
        return Selection();
    }
    const bool fc = !all && isFCStorageHardwareID(path);
    const CString fcFilter = (fc ? wanted : String()).getCString();
    const CString iscsiFilter = (fc ? String() : wanted).getCString();
    int count = 0;
    api_hardwareID_t* records = nullptr;
    const int failed = callArray(
        [&] { return api_getHostPaths(fcFilter, iscsiFilter, nullptr, &count, &records, 1); });
    if (failed != 0) return Selection();

    Selection selection(HardwareIDRecords(records, count));
    _chooseOnce(selection, wanted);
    return selection;
}

/// An initiator that comes back in several records, one for each port that sees it, is chosen once.
void QRV_StorageHardwareIDProvider::_chooseOnce(Selection& selection, const String& wanted) const {
    if (_stringHashTable == nullptr) {
        log_message(2, "<-- %s::_buildInstances Invalid stringHashTable.\n", FRAME.provider);
        return;
    }
    StringTableScan scan(_stringHashTable.get());
    for (const api_hardwareID_t& record : selection.records()) {
        const auto key = keyText(record.pathInfo, wanted);
        if (key && scan.isNew(key->getCString())) selection.choose(record);
    }
}

CIMObjectPath QRV_StorageHardwareIDProvider::buildInstanceName(String nodeAddress,
                                                               String instanceID) {
    return pathByInstanceID(nodeAddress, HARDWARE_ID_CLASS, instanceID);
}

Boolean QRV_StorageHardwareIDProvider::isFCStorageHardwareID(const CIMObjectPath& path) {
    return hasPrefix(path, FC.prefix);
}

Boolean QRV_StorageHardwareIDProvider::isISCSIStorageHardwareID(const CIMObjectPath& path) {
    return hasPrefix(path, ISCSI.prefix);
}

String QRV_StorageHardwareIDProvider::extractHostWWNOrISCSIName(const CIMObjectPath& path) {
    const String instanceID = QRV_Common::getStringProperty(path, "InstanceID");
    if (isFCStorageHardwareID(path)) return instanceID.subString(String(FC.prefix).size());
    if (isISCSIStorageHardwareID(path)) return instanceID.subString(String(ISCSI.prefix).size());
    return String();
}

String QRV_StorageHardwareIDProvider::makeFCHardwareIDInstanceID(String& wwn) {
    return String(FC.prefix) + wwn;
}

String QRV_StorageHardwareIDProvider::makeISCSIHardwareIDInstanceID(String& name) {
    return String(ISCSI.prefix) + name;
}

Array<CIMInstance> QRV_StorageHardwareIDProvider::buildInstance(const String& sysAddr,
                                                                CIMClass& storageHardwareIDClass,
                                                                const char* hostName,
                                                                api_HostPath_t* pHostPaths,
                                                                unsigned int pathCount) {
    Array<CIMInstance> instances;
    if (hostName == nullptr || pHostPaths == nullptr || pathCount == 0) {
        log_message(
            2, "<-- QRV_StorageHardwareIDProvider::buildInstance(), invalid path parameters\n");
        return instances;
    }
    for (unsigned int i = 0; i < pathCount; ++i)
        if (const auto instance = tryMakeInstance(sysAddr, storageHardwareIDClass, hostName,
                                                  pHostPaths[i], Address::Hidden))
            instances.append(*instance);
    return instances;
}

}  // namespace Pegasus
