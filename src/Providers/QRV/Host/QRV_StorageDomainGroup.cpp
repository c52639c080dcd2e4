#include "QRV_StorageDomainGroup.h"

#include <Pegasus/Common/Exception.h>

#include <cstdio>

#include "../QRV_ArrayGate.h"
#include "../QRV_ArrayRecords.h"
#include "../QRV_InstanceID.h"
#include "../QRV_OperationFrame.h"
#include "../QRV_StoredClass.h"
#include "../QRV_Text.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_StorageDomainGroup",
                              "QRV_StorageDomainGroup",
                              "CIM_SystemSpecificCollection",
                              "QRV_StorageDomainGroup",
                              1,
                              " Expect only one key."};

const CIMName GROUP_CLASS("QRV_StorageDomainGroup");
const CIMName INSTANCE_ID("InstanceID");
const CIMName DESCRIPTION("Description");

/// All domain sets, or the one that `reference` names when it has a class. An empty list, with a
/// log line, when the array doesn't answer.
SetList readSets(const CIMObjectPath& reference) {
    const bool all = reference.getClassName().isNull();
    const String key = QRV_Common::getStringProperty(reference, "InstanceID");
    const CString setname = QRV_Common::extractFromInstanceID(key).getCString();
    if (!all && *setname == '\0') {
        log_message(2, "QRV_StorageDomainGroup::_buildInstances  invalid InstanceID %s\n",
                    static_cast<const char*>(key.getCString()));
        return SetList();
    }
    SetList sets;
    const char* const wanted = all ? nullptr : static_cast<const char*>(setname);
    const ArrayAnswer answer =
        callArrayForStatus([&] { return api_getDomainSets(wanted, 0, sets.receive()); });
    if (!answer.failed()) return sets;
    log_message(2, "QRV_StorageDomainGroup::_buildInstances failed to get sets.\n");
    return SetList();
}

/// A comment that can't be shown doesn't hide its group.
void setDescription(CIMInstance& instance, const char* comment) {
    try {
        QRV_Common::setPropertyValue(instance, DESCRIPTION, String(comment));
    } catch (const Exception& e) {
        log_message(2, "Problem setting property %s: %s\n", "Description",
                    static_cast<const char*>(e.getMessage().getCString()));
    }
}

}  // namespace

QRV_StorageDomainGroup::QRV_StorageDomainGroup() = default;

QRV_StorageDomainGroup::QRV_StorageDomainGroup(const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_StorageDomainGroup::~QRV_StorageDomainGroup() = default;

const ProviderFrame& QRV_StorageDomainGroup::_frame() {
    return FRAME;
}

void QRV_StorageDomainGroup::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_StorageDomainGroup::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

Array<CIMInstance> QRV_StorageDomainGroup::_buildInstances(const CIMObjectPath& instanceReference,
                                                           const InstanceShape& shape) {
    const OperationTrace trace("QRV_StorageDomainGroup::_buildInstances()");
    Array<CIMInstance> instances;
    const SetList sets = readSets(instanceReference);
    if (sets->count == 0) return instances;
    CIMClass domainGroupClass = storedClass(_cimom, GROUP_CLASS, shape);
    for (qrv_u32 i = 0; i < sets->count; ++i)
        instances.append(buildInstance(&sets->sets[i], domainGroupClass, _systemAddress));
    return instances;
}

CIMInstance QRV_StorageDomainGroup::buildInstance(const api_set_t* pSet, CIMClass& domainGroupClass,
                                                  const String& systemAddress) {
    const String name = arrayText(pSet->name);
    char caption[30];
    std::snprintf(caption, sizeof caption - 1, "domainset ID %u", pSet->id);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(domainGroupClass);
    QRV_Common::setPropertyValue(instance, CIMName("ElementName"), name);
    QRV_Common::setPropertyValue(instance, CIMName("Caption"), String(caption));
    if (pSet->comment[0] != '\0') setDescription(instance, pSet->comment);
    QRV_Common::setPropertyValue(instance, INSTANCE_ID, markedID(name));
    QRV_Common::setPropertyValue(instance, CIMName("ID"), Uint32(pSet->id));
    Array<String> members;
    for (qrv_u32 i = 0; i < pSet->count; ++i) members.append(arrayText(pSet->values[i]));
    if (members.size() > 0)
        QRV_Common::setPropertyValue(instance, CIMName("GroupMembers"), members);
    instance.setPath(buildObjectPath(systemAddress, name));
    return instance;
}

CIMObjectPath QRV_StorageDomainGroup::buildObjectPath(String systemAddress, String setName) {
    return buildInstanceName(systemAddress, markedID(setName));
}

CIMObjectPath QRV_StorageDomainGroup::buildInstanceName(String nodeAddress, String instanceID) {
    return pathByInstanceID(nodeAddress, GROUP_CLASS, instanceID);
}

}  // namespace Pegasus
