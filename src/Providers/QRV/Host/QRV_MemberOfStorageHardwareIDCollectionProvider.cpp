#include "QRV_MemberOfStorageHardwareIDCollectionProvider.h"

#include "../QRV_InstanceID.h"
#include "QRV_StorageHardwareIDCollectionProvider.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_MemberOfStorageHardwareIDCollectionProvider",
                              "QRV_MemberOfStorageHardwareIDCollectionProvider",
                              "CIM_MemberOfCollection",
                              "QRV_MemberOfStorageHardwareIDCollection",
                              2,
                              " Expect two keys."};

const AssociationRules RULES{
    {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_Collection",
     "CIM_ManagedElement", "QRV_StorageHardwareID", "CIM_StorageHardwareID", "CIM_Identity"},
    {"Collection", "Member"},
    {"QRV_MemberOfStorageHardwareIDCollection", "CIM_MemberOfCollection"},
    {"QRV_StorageHardwareID", "CIM_Identity", "CIM_StorageHardwareID",
     "QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection"},
    true,
    {}};

const CIMName ASSOCIATION("QRV_MemberOfStorageHardwareIDCollection");
const CIMName HARDWARE_ID("QRV_StorageHardwareID");
const CIMName COLLECTION("QRV_StorageHardwareIDCollection");

/// The host that a hardware ID belongs to; empty when it belongs to none.
String hostOf(const CIMInstance& hardwareID) {
    if (QRV_Common::getStringProperty(hardwareID, "StorageID").size() == 0) return String();
    return QRV_Common::getStringProperty(hardwareID, "ElementName");
}

const String COLLECTION_ROLE("Collection");
const String MEMBER_ROLE("Member");

/// Calls `take` with collection and hardware ID of each membership, in the order of the hardware
/// IDs, until it returns false. The collections aren't fetched: a hardware ID's host is taken to
/// exist.
template <class Take>
void forEachMembership(const Array<CIMInstance>& hardwareIDs, const String& nodeAddress,
                       Take take) {
    for (Uint32 i = 0; i < hardwareIDs.size(); ++i) {
        const String hostName = hostOf(hardwareIDs[i]);
        if (hostName.size() > 0 &&
            !take(QRV_StorageHardwareIDCollectionProvider::pathOfHost(nodeAddress, hostName),
                  hardwareIDs[i].getPath()))
            return;
    }
}

}  // namespace

QRV_MemberOfStorageHardwareIDCollectionProvider::QRV_MemberOfStorageHardwareIDCollectionProvider() =
    default;
QRV_MemberOfStorageHardwareIDCollectionProvider::
    ~QRV_MemberOfStorageHardwareIDCollectionProvider() = default;

const ProviderFrame& QRV_MemberOfStorageHardwareIDCollectionProvider::_frame() {
    return FRAME;
}

const AssociationRules& QRV_MemberOfStorageHardwareIDCollectionProvider::_rules() {
    return RULES;
}

void QRV_MemberOfStorageHardwareIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace(
        "QRV_MemberOfStorageHardwareIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _nodeAddress = QRV_Common::getSystemHostName(cimom);
}

/// The class of all instances has neither qualifiers nor class origins, whatever the request says.
void QRV_MemberOfStorageHardwareIDCollectionProvider::_getInstance(
    const OperationContext& context, const CIMObjectPath& instanceName, const InstanceShape& shape,
    InstanceResponseHandler& handler) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, {false, false, shape.propertyList});
    const PathMatcher wanted(underClass(instanceName, ASSOCIATION));
    Array<CIMInstance> found;
    forEachMembership(_allHardwareIDs(context), _nodeAddress,
                      [&](const CIMObjectPath& collection, const CIMObjectPath& member) {
                          const CIMObjectPath path = QRV_Common::buildAssocPath(
                              ASSOCIATION, COLLECTION_ROLE, MEMBER_ROLE, collection, member,
                              _nodeAddress, "root/qrv");
                          if (!wanted.matches(path)) return true;
                          found.append(_buildAssociation(cimClass, collection, member));
                          return false;
                      });
    deliverFound(FRAME, found, handler);
}

void QRV_MemberOfStorageHardwareIDCollectionProvider::_enumerateInstances(
    const OperationContext& context, const InstanceShape& shape, InstanceResponseHandler& handler) {
    _enumerate(context, shape.propertyList, handler,
               [&](const CIMInstance& instance) { handler.deliver(instance); });
}

void QRV_MemberOfStorageHardwareIDCollectionProvider::_enumerateInstanceNames(
    const OperationContext& context, ObjectPathResponseHandler& handler) {
    _enumerate(context, InstanceShape().propertyList, handler,
               [&](const CIMInstance& instance) { handler.deliver(instance.getPath()); });
}

template <class Handler, class Deliver>
void QRV_MemberOfStorageHardwareIDCollectionProvider::_enumerate(
    const OperationContext& context, const CIMPropertyList& propertyList, Handler& handler,
    Deliver deliver) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, {false, false, propertyList});
    const Array<CIMInstance> hardwareIDs = _allHardwareIDs(context);
    handler.processing();
    forEachMembership(hardwareIDs, _nodeAddress,
                      [&](const CIMObjectPath& collection, const CIMObjectPath& member) {
                          deliver(_buildAssociation(cimClass, collection, member));
                          return true;
                      });
    handler.complete();
}

CIMInstance QRV_MemberOfStorageHardwareIDCollectionProvider::_buildAssociation(
    CIMClass& cimClass, const CIMObjectPath& collection, const CIMObjectPath& member) const {
    return QRV_Common::buildAssocInstance(ASSOCIATION, COLLECTION_ROLE, MEMBER_ROLE, collection,
                                          member, cimClass, _nodeAddress, "root/qrv");
}

/// The associations of one object: one for a hardware ID, one for each member of a collection.
Array<CIMInstance> QRV_MemberOfStorageHardwareIDCollectionProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    const CIMName& className = objectName.getClassName();
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
    const Array<CIMObjectPath> alike =
        _cimom.enumerateInstanceNames(context, QRV_NAMESPACE, className);
    const Array<CIMObjectPath> related = _getRelatedInstanceNames(objectName, context);
    Array<CIMInstance> associations;
    if (alike.size() == 0) return associations;
    if (className.equal(HARDWARE_ID) && related.size() > 0)
        associations.append(_buildAssociation(cimClass, related[0], objectName));
    if (className.equal(COLLECTION))
        for (Uint32 i = 0; i < related.size(); ++i)
            associations.append(_buildAssociation(cimClass, objectName, related[i]));
    return associations;
}

Array<CIMInstance> QRV_MemberOfStorageHardwareIDCollectionProvider::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    if (objectName.getClassName().equal(HARDWARE_ID))
        return _collectionOf(objectName, context, shape);
    if (objectName.getClassName().equal(COLLECTION)) return _membersOf(objectName, context, shape);
    return Array<CIMInstance>();
}

/// The collection that a hardware ID belongs to, if both can be read.
Array<CIMInstance> QRV_MemberOfStorageHardwareIDCollectionProvider::_collectionOf(
    const CIMObjectPath& hardwareID, const OperationContext& context, const InstanceShape& shape) {
    Array<CIMInstance> collections;
    const CIMInstance source =
        tryGetInstance(_cimom, context, hardwareID, false, false, CIMPropertyList());
    const String hostName = source.isUninitialized() ? String() : hostOf(source);
    if (hostName.size() == 0) return collections;
    const CIMInstance collection =
        tryGetInstance(_cimom, context,
                       QRV_StorageHardwareIDCollectionProvider::pathOfHost(_nodeAddress, hostName),
                       shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList);
    if (!collection.isUninitialized()) collections.append(collection);
    return collections;
}

/// The hardware IDs whose host is the one that the collection's InstanceID names.
Array<CIMInstance> QRV_MemberOfStorageHardwareIDCollectionProvider::_membersOf(
    const CIMObjectPath& collection, const OperationContext& context, const InstanceShape& shape) {
    Array<CIMInstance> members;
    const String hostName =
        textBehindColon(QRV_Common::getStringProperty(collection, "InstanceID"));
    if (hostName.size() == 0) return members;
    const Array<CIMInstance> hardwareIDs = _allHardwareIDs(context);
    for (Uint32 i = 0; i < hardwareIDs.size(); ++i) {
        CIMInstance hardwareID = hardwareIDs[i];
        if (QRV_Common::getStringProperty(hardwareID, "ElementName") != hostName) continue;
        hardwareID.instanceFilter(shape.includeQualifiers, shape.includeClassOrigin,
                                  shape.propertyList);
        members.append(hardwareID);
    }
    return members;
}

Array<CIMInstance> QRV_MemberOfStorageHardwareIDCollectionProvider::_allHardwareIDs(
    const OperationContext& context) {
    return _cimom.enumerateInstances(context, QRV_NAMESPACE, HARDWARE_ID, false, false, false,
                                     false, CIMPropertyList());
}

}  // namespace Pegasus
