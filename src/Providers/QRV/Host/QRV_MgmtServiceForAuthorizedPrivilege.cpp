#include "QRV_MgmtServiceForAuthorizedPrivilege.h"

#include <string>

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

const ProviderFrame& QRV_MgmtServiceForAuthorizedPrivilege::_frame() {
    return FRAME;
}

const AssociationRules& QRV_MgmtServiceForAuthorizedPrivilege::_rules() {
    return RULES;
}

void QRV_MgmtServiceForAuthorizedPrivilege::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_MgmtServiceForAuthorizedPrivilege::initialize(cimom)");
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _assocClassName = CIMName("QRV_ManagementServiceForAuthorizedPrivilege");
    _mgmtSvcClassName = CIMName("QRV_PrivilegeManagementService");
    _authPrvlClassName = CIMName("QRV_AuthorizedPrivilege");
    _systemAddr = QRV_Common::getSystemHostName(cimom);
    _mgmtSvcPath = requireOnly(_cimom, _mgmtSvcClassName);
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

void QRV_MgmtServiceForAuthorizedPrivilege::_checkPath(const CIMObjectPath& instanceName) {
    checkClassLoudly(FRAME, instanceName.getClassName(), "getInstance: wrong class");
    checkKeyCount(FRAME, instanceName);
}

void QRV_MgmtServiceForAuthorizedPrivilege::_getInstance(const OperationContext& context,
                                                         const CIMObjectPath& instanceName,
                                                         const InstanceShape& shape,
                                                         InstanceResponseHandler& handler) {
    const Array<CIMInstance> found =
        matching(instanceName, _buildAssociationInstances(instanceName, context, shape));
    if (found.size() == 0)
        log_message(2, "%s::getInstance: object not found = %s\n", FRAME.provider,
                    static_cast<const char*>(instanceName.toString().getCString()));
    deliverFound(FRAME, found, handler);
}

bool QRV_MgmtServiceForAuthorizedPrivilege::_beginEnumeration(const OperationContext& context,
                                                              const CIMObjectPath& classReference,
                                                              const char* operation) {
    openArray(FRAME, context);
    checkClassLoudly(FRAME, classReference.getClassName(),
                     (std::string(operation) + ": wrong class").c_str());
    traceClassName(classReference.getClassName());
    return true;
}

/// All privileges belong to the one service, so the enumeration is the walk from it.
Array<CIMInstance> QRV_MgmtServiceForAuthorizedPrivilege::_buildAllAssociationInstances(
    const OperationContext& context, const InstanceShape& shape) {
    return _buildAssociationInstances(_mgmtSvcPath, context, shape);
}

/// Nothing of the source object but its class decides what is related to it.
Array<CIMInstance> QRV_MgmtServiceForAuthorizedPrivilege::_getRelatedInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    const bool fromService = objectName.getClassName().equal(_mgmtSvcClassName);
    return _cimom.enumerateInstances(
        context, _qrvNameSpaceName, fromService ? _authPrvlClassName : _mgmtSvcClassName, false,
        false, shape.includeQualifiers, shape.includeClassOrigin, shape.propertyList);
}

Array<CIMInstance> QRV_MgmtServiceForAuthorizedPrivilege::_buildAssociationInstances(
    const CIMObjectPath& objectName, const OperationContext& context, const InstanceShape& shape) {
    CIMClass cimClass = storedClass(_cimom, _assocClassName, shape);
    const CIMName& source = objectName.getClassName();
    Array<CIMInstance> found;
    if (source.equal(_mgmtSvcClassName)) {
        const Array<CIMInstance> privileges = _getRelatedInstances(objectName, context, {});
        for (Uint32 i = 0; i < privileges.size(); ++i)
            found.append(_build(cimClass, objectName, privileges[i].getPath()));
    } else if (source.equal(_authPrvlClassName)) {
        found.append(_build(cimClass, _mgmtSvcPath, objectName));
    } else if (source.equal(_assocClassName)) {
        return _proven(cimClass, objectName, context);
    }
    return found;
}

/// The association that a path names, when the privilege exists. A path whose ends are none names
/// nothing.
Array<CIMInstance> QRV_MgmtServiceForAuthorizedPrivilege::_proven(CIMClass& cimClass,
                                                                  const CIMObjectPath& association,
                                                                  const OperationContext& context) {
    try {
        const CIMObjectPath service = referenceKey(association, "Antecedent");
        const CIMObjectPath privilege = referenceKey(association, "Dependent");
        return whenThereIs(_cimom, context, privilege,
                           [&] { return _build(cimClass, service, privilege); });
    } catch (const Exception&) {
        return Array<CIMInstance>();
    }
}

CIMInstance QRV_MgmtServiceForAuthorizedPrivilege::_build(CIMClass& cimClass,
                                                          const CIMObjectPath& service,
                                                          const CIMObjectPath& privilege) const {
    return QRV_Common::buildAssocInstance(_assocClassName, "Antecedent", "Dependent", service,
                                          privilege, cimClass, _systemAddr, "root/qrv");
}

}  // namespace Pegasus
