#include "QRV_AuthorizedPrivilegeProvider.h"

#include <Pegasus/Provider/ProviderException.h>

#include "../QRV_InstanceID.h"
#include "../QRV_StoredClass.h"
#include "../QRV_StringTable.h"
#include "../QRV_Text.h"
#include "../QRV_VlunWalk.h"
#include "QRV_PrivilegeKey.h"
#include "QRV_SPCAssociatedPrivilegeProvider.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_AuthorizedPrivilege",
                              "QRV_AuthorizedPrivilegeProvider",
                              "CIM_AuthorizedPrivilege",
                              "QRV_AuthorizedPrivilege",
                              1,
                              " Expect only one key."};

const CIMName PRIVILEGE_CLASS("QRV_AuthorizedPrivilege");
const CIMName DESCRIPTION("Description");
const CIMName ELEMENT_NAME("ElementName");
const CIMName INSTANCE_ID("InstanceID");

/// Where the privileges of a walk go: to the client, or into a list.
class Receiver {
  public:
    Receiver(void* handler, bool paths, Array<CIMInstance>& instances)
        : _instanceHandler(paths ? nullptr : static_cast<InstanceResponseHandler*>(handler)),
          _pathHandler(paths ? static_cast<ObjectPathResponseHandler*>(handler) : nullptr),
          _instances(instances) {}

    void take(const CIMInstance& privilege) {
        if (_instanceHandler != nullptr)
            _instanceHandler->deliver(privilege);
        else if (_pathHandler != nullptr)
            _pathHandler->deliver(privilege.getPath());
        else
            _instances.append(privilege);
    }

  private:
    InstanceResponseHandler* _instanceHandler;
    ObjectPathResponseHandler* _pathHandler;
    Array<CIMInstance>& _instances;
};

/// A template of a volume set without members exports nothing that could be accessed.
bool isEmptyTemplate(const api_vlun_t& vlun) {
    return vlun.isTemplate != 0 && vlun.isempty_vvset != 0;
}

String keyOf(const CIMObjectPath& privilege) {
    return QRV_Common::extractFromInstanceID(
        QRV_Common::getStringProperty(privilege, "InstanceID"));
}

/// The privilege that a path names. The VLUNs that its key narrows a walk to may be others': a
/// controller that is gone narrows nothing.
Array<CIMInstance> named(const CIMObjectPath& path, const Array<CIMInstance>& privileges) {
    const String key = keyOf(path);
    for (Uint32 i = 0; i < privileges.size(); ++i)
        if (keyOf(privileges[i].getPath()) == key) return Array<CIMInstance>(&privileges[i], 1);
    return Array<CIMInstance>();
}

/// The names of privileges' hosts. Those of one host share their text.
class HostNames {
  public:
    explicit HostNames(Array<String>& names) : _names(names) {}

    void append(const api_Host_t* host) {
        if (host != _host) _name = arrayText(host->name);
        _host = host;
        _names.append(_name);
    }

  private:
    Array<String>& _names;
    const api_Host_t* _host = nullptr;
    String _name;
};

bool isWanted(const String& hwidInstID, const String& wanted) {
    return wanted.size() == 0 || wanted == QRV_Common::extractFromInstanceID(hwidInstID);
}

}  // namespace

QRV_AuthorizedPrivilegeProvider::QRV_AuthorizedPrivilegeProvider() = default;

QRV_AuthorizedPrivilegeProvider::QRV_AuthorizedPrivilegeProvider(const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_AuthorizedPrivilegeProvider::~QRV_AuthorizedPrivilegeProvider() = default;

const ProviderFrame& QRV_AuthorizedPrivilegeProvider::_frame() {
    return FRAME;
}

void QRV_AuthorizedPrivilegeProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_AuthorizedPrivilegeProvider::initialize(cimom)");
    _cimom = cimom;
    _nodeAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

/// The client's flags and list play no part: a privilege has few properties.
void QRV_AuthorizedPrivilegeProvider::_getInstance(const OperationContext&,
                                                   const CIMObjectPath& instanceReference,
                                                   const InstanceShape&,
                                                   InstanceResponseHandler& handler) {
    Array<CIMInstance> found;
    _buildInstances(instanceReference, {false, false, CIMPropertyList()}, found, nullptr, 0);
    deliverFound(FRAME, named(instanceReference, found), handler);
}

void QRV_AuthorizedPrivilegeProvider::_enumerateInstances(const OperationContext&,
                                                          const InstanceShape& shape,
                                                          InstanceResponseHandler& handler) {
    Array<CIMInstance> none;
    handler.processing();
    _buildInstances(CIMObjectPath(), shape, none, &handler, 0);
    handler.complete();
}

void QRV_AuthorizedPrivilegeProvider::_enumerateInstanceNames(const OperationContext&,
                                                              ObjectPathResponseHandler& handler) {
    Array<CIMInstance> none;
    handler.processing();
    _buildInstances(CIMObjectPath(), {}, none, &handler, 1);
    handler.complete();
}

/// All privileges, or those that `classReference` narrows them to when it has a class. A key that
/// isn't a privilege's names none.
void QRV_AuthorizedPrivilegeProvider::_buildInstances(const CIMObjectPath& classReference,
                                                      const InstanceShape& shape,
                                                      Array<CIMInstance>& instances, void* handler,
                                                      int isdeliverPath) {
    String hwidInstID, spcDeviceID;
    VlunFilter filter;
    if (!classReference.getClassName().isNull()) {
        String instanceID = QRV_Common::getStringProperty(classReference, "InstanceID");
        deReferenceInstanceID(instanceID, hwidInstID, spcDeviceID);
        if (hwidInstID.size() == 0) return;
        filter = filterOf(spcDeviceID);
        log_message(4, "vlunType = %u, host = %s\n", filter.vlunType,
                    static_cast<const char*>(filter.host.getCString()));
    }
    Array<String> hostNames;
    buildOrDeliverInstances(_cimom, _nodeAddress, hostNames, _stringHashTable.get(), instances,
                            shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList,
                            filter.host, filter.vlunType, filter.portLPID, hwidInstID, handler,
                            isdeliverPath);
}

void QRV_AuthorizedPrivilegeProvider::buildOrDeliverInstances(
    CIMOMHandle& cimom, String& nodeAddress, Array<String>& hostNames, hashtable_t* stringHashTable,
    Array<CIMInstance>& instances, Boolean includeQualifiers, Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, String host, unsigned int vlunType, lpid_t portLPID,
    String hwInstID, void* handler, int isdeliverPath) {
    const OperationTrace trace("QRV_AuthorizedPrivilege::buildOrDeliverInstances()");
    if (stringHashTable == nullptr) {
        log_message(2,
                    "<-- QRV_AuthorizedPrivilege::buildOrDeliverInstances Invalid "
                    "stringHashTable.\n");
        return;
    }
    CIMClass privilegeClass =
        storedClass(cimom, PRIVILEGE_CLASS, {includeQualifiers, includeClassOrigin, propertyList});
    Receiver receiver(handler, isdeliverPath != 0, instances);
    VlunWalk walk({host, vlunType, portLPID});
    StringTableScan scan(stringHashTable);
    HostNames names(hostNames);
    const int failed = walk.run([&](api_vlun_t& vlun, api_HostsInfo_t& allHosts) {
        const api_Host_t* const vlunHost = hostOf(allHosts, vlun);
        if (isEmptyTemplate(vlun) || vlunHost == nullptr) return;
        String spcDeviceID(vlun.deviceID);
        Array<String> hwidInstIDs =
            QRV_SPCAssociatedPrivilegeProvider::getAssociatedHWIDInstIDs(allHosts, &vlun);
        for (Uint32 k = 0; k < hwidInstIDs.size(); ++k) {
            if (!isWanted(hwidInstIDs[k], hwInstID)) continue;
            if (!scan.isNew(buildInstanceID(spcDeviceID, hwidInstIDs[k]).getCString())) continue;
            const CIMInstance privilege =
                buildInstance(privilegeClass, spcDeviceID, hwidInstIDs[k], nodeAddress);
            names.append(vlunHost);
            receiver.take(privilege);
        }
    });
    if (failed == 0) return;
    log_message(2,
                "QRV_AuthorizedPrivilege::buildOrDeliverInstances exception on "
                "api_getActiveAndTemplateVLUNs_chunk.\n");
    throw CIMOperationFailedException("Operation failed.");
}

CIMInstance QRV_AuthorizedPrivilegeProvider::buildInstance(CIMClass& privclass, String& spcDeviceID,
                                                           String& initiatorID,
                                                           String& systemAddress) {
    String instanceID = buildInstanceID(spcDeviceID, initiatorID);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(privclass);
    QRV_Common::setPropertyValue(instance, DESCRIPTION,
                                 String("AuthorizedPrivilege for SPC ") + spcDeviceID +
                                     " to StorageHardwareID " + initiatorID);
    QRV_Common::setPropertyValue(instance, ELEMENT_NAME, spcDeviceID);
    QRV_Common::setPropertyValue(instance, INSTANCE_ID, instanceID);
    grantReadAndWrite(instance);
    instance.setPath(buildInstanceName(systemAddress, instanceID));
    return instance;
}

CIMObjectPath QRV_AuthorizedPrivilegeProvider::buildInstanceName(String& nodeAddress,
                                                                 String& instanceID) {
    return pathByInstanceID(nodeAddress, PRIVILEGE_CLASS, instanceID);
}

String QRV_AuthorizedPrivilegeProvider::buildInstanceID(String& spcDeviceID, String& hwidInstID) {
    return joinPrivilegeKey(hwidInstID, spcDeviceID);
}

void QRV_AuthorizedPrivilegeProvider::deReferenceInstanceID(String& instanceID, String& hwidInstID,
                                                            String& spcDeviceID) {
    splitPrivilegeKey(instanceID, hwidInstID, spcDeviceID);
}

}  // namespace Pegasus
