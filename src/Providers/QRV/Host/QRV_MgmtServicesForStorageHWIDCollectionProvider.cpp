#include "QRV_MgmtServicesForStorageHWIDCollectionProvider.h"

#include <vector>

#include "../QRV_AssociationFrame.h"
#include "../QRV_StoredClass.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_MgmtServicesForStorageHWIDCollection",
                              "QRV_MgmtServicesForStorageHWIDCollectionProvider",
                              "CIM_ConcreteDependency",
                              "QRV_MgmtServicesForStorageHWIDCollection",
                              2,
                              " Expect two keys."};

const AssociationRules RULES{
    {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_Collection",
     "CIM_ManagedElement"},
    {"Antecedent", "Dependent"},
    {"QRV_MgmtServicesForStorageHWIDCollection", "CIM_ConcreteDependency"},
    {"QRV_StorageHardwareIDManagementService", "CIM_StorageHardwareIDManagementService",
     "CIM_Identity", "QRV_StorageHardwareID", "CIM_StorageHardwareID",
     "QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection"},
    false,
    {{"QRV_StorageHardwareIDManagementService",
      "Antecedent",
      "Dependent",
      {},
      {"CIM_StorageHardwareIDManagementService"}},
     {"QRV_StorageHardwareIDCollection",
      "Dependent",
      "Antecedent",
      {},
      {"CIM_SystemSpecificCollection"}},
     {"QRV_StorageHardwareID",
      "Dependent",
      "Antecedent",
      {},
      {"CIM_StorageHardwareID", "CIM_Identity"}}}};

constexpr int REFUSAL_LEVEL = 2;
constexpr int MISSING_SOURCE_LEVEL = 4;

const CIMName ASSOCIATION("QRV_MgmtServicesForStorageHWIDCollection");
const CIMName SERVICE("QRV_StorageHardwareIDManagementService");
const CIMName COLLECTION("QRV_StorageHardwareIDCollection");
const CIMName HARDWARE_ID("QRV_StorageHardwareID");
const String SERVICE_ROLE("Antecedent");
const String MANAGED_ROLE("Dependent");

/// A class at the far side, and the result classes that ask for its objects.
struct FarSide {
    CIMName className;
    ClassNames asked;
};

const FarSide FROM_SERVICE[] = {
    {COLLECTION, {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection"}},
    {HARDWARE_ID, {"QRV_StorageHardwareID", "CIM_StorageHardwareID", "CIM_Identity"}}};
const FarSide FROM_MANAGED[] = {
    {SERVICE,
     {"QRV_StorageHardwareIDManagementService", "CIM_StorageHardwareIDManagementService"}}};

bool isService(const CIMObjectPath& path) {
    return path.getClassName().equal(SERVICE);
}

bool isManaged(const CIMObjectPath& path) {
    return path.getClassName().equal(COLLECTION) || path.getClassName().equal(HARDWARE_ID);
}

template <std::size_t COUNT>
std::vector<CIMName> asked(const FarSide (&sides)[COUNT], const CIMName& resultClass) {
    std::vector<CIMName> classes;
    for (const FarSide& side : sides)
        if (resultClass.isNull() || side.asked.contains(resultClass))
            classes.push_back(side.className);
    return classes;
}

/// The classes of the related objects that are asked for, in the order in which they are answered.
std::vector<CIMName> farClasses(const CIMObjectPath& objectName, const CIMName& resultClass) {
    if (isService(objectName)) return asked(FROM_SERVICE, resultClass);
    if (isManaged(objectName)) return asked(FROM_MANAGED, resultClass);
    return {};
}

/// Calls `take` with service and managed object of each association of `objectName`: of the service
/// with all that is related, of a managed object with the one service.
template <class Take>
void forEachLink(const CIMObjectPath& objectName, const Array<CIMObjectPath>& related, Take take) {
    if (isManaged(objectName) && related.size() > 0) take(related[0], objectName);
    if (!isService(objectName)) return;
    for (Uint32 i = 0; i < related.size(); ++i) take(objectName, related[i]);
}

}  // namespace

QRV_MgmtServicesForStorageHWIDCollectionProvider::
    QRV_MgmtServicesForStorageHWIDCollectionProvider() = default;
QRV_MgmtServicesForStorageHWIDCollectionProvider::
    ~QRV_MgmtServicesForStorageHWIDCollectionProvider() = default;

void QRV_MgmtServicesForStorageHWIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace(
        "QRV_MgmtServicesForStorageHWIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _storageHWIDMgmtServicePath =
        _cimom.enumerateInstanceNames(OperationContext(), QRV_NAMESPACE, SERVICE)[0];
    _systemAddr = QRV_Common::getSystemHostName(cimom);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::terminate() {
    delete this;
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServicesForStorageHWIDCollectionProvider::associators()");
    const AssociationRequest request{"associators", objectName, associationClass,
                                     resultClass,   role,       resultRole};
    if (!beginAssociation(FRAME, RULES, REFUSAL_LEVEL, context, request) ||
        !sourceExists(_cimom, context, objectName, MISSING_SOURCE_LEVEL))
        return;
    deliverObjects(_getRelatedInstances(objectName, context, resultClass, includeQualifiers,
                                        includeClassOrigin, propertyList),
                   handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_MgmtServicesForStorageHWIDCollectionProvider::associatorNames()");
    const AssociationRequest request{"associatorNames", objectName, associationClass,
                                     resultClass,       role,       resultRole};
    if (!beginAssociation(FRAME, RULES, REFUSAL_LEVEL, context, request) ||
        !sourceExists(_cimom, context, objectName, MISSING_SOURCE_LEVEL))
        return;
    deliverPaths(_getRelatedInstanceNames(objectName, context, resultClass), handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServicesForStorageHWIDCollectionProvider::references()");
    const AssociationRequest request{"references", objectName, CIMName(),
                                     resultClass,  role,       String::EMPTY};
    if (!beginAssociation(FRAME, RULES, REFUSAL_LEVEL, context, request) ||
        !sourceExists(_cimom, context, objectName, MISSING_SOURCE_LEVEL))
        return;
    deliverObjects(_buildAssociationInstances(objectName, context, includeQualifiers,
                                              includeClassOrigin, propertyList),
                   handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::referenceNames(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, ObjectPathResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_MgmtServicesForStorageHWIDCollectionProvider::referenceNames()");
    const AssociationRequest request{"referenceNames", objectName, CIMName(),
                                     resultClass,      role,       String::EMPTY};
    if (!beginAssociation(FRAME, RULES, REFUSAL_LEVEL, context, request) ||
        !sourceExists(_cimom, context, objectName, MISSING_SOURCE_LEVEL))
        return;
    deliverPaths(_buildAssociationInstanceNames(objectName, context), handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::getInstance(
    const OperationContext& context, const CIMObjectPath& instanceName,
    const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServicesForStorageHWIDCollectionProvider::getInstance()");
    openArray(FRAME, context);
    checkClass(FRAME, instanceName.getClassName());
    checkKeyCount(FRAME, instanceName);
    deliverFound(FRAME,
                 matching(instanceName, _buildAssociationInstances(
                                            _storageHWIDMgmtServicePath, context, includeQualifiers,
                                            includeClassOrigin, propertyList)),
                 handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::enumerateInstances(
    const OperationContext& context, const CIMObjectPath& classReference,
    const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, InstanceResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_MgmtServicesForStorageHWIDCollectionProvider::enumerateInstances()");
    beginEnumeration(FRAME, context, classReference);
    CIMClass cimClass =
        storedClass(_cimom, ASSOCIATION, {includeQualifiers, includeClassOrigin, propertyList});
    const Array<CIMObjectPath> managed =
        _getRelatedInstanceNames(_storageHWIDMgmtServicePath, context, CIMName());
    if (managed.size() == 0) return;
    handler.processing();
    for (Uint32 i = 0; i < managed.size(); ++i)
        handler.deliver(_buildAssociation(cimClass, _storageHWIDMgmtServicePath, managed[i]));
    handler.complete();
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_MgmtServicesForStorageHWIDCollectionProvider::enumerateInstanceNames()");
    beginEnumeration(FRAME, context, classReference);
    deliverPaths(_buildAssociationInstanceNames(_storageHWIDMgmtServicePath, context), handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::modifyInstance(
    const OperationContext&, const CIMObjectPath&, const CIMInstance&, const Boolean,
    const CIMPropertyList&, ResponseHandler&) {
    refuse(FRAME, "modifyInstance");
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::createInstance(const OperationContext&,
                                                                      const CIMObjectPath&,
                                                                      const CIMInstance&,
                                                                      ObjectPathResponseHandler&) {
    refuse(FRAME, "createInstance");
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::deleteInstance(const OperationContext&,
                                                                      const CIMObjectPath&,
                                                                      ResponseHandler&) {
    refuse(FRAME, "deleteInstance");
}

CIMInstance QRV_MgmtServicesForStorageHWIDCollectionProvider::_buildAssociation(
    CIMClass& cimClass, const CIMObjectPath& service, const CIMObjectPath& managed) const {
    return QRV_Common::buildAssocInstance(ASSOCIATION, SERVICE_ROLE, MANAGED_ROLE, service, managed,
                                          cimClass, _systemAddr, "root/qrv");
}

Array<CIMInstance> QRV_MgmtServicesForStorageHWIDCollectionProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    CIMClass cimClass =
        storedClass(_cimom, ASSOCIATION, {includeQualifiers, includeClassOrigin, propertyList});
    Array<CIMInstance> associations;
    forEachLink(objectName, _getRelatedInstanceNames(objectName, context, CIMName()),
                [&](const CIMObjectPath& service, const CIMObjectPath& managed) {
                    associations.append(_buildAssociation(cimClass, service, managed));
                });
    return associations;
}

Array<CIMObjectPath>
QRV_MgmtServicesForStorageHWIDCollectionProvider::_buildAssociationInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context) {
    Array<CIMObjectPath> names;
    forEachLink(
        objectName, _getRelatedInstanceNames(objectName, context, CIMName()),
        [&](const CIMObjectPath& service, const CIMObjectPath& managed) {
            names.append(QRV_Common::buildAssocPath(ASSOCIATION, SERVICE_ROLE, MANAGED_ROLE,
                                                    service, managed, _systemAddr, "root/qrv"));
        });
    return names;
}

Array<CIMInstance> QRV_MgmtServicesForStorageHWIDCollectionProvider::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const CIMName& resultClass,
    Boolean includeQualifiers, Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    Array<CIMInstance> related;
    for (const CIMName& className : farClasses(objectName, resultClass))
        related.appendArray(_cimom.enumerateInstances(context, QRV_NAMESPACE, className, false,
                                                      false, includeQualifiers, includeClassOrigin,
                                                      propertyList));
    return related;
}

/// The one service is known; what it manages isn't.
Array<CIMObjectPath> QRV_MgmtServicesForStorageHWIDCollectionProvider::_getRelatedInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context, const CIMName& resultClass) {
    Array<CIMObjectPath> related;
    for (const CIMName& className : farClasses(objectName, resultClass)) {
        if (className.equal(SERVICE))
            related.append(_storageHWIDMgmtServicePath);
        else
            related.appendArray(_cimom.enumerateInstanceNames(context, QRV_NAMESPACE, className));
    }
    return related;
}

}  // namespace Pegasus
