#include "QRV_PrivilegeMgmtServiceProvider.h"

#include <Pegasus/Provider/ProviderException.h>

#include <string>

#include "../QRV_CimServer.h"
#include "../QRV_StoredClass.h"
#include "QRV_ManagementService.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_PrivilegeMgmtServiceProvider",
                              "QRV_PrivilegeMgmtServiceProvider",
                              "CIM_PrivilegeManagementService",
                              "QRV_PrivilegeManagementService",
                              4,
                              " Expect four keys."};

const CIMName SERVICE_CLASS("QRV_PrivilegeManagementService");

/// The methods that the class declares.
const CIMName METHODS[] = {CIMName("RemoveAccess"), CIMName("AssignAccess"),
                           CIMName("StartService"), CIMName("StopService")};

}  // namespace

QRV_PrivilegeMgmtServiceProvider::QRV_PrivilegeMgmtServiceProvider() = default;

QRV_PrivilegeMgmtServiceProvider::QRV_PrivilegeMgmtServiceProvider(const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_PrivilegeMgmtServiceProvider::~QRV_PrivilegeMgmtServiceProvider() = default;

const ProviderFrame& QRV_PrivilegeMgmtServiceProvider::_frame() {
    return FRAME;
}

void QRV_PrivilegeMgmtServiceProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_PrivilegeMgmtServiceProvider::initialize(cimom)");
    _cimom = cimom;
    _systemName = QRV_Common::getSystemName(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _instanceName = _buildInstanceName();
}

void QRV_PrivilegeMgmtServiceProvider::_checkPath(const CIMObjectPath& instanceName) {
    checkClassLoudly(FRAME, instanceName.getClassName(), "getInstance() incorrect className");
    checkKeyCount(FRAME, instanceName);
}

bool QRV_PrivilegeMgmtServiceProvider::_beginEnumeration(const OperationContext& context,
                                                         const CIMObjectPath& classReference,
                                                         const char* operation) {
    traceClassName(classReference.getClassName());
    openArray(FRAME, context);
    checkClassLoudly(FRAME, classReference.getClassName(),
                     (std::string(operation) + "() incorrect className").c_str());
    return true;
}

Array<CIMInstance> QRV_PrivilegeMgmtServiceProvider::_buildInstances(const CIMObjectPath& path,
                                                                     const InstanceShape& shape) {
    Array<CIMInstance> instances;
    if (path.getClassName().isNull() || QRV_Common::matchObjectPath(path, _instanceName))
        instances.append(_buildInstance(shape));
    return instances;
}

/// Nothing is read from the array for it.
void QRV_PrivilegeMgmtServiceProvider::_enumerateInstanceNames(const OperationContext&,
                                                               ObjectPathResponseHandler& handler) {
    deliverPaths(Array<CIMObjectPath>(1, _instanceName), handler);
}

void QRV_PrivilegeMgmtServiceProvider::invokeMethod(const OperationContext& context,
                                                    const CIMObjectPath& objectRef,
                                                    const CIMName& methodName,
                                                    const Array<CIMParamValue>&,
                                                    MethodResultResponseHandler&) {
    const String& method = methodName.getString();
    const CString name = method.getCString();
    log_message(4, "--> QRV_PrivilegeMgmtServiceProvider::invokeMethod(), methodName = %s \n",
                static_cast<const char*>(name));
    openArray(FRAME, context);
    authorize(FRAME, context, objectRef.getClassName(), method);
    if (!QRV_Common::matchObjectPath(objectRef, _instanceName)) {
        log_message(2, "QRV_PrivilegeMgmtServiceProvider::invokeMethod(): object not found = %s\n",
                    static_cast<const char*>(objectRef.toString().getCString()));
        throw CIMObjectNotFoundException(String(FRAME.className) + " CIM Object not found.");
    }
    for (const CIMName& known : METHODS)
        if (methodName.equal(known)) throw methodFailure(CIM_ERR_FAILED, method + " not supported");
    log_message(2, "QRV_PrivilegeMgmtServiceProvider::invokeMethod():method %s not known\n",
                static_cast<const char*>(name));
    throw CIMMethodNotFoundException(String(FRAME.className) + ":" + method + " not known");
}

CIMObjectPath QRV_PrivilegeMgmtServiceProvider::_buildInstanceName() {
    _name = "ORVELIS:PrivilegeManagementService";
    return ServiceIdentity{SERVICE_CLASS, _systemName, _name}.path(_systemAddress);
}

CIMInstance QRV_PrivilegeMgmtServiceProvider::_buildInstance(const InstanceShape& shape) {
    const ServiceOwner owner = readServiceOwner();
    CIMClass serviceClass = storedClass(_cimom, SERVICE_CLASS, shape);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(serviceClass);
    describeService(instance, {SERVICE_CLASS, _systemName, _name}, owner);
    QRV_Common::setPropertyValue(instance, CIMName("ElementName"), _name);
    instance.setPath(_instanceName);
    return instance;
}

}  // namespace Pegasus
