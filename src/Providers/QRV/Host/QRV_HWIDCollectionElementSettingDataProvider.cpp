#include "QRV_HWIDCollectionElementSettingDataProvider.h"

#include "../QRV_Common.h"
#include "../QRV_InstanceID.h"

namespace Pegasus {

namespace {

const CIMName COLLECTION("QRV_StorageHardwareIDCollection");
const String ID_PREFIX(VENDOR_MARK);

Persona personaOfHost(const String& hostName) {
    const Persona persona = personaOfFirstHost(hostName.getCString(), QRV_NO_WWN, nullptr);
    if (!persona) log_message(2, "\tNo valid host gets returned.\n");
    return persona;
}

/// The persona of the host that the collection's InstanceID names, from the array.
Persona personaOfSource(const CIMObjectPath& collection) {
    const String collectID = QRV_Common::getStringProperty(collection, "InstanceID");
    if (collectID.size() == 0) return std::nullopt;
    const Uint32 prefix = collectID.find(ID_PREFIX);
    if (prefix == PEG_NOT_FOUND) {
        log_message(3, "\tInstance ID prefix not found.\n");
        return std::nullopt;
    }
    const String hostName = collectID.subString(prefix + ID_PREFIX.size());
    if (hostName.size() > 0) return personaOfHost(hostName);
    log_message(3, "\tNo host name found in instance ID.\n");
    return std::nullopt;
}

/// The persona that the collection shows. A property list without it hides it here too.
Persona personaOfEnd(const SettingRequest& request, const CIMObjectPath& hwidCollectPath) {
    CIMInstance collection;
    try {
        collection = request.cimom.getInstance(
            request.context, QRV_NAMESPACE, hwidCollectPath, false, request.shape.includeQualifiers,
            request.shape.includeClassOrigin, request.shape.propertyList);
    } catch (...) {
        log_message(2, "\tException: hardware ID collection getInstance error.\n");
        return std::nullopt;
    }
    if (!collection.isUninitialized()) return personaIn(collection);
    log_message(3, "\tNo HardwareIDCollection instance Found.\n");
    return std::nullopt;
}

Array<CIMInstance> collectionsOf(const SettingRequest& request, Uint32 persona) {
    const Array<CIMInstance> all = allInstances(request, COLLECTION);
    Array<CIMInstance> collections;
    for (Uint32 i = 0; i < all.size(); ++i) {
        CIMInstance collection = all[i];
        if (personaIn(collection) != persona) continue;
        collection.instanceFilter(request.shape.includeQualifiers, request.shape.includeClassOrigin,
                                  request.shape.propertyList);
        collections.append(collection);
    }
    return collections;
}

std::function<Persona(const CIMInstance&)> personasOfAll() {
    return [](const CIMInstance& collection) { return Persona(personaIn(collection)); };
}

const ElementSettingKind KIND{
    {"QRV_HWIDCollectionElementSettingDataProvider", "QRV_HWIDCollectionElementSettingDataProvider",
     "CIM_ElementSettingData", "QRV_HWIDCollectionElementSettingData", 2, " Expect two keys."},
    {{},
     {"ManagedElement", "SettingData"},
     {"CIM_ElementSettingData", "QRV_HWIDCollectionElementSettingData"},
     {"CIM_SystemSpecificCollection", "QRV_StorageHardwareIDCollection", "CIM_ManagedElement",
      "CIM_SettingData", "CIM_StorageClientSettingData", "QRV_StorageClientSettingData"},
     true,
     {}},
    COLLECTION,
    true,
    false,
    personaOfSource,
    personaOfEnd,
    collectionsOf,
    personasOfAll};

}  // namespace

QRV_HWIDCollectionElementSettingDataProvider::QRV_HWIDCollectionElementSettingDataProvider() =
    default;
QRV_HWIDCollectionElementSettingDataProvider::~QRV_HWIDCollectionElementSettingDataProvider() =
    default;

void QRV_HWIDCollectionElementSettingDataProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_HWIDCollectionElementSettingDataProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

const ElementSettingKind& QRV_HWIDCollectionElementSettingDataProvider::_kind() {
    return KIND;
}

ElementSettingAssociation QRV_HWIDCollectionElementSettingDataProvider::_association(
    const OperationContext& context, const InstanceShape& shape) {
    return ElementSettingAssociation(KIND, {_cimom, _systemAddress, context, shape});
}

}  // namespace Pegasus
