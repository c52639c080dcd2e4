#include "QRV_PrivilegeForStorageHardwareIDProvider.h"

#include "../QRV_InstanceID.h"
#include "QRV_AuthorizedPrivilegeProvider.h"
#include "QRV_PrivilegeKey.h"
#include "QRV_StorageHardwareIDProvider.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_PrivilegeForStorageHardwareIDProvider",
                              "QRV_PrivilegeForStorageHardwareIDProvider",
                              "CIM_AuthorizedSubject",
                              "QRV_PrivilegeForStorageHardwareID",
                              2,
                              " Expect two keys."};

const AssociationRules RULES{
    {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "CIM_Privilege", "CIM_ManagedElement",
     "QRV_StorageHardwareID", "CIM_StorageHardwareID", "CIM_Identity"},
    {"Privilege", "PrivilegedElement"},
    {"QRV_PrivilegeForStorageHardwareID", "CIM_AuthorizedSubject"},
    {"QRV_StorageHardwareID", "CIM_StorageHardwareID", "CIM_Identity", "QRV_AuthorizedPrivilege",
     "CIM_Privilege", "CIM_AuthorizedPrivilege"},
    true,
    {}};

const CIMName ASSOCIATION("QRV_PrivilegeForStorageHardwareID");
const CIMName PRIVILEGE("QRV_AuthorizedPrivilege");
const CIMName HARDWARE_ID("QRV_StorageHardwareID");

/// The hardware ID's InstanceID in a privilege's, without its vendor mark; empty when there is
/// none.
String initiatorOf(const CIMObjectPath& privilege) {
    String hwidInstID, spcDeviceID;
    splitPrivilegeKey(QRV_Common::getStringProperty(privilege, "InstanceID"), hwidInstID,
                      spcDeviceID);
    return hwidInstID;
}

CIMObjectPath hardwareIDPath(const String& nodeAddress, const String& unmarkedID) {
    return QRV_StorageHardwareIDProvider::buildInstanceName(nodeAddress, markedID(unmarkedID));
}

}  // namespace

QRV_PrivilegeForStorageHardwareIDProvider::QRV_PrivilegeForStorageHardwareIDProvider() = default;

QRV_PrivilegeForStorageHardwareIDProvider::~QRV_PrivilegeForStorageHardwareIDProvider() = default;

const ProviderFrame& QRV_PrivilegeForStorageHardwareIDProvider::_frame() {
    return FRAME;
}

const AssociationRules& QRV_PrivilegeForStorageHardwareIDProvider::_rules() {
    return RULES;
}

void QRV_PrivilegeForStorageHardwareIDProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_PrivilegeForStorageHardwareIDProvider::initialize(cimom)");
    _cimom = cimom;
    _nodeAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
    const CIMName& source = objectName.getClassName();
    if (source.equal(ASSOCIATION)) return _proven(cimClass, objectName, context);
    Array<CIMInstance> found;
    _link(found, cimClass, objectName, HARDWARE_ID, _getRelatedInstanceNames(objectName, context));
    return found;
}

/// The association that a path names, when its ends belong together and the privilege exists.
Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDProvider::_proven(
    CIMClass& cimClass, const CIMObjectPath& association, const OperationContext& context) {
    const CIMObjectPath privilege = referenceKey(association, "Privilege");
    const CIMObjectPath element = referenceKey(association, "PrivilegedElement");
    const String elementID = QRV_Common::getStringProperty(element, "InstanceID");
    if (initiatorOf(privilege) != QRV_Common::extractFromInstanceID(elementID))
        return Array<CIMInstance>();
    return whenThereIs(_cimom, context, privilege,
                       [&] { return _build(cimClass, privilege, element); });
}

/// The hardware IDs aren't fetched: a privilege's initiator is taken to exist.
Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDProvider::_buildAllAssociationInstances(
    const OperationContext& context, const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
    const Array<CIMObjectPath> privileges =
        _cimom.enumerateInstanceNames(context, QRV_NAMESPACE, PRIVILEGE);
    Array<CIMInstance> found;
    for (Uint32 i = 0; i < privileges.size(); ++i)
        found.append(_build(cimClass, privileges[i],
                            hardwareIDPath(_nodeAddress, initiatorOf(privileges[i]))));
    return found;
}

Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDProvider::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    Array<CIMInstance> found;
    if (objectName.getClassName().equal(HARDWARE_ID)) return _privilegesOf(objectName, shape);
    if (!objectName.getClassName().equal(PRIVILEGE)) return found;
    const String initiator = initiatorOf(objectName);
    if (initiator.size() == 0) {
        log_message(3, " InstanceID key not found.\n");
        return found;
    }
    const CIMInstance hardwareID =
        tryGetInstance(_cimom, context, hardwareIDPath(_nodeAddress, initiator),
                       shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList);
    if (!hardwareID.isUninitialized()) found.append(hardwareID);
    return found;
}

/// A walk over VLUNs can be narrowed to a host; of its privileges those of the initiator are built.
Array<CIMInstance> QRV_PrivilegeForStorageHardwareIDProvider::_privilegesOf(
    const CIMObjectPath& hardwareID, const InstanceShape& shape) {
    const String wanted =
        QRV_Common::extractFromInstanceID(QRV_Common::getStringProperty(hardwareID, "InstanceID"));
    const String host = hostOfInitiator(hardwareID);
    Array<CIMInstance> found;
    if (host.size() == 0 || wanted.size() == 0) return found;
    Array<String> hostNames;
    QRV_AuthorizedPrivilegeProvider::buildOrDeliverInstances(
        _cimom, _nodeAddress, hostNames, _stringHashTable.get(), found, shape.includeQualifiers,
        shape.includeClassOrigin, shape.propertyList, host, 0, QRV_NO_PORT, wanted, nullptr, 0);
    return found;
}

}  // namespace Pegasus
