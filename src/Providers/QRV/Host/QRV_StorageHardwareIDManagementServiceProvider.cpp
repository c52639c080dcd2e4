#include "QRV_StorageHardwareIDManagementServiceProvider.h"

#include <Pegasus/Provider/ProviderException.h>

#include "../QRV_StoredClass.h"
#include "../QRV_WriteFrame.h"
#include "QRV_ManagementService.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_StorageHardwareIDManagementService",
                              "QRV_StorageHardwareIDManagementServiceProvider",
                              "CIM_StorageHardwareIDManagementService",
                              "QRV_StorageHardwareIDManagementService",
                              4,
                              " Expect four keys."};

const CIMName SERVICE_CLASS("QRV_StorageHardwareIDManagementService");
const CIMName NAME("Name");

}  // namespace

QRV_StorageHardwareIDManagementServiceProvider::QRV_StorageHardwareIDManagementServiceProvider() =
    default;

QRV_StorageHardwareIDManagementServiceProvider::QRV_StorageHardwareIDManagementServiceProvider(
    const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_StorageHardwareIDManagementServiceProvider::~QRV_StorageHardwareIDManagementServiceProvider() =
    default;

const ProviderFrame& QRV_StorageHardwareIDManagementServiceProvider::_frame() {
    return FRAME;
}

void QRV_StorageHardwareIDManagementServiceProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_StorageHardwareIDManagementServiceProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
    _buildInstanceName();
}

Array<CIMInstance> QRV_StorageHardwareIDManagementServiceProvider::_buildInstances(
    const CIMObjectPath& path, const InstanceShape& shape) {
    if (!path.getClassName().isNull()) _requireThisService(path);
    return Array<CIMInstance>(1, _buildInstance(shape));
}

/// Nothing is read from the array for it.
void QRV_StorageHardwareIDManagementServiceProvider::_enumerateInstanceNames(
    const OperationContext&, ObjectPathResponseHandler& handler) {
    deliverPaths(Array<CIMObjectPath>(1, _instanceName), handler);
}

void QRV_StorageHardwareIDManagementServiceProvider::invokeMethod(
    const OperationContext& context, const CIMObjectPath& objectRef, const CIMName& methodName,
    const Array<CIMParamValue>& inParameters, MethodResultResponseHandler& handler) {
    const CString method = methodName.getString().getCString();
    log_message(4,
                "--> QRV_StorageHardwareIDManagementServiceProvider::invokeMethod(), methodName = "
                "%s \n",
                static_cast<const char*>(method));
    api_evtparam_t apiEvent =
        beginChange(FRAME, context, objectRef.getClassName(), methodName.getString());
    _requireThisService(objectRef);
    _dispatch(&apiEvent, context, methodName, inParameters, handler);
    log_message(4, "<-- QRV_StorageHardwareIDManagementServiceProvider::invokeMethod()\n");
}

void QRV_StorageHardwareIDManagementServiceProvider::_dispatch(
    api_evtparam_t* apiEventp, const OperationContext& context, const CIMName& methodName,
    const Array<CIMParamValue>& inParameters, MethodResultResponseHandler& handler) {
    if (methodName.equal("CreateStorageHardwareID"))
        return _createStorageHardwareID(apiEventp, inParameters, handler);
    if (methodName.equal("DeleteStorageHardwareID"))
        return _deleteStorageHardwareID(apiEventp, context, inParameters, handler);
    if (methodName.equal("CreateHardwareIDCollection"))
        return _createHardwareIDCollection(apiEventp, inParameters, handler);
    if (methodName.equal("AddHardwareIDsToCollection"))
        return _addHardwareIDsToCollection(apiEventp, inParameters, handler);
    if (methodName.equal("SetISCSICHAP")) return _setISCSICHAP(apiEventp, inParameters, handler);
    if (methodName.equal("RemoveISCSICHAP"))
        return _removeISCSICHAP(apiEventp, inParameters, handler);
    const String& name = methodName.getString();
    log_message(4, " method %s not supported\n", static_cast<const char*>(name.getCString()));
    throw CIMMethodNotFoundException(String(FRAME.className) + ":" + name + " not supported");
}

void QRV_StorageHardwareIDManagementServiceProvider::_requireThisService(
    const CIMObjectPath& path) const {
    if (!QRV_Common::matchObjectPath(path, _instanceName))
        throw CIMObjectNotFoundException(String(FRAME.className) + " CIM Object not found.");
}

/// The service is the same for the provider's life: a new name of the system isn't seen.
void QRV_StorageHardwareIDManagementServiceProvider::_buildInstanceName() {
    const CIMValue systemName = _cimom.getProperty(OperationContext(), QRV_NAMESPACE,
                                                   QRV_Common::getSystemObjectPath(_cimom), NAME);
    systemName.get(_systemName);
    _name = "ORVELIS_StorageHardwareIDManagementService";
    _instanceName = ServiceIdentity{SERVICE_CLASS, _systemName, _name}.path(_systemAddress);
}

CIMInstance QRV_StorageHardwareIDManagementServiceProvider::_buildInstance(
    const InstanceShape& shape) {
    const ServiceOwner owner = readServiceOwner();
    CIMClass serviceClass = storedClass(_cimom, SERVICE_CLASS, shape);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(serviceClass);
    describeService(instance, {SERVICE_CLASS, _systemName, _name}, owner);
    instance.setPath(_instanceName);
    return instance;
}

}  // namespace Pegasus
