#include "QRV_SystemClientSettingDataProvider.h"

#include "../QRV_Common.h"

namespace Pegasus {

namespace {

const HostedAssociationKind KIND{
    {"QRV_SystemClientSettingData", "QRV_SystemClientSettingDataProvider", "CIM_ElementSettingData",
     "QRV_SystemClientSettingData", 2, " Expect two keys."},
    {{},
     {"ManagedElement", "SettingData"},
     {"CIM_ElementSettingData", "QRV_SystemClientSettingData"},
     {"CIM_ComputerSystem", "CIM_System", "QRV_StorageSystem", "CIM_ManagedElement",
      "CIM_SettingData", "CIM_StorageClientSettingData", "QRV_StorageClientSettingData"},
     true,
     {{"QRV_StorageSystem",
       nullptr,
       nullptr,
       {"CIM_ManagedElement", "CIM_SettingData", "CIM_StorageClientSettingData",
        "QRV_StorageClientSettingData"},
       {}},
      {"QRV_StorageClientSettingData",
       nullptr,
       nullptr,
       {"CIM_ComputerSystem", "CIM_System", "QRV_StorageSystem"},
       {}}}},
    "ManagedElement",
    "SettingData",
    4,
    "Instance does not exist for object ",
    "Instance does not exist for object "};

constexpr int REFUSAL_LEVEL = 2;

}  // namespace

QRV_SystemClientSettingDataProvider::QRV_SystemClientSettingDataProvider() = default;
QRV_SystemClientSettingDataProvider::~QRV_SystemClientSettingDataProvider() = default;

void QRV_SystemClientSettingDataProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::initialize(cimom)");
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _systemClassName = CIMName("QRV_StorageSystem");
    _assoClassName = CIMName("QRV_SystemClientSettingData");
    _clientSettingDataClassName = CIMName("QRV_StorageClientSettingData");
    _systemObjectPath = QRV_Common::getSystemObjectPath(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

void QRV_SystemClientSettingDataProvider::terminate() {
    delete this;
}

HostedAssociation QRV_SystemClientSettingDataProvider::_association() {
    return HostedAssociation(KIND, _cimom, _systemClassName, _assoClassName,
                             _clientSettingDataClassName, _systemObjectPath, _systemAddress);
}

void QRV_SystemClientSettingDataProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::associators()");
    const AssociationRequest request{"associators", objectName, associationClass,
                                     resultClass,   role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_getRelatedInstances(objectName, context, includeQualifiers, includeClassOrigin,
                                        propertyList),
                   handler);
}

void QRV_SystemClientSettingDataProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::associatorNames()");
    const AssociationRequest request{"associatorNames", objectName, associationClass,
                                     resultClass,       role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_getRelatedInstanceNames(objectName, context), handler);
}

void QRV_SystemClientSettingDataProvider::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::references()");
    const AssociationRequest request{"references", objectName, CIMName(),
                                     resultClass,  role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_buildAssociationInstances(objectName, context, includeQualifiers,
                                              includeClassOrigin, propertyList),
                   handler);
}

void QRV_SystemClientSettingDataProvider::referenceNames(const OperationContext& context,
                                                         const CIMObjectPath& objectName,
                                                         const CIMName& resultClass,
                                                         const String& role,
                                                         ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::referenceNames()");
    const AssociationRequest request{"referenceNames", objectName, CIMName(),
                                     resultClass,      role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_buildAssociationInstances(objectName, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_SystemClientSettingDataProvider::getInstance(const OperationContext& context,
                                                      const CIMObjectPath& instanceName,
                                                      const Boolean includeQualifiers,
                                                      const Boolean includeClassOrigin,
                                                      const CIMPropertyList& propertyList,
                                                      InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::getInstance()");
    _association().getInstance(context, instanceName, includeQualifiers, includeClassOrigin,
                               propertyList, handler);
}

void QRV_SystemClientSettingDataProvider::enumerateInstances(const OperationContext& context,
                                                             const CIMObjectPath& classReference,
                                                             const Boolean includeQualifiers,
                                                             const Boolean includeClassOrigin,
                                                             const CIMPropertyList& propertyList,
                                                             InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::enumerateInstances()");
    _association().enumerateInstances(context, classReference, includeQualifiers,
                                      includeClassOrigin, propertyList, handler);
}

void QRV_SystemClientSettingDataProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_SystemClientSettingDataProvider::enumerateInstanceNames()");
    _association().enumerateInstanceNames(context, classReference, handler);
}

void QRV_SystemClientSettingDataProvider::modifyInstance(const OperationContext&,
                                                         const CIMObjectPath&, const CIMInstance&,
                                                         const Boolean, const CIMPropertyList&,
                                                         ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_SystemClientSettingDataProvider::createInstance(const OperationContext&,
                                                         const CIMObjectPath&, const CIMInstance&,
                                                         ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_SystemClientSettingDataProvider::deleteInstance(const OperationContext&,
                                                         const CIMObjectPath&, ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

Array<CIMInstance> QRV_SystemClientSettingDataProvider::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association().associations(objectName, context, includeQualifiers, includeClassOrigin,
                                       propertyList);
}

Array<CIMInstance> QRV_SystemClientSettingDataProvider::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association().relatedInstances(objectName, context, includeQualifiers,
                                           includeClassOrigin, propertyList);
}

Array<CIMObjectPath> QRV_SystemClientSettingDataProvider::_getRelatedInstanceNames(
    const CIMObjectPath& objectName, const OperationContext& context) {
    return _association().relatedNames(objectName, context);
}

}  // namespace Pegasus
