// What QRV_SPCAssociatedPrivilegeProvider finds in the VLUNs.
#include <Pegasus/Provider/ProviderException.h>

#include <optional>

#include "../QRV_AssociationFrame.h"
#include "../QRV_StoredClass.h"
#include "../QRV_StringTable.h"
#include "../QRV_VlunWalk.h"
#include "QRV_Controllers.h"
#include "QRV_PrivilegeKey.h"
#include "QRV_SPCAssociatedPrivilegeProvider.h"
#include "QRV_StorageHardwareIDProvider.h"

namespace Pegasus {

namespace {

const String CLASS_NAME("QRV_SPCAssociatedPrivilegeProvider");
const CIMName HARDWARE_ID("QRV_StorageHardwareID");
const CIMName SUBJECT("Subject");
const CIMName TARGET("Target");
const CIMName USE_KEY("UseKey");

String fcID(const char* wwn) {
    String text(wwn);
    return QRV_StorageHardwareIDProvider::makeFCHardwareIDInstanceID(text);
}

String iscsiID(const char* name) {
    String text(name);
    return QRV_StorageHardwareIDProvider::makeISCSIHardwareIDInstanceID(text);
}

/// The InstanceID of the initiator that a VLUN names; empty when it names none.
String namedInitiator(const api_vlun_t& vlun) {
    if (vlun.hporttype == PORT_TYPE_FC && vlun.hostwwn[0] != '\0') return fcID(vlun.hostwwn);
    if (vlun.hporttype == PORT_TYPE_ISCSI && vlun.hostiscsiname[0] != '\0')
        return iscsiID(vlun.hostiscsiname);
    return String();
}

/// The InstanceID of the initiator of a path; empty for a transport that has no hardware IDs.
String initiatorOf(const api_HostPath_t& path) {
    if (path.type == PORT_TYPE_ISCSI) return iscsiID(path.iscsiName);
    if (path.type != PORT_TYPE_FC) return String();
    char wwn[17] = "";
    api_wwnIntToString(0, path.host_wwn, wwn, sizeof wwn);
    return wwn[0] == '\0' ? String() : fcID(wwn);
}

/// Whether a VLUN for a host lets the host's path through. One for the host on a port takes the
/// paths on that port; the only path of a host that isn't logged in counts too.
bool isLetThrough(const api_vlun_t& vlun, const api_Host_t& host, const api_HostPath_t& path) {
    switch (vlun.accessPriority) {
        case API_VLUN_HOST_SEES:
        case API_VLUN_HOST_SET:
            return true;
        case API_VLUN_MATCHED_SET:
            return path.port == vlun.port || (host.pathCount == 1 && path.port == QRV_NO_PORT);
        default:
            return false;
    }
}

CIMObjectPath onHost(const CIMObjectPath& path, const String& host) {
    CIMObjectPath result = path;
    result.setHost(host);
    return result;
}

CIMInstance makeAssociation(CIMClass& cimClass, const CIMName& className,
                            const String& systemAddress, const CIMObjectPath& subjectPath,
                            const CIMObjectPath& targetPath, const String& useKey) {
    const CIMObjectPath subject = onHost(subjectPath, systemAddress);
    const CIMObjectPath target = onHost(targetPath, systemAddress);
    CIMInstance association = QRV_Common::buildInstanceSkeleton(cimClass);
    grantReadAndWrite(association);
    QRV_Common::setPropertyValue(association, SUBJECT, subject);
    QRV_Common::setPropertyValue(association, TARGET, target);
    QRV_Common::setPropertyValue(association, USE_KEY, useKey);
    association.setPath(QRV_SPCAssociatedPrivilegeProvider::buildInstanceName(
        systemAddress, className, useKey, subject, target));
    return association;
}

/// A request, as the static operations pass it on.
struct Question {
    CIMOMHandle& cimom;
    const CIMObjectPath& objectName;
    const OperationContext& context;
    String& systemName;
    String& systemAddress;
    const CIMName& associationClass;
    InstanceShape shape;
    cim_method_e method;
    cim_handler_u handler;

    bool wantsFarEnds() const {
        return method == QRVCIM_ASSOCIATORS || method == QRVCIM_ASSOCIATORNAMES;
    }
};

/// Both ends of an association, and what is to be delivered of it.
struct Found {
    CIMObjectPath subject;
    CIMObjectPath target;
    CIMInstance farEnd;
};

/// One walk over the VLUNs for one request.
class PrivilegeSearch {
  public:
    PrivilegeSearch(const Question& question, const Controllers& controllers)
        : _question(question), _controllers(controllers) {}

    /// Works out what the source narrows the walk to.
    void prepare();

    /// Walks and delivers. Throws only what the handler throws, and what can't be allocated.
    void run(hashtable_t* table);

  private:
    enum class Source { None, HardwareID, Controller };

    Source sourceOf() const;
    void takeVlun(api_vlun_t& vlun, api_HostsInfo_t& allHosts, StringTableScan& seen);
    void take(api_vlun_t& vlun, const String& hwidInstID, const String& useKey);
    std::optional<Found> search(api_vlun_t& vlun, const String& hwidInstID);
    std::optional<Found> ends(const api_vlun_t& vlun, const String& hwidInstID) const;
    std::optional<Found> hardwareIDOf(const String& hwidInstID) const;
    std::optional<Found> controllerOf(api_vlun_t& vlun, const String& hwidInstID) const;
    CIMObjectPath hardwareIDPath(const String& hwidInstID) const;
    CIMClass& associationClass();

    /// Fibre Channel initiators reach controllers on Fibre Channel, all others the others.
    bool isOfTransport(const CIMObjectPath& hardwareID) const {
        const bool fc = QRV_StorageHardwareIDProvider::isFCStorageHardwareID(hardwareID);
        return fc == (&_controllers == &FC_CONTROLLERS);
    }

    const Question& _question;
    const Controllers& _controllers;
    Source _source = Source::None;
    VlunFilter _filter;
    String _wanted;  ///< the source hardware ID, without its vendor mark
    CIMClass _farClass;
    std::optional<CIMClass> _associationClass;
    CIMObjectPath _thisPath;
};

PrivilegeSearch::Source PrivilegeSearch::sourceOf() const {
    const CIMName& className = _question.objectName.getClassName();
    if (className.isNull()) return Source::None;
    return className.equal(_controllers.controllerClass) ? Source::Controller : Source::HardwareID;
}

void PrivilegeSearch::prepare() {
    const CIMObjectPath& source = _question.objectName;
    _source = sourceOf();
    if (source.getClassName().equal(HARDWARE_ID)) {
        _farClass = storedClass(_question.cimom, _controllers.controllerClass, _question.shape);
        _wanted =
            QRV_Common::extractFromInstanceID(QRV_Common::getStringProperty(source, "InstanceID"));
        try {
            _filter.host = hostOfInitiator(source);
        } catch (...) {
            // Without a host the walk goes over all VLUNs.
        }
    } else if (_source == Source::Controller) {
        const String deviceID = QRV_Common::getStringProperty(source, "DeviceID");
        _farClass = storedClass(_question.cimom, HARDWARE_ID, _question.shape);
        _filter = filterOf(deviceID);
    }
}

void PrivilegeSearch::run(hashtable_t* table) {
    _thisPath = onHost(_question.objectName, _question.systemAddress);
    std::optional<VlunWalk> walk;
    StringTableScan seen(table);
    walk.emplace(_filter);
    const int failed = walk->run(
        [&](api_vlun_t& vlun, api_HostsInfo_t& allHosts) { takeVlun(vlun, allHosts, seen); });
    if (failed != 0)
        log_message(2,
                    "-->QRV_SPCAssociatedPrivilege::getRelatedInstances ()  getVLUNs() failed, "
                    "status = %d \n",
                    failed);
}

void PrivilegeSearch::takeVlun(api_vlun_t& vlun, api_HostsInfo_t& allHosts, StringTableScan& seen) {
    if (vlun.hostIndex == QRV_NO_HOST) return;
    String spcDeviceID(vlun.deviceID);
    Array<String> hwidInstIDs =
        QRV_SPCAssociatedPrivilegeProvider::getAssociatedHWIDInstIDs(allHosts, &vlun);
    for (Uint32 k = 0; k < hwidInstIDs.size(); ++k) {
        const String useKey =
            QRV_SPCAssociatedPrivilegeProvider::buildUseKey(spcDeviceID, hwidInstIDs[k]);
        if (seen.isNew(useKey.getCString())) take(vlun, hwidInstIDs[k], useKey);
    }
}

void PrivilegeSearch::take(api_vlun_t& vlun, const String& hwidInstID, const String& useKey) {
    std::optional<Found> found = search(vlun, hwidInstID);
    if (!found) return;
    const bool complete =
        !found->subject.getClassName().isNull() && !found->target.getClassName().isNull();
    if (!_question.wantsFarEnds() && complete)
        found->farEnd =
            makeAssociation(associationClass(), _question.associationClass, _question.systemAddress,
                            found->subject, found->target, useKey);
    if (!found->farEnd.isUninitialized())
        QRV_Common::handleDeliver(_question.handler, _question.method, found->farEnd);
}

/// What a VLUN that lets an initiator through gives for the source. An initiator or a controller
/// that can't be shown is left out: it doesn't hide the others.
std::optional<Found> PrivilegeSearch::search(api_vlun_t& vlun, const String& hwidInstID) {
    if (_source == Source::None) return ends(vlun, hwidInstID);
    try {
        return _source == Source::Controller ? hardwareIDOf(hwidInstID)
                                             : controllerOf(vlun, hwidInstID);
    } catch (...) {
        return std::nullopt;
    }
}

std::optional<Found> PrivilegeSearch::ends(const api_vlun_t& vlun, const String& hwidInstID) const {
    const CIMObjectPath subject = hardwareIDPath(hwidInstID);
    if (!isOfTransport(subject)) return std::nullopt;
    return Found{
        subject,
        _controllers.buildPath(_question.systemAddress, _question.systemName, vlun.deviceID),
        CIMInstance()};
}

std::optional<Found> PrivilegeSearch::hardwareIDOf(const String& hwidInstID) const {
    const CIMInstance hardwareID = _question.cimom.getInstance(
        _question.context, QRV_NAMESPACE, hardwareIDPath(hwidInstID), false,
        _question.shape.includeQualifiers, _question.shape.includeClassOrigin,
        _question.shape.propertyList);
    return Found{hardwareID.getPath(), _thisPath, hardwareID};
}

std::optional<Found> PrivilegeSearch::controllerOf(api_vlun_t& vlun,
                                                   const String& hwidInstID) const {
    if (QRV_Common::extractFromInstanceID(hwidInstID) != _wanted || !isOfTransport(_thisPath))
        return std::nullopt;
    const CIMInstance controller =
        _controllers.buildInstance(_farClass, vlun, _question.systemName, _question.systemAddress);
    return Found{_thisPath, controller.getPath(), controller};
}

CIMObjectPath PrivilegeSearch::hardwareIDPath(const String& hwidInstID) const {
    return QRV_StorageHardwareIDProvider::buildInstanceName(_question.systemAddress, hwidInstID);
}

CIMClass& PrivilegeSearch::associationClass() {
    if (!_associationClass)
        _associationClass =
            storedClass(_question.cimom, _question.associationClass, _question.shape);
    return *_associationClass;
}

/// The association that the keys of a path tell, as far as they agree with each other and the
/// hardware ID can be read; otherwise none.
CIMInstance proveAssociation(const Question& question) {
    try {
        const CIMObjectPath subject = referenceKey(question.objectName, "Subject");
        const CIMObjectPath target = referenceKey(question.objectName, "Target");
        String useKey = QRV_Common::getStringProperty(question.objectName, "UseKey");
        String hwidInstID, spcDeviceID;
        QRV_SPCAssociatedPrivilegeProvider::deReferenceUseKey(useKey, hwidInstID, spcDeviceID);
        if (spcDeviceID != QRV_Common::getStringProperty(target, "DeviceID")) return CIMInstance();
        const CIMInstance hardwareID = question.cimom.getInstance(
            question.context, QRV_NAMESPACE, subject, false, false, false, CIMPropertyList());
        if (hardwareID.isUninitialized()) return CIMInstance();
        return QRV_SPCAssociatedPrivilegeProvider::buildAssociationInstance(
            question.cimom, question.systemAddress, question.associationClass, subject, target,
            useKey, question.shape.includeQualifiers, question.shape.includeClassOrigin,
            question.shape.propertyList);
    } catch (...) {
        return CIMInstance();
    }
}

}  // namespace

Array<String> QRV_SPCAssociatedPrivilegeProvider::getAssociatedHWIDInstIDs(
    api_HostsInfo_t& allHosts, api_vlun_t* vlunPtr) {
    Array<String> found;
    const String named = namedInitiator(*vlunPtr);
    if (named.size() > 0) found.append(named);
    const api_Host_t* const host = hostOf(allHosts, *vlunPtr);
    if (found.size() > 0 || host == nullptr) return found;
    for (unsigned int i = 0; i < host->pathCount; ++i) {
        if (!isLetThrough(*vlunPtr, *host, host->paths[i])) continue;
        const String hwidInstID = initiatorOf(host->paths[i]);
        if (hwidInstID.size() > 0) found.append(hwidInstID);
    }
    return found;
}

void QRV_SPCAssociatedPrivilegeProvider::getRelatedInstances(
    CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
    String& systemName, String& systemAddress, CIMName assocClassName, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList, hashtable_t* stringHashTable,
    cim_method_e method, cim_handler_u handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::getRelatedInstances()");
    if (stringHashTable == nullptr) {
        log_message(2,
                    "<-- QRV_SPCAssociatedPrivilegeProvider::getRelatedInstances Invalid "
                    "stringHashTable.\n");
        return;
    }
    const Controllers* const controllers =
        controllersOf(&Controllers::associatedPrivilegeClass, assocClassName);
    if (controllers == nullptr) {
        log_message(2,
                    "<-- QRV_SPCAssociatedPrivilegeProvider::getRelatedInstances Invalid "
                    "assocClassName parameter.\n");
        return;
    }
    QRV_Common::handleProcessing(handler, method);
    const Question question{cimom,
                            objectName,
                            context,
                            systemName,
                            systemAddress,
                            assocClassName,
                            {includeQualifiers, includeClassOrigin, propertyList},
                            method,
                            handler};
    PrivilegeSearch search(question, *controllers);
    search.prepare();
    try {
        search.run(stringHashTable);
    } catch (...) {
        // What was delivered stays delivered, and the answer ends as a complete one.
    }
    QRV_Common::handleComplete(handler, method);
}

void QRV_SPCAssociatedPrivilegeProvider::deliverAssociationInstance(
    CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
    String& systemName, String& systemAddress, CIMName assocClassName, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList, hashtable_t*,
    cim_method_e method, cim_handler_u handler) {
    const OperationTrace trace("QRV_SPCAssociatedPrivilegeProvider::deliverAssociationInstance()");
    QRV_Common::handleProcessing(handler, method);
    CIMInstance found;
    if (objectName.getClassName().equal(assocClassName))
        found = proveAssociation({cimom,
                                  objectName,
                                  context,
                                  systemName,
                                  systemAddress,
                                  assocClassName,
                                  {includeQualifiers, includeClassOrigin, propertyList},
                                  method,
                                  handler});
    if (found.isUninitialized() ||
        (method == QRVCIM_GETINSTANCE && !QRV_Common::matchObjectPath(objectName, found.getPath())))
        throw CIMObjectNotFoundException(CLASS_NAME + " CIM Object not found.");
    QRV_Common::handleDeliver(handler, method, found);
    QRV_Common::handleComplete(handler, method);
}

CIMInstance QRV_SPCAssociatedPrivilegeProvider::buildAssociationInstance(
    CIMOMHandle& cimom, const String& systemAddress, const CIMName& assocClassName,
    const CIMObjectPath& subjectPath, const CIMObjectPath& targetPath, const String& useKey,
    Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    CIMClass cimClass =
        storedClass(cimom, assocClassName, {includeQualifiers, includeClassOrigin, propertyList});
    return makeAssociation(cimClass, assocClassName, systemAddress, subjectPath, targetPath,
                           useKey);
}

}  // namespace Pegasus
