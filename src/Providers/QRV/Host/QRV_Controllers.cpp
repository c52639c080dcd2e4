#include "QRV_Controllers.h"

#include <QRV_SCSIControllerProvider.h>
#include <QRV_iSCSIControllerProvider.h>

namespace Pegasus {

namespace {

constexpr const char* SYSTEM_CLASS = "QRV_StorageSystem";

}  // namespace

constexpr Controllers FC_CONTROLLERS{
    "QRV_SCSIController",
    "QRV_PrivilegeForSCSIController",
    "QRV_SPCAssociatedPrivilege",
    PORT_TYPE_FC,
    "FC-",
    [](const String& systemAddress, const String& systemName, const String& deviceID) {
        return QRV_SCSIControllerProvider::buildObjectPath(SYSTEM_CLASS, systemAddress, systemName,
                                                           deviceID);
    },
    [](const CIMClass& controllerClass, api_vlun_t& vlun, const String& systemName,
       const String& systemAddress) {
        return QRV_SCSIControllerProvider::buildInstance(SYSTEM_CLASS, controllerClass, &vlun,
                                                         systemName, systemAddress);
    }};

constexpr Controllers ISCSI_CONTROLLERS{
    "QRV_iSCSIController",
    "QRV_PrivilegeForiSCSIController",
    "QRV_iSPCAssociatedPrivilege",
    PORT_TYPE_ISCSI,
    "iSCSI-",
    [](const String& systemAddress, const String& systemName, const String& deviceID) {
        return QRV_iSCSIControllerProvider::buildObjectPath(SYSTEM_CLASS, systemAddress, deviceID,
                                                            systemName);
    },
    [](const CIMClass& controllerClass, api_vlun_t& vlun, const String& systemName,
       const String& systemAddress) {
        return QRV_iSCSIControllerProvider::buildInstance(SYSTEM_CLASS, controllerClass, &vlun,
                                                          systemName, systemAddress);
    }};

const Controllers* controllersOf(const char* const Controllers::*role, const CIMName& className) {
    for (const Controllers* each : {&FC_CONTROLLERS, &ISCSI_CONTROLLERS})
        if (className.equal(each->*role)) return each;
    return nullptr;
}

}  // namespace Pegasus
