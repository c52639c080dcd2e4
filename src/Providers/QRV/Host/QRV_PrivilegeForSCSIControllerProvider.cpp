#include "QRV_PrivilegeForSCSIControllerProvider.h"

#include "../QRV_ArrayGate.h"
#include "../QRV_VlunWalk.h"
#include "QRV_AuthorizedPrivilegeProvider.h"
#include "QRV_ControllerPrivilege.h"
#include "QRV_PrivilegeKey.h"

namespace Pegasus {

namespace {

const AssociationKind KIND = controllerPrivilegeKind(
    "QRV_PrivilegeForSCSIControllerProvider", FC_CONTROLLERS,
    {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege", "CIM_Privilege", "QRV_SCSIController",
     "CIM_ProtocolController", "CIM_SCSIProtocolController"});

const CIMName PRIVILEGE("QRV_AuthorizedPrivilege");

/// The parts of a privilege's InstanceID, the first without its vendor mark; empty for no such key.
struct PrivilegeParts {
    explicit PrivilegeParts(const CIMObjectPath& privilege) {
        splitPrivilegeKey(QRV_Common::getStringProperty(privilege, "InstanceID"), hwidInstID,
                          spcDeviceID);
    }

    String hwidInstID;
    String spcDeviceID;
};

/// A request, as the static operations pass it on.
struct Question {
    CIMOMHandle& cimom;
    const CIMObjectPath& objectName;
    const OperationContext& context;
    const String& systemName;
    String& systemAddress;
    const CIMName& associationClass;
    InstanceShape shape;
    hashtable_t* table;

    CIMInstance build(CIMClass& cimClass, const CIMObjectPath& privilege,
                      const CIMObjectPath& controller) const {
        return QRV_Common::buildAssocInstance(associationClass, "Privilege", "TargetElement",
                                              privilege, controller, cimClass, systemAddress,
                                              "root/qrv");
    }
};

/// The kind of its initiator says which class of association a privilege belongs to. The
/// controllers aren't fetched. A failure ends the list where it stands.
Array<CIMInstance> allAssociations(const Question& question, CIMClass& cimClass) {
    Array<CIMInstance> found;
    const Controllers* const controllers =
        controllersOf(&Controllers::privilegeClass, question.associationClass);
    if (controllers == nullptr) return found;
    try {
        const Array<CIMObjectPath> privileges =
            question.cimom.enumerateInstanceNames(question.context, QRV_NAMESPACE, PRIVILEGE);
        for (Uint32 i = 0; i < privileges.size(); ++i) {
            const PrivilegeParts parts(privileges[i]);
            if (parts.hwidInstID.find(controllers->hardwareIDMark) == PEG_NOT_FOUND) continue;
            found.append(
                question.build(cimClass, privileges[i],
                               controllers->buildPath(question.systemAddress, question.systemName,
                                                      parts.spcDeviceID)));
        }
    } catch (...) {
        // What has been built is the answer.
    }
    return found;
}

/// The association that a path names, when its ends belong together and the privilege exists.
Array<CIMInstance> provenAssociation(const Question& question, CIMClass& cimClass) {
    const CIMObjectPath controller = referenceKey(question.objectName, "TargetElement");
    const CIMObjectPath privilege = referenceKey(question.objectName, "Privilege");
    if (PrivilegeParts(privilege).spcDeviceID !=
        QRV_Common::getStringProperty(controller, "DeviceID"))
        return Array<CIMInstance>();
    return whenThereIs(question.cimom, question.context, privilege,
                       [&] { return question.build(cimClass, privilege, controller); });
}

/// The associations between an object and each that is related to it. They bear the system's own
/// address on both ends.
Array<CIMInstance> link(const Question& question, CIMClass& cimClass,
                        const Array<CIMInstance>& related) {
    const CIMObjectPath& source = question.objectName;
    const CIMObjectPath thisPath(question.systemAddress, source.getNameSpace(),
                                 source.getClassName(), source.getKeyBindings());
    const bool fromPrivilege = source.getClassName().equal(PRIVILEGE);
    const bool fromController =
        controllersOf(&Controllers::controllerClass, source.getClassName()) != nullptr;
    Array<CIMInstance> found;
    for (Uint32 i = 0; i < related.size(); ++i) {
        if (fromPrivilege) found.append(question.build(cimClass, thisPath, related[i].getPath()));
        if (fromController) found.append(question.build(cimClass, related[i].getPath(), thisPath));
    }
    return found;
}

/// All privileges whose VLUN fits the DeviceID of a controller.
Array<CIMInstance> privilegesOn(const Question& question) {
    const VlunFilter filter =
        filterOf(QRV_Common::getStringProperty(question.objectName, "DeviceID"));
    Array<String> hostNames;
    Array<CIMInstance> found;
    QRV_AuthorizedPrivilegeProvider::buildOrDeliverInstances(
        question.cimom, question.systemAddress, hostNames, question.table, found,
        question.shape.includeQualifiers, question.shape.includeClassOrigin,
        question.shape.propertyList, filter.host, filter.vlunType, filter.portLPID, String::EMPTY,
        nullptr, 0);
    return found;
}

/// The first controller of a transport that has the DeviceID in a privilege's InstanceID. Failures
/// give none.
Array<CIMInstance> controllerOf(const Question& question, const Controllers& controllers) {
    const CIMClass cimClass =
        storedClass(question.cimom, controllers.controllerClass, question.shape);
    const PrivilegeParts parts(question.objectName);
    VlunQuery query;
    Array<CIMInstance> found;
    if (callArray([&] { return api_getSCSIProtocolControllers(query.change()); }) != 0)
        return found;
    try {
        for (unsigned int i = 0; i < query->count && found.size() == 0; ++i) {
            api_vlun_t& vlun = query->vluns[i];
            if (vlun.hporttype != controllers.portType || parts.spcDeviceID != vlun.deviceID)
                continue;
            const CIMInstance controller = controllers.buildInstance(
                cimClass, vlun, question.systemName, question.systemAddress);
            if (!controller.isUninitialized()) found.append(controller);
        }
    } catch (...) {
        found.clear();
    }
    return found;
}

}  // namespace

QRV_PrivilegeForSCSIControllerProvider::QRV_PrivilegeForSCSIControllerProvider() = default;

QRV_PrivilegeForSCSIControllerProvider::~QRV_PrivilegeForSCSIControllerProvider() = default;

const AssociationKind& QRV_PrivilegeForSCSIControllerProvider::_kind() {
    return KIND;
}

ControllerPrivilege QRV_PrivilegeForSCSIControllerProvider::_privileges() {
    return ControllerPrivilege(KIND, _cimom, _systemName, _systemAddress, _stringHashTable.get());
}

void QRV_PrivilegeForSCSIControllerProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_PrivilegeForSCSIControllerProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _systemName = QRV_Common::getSystemName(cimom);
    _stringHashTable = createStringTable();
}

Array<CIMInstance> QRV_PrivilegeForSCSIControllerProvider::buildAssociationInstances(
    CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
    String& systemName, String& systemAddress, CIMName assocClassName, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList, hashtable_t* stringHashTable) {
    const Question question{cimom,
                            objectName,
                            context,
                            systemName,
                            systemAddress,
                            assocClassName,
                            {includeQualifiers, includeClassOrigin, propertyList},
                            stringHashTable};
    CIMClass cimClass = storedClass(cimom, assocClassName, question.shape);
    if (objectName.getClassName().isNull()) return allAssociations(question, cimClass);
    if (objectName.getClassName().equal(assocClassName))
        return provenAssociation(question, cimClass);
    return link(
        question, cimClass,
        getRelatedInstances(cimom, objectName, context, systemName, systemAddress, assocClassName,
                            false, false, CIMPropertyList(), stringHashTable));
}

Array<CIMInstance> QRV_PrivilegeForSCSIControllerProvider::getRelatedInstances(
    CIMOMHandle& cimom, const CIMObjectPath& objectName, const OperationContext& context,
    String& systemName, String& systemAddress, CIMName assocClassName, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList, hashtable_t* stringHashTable) {
    const Controllers* const controllers =
        controllersOf(&Controllers::privilegeClass, assocClassName);
    if (controllers == nullptr) return Array<CIMInstance>();
    const Question question{cimom,
                            objectName,
                            context,
                            systemName,
                            systemAddress,
                            assocClassName,
                            {includeQualifiers, includeClassOrigin, propertyList},
                            stringHashTable};
    const CIMName& source = objectName.getClassName();
    if (source.equal(PRIVILEGE)) return controllerOf(question, *controllers);
    if (source.equal(controllers->controllerClass)) return privilegesOn(question);
    return Array<CIMInstance>();
}

}  // namespace Pegasus
