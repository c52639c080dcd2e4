#include "QRV_HWIDCollectionElementSettingDataProvider.h"

#include "../QRV_Common.h"

namespace Pegasus {

namespace {

const CIMName COLLECTION("QRV_StorageHardwareIDCollection");
const String ID_PREFIX("ORVELIS:");

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
        collection = request.cimom.getInstance(request.context, QRV_NAMESPACE, hwidCollectPath,
                                               false, request.includeQualifiers,
                                               request.includeClassOrigin, request.propertyList);
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
        collection.instanceFilter(request.includeQualifiers, request.includeClassOrigin,
                                  request.propertyList);
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

constexpr int REFUSAL_LEVEL = 2;

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

void QRV_HWIDCollectionElementSettingDataProvider::terminate() {
    delete this;
}

ElementSettingAssociation QRV_HWIDCollectionElementSettingDataProvider::_association(
    const OperationContext& context, Boolean includeQualifiers, Boolean includeClassOrigin,
    const CIMPropertyList& propertyList) {
    return ElementSettingAssociation(KIND, {_cimom, _systemAddress, context, includeQualifiers,
                                            includeClassOrigin, propertyList});
}

void QRV_HWIDCollectionElementSettingDataProvider::associators(
    const OperationContext& context, const CIMObjectPath& objectPath,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_HWIDCollectionElementSettingDataProvider::associators()");
    const AssociationRequest request{"associators", objectPath, associationClass,
                                     resultClass,   role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_getRelatedInstances(objectPath, context, includeQualifiers, includeClassOrigin,
                                        propertyList),
                   handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::associatorNames(
    const OperationContext& context, const CIMObjectPath& objectPath,
    const CIMName& associationClass, const CIMName& resultClass, const String& role,
    const String& resultRole, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HWIDCollectionElementSettingDataProvider::associatorNames()");
    const AssociationRequest request{"associatorNames", objectPath, associationClass,
                                     resultClass,       role,       resultRole};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_getRelatedInstanceNames(objectPath, context), handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::references(
    const OperationContext& context, const CIMObjectPath& objectPath, const CIMName& resultClass,
    const String& role, const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, ObjectResponseHandler& handler) {
    const OperationTrace trace("QRV_HWIDCollectionElementSettingDataProvider::references()");
    const AssociationRequest request{"references", objectPath, CIMName(),
                                     resultClass,  role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverObjects(_buildAssociationInstances(objectPath, context, includeQualifiers,
                                              includeClassOrigin, propertyList),
                   handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::referenceNames(
    const OperationContext& context, const CIMObjectPath& objectPath, const CIMName& resultClass,
    const String& role, ObjectPathResponseHandler& handler) {
    const OperationTrace trace("QRV_HWIDCollectionElementSettingDataProvider::referenceNames()");
    const AssociationRequest request{"referenceNames", objectPath, CIMName(),
                                     resultClass,      role,       String::EMPTY};
    if (!beginAssociation(KIND.frame, KIND.rules, REFUSAL_LEVEL, context, request)) return;
    deliverPaths(_buildAssociationInstances(objectPath, context, false, false, CIMPropertyList()),
                 handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::getInstance(const OperationContext& context,
                                                               const CIMObjectPath& instanceName,
                                                               const Boolean includeQualifiers,
                                                               const Boolean includeClassOrigin,
                                                               const CIMPropertyList& propertyList,
                                                               InstanceResponseHandler& handler) {
    const OperationTrace trace("QRV_HWIDCollectionElementSettingDataProvider::getInstance()");
    _association(context, includeQualifiers, includeClassOrigin, propertyList)
        .getInstance(instanceName, handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::enumerateInstances(
    const OperationContext& context, const CIMObjectPath& classReference,
    const Boolean includeQualifiers, const Boolean includeClassOrigin,
    const CIMPropertyList& propertyList, InstanceResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_HWIDCollectionElementSettingDataProvider::enumerateInstances()");
    _association(context, includeQualifiers, includeClassOrigin, propertyList)
        .enumerateInstances(classReference, handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::enumerateInstanceNames(
    const OperationContext& context, const CIMObjectPath& classReference,
    ObjectPathResponseHandler& handler) {
    const OperationTrace trace(
        "QRV_HWIDCollectionElementSettingDataProvider::enumerateInstanceNames()");
    _association(context, false, false, CIMPropertyList())
        .enumerateInstanceNames(classReference, handler);
}

void QRV_HWIDCollectionElementSettingDataProvider::modifyInstance(const OperationContext&,
                                                                  const CIMObjectPath&,
                                                                  const CIMInstance&, const Boolean,
                                                                  const CIMPropertyList&,
                                                                  ResponseHandler&) {
    refuse(KIND.frame, "modifyInstance");
}

void QRV_HWIDCollectionElementSettingDataProvider::createInstance(const OperationContext&,
                                                                  const CIMObjectPath&,
                                                                  const CIMInstance&,
                                                                  ObjectPathResponseHandler&) {
    refuse(KIND.frame, "createInstance");
}

void QRV_HWIDCollectionElementSettingDataProvider::deleteInstance(const OperationContext&,
                                                                  const CIMObjectPath&,
                                                                  ResponseHandler&) {
    refuse(KIND.frame, "deleteInstance");
}

Array<CIMInstance> QRV_HWIDCollectionElementSettingDataProvider::_buildAssociationInstances(
    const CIMObjectPath& objectPath, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association(context, includeQualifiers, includeClassOrigin, propertyList)
        .associations(objectPath);
}

Array<CIMInstance> QRV_HWIDCollectionElementSettingDataProvider::_getRelatedInstances(
    const CIMObjectPath& objectPath, const OperationContext& context, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return _association(context, includeQualifiers, includeClassOrigin, propertyList)
        .relatedInstances(objectPath);
}

Array<CIMObjectPath> QRV_HWIDCollectionElementSettingDataProvider::_getRelatedInstanceNames(
    const CIMObjectPath& objectPath, const OperationContext& context) {
    return _association(context, false, false, CIMPropertyList()).relatedNames(objectPath);
}

}  // namespace Pegasus
