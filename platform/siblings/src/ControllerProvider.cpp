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

/// Calls `take` with each controller, or with the one that `instanceReference` names when it has a
/// class. That one is looked for in all that is left at once, because every chunk has to ask the
/// array again which host the DeviceID means.
template <class Take>
void ControllerProvider::_walk(const CIMObjectPath& instanceReference, const InstanceShape& shape,
                               Take take) {
    VlunWalkData walk;
    if (api_initSPCParamData(walk.receive()) != 0)
        throw CIMOperationFailedException(String(_controllers.className) + " out of memory.");
    const bool one = !instanceReference.getClassName().isNull();
    Uint32 chunkSize = one ? 0 : CHUNK_SIZE;
    Uint32 cursor = 0;
    bool found = false;
    do {
        Array<CIMInstance> chunk;
        QRV_Common::buildSPCInstances(
            _cimom, OperationContext(), instanceReference, _systemName, _systemAddress,
            _controllers.qrvClass, shape.includeQualifiers, shape.includeClassOrigin,
            shape.propertyList, 0, chunk, walk.change(), &cursor, chunkSize);
        for (Uint32 i = 0; i < chunk.size(); ++i) take(chunk[i]);
        found = one && chunk.size() > 0;
        chunkSize = CHUNK_SIZE;
    } while (cursor != 0 && !found);
}

Array<CIMInstance> ControllerProvider::_buildInstances(const CIMObjectPath& path,
                                                       const InstanceShape& shape) {
    Array<CIMInstance> found;
    _walk(path, shape, [&](const CIMInstance& instance) {
        if (isOnSameSystem(path, instance.getPath())) found.append(instance);
    });
    return found;
}

void ControllerProvider::_enumerateInstances(const OperationContext&, const InstanceShape& shape,
                                             InstanceResponseHandler& handler) {
    handler.processing();
    _walk(CIMObjectPath(), shape, [&](const CIMInstance& instance) { handler.deliver(instance); });
    handler.complete();
}

void ControllerProvider::_enumerateInstanceNames(const OperationContext&,
                                                 ObjectPathResponseHandler& handler) {
    handler.processing();
    _walk(CIMObjectPath(), {},
          [&](const CIMInstance& instance) { handler.deliver(instance.getPath()); });
    handler.complete();
}

/// Many clients send back the whole instance: what they mean is what differs from the controller as
/// it stands. Null, for all properties, when the array has no such controller.
CIMPropertyList ControllerProvider::_differences(const CIMObjectPath& instanceName,
                                                 const CIMInstance& instance) {
    CIMPropertyList result;
    _walk(instanceName, {false, false, CIMPropertyList()}, [&](const CIMInstance& present) {
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
    openArray(_controllers, context);
    QRV_Common::modifySPC(
        context, instanceName, instance, includeQualifiers,
        propertyList.isNull() ? _differences(instanceName, instance) : propertyList, handler);
}

}  // namespace Pegasus
