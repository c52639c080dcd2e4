#include "QRV_StorageHardwareIDCollectionProvider.h"

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Provider/ProviderException.h>

#include <optional>

#include "../QRV_ArrayRecords.h"
#include "../QRV_InstanceID.h"
#include "../QRV_StoredClass.h"
#include "../QRV_Text.h"
#include "../QRV_WriteFrame.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_StorageHardwareIDCollection",
                              "QRV_StorageHardwareIDCollectionProvider",
                              "CIM_SystemSpecificCollection",
                              "QRV_StorageHardwareIDCollection",
                              1,
                              " Expect only one key."};

const CIMName COLLECTION_CLASS("QRV_StorageHardwareIDCollection");
const CIMName ELEMENT_NAME("ElementName");
const CIMName DESCRIPTION("Description");
const CIMName INSTANCE_ID("InstanceID");
const CIMName HOST_PERSONA_ID("HostPersonaID");
const CIMName ID("ID");
const CIMName DOMAIN_NAME("Domain");
const CIMName STORAGE_HARDWARE_ID_COUNT("StorageHardwareIDCount");

/// The array's word for taking a host out of its domain.
constexpr const char* NO_DOMAIN = "-unset";

CIMInstance makeInstance(const String& nodeAddress, CIMClass& cimClass, const api_Host_t& host) {
    const String name = arrayText(host.name);
    const String instanceID = markedID(name);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(cimClass);
    QRV_Common::setPropertyValue(instance, ELEMENT_NAME, name);
    QRV_Common::setPropertyValue(instance, DESCRIPTION,
                                 String("Collection of StorageHardwareID for host ") + name);
    QRV_Common::setPropertyValue(instance, INSTANCE_ID, instanceID);
    QRV_Common::setPropertyValue(instance, HOST_PERSONA_ID, Uint32(host.host_persona));
    QRV_Common::setPropertyValue(instance, ID, Uint64(host.id));
    QRV_Common::setPropertyValue(instance, DOMAIN_NAME, arrayText(host.domain));
    QRV_Common::setPropertyValue(instance, STORAGE_HARDWARE_ID_COUNT, Uint16(host.pathCount));
    instance.setPath(
        QRV_StorageHardwareIDCollectionProvider::buildInstanceName(nodeAddress, instanceID));
    return instance;
}

/// The record that gathers initiators of no host isn't a host.
bool isShown(const api_Host_t& host) {
    return host.name[0] != '\0' && host.id != QRV_NO_HOST;
}

/// All hosts, or the one that `reference` names when it has a class. Nothing, with a log line, when
/// the array doesn't answer.
std::optional<HostList> readHosts(const CIMObjectPath& reference) {
    constexpr const char* function =
        "--> QRV_StorageHardwareIDCollectionProvider::_buildInstances() ";
    const bool all = reference.getClassName().isNull();
    const String key = QRV_Common::getStringProperty(reference, "InstanceID");
    const CString text = textBehindColon(key).getCString();
    const char* const hostName = all ? nullptr : static_cast<const char*>(text);
    if (!all && *hostName == '\0') {
        log_message(2, "%s invalid InstanceID %s\n", function,
                    static_cast<const char*>(key.getCString()));
        return std::nullopt;
    }
    HostList hosts;
    const ArrayAnswer answer = callArrayForStatus(
        [&] { return api_getHosts(hostName, QRV_NO_WWN, nullptr, hosts.receive(), 1, 0); });
    if (!answer.failed()) return hosts;
    log_message(2, "%s api_getHosts failed.\n", function);
    return std::nullopt;
}

/// Calls `take` with the instance of each host that is shown, one at a time.
template <class Take>
void forEachInstance(const HostList& hosts, const String& nodeAddress, CIMClass& cimClass,
                     Take take) {
    for (unsigned int i = 0; i < hosts->count; ++i)
        if (isShown(hosts->hosts[i])) take(makeInstance(nodeAddress, cimClass, hosts->hosts[i]));
}

template <class Handler, class Deliver>
void enumerate(CIMOMHandle& cimom, const String& nodeAddress, const InstanceShape& shape,
               Handler& handler, Deliver deliver) {
    const auto hosts = readHosts(CIMObjectPath());
    CIMClass cimClass;
    if (hosts) cimClass = storedClass(cimom, COLLECTION_CLASS, shape);
    handler.processing();
    if (hosts) forEachInstance(*hosts, nodeAddress, cimClass, deliver);
    handler.complete();
}

/// What a modifyInstance asks for.
struct HostChange {
    Uint32 persona = 0;  ///< 0: none; the array's persona 0 can't be set here
    String domain;
    bool domainGiven = false;
    Uint32 propertyCount = 0;
};

void takeDomain(HostChange& change, const CIMValue& value) {
    if (value.isNull()) return;
    value.get(change.domain);
    if (change.domain.size() == 0) change.domain = NO_DOMAIN;
    change.domainGiven = true;
}

void takeProperty(HostChange& change, CIMInstance& instance, Uint32 index) {
    const CIMConstProperty property = instance.getProperty(index);
    if (property.getName().equal(HOST_PERSONA_ID))
        QRV_Common::getProperty(instance, HOST_PERSONA_ID.getString(), change.persona);
    else if (property.getName().equal(DOMAIN_NAME))
        takeDomain(change, property.getValue());
    else
        throw CIMInvalidParameterException(String("Invalid parameter: ") +
                                           property.getName().getString());
}

/// Without a property list every property counts, else those that the list names and the instance
/// has.
HostChange requestedChange(CIMInstance instance, const CIMPropertyList& propertyList) {
    HostChange change;
    if (propertyList.isNull()) {
        change.propertyCount = instance.getPropertyCount();
        for (Uint32 i = 0; i < change.propertyCount; ++i) takeProperty(change, instance, i);
        return change;
    }
    change.propertyCount = propertyList.size();
    for (Uint32 i = 0; i < change.propertyCount; ++i) {
        const Uint32 index = instance.findProperty(propertyList[i]);
        if (index != PEG_NOT_FOUND) takeProperty(change, instance, index);
    }
    return change;
}

[[noreturn]] void failModify(const String& text) {
    throw CIMOperationFailedException(String(FRAME.className) + ", " + text);
}

String hostToModify(const CIMObjectPath& reference) {
    const String hostName =
        QRV_Common::extractFromInstanceID(QRV_Common::getStringProperty(reference, "InstanceID"));
    if (hostName.size() > 0) return hostName;
    api_Status_t status;
    api_initStatus(&status);
    status.code = ERR_QRV_HOST_NONAME;
    const String text = errorText(status);
    log_message(2, "\tError: %d, message: %s\n", status.code,
                static_cast<const char*>(text.getCString()));
    failModify(text);
}

void requireSuccess(const ArrayAnswer& answer, const char* prefix, const char* call) {
    if (!answer.failed()) return;
    const String text = errorTextOrBusy(answer, prefix);
    log_message(2, "\tError: %d, %s message: %s\n", answer.status.code, call,
                static_cast<const char*>(text.getCString()));
    failModify(text);
}

void setPersona(api_evtparam_t& event, const String& hostName, Uint32 persona) {
    api_setHostChap_t chap{};
    objdesc descs[6] = {};
    requireSuccess(callArrayForStatus([&] {
                       return api_setHost(&event, hostName.getCString(), &chap, 0, descs,
                                          API_HOST_CAP_PERSONA, persona, nullptr);
                   }),
                   "Setting host persona: ", "setHost");
}

void setDomain(api_evtparam_t& event, const String& hostName, const String& domain) {
    requireSuccess(callArrayForStatus([&] {
                       return api_setHostDomain(&event, hostName.getCString(), domain.getCString());
                   }),
                   "Setting host domain:", "setHostDomain");
}

}  // namespace

QRV_StorageHardwareIDCollectionProvider::QRV_StorageHardwareIDCollectionProvider() = default;

QRV_StorageHardwareIDCollectionProvider::QRV_StorageHardwareIDCollectionProvider(
    const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_StorageHardwareIDCollectionProvider::~QRV_StorageHardwareIDCollectionProvider() = default;

const ProviderFrame& QRV_StorageHardwareIDCollectionProvider::_frame() {
    return FRAME;
}

void QRV_StorageHardwareIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_StorageHardwareIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _nodeAddress = QRV_Common::getSystemHostName(cimom);
}

void QRV_StorageHardwareIDCollectionProvider::_enumerateInstances(
    const OperationContext&, const InstanceShape& shape, InstanceResponseHandler& handler) {
    enumerate(_cimom, _nodeAddress, shape, handler,
              [&](const CIMInstance& instance) { handler.deliver(instance); });
}

void QRV_StorageHardwareIDCollectionProvider::_enumerateInstanceNames(
    const OperationContext&, ObjectPathResponseHandler& handler) {
    enumerate(_cimom, _nodeAddress, {}, handler,
              [&](const CIMInstance& instance) { handler.deliver(instance.getPath()); });
}

void QRV_StorageHardwareIDCollectionProvider::modifyInstance(const OperationContext& context,
                                                             const CIMObjectPath& objectRef,
                                                             const CIMInstance& instanceObject,
                                                             const Boolean,
                                                             const CIMPropertyList& propertyList,
                                                             ResponseHandler& handler) {
    const OperationTrace trace("QRV_StorageHardwareIDCollectionProvider::modifyInstance()");
    api_evtparam_t event = beginChange(FRAME, context, objectRef.getClassName(), "ModifyInstance");
    handler.processing();
    const HostChange change = requestedChange(instanceObject, propertyList);
    if (!change.domainGiven && change.persona == 0 && change.propertyCount != 0)
        refuse(FRAME, "modifyInstance");
    const String hostName = hostToModify(objectRef);
    if (change.persona != 0) setPersona(event, hostName, change.persona);
    if (change.domain.size() > 0) setDomain(event, hostName, change.domain);
    handler.complete();
}

void QRV_StorageHardwareIDCollectionProvider::deleteInstance(const OperationContext& context,
                                                             const CIMObjectPath& instanceReference,
                                                             ResponseHandler& handler) {
    const OperationTrace trace("QRV_StorageHardwareIDCollectionProvider::deleteInstance()");
    const CIMName& className = instanceReference.getClassName();
    api_evtparam_t event = beginChange(FRAME, context, className, "DeleteInstance");
    checkClass(FRAME, className);
    traceClassName(className);
    handler.processing();
    const String hostname =
        textBehindColon(QRV_Common::getStringProperty(instanceReference, "InstanceID"));
    if (hostname.size() == 0)
        throw CIMOperationFailedException(String(FRAME.className) +
                                          " Failed to get host information.");
    const ArrayAnswer answer =
        callArrayForStatus([&] { return api_removeHost(&event, hostname.getCString()); });
    if (answer.failed())
        throw CIMOperationFailedException(String(" Failed to remove host, ") +
                                          errorText(answer.status));
    handler.complete();
}

Array<CIMInstance> QRV_StorageHardwareIDCollectionProvider::_buildInstances(
    const CIMObjectPath& instanceReference, const InstanceShape& shape) {
    const OperationTrace trace("QRV_StorageHardwareIDCollectionProvider::_buildInstances()");
    Array<CIMInstance> instances;
    const auto hosts = readHosts(instanceReference);
    if (!hosts) return instances;
    CIMClass cimClass = storedClass(_cimom, COLLECTION_CLASS, shape);
    forEachInstance(*hosts, _nodeAddress, cimClass,
                    [&](const CIMInstance& instance) { instances.append(instance); });
    return instances;
}

CIMObjectPath QRV_StorageHardwareIDCollectionProvider::buildInstanceName(String nodeAddress,
                                                                         String instanceID) {
    const OperationTrace trace("QRV_StorageHardwareIDCollectionProvider::buildInstanceName()");
    return pathByInstanceID(nodeAddress, COLLECTION_CLASS, instanceID);
}

}  // namespace Pegasus
