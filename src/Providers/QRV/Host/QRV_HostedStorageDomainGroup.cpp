#include "QRV_HostedStorageDomainGroup.h"

#include "../QRV_Common.h"

namespace Pegasus {

namespace {

const HostedAssociationKind KIND{
    {"QRV_HostedStorageDomainGroup", "QRV_HostedStorageDomainGroup", "CIM_HostedCollection",
     "QRV_HostedStorageDomainGroup", 2, " Expect two keys."},
    {{},
     {"Antecedent", "Dependent"},
     {"QRV_HostedStorageDomainGroup", "CIM_HostedCollection"},
     {"QRV_StorageDomainGroup", "CIM_SystemSpecificCollection", "CIM_ComputerSystem", "CIM_System",
      "QRV_StorageSystem"},
     false,
     {{"QRV_StorageSystem", "Antecedent", "Dependent", {}, {"CIM_System", "CIM_ComputerSystem"}},
      {"QRV_StorageDomainGroup", "Dependent", "Antecedent", {}, {"CIM_SystemSpecificCollection"}}}},
    "Antecedent",
    "Dependent",
    2,
    "QRV_HostedStorageDomainGroup:_getRelatedInstances, Instance does not exist for object ",
    "QRV_HostedStorageDomainGroup:_getRelatedInstanceNames Instance does not exist for object "};

constexpr int REFUSAL_LEVEL = 2;

}  // namespace

QRV_HostedStorageDomainGroup::QRV_HostedStorageDomainGroup() = default;
QRV_HostedStorageDomainGroup::~QRV_HostedStorageDomainGroup() = default;

void QRV_HostedStorageDomainGroup::initialize(CIMOMHandle& cimom) {
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _systemClassName = CIMName("QRV_StorageSystem");
    _assoClassName = CIMName("QRV_HostedStorageDomainGroup");
    _storageDomainGroupClassName = CIMName("QRV_StorageDomainGroup");
    _systemObjectPath = QRV_Common::getSystemObjectPath(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

void QRV_HostedStorageDomainGroup::terminate() {
    delete this;
}

HostedAssociation QRV_HostedStorageDomainGroup::_association() {
    return HostedAssociation(KIND, _cimom, _systemClassName, _assoClassName,
                             _storageDomainGroupClassName, _systemObjectPath, _systemAddress);
}

void QRV_HostedStorageDomainGroup::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::associators()");
    const AssociationRequest request{"associators", objectName, associationClass,
                                     resultClass,   role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_getRelatedInstances(objectName, context, includeQualifiers, includeClassOrigin,
                                        propertyList),
                   handler);
}

void QRV_HostedStorageDomainGroup::associatorNames(const OperationContext& context,
                                                   const CIMObjectPath& objectName,
                                                   const CIMName& associationClass,
                                                   const CIMName& resultClass, const String& role,
                                                   const String& resultRole,
                                                   ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::associatorNames()");
    const AssociationRequest request{"associatorNames", objectName, associationClass,
                                     resultClass,       role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_getRelatedInstanceNames(objectName, context), handler);
}

void QRV_HostedStorageDomainGroup::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::references()");
    const AssociationRequest request{"references", objectName, CIMName(),
                                     resultClass,  role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_buildAssociationInstances(objectName, context, includeQualifiers,
                                              includeClassOrigin, propertyList),
                   handler);
}

void QRV_HostedStorageDomainGroup::referenceNames(const OperationContext& context,
                                                  const CIMObjectPath& objectName,
                                                  const CIMName& resultClass, const String& role,
                                                  ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::referenceNames()");
    const AssociationRequest request{"referenceNames", objectName, CIMName(),
                                     resultClass,      role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_buildAssociationInstances(objectName, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_HostedStorageDomainGroup::getInstance(const OperationContext& context,
                                               const CIMObjectPath& instanceName,
                                               const Boolean includeQualifiers,
                                               const Boolean includeClassOrigin,
                                               const CIMPropertyList& propertyList,
                                               InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::getInstance()");
    _association().getInstance(context, instanceName, includeQualifiers, includeClassOrigin,
                               propertyList, handler);
}

void QRV_HostedStorageDomainGroup::enumerateInstances(const OperationContext& context,
                                                      const CIMObjectPath& classReference,
                                                      const Boolean includeQualifiers,
                                                      const Boolean includeClassOrigin,
                                                      const CIMPropertyList& propertyList,
                                                      InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::enumerateInstances()");
    _association().enumerateInstances(context, classReference, includeQualifiers,
                                      includeClassOrigin, propertyList, handler);
}

void QRV_HostedStorageDomainGroup::enumerateInstanceNames(const OperationContext& context,
                                                          const CIMObjectPath& classReference,
                                                          ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HostedStorageDomainGroup::enumerateInstanceNames()");
    _association().enumerateInstanceNames(context, classReference, handler);
}

void QRV_HostedStorageDomainGroup::modifyInstance(const OperationContext&, const CIMObjectPath&,
                                                  const CIMInstance&, const Boolean,
                                                  const CIMPropertyList&, ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_HostedStorageDomainGroup::createInstance(const OperationContext&, const CIMObjectPath&,
                                                  const CIMInstance&, ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_HostedStorageDomainGroup::deleteInstance(const OperationContext&, const CIMObjectPath&,
                                                  ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

Array<CIMInstance> QRV_HostedStorageDomainGroup::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association().associations(objectName, context, includeQualifiers, includeClassOrigin,
                                       propertyList);
}

Array<CIMInstance> QRV_HostedStorageDomainGroup::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association().relatedInstances(objectName, context, includeQualifiers,
                                           includeClassOrigin, propertyList);
}

Array<CIMObjectPath> QRV_HostedStorageDomainGroup::_getRelatedInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context) {
    return _association().relatedNames(objectName, context);
}

}  // namespace Pegasus
