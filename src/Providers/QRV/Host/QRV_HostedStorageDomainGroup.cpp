#include "QRV_HostedStorageDomainGroup.h"

namespace Pegasus {

namespace {

const HostedAssociationKind KIND{
    {"QRV_HostedStorageDomainGroup", "QRV_HostedStorageDomainGroup", "CIM_HostedCollection",
     "QRV_HostedStorageDomainGroup", 2, " Expect two keys."},
    {{},
     {"Antecedent", "Dependent"},
     {"QRV_HostedStorageDomainGroup", "CIM_HostedCollection"},
     {"QRV_StorageDomainGroup", "CIM_SystemSpecificCollection", "CIM_ComputerSystem", "CIM_System",
      "QRV_StorageSystem"},
     false,
     {{"QRV_StorageSystem", "Antecedent", "Dependent", {}, {"CIM_System", "CIM_ComputerSystem"}},
      {"QRV_StorageDomainGroup", "Dependent", "Antecedent", {}, {"CIM_SystemSpecificCollection"}}}},
    "Antecedent",
    "Dependent",
    2,
    "QRV_HostedStorageDomainGroup:_getRelatedInstances, Instance does not exist for object ",
    "QRV_HostedStorageDomainGroup:_getRelatedInstanceNames Instance does not exist for object "};

}  // namespace

QRV_HostedStorageDomainGroup::QRV_HostedStorageDomainGroup() = default;
QRV_HostedStorageDomainGroup::~QRV_HostedStorageDomainGroup() = default;

void QRV_HostedStorageDomainGroup::initialize(CIMOMHandle& cimom) {
    _cimom = cimom;
    _qrvNameSpaceName = QRV_NAMESPACE;
    _systemClassName = CIMName("QRV_StorageSystem");
    _assoClassName = CIMName("QRV_HostedStorageDomainGroup");
    _storageDomainGroupClassName = CIMName("QRV_StorageDomainGroup");
    _systemObjectPath = QRV_Common::getSystemObjectPath(cimom);
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

const HostedAssociationKind& QRV_HostedStorageDomainGroup::_kind() {
    return KIND;
}

HostedAssociation QRV_HostedStorageDomainGroup::_association() {
    return HostedAssociation(KIND, _cimom, _systemClassName, _assoClassName,
                             _storageDomainGroupClassName, _systemObjectPath, _systemAddress);
}

}  // namespace Pegasus
