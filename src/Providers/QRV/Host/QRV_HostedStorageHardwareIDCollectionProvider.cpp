#include "QRV_HostedStorageHardwareIDCollectionProvider.h"

namespace Pegasus {

namespace {

const HostedAssociationKind KIND{
    {"QRV_HostedStorageHardwareIDCollection", "QRV_HostedStorageHardwareIDCollectionProvider",
     "CIM_HostedCollection", "QRV_HostedStorageHardwareIDCollection", 2, " Expect two keys."},
    {{"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_Collection",
      "CIM_ManagedElement"},
     {"Antecedent", "Dependent"},
     {"QRV_HostedStorageHardwareIDCollection", "CIM_HostedCollection"},
     {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection", "CIM_ComputerSystem",
      "CIM_System", "QRV_StorageSystem"},
     true,
     {{"QRV_StorageSystem",
       nullptr,
       nullptr,
       {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection"},
       {}},
      {"QRV_StorageHardwareIDCollection",
       nullptr,
       nullptr,
       {"CIM_ComputerSystem", "CIM_System", "QRV_StorageSystem"},
       {}}}},
    "Antecedent",
    "Dependent",
    4,
    "Instance does not exist for object ",
    "Instance does not exist for object "};

}  // namespace

QRV_HostedStorageHardwareIDCollectionProvider::QRV_HostedStorageHardwareIDCollectionProvider() =
    default;
QRV_HostedStorageHardwareIDCollectionProvider::~QRV_HostedStorageHardwareIDCollectionProvider() =
    default;

void QRV_HostedStorageHardwareIDCollectionProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_HostedStorageHardwareIDCollectionProvider::initialize(cimom)");
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _systemClassName = CIMName("QRV_StorageSystem");
    _assoClassName = CIMName("QRV_HostedStorageHardwareIDCollection");
    _storageHWIDCollectionClassName = CIMName("QRV_StorageHardwareIDCollection");
    _systemObjectPath = QRV_Common::getSystemObjectPath(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

const HostedAssociationKind& QRV_HostedStorageHardwareIDCollectionProvider::_kind() {
    return KIND;
}

HostedAssociation QRV_HostedStorageHardwareIDCollectionProvider::_association() {
    return HostedAssociation(KIND, _cimom, _systemClassName, _assoClassName,
                             _storageHWIDCollectionClassName, _systemObjectPath, _systemAddress);
}

}  // namespace Pegasus
