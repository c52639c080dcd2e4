#include "QRV_MgmtServicesForStorageHWIDCollectionProvider.h"

#include <vector>

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

const ProviderFrame& QRV_MgmtServicesForStorageHWIDCollectionProvider::_frame() {
    return FRAME;
}

const AssociationRules& QRV_MgmtServicesForStorageHWIDCollectionProvider::_rules() {
    return RULES;
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace(
        "QRV_MgmtServicesForStorageHWIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _storageHWIDMgmtServicePath = requireOnly(_cimom, SERVICE);
    _systemAddr = QRV_Common::getSystemHostName(cimom);
}

/// The result class selects what is fetched.
void QRV_MgmtServicesForStorageHWIDCollectionProvider::_associators(
    const OperationContext& context, const AssociationRequest& request, const InstanceShape& shape,
    ObjectResponseHandler& handler) {
    deliverObjects(_getRelatedInstances(request.objectName, context, request.resultClass, shape),
                   handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::_associatorNames(
    const OperationContext& context, const AssociationRequest& request,
    ObjectPathResponseHandler& handler) {
    deliverPaths(_getRelatedInstanceNames(request.objectName, context, request.resultClass),
                 handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::_referenceNames(
    const OperationContext& context, const AssociationRequest& request,
    ObjectPathResponseHandler& handler) {
    deliverPaths(_buildAssociationInstanceNames(request.objectName, context), handler);
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::_getInstance(
    const OperationContext& context, const CIMObjectPath& instanceName, const InstanceShape& shape,
    InstanceResponseHandler& handler) {
    deliverFound(FRAME,
                 matching(underClass(instanceName, ASSOCIATION),
                          _buildAssociationInstances(_storageHWIDMgmtServicePath, context, shape)),
                 handler);
}

/// Nothing at all when the service has nothing to manage.
void QRV_MgmtServicesForStorageHWIDCollectionProvider::_enumerateInstances(
    const OperationContext& context, const InstanceShape& shape, InstanceResponseHandler& handler) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
    const Array<CIMObjectPath> managed =
        _getRelatedInstanceNames(_storageHWIDMgmtServicePath, context, CIMName());
    if (managed.size() == 0) return;
    handler.processing();
    for (Uint32 i = 0; i < managed.size(); ++i)
        handler.deliver(_buildAssociation(cimClass, _storageHWIDMgmtServicePath, managed[i]));
    handler.complete();
}

void QRV_MgmtServicesForStorageHWIDCollectionProvider::_enumerateInstanceNames(
    const OperationContext& context, ObjectPathResponseHandler& handler) {
    deliverPaths(_buildAssociationInstanceNames(_storageHWIDMgmtServicePath, context), handler);
}

CIMInstance QRV_MgmtServicesForStorageHWIDCollectionProvider::_buildAssociation(
    CIMClass& cimClass, const CIMObjectPath& service, const CIMObjectPath& managed) const {
    return QRV_Common::buildAssocInstance(ASSOCIATION, SERVICE_ROLE, MANAGED_ROLE, service, managed,
                                          cimClass, _systemAddr, "root/qrv");
}

Array<CIMInstance> QRV_MgmtServicesForStorageHWIDCollectionProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, ASSOCIATION, shape);
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
    const InstanceShape& shape) {
    Array<CIMInstance> related;
    for (const CIMName& className : farClasses(objectName, resultClass))
        related.appendArray(_cimom.enumerateInstances(
            context, QRV_NAMESPACE, className, false, false, shape.includeQualifiers,
            shape.includeClassOrigin, shape.propertyList));
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
