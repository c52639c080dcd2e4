#include "QRV_MgmtServiceForAuthorizedPrivilege.h"

#include <string>

#include "../QRV_AssociationFrame.h"
#include "../QRV_StoredClass.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_MgmtServiceForAuthorizedPrivilege",
                              "QRV_MgmtServiceForAuthorizedPrivilege",
                              "CIM_ConcreteDependency",
                              "QRV_ManagementServiceForAuthorizedPrivilege",
                              2,
                              " Expect two keys."};

const AssociationRules RULES{
    {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "CIM_Privilege", "CIM_ManagedElement"},
    {"Antecedent", "Dependent"},
    {"QRV_ManagementServiceForAuthorizedPrivilege", "CIM_ConcreteDependency"},
    {"QRV_PrivilegeManagementService", "CIM_PrivilegeManagementService", "CIM_AuthorizedPrivilege",
     "CIM_Privilege", "QRV_AuthorizedPrivilege"},
    false,
    {{"QRV_PrivilegeManagementService",
      "Antecedent",
      "Dependent",
      {},
      {"CIM_PrivilegeManagementService"}},
     {"QRV_AuthorizedPrivilege",
      "Dependent",
      "Antecedent",
      {},
      {"CIM_AuthorizedPrivilege", "CIM_Privilege"}}}};

/// What the four operations log differs in a word and a blank.
struct Wording {
    const char* classWord;  ///< null: the result class alone is logged
    const char* beforeMissing;
};

Wording wordingOf(const AssociationRequest& request) {
    if (request.wantsAssociations()) return {nullptr, ": "};
    return {
        String::equalNoCase(request.operation, "associators") ? "assocClass" : "associationClass",
        ":"};
}

void logRefusal(const AssociationRequest& request) {
    const CString source = request.objectName.toString().getCString();
    const CString association = request.associationClass.getString().getCString();
    const CString result = request.resultClass.getString().getCString();
    const char* const classWord = wordingOf(request).classWord;
    if (classWord == nullptr)
        log_message(2, "%s::%s: invalid params: resultClass = %s \n", FRAME.provider,
                    request.operation, static_cast<const char*>(result));
    else
        log_message(2, "%s::%s: invalid params: objectName = %s \n%s = %s, resultClass = %s\n",
                    FRAME.provider, request.operation, static_cast<const char*>(source), classWord,
                    static_cast<const char*>(association), static_cast<const char*>(result));
}

}  // namespace

QRV_MgmtServiceForAuthorizedPrivilege::QRV_MgmtServiceForAuthorizedPrivilege() = default;
QRV_MgmtServiceForAuthorizedPrivilege::~QRV_MgmtServiceForAuthorizedPrivilege() = default;

void QRV_MgmtServiceForAuthorizedPrivilege::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::initialize(cimom)");
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _assocClassName = CIMName("QRV_ManagementServiceForAuthorizedPrivilege");
    _mgmtSvcClassName = CIMName("QRV_PrivilegeManagementService");
    _authPrvlClassName = CIMName("QRV_AuthorizedPrivilege");
    _systemAddr = QRV_Common::getSystemHostName(cimom);
    const Array<CIMObjectPath> services =
        _cimom.enumerateInstanceNames(OperationContext(), _qrvNameSpaceName, _mgmtSvcClassName);
    if (services.size() > 0) _mgmtSvcPath = services[0];
}

void QRV_MgmtServiceForAuthorizedPrivilege::terminate() {
    delete this;
}

void QRV_MgmtServiceForAuthorizedPrivilege::associators(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::associators()");
    if (!_accepts(context,
                  {"associators", objectName, associationClass, resultClass, role, resultRole}))
        return;
    deliverObjects(_getRelatedInstances(objectName, context, includeQualifiers, includeClassOrigin,
                                        propertyList),
                   handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectName,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::associatorNames()");
    if (!_accepts(context,
                  {"associatorNames", objectName, associationClass, resultClass, role, resultRole}))
        return;
    deliverPaths(_getRelatedInstances(objectName, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::references(
    const OperationContext& context, const CIMObjectPath& objectName, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::references()");
    if (!_accepts(context, {"references", objectName, CIMName(), resultClass, role, String::EMPTY}))
        return;
    deliverObjects(_buildAssocInstances(objectName, context, includeQualifiers, includeClassOrigin,
                                        propertyList),
                   handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::referenceNames(const OperationContext& context,
                                                           const CIMObjectPath& objectName,
                                                           const CIMName& resultClass,
                                                           const String& role,
                                                           ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::referenceNames()");
    if (!_accepts(context,
                  {"referenceNames", objectName, CIMName(), resultClass, role, String::EMPTY}))
        return;
    deliverPaths(_buildAssocInstances(objectName, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::getInstance(const OperationContext& context,
                                                        const CIMObjectPath& instanceName,
                                                        const Boolean includeQualifiers,
                                                        const Boolean includeClassOrigin,
                                                        const CIMPropertyList& propertyList,
                                                        InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::getInstance()");
    openArray(FRAME, context);
    checkClassLoudly(FRAME, instanceName.getClassName(), "getInstance: wrong class");
    checkKeyCount(FRAME, instanceName);
    const Array<CIMInstance> found =
        matching(instanceName, _buildAssocInstances(instanceName, context, includeQualifiers,
                                                    includeClassOrigin, propertyList));
    if (found.size() == 0)
        log_message(2, "%s::getInstance: object not found = %s\n", FRAME.provider,
                    static_cast<const char*>(instanceName.toString().getCString()));
    deliverFound(FRAME, found, handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::enumerateInstances(const OperationContext& context,
                                                               const CIMObjectPath& classReference,
                                                               const Boolean includeQualifiers,
                                                               const Boolean includeClassOrigin,
                                                               const CIMPropertyList& propertyList,
                                                               InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::enumerateInstances()");
    openArray(FRAME, context);
    checkClassLoudly(FRAME, classReference.getClassName(), "enumerateInstances: wrong class");
    traceClassName(classReference.getClassName());
    deliverInstances(_buildAssocInstances(_mgmtSvcPath, context, includeQualifiers,
                                          includeClassOrigin, propertyList),
                     handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::enumerateInstanceNames()");
    openArray(FRAME, context);
    checkClassLoudly(FRAME, classReference.getClassName(), "enumerateInstanceNames: wrong class");
    traceClassName(classReference.getClassName());
    deliverPaths(_buildAssocInstances(_mgmtSvcPath, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_MgmtServiceForAuthorizedPrivilege::modifyInstance(const OperationContext&,
                                                           const CIMObjectPath&, const CIMInstance&,
                                                           const Boolean, const CIMPropertyList&,
                                                           ResponseHandler&) {
    refuse(FRAME, "modifyInstance");
}

void QRV_MgmtServiceForAuthorizedPrivilege::createInstance(const OperationContext&,
                                                           const CIMObjectPath&, const CIMInstance&,
                                                           ObjectPathResponseHandler&) {
    refuse(FRAME, "createInstance");
}

void QRV_MgmtServiceForAuthorizedPrivilege::deleteInstance(const OperationContext&,
                                                           const CIMObjectPath&, ResponseHandler&) {
    refuse(FRAME, "deleteInstance");
}

bool QRV_MgmtServiceForAuthorizedPrivilege::_accepts(const OperationContext& context,
                                                     const AssociationRequest& request) {
    if (!openAssociation(FRAME, RULES, context, request)) {
        logRefusal(request);
        return false;
    }
    const std::string text = std::string(FRAME.provider) + "::" + request.operation +
                             wordingOf(request).beforeMissing +
                             "Instance does not exist for object ";
    return sourceExists(_cimom, context, request.objectName, 2, text.c_str());
}

/// Nothing of the source object but its class decides what is related to it.
Array<CIMInstance> QRV_MgmtServiceForAuthorizedPrivilege::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    const bool fromService = objectName.getClassName().equal(_mgmtSvcClassName);
    return _cimom.enumerateInstances(context, _qrvNameSpaceName,
                                     fromService ? _authPrvlClassName : _mgmtSvcClassName, false,
                                     false, includeQualifiers, includeClassOrigin, propertyList);
}

Array<CIMInstance> QRV_MgmtServiceForAuthorizedPrivilege::_buildAssocInstances(
    const CIMObjectPath& objectName, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    CIMClass cimClass =
        storedClass(_cimom, _assocClassName, {includeQualifiers, includeClassOrigin, propertyList});
    const CIMName& source = objectName.getClassName();
    Array<CIMInstance> found;
    if (source.equal(_mgmtSvcClassName)) {
        const Array<CIMInstance> privileges =
            _getRelatedInstances(objectName, context, false, false, InstanceShape().propertyList);
        for (Uint32 i = 0; i < privileges.size(); ++i)
            found.append(_build(cimClass, objectName, privileges[i].getPath()));
    } else if (source.equal(_authPrvlClassName)) {
        found.append(_build(cimClass, _mgmtSvcPath, objectName));
    } else if (source.equal(_assocClassName)) {
        const CIMObjectPath service = referenceKey(objectName, "Antecedent");
        const CIMObjectPath privilege = referenceKey(objectName, "Dependent");
        if (!tryGetInstance(_cimom, context, privilege, false, false, CIMPropertyList())
                 .isUninitialized())
            found.append(_build(cimClass, service, privilege));
    }
    return found;
}

CIMInstance QRV_MgmtServiceForAuthorizedPrivilege::_build(CIMClass& cimClass,
                                                          const CIMObjectPath& service,
                                                          const CIMObjectPath& privilege) const {
    return QRV_Common::buildAssocInstance(_assocClassName, "Antecedent", "Dependent", service,
                                          privilege, cimClass, _systemAddr, "root/qrv");
}

}  // namespace Pegasus
