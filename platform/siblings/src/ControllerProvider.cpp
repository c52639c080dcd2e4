#include "ControllerProvider.h"

#include <Pegasus/Provider/ProviderException.h>
#include <QRV_ArrayRecords.h>
#include <QRV_Common.h>

namespace Pegasus {

namespace {

constexpr Uint32 CHUNK_SIZE = 200;

/// Whether two paths of controllers agree in the keys beside DeviceID, which the array has found
/// already. Their classes and hosts are the server's business.
bool isOnSameSystem(const CIMObjectPath& left, const CIMObjectPath& right) {
    for (const char* key : {"SystemCreationClassName", "SystemName", "CreationClassName"})
        if (QRV_Common::getStringProperty(left, key) != QRV_Common::getStringProperty(right, key))
            return false;
    return true;
}

}  // namespace

const ProviderFrame SCSI_CONTROLLER{"QRV_SCSIController",
                                    "QRV_SCSIControllerProvider",
                                    "CIM_SCSIProtocolController",
                                    "QRV_SCSIController",
                                    4,
                                    " Expect four keys."};
const ProviderFrame ISCSI_CONTROLLER{"QRV_iSCSIController",
                                     "QRV_iSCSIControllerProvider",
                                     "CIM_SCSIProtocolController",
                                     "QRV_iSCSIController",
                                     4,
                                     " Expect four keys."};

void ControllerProvider::initialize(CIMOMHandle& cimom) {
    _cimom = cimom;
    _systemName = QRV_Common::getSystemName(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

void ControllerProvider::terminate() {
    delete this;
}

/// Calls `take` with each controller, or with the one that `instanceReference` names when it has a
/// class.
template <class Take>
void ControllerProvider::_walk(const CIMObjectPath& instanceReference, Boolean includeQualifiers,
                               Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                               Take take) {
    VlunWalkData walk;
    if (api_initSPCParamData(walk.receive()) != 0)
        throw CIMOperationFailedException(String(_frame.className) + " out of memory.");
    Uint32 cursor = 0;
    do {
        Array<CIMInstance> chunk;
        QRV_Common::buildSPCInstances(_cimom, OperationContext(), instanceReference, _systemName,
                                      _systemAddress, _frame.qrvClass, includeQualifiers,
                                      includeClassOrigin, propertyList, 0, chunk, walk.change(),
                                      &cursor, CHUNK_SIZE);
        for (Uint32 i = 0; i < chunk.size(); ++i) take(chunk[i]);
    } while (cursor != 0);
}

void ControllerProvider::getInstance(const OperationContext& context,
                                     const CIMObjectPath& instanceName,
                                     const Boolean includeQualifiers,
                                     const Boolean includeClassOrigin,
                                     const CIMPropertyList& propertyList,
                                     InstanceResponseHandler& handler) {
    openArray(_frame, context);
    checkClass(_frame, instanceName.getClassName());
    checkKeyCount(_frame, instanceName);
    Array<CIMInstance> found;
    _walk(instanceName, includeQualifiers, includeClassOrigin, propertyList,
          [&](const CIMInstance& instance) {
              if (isOnSameSystem(instanceName, instance.getPath())) found.append(instance);
          });
    deliverFound(_frame, found, handler);
}

void ControllerProvider::enumerateInstances(const OperationContext& context,
                                            const CIMObjectPath& classReference,
                                            const Boolean includeQualifiers,
                                            const Boolean includeClassOrigin,
                                            const CIMPropertyList& propertyList,
                                            InstanceResponseHandler& handler) {
    beginEnumeration(_frame, context, classReference);
    handler.processing();
    _walk(CIMObjectPath(), includeQualifiers, includeClassOrigin, propertyList,
          [&](const CIMInstance& instance) { handler.deliver(instance); });
    handler.complete();
}

void ControllerProvider::enumerateInstanceNames(const OperationContext& context,
                                                const CIMObjectPath& classReference,
                                                ObjectPathResponseHandler& handler) {
    beginEnumeration(_frame, context, classReference);
    handler.processing();
    _walk(CIMObjectPath(), false, false, CIMPropertyList(Array<CIMName>()),
          [&](const CIMInstance& instance) { handler.deliver(instance.getPath()); });
    handler.complete();
}

/// Many clients send back the whole instance: what they mean is what differs from the controller as
/// it stands. Null, for all properties, when the array has no such controller.
CIMPropertyList ControllerProvider::_differences(const CIMObjectPath& instanceName,
                                                 const CIMInstance& instance) {
    CIMPropertyList result;
    _walk(instanceName, false, false, CIMPropertyList(), [&](const CIMInstance& present) {
        Array<CIMName> names;
        for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
            const CIMConstProperty property = instance.getProperty(i);
            const Uint32 place = present.findProperty(property.getName());
            if (place == PEG_NOT_FOUND ||
                !property.getValue().equal(present.getProperty(place).getValue()))
                names.append(property.getName());
        }
        result = CIMPropertyList(names);
    });
    return result;
}

void ControllerProvider::modifyInstance(const OperationContext& context,
                                        const CIMObjectPath& instanceName,
                                        const CIMInstance& instance,
                                        const Boolean includeQualifiers,
                                        const CIMPropertyList& propertyList,
                                        ResponseHandler& handler) {
    openArray(_frame, context);
    QRV_Common::modifySPC(
        context, instanceName, instance, includeQualifiers,
        propertyList.isNull() ? _differences(instanceName, instance) : propertyList, handler);
}

void ControllerProvider::createInstance(const OperationContext&, const CIMObjectPath&,
                                        const CIMInstance&, ObjectPathResponseHandler&) {
    refuse(_frame, "createInstance");
}

void ControllerProvider::deleteInstance(const OperationContext&, const CIMObjectPath&,
                                        ResponseHandler&) {
    refuse(_frame, "deleteInstance");
}

}  // namespace Pegasus
