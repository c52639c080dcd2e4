#include "QRV_PrivilegeForStorageHardwareIDCollectionProvider.h"

#include "../QRV_ArrayGate.h"
#include "../QRV_VlunWalk.h"
#include "QRV_AuthorizedPrivilegeProvider.h"
#include "QRV_PrivilegeKey.h"
#include "QRV_StorageHardwareIDCollectionProvider.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_PrivilegeForStorageHardwareIDCollectionProvider",
                              "QRV_PrivilegeForStorageHardwareIDCollectionProvider",
                              "CIM_AuthorizedSubject",
                              "QRV_PrivilegeForStorageHardwareIDCollection",
                              2,
                              " Expect two keys."};

const AssociationRules RULES{
    {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "CIM_Privilege", "CIM_ManagedElement",
     "QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_Collection"},
    {"Privilege", "PrivilegedElement"},
    {"QRV_PrivilegeForStorageHardwareIDCollection", "CIM_AuthorizedSubject"},
    {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_Identity",
     "QRV_AuthorizedPrivilege", "CIM_Privilege", "CIM_AuthorizedPrivilege"},
    true,
    {}};

const CIMName ASSOCIATION("QRV_PrivilegeForStorageHardwareIDCollection");
const CIMName PRIVILEGE("QRV_AuthorizedPrivilege");
const CIMName COLLECTION("QRV_StorageHardwareIDCollection");

/// The host whose collection this is.
String hostOfCollection(const CIMObjectPath& collection) {
    return QRV_Common::extractFromInstanceID(
        QRV_Common::getStringProperty(collection, "InstanceID"));
}

/// The controllers that may be the one in a privilege's InstanceID. Empty when the array refuses.
VlunQuery controllersOf(const CIMObjectPath& privilege) {
    String hwidInstID, spcDeviceID;
    splitPrivilegeKey(QRV_Common::getStringProperty(privilege, "InstanceID"), hwidInstID,
                      spcDeviceID);
    VlunQuery query;
    addFilter(*query.change(), filterOf(spcDeviceID));
    if (callArray([&] { return api_getSCSIProtocolControllers(query.change()); }) != 0)
        return VlunQuery();
    return query;
}

/// Whether a VLUN of the controller exports to the host. A VLUN without a host has an empty name
/// for it, which no collection has.
bool exportsTo(const CIMObjectPath& privilege, const String& hostName) {
    if (hostName.size() == 0 || privilege.getClassName().isNull()) return false;
    const VlunQuery controllers = controllersOf(privilege);
    for (unsigned int i = 0; i < controllers->count; ++i)
        if (hostName == controllers->vluns[i].hostname) return true;
    return false;
}

}  // namespace

QRV_PrivilegeForStorageHardwareIDCollectionProvider::
    QRV_PrivilegeForStorageHardwareIDCollectionProvider() = default;

QRV_PrivilegeForStorageHardwareIDCollectionProvider::
    ~QRV_PrivilegeForStorageHardwareIDCollectionProvider() = default;

const ProviderFrame& QRV_PrivilegeForStorageHardwareIDCollectionProvider::_frame() {
    return FRAME;
}

const AssociationRules& QRV_PrivilegeForStorageHardwareIDCollectionProvider::_rules() {
    return RULES;
}

void QRV_PrivilegeForStorageHardwareIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace(
        "QRV_PrivilegeForStorageHardwareIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _nodeAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDCollectionProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    Array<CIMInstance> found;
    try {
        _associationsOf(found, objectName, context, shape);
    } catch (...) {
        log_message(
            2,
            "<--QRV_PrivilegeForStorageHardwareIDCollection::_buildAssociationInstance() exception "
            "thrown while building instances, # of instances assembled so far = %u\n",
            found.size());
        throw;
    }
    return found;
}

void QRV_PrivilegeForStorageHardwareIDCollectionProvider::_associationsOf(
    Array<CIMInstance>& found, const CIMObjectPath& objectName, const OperationContext& context,
    const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
    const CIMName& source = objectName.getClassName();
    if (source.equal(ASSOCIATION)) {
        const CIMObjectPath privilege = referenceKey(objectName, "Privilege");
        const CIMObjectPath element = referenceKey(objectName, "PrivilegedElement");
        if (exportsTo(privilege, hostOfCollection(element)))
            found.append(_build(cimClass, privilege, element));
        return;
    }
    _link(found, cimClass, objectName, COLLECTION, _getRelatedInstanceNames(objectName, context));
}

/// The collections aren't fetched: the host of a VLUN is taken to exist.
Array<CIMInstance>
QRV_PrivilegeForStorageHardwareIDCollectionProvider::_buildAllAssociationInstances(
    const OperationContext&, const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
    Array<String> hostNames;
    Array<CIMInstance> privileges, found;
    QRV_AuthorizedPrivilegeProvider::buildOrDeliverInstances(
        _cimom, _nodeAddress, hostNames, _stringHashTable.get(), privileges, false, false,
        InstanceShape().propertyList, String::EMPTY, 0, QRV_NO_PORT, String::EMPTY, nullptr, 0);
    if (hostNames.size() != privileges.size()) return found;
    for (Uint32 i = 0; i < privileges.size(); ++i)
        if (hostNames[i].size() > 0)
            found.append(_build(
                cimClass, privileges[i].getPath(),
                QRV_StorageHardwareIDCollectionProvider::pathOfHost(_nodeAddress, hostNames[i])));
    return found;
}

Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDCollectionProvider::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    if (objectName.getClassName().equal(COLLECTION)) return _privilegesOf(objectName, shape);
    if (objectName.getClassName().equal(PRIVILEGE))
        return _collectionOf(objectName, context, shape);
    return Array<CIMInstance>();
}

Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDCollectionProvider::_privilegesOf(
    const CIMObjectPath& collection, const InstanceShape& shape) {
    const String host = hostOfCollection(collection);
    Array<String> hostNames;
    Array<CIMInstance> found;
    if (host.size() > 0)
        QRV_AuthorizedPrivilegeProvider::buildOrDeliverInstances(
            _cimom, _nodeAddress, hostNames, _stringHashTable.get(), found, shape.includeQualifiers,
            shape.includeClassOrigin, shape.propertyList, host, 0, QRV_NO_PORT, String::EMPTY,
            nullptr, 0);
    return found;
}

/// The first host behind the privilege's controller that can be read.
Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDCollectionProvider::_collectionOf(
    const CIMObjectPath& privilege, const OperationContext& context, const InstanceShape& shape) {
    const VlunQuery controllers = controllersOf(privilege);
    Array<CIMInstance> found;
    for (unsigned int i = 0; i < controllers->count && found.size() == 0; ++i) {
        const String hostName(controllers->vluns[i].hostname);
        if (hostName.size() == 0) continue;
        const CIMInstance collection = tryGetInstance(
            _cimom, context,
            QRV_StorageHardwareIDCollectionProvider::pathOfHost(_nodeAddress, hostName),
            shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList);
        if (!collection.isUninitialized()) found.append(collection);
    }
    return found;
}

}  // namespace Pegasus
