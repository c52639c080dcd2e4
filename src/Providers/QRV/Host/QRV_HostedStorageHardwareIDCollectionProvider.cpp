#include "QRV_HostedStorageHardwareIDCollectionProvider.h"

#include "../QRV_Common.h"

namespace Pegasus {

namespace {

const HostedAssociationKind KIND{
    {"QRV_HostedStorageHardwareIDCollection", "QRV_HostedStorageHardwareIDCollectionProvider",
     "CIM_HostedCollection", "QRV_HostedStorageHardwareIDCollection", 2, " Expect two keys."},
    {{"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_Collection",
      "CIM_ManagedElement"},
     {"Antecedent", "Dependent"},
     {"QRV_HostedStorageHardwareIDCollection", "CIM_HostedCollection"},
     {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_ComputerSystem",
      "CIM_System", "QRV_StorageSystem"},
     true,
     {{"QRV_StorageSystem",
       nullptr,
       nullptr,
       {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection"},
       {}},
      {"QRV_StorageHardwareIDCollection",
       nullptr,
       nullptr,
       {"CIM_ComputerSystem", "CIM_System", "QRV_StorageSystem"},
       {}}}},
    "Antecedent",
    "Dependent",
    4,
    "Instance does not exist for object ",
    "Instance does not exist for object "};

constexpr int REFUSAL_LEVEL = 2;

}  // namespace

QRV_HostedStorageHardwareIDCollectionProvider::QRV_HostedStorageHardwareIDCollectionProvider() =
    default;
QRV_HostedStorageHardwareIDCollectionProvider::~QRV_HostedStorageHardwareIDCollectionProvider() =
    default;

void QRV_HostedStorageHardwareIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _systemClassName = CIMName("QRV_StorageSystem");
    _assoClassName = CIMName("QRV_HostedStorageHardwareIDCollection");
    _storageHWIDCollectionClassName = CIMName("QRV_StorageHardwareIDCollection");
    _systemObjectPath = QRV_Common::getSystemObjectPath(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

void QRV_HostedStorageHardwareIDCollectionProvider::terminate() {
    delete this;
}

HostedAssociation QRV_HostedStorageHardwareIDCollectionProvider::_association() {
    return HostedAssociation(KIND, _cimom, _systemClassName, _assoClassName,
                             _storageHWIDCollectionClassName, _systemObjectPath, _systemAddress);
}

void QRV_HostedStorageHardwareIDCollectionProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::associators()");
    const AssociationRequest request{"associators", objectName, associationClass,
                                     resultClass,   role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_getRelatedInstances(objectName, context, includeQualifiers, includeClassOrigin,
                                        propertyList),
                   handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::associatorNames()");
    const AssociationRequest request{"associatorNames", objectName, associationClass,
                                     resultClass,       role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_getRelatedInstanceNames(objectName, context), handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::references()");
    const AssociationRequest request{"references", objectName, CIMName(),
                                     resultClass,  role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_buildAssociationInstances(objectName, context, includeQualifiers,
                                              includeClassOrigin, propertyList),
                   handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::referenceNames(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::referenceNames()");
    const AssociationRequest request{"referenceNames", objectName, CIMName(),
                                     resultClass,      role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_buildAssociationInstances(objectName, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::getInstance(const OperationContext& context,
                                                                const CIMObjectPath& instanceName,
                                                                const Boolean includeQualifiers,
                                                                const Boolean includeClassOrigin,
                                                                const CIMPropertyList& propertyList,
                                                                InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::getInstance()");
    _association().getInstance(context, instanceName, includeQualifiers, includeClassOrigin,
                               propertyList, handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::enumerateInstances(
    const OperationContext& context, const CIMObjectPath& classReference,
    const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, InstanceResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_HostedStorageHardwareIDCollectionProvider::enumerateInstances()");
    _association().enumerateInstances(context, classReference, includeQualifiers,
                                      includeClassOrigin, propertyList, handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_HostedStorageHardwareIDCollectionProvider::enumerateInstanceNames()");
    _association().enumerateInstanceNames(context, classReference, handler);
}

void QRV_HostedStorageHardwareIDCollectionProvider::modifyInstance(
    const OperationContext&, const CIMObjectPath&, const CIMInstance&, const Boolean,
    const CIMPropertyList&, ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_HostedStorageHardwareIDCollectionProvider::createInstance(const OperationContext&,
                                                                   const CIMObjectPath&,
                                                                   const CIMInstance&,
                                                                   ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_HostedStorageHardwareIDCollectionProvider::deleteInstance(const OperationContext&,
                                                                   const CIMObjectPath&,
                                                                   ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

Array<CIMInstance> QRV_HostedStorageHardwareIDCollectionProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association().associations(objectName, context, includeQualifiers, includeClassOrigin,
                                       propertyList);
}

Array<CIMInstance> QRV_HostedStorageHardwareIDCollectionProvider::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association().relatedInstances(objectName, context, includeQualifiers,
                                           includeClassOrigin, propertyList);
}

Array<CIMObjectPath> QRV_HostedStorageHardwareIDCollectionProvider::_getRelatedInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context) {
    return _association().relatedNames(objectName, context);
}

}  // namespace Pegasus
