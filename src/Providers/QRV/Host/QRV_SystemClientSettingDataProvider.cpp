#include "QRV_SystemClientSettingDataProvider.h"

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

const HostedAssociationKind& QRV_SystemClientSettingDataProvider::_kind() {
    return KIND;
}

HostedAssociation QRV_SystemClientSettingDataProvider::_association() {
    return HostedAssociation(KIND, _cimom, _systemClassName, _assoClassName,
                             _clientSettingDataClassName, _systemObjectPath, _systemAddress);
}

}  // namespace Pegasus
