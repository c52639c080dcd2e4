#include "QRV_ElementSettingAssociation.h"

#include <unordered_map>

#include "../QRV_ArrayGate.h"
#include "../QRV_StoredClass.h"
#include "QRV_StorageClientSettingDataProvider.h"

namespace Pegasus {

namespace {

/// CIM_ElementSettingData.IsDefault and IsCurrent. Only a host's present persona is ever linked.
constexpr Uint16 IS_DEFAULT = 1;
constexpr Uint16 IS_NOT_DEFAULT = 2;
constexpr Uint16 IS_CURRENT = 1;

const CIMName SETTING_CLASS("QRV_StorageClientSettingData");
const CIMName IS_DEFAULT_NAME("IsDefault");
const CIMName IS_CURRENT_NAME("IsCurrent");
const String ELEMENT_ROLE("ManagedElement");
const String SETTING_ROLE("SettingData");

/// The paths of all settings, in their order, by persona.
using SettingsByPersona = std::unordered_map<Uint32, std::vector<CIMObjectPath>>;

SettingsByPersona byPersona(const Array<CIMInstance>& settings) {
    SettingsByPersona index;
    for (Uint32 i = 0; i < settings.size(); ++i)
        index[personaIn(settings[i])].push_back(settings[i].getPath());
    return index;
}

Uint32 personaOf(const CIMObjectPath& setting) {
    return QRV_StorageClientSettingDataProvider::extractPersonaNumber(setting);
}

/// A server may refuse to complete a getInstance without an instance. What the provider throws next
/// tells the client more.
void completeEmpty(InstanceResponseHandler& handler) {
    try {
        deliverInstances(Array<CIMInstance>(), handler);
    } catch (const Exception&) {
    }
}

}  // namespace

CIMClass ElementSettingAssociation::associationClass(const CIMPropertyList& propertyList) const {
    return storedClass(
        _request.cimom, _kind.frame.qrvClass,
        {_request.shape.includeQualifiers, _request.shape.includeClassOrigin, propertyList});
}

CIMInstance ElementSettingAssociation::build(CIMClass& cimClass, const CIMObjectPath& element,
                                             const CIMObjectPath& setting) const {
    CIMInstance instance =
        QRV_Common::buildAssocInstance(_kind.frame.qrvClass, ELEMENT_ROLE, SETTING_ROLE, element,
                                       setting, cimClass, _request.systemAddress, "root/qrv");
    QRV_Common::setPropertyValue(
        instance, IS_DEFAULT_NAME,
        personaOf(setting) == DEFAULT_PERSONA ? IS_DEFAULT : IS_NOT_DEFAULT);
    QRV_Common::setPropertyValue(instance, IS_CURRENT_NAME, IS_CURRENT);
    return instance;
}

Array<CIMInstance> ElementSettingAssociation::associations(const CIMObjectPath& objectPath) const {
    const CIMName& source = objectPath.getClassName();
    CIMClass cimClass = associationClass(_request.shape.propertyList);
    if (source.equal(_kind.frame.qrvClass)) return associationNamed(objectPath, cimClass);

    const Array<CIMObjectPath> related = relatedNames(objectPath);
    Array<CIMInstance> found;
    if (source.equal(_kind.elementClass) && related.size() > 0)
        found.append(build(cimClass, objectPath, related[0]));
    if (source.equal(SETTING_CLASS))
        for (Uint32 i = 0; i < related.size(); ++i)
            found.append(build(cimClass, related[i], objectPath));
    return found;
}

Array<CIMInstance> ElementSettingAssociation::associationNamed(const CIMObjectPath& path,
                                                               CIMClass& cimClass) const {
    const CIMObjectPath element = referenceKey(path, "ManagedElement");
    const CIMObjectPath setting = referenceKey(path, "SettingData");
    Array<CIMInstance> found;
    if (_kind.personaOfEnd(_request, element) == personaOf(setting))
        found.append(build(cimClass, element, setting));
    return found;
}

Array<CIMInstance> ElementSettingAssociation::relatedInstances(
    const CIMObjectPath& objectPath) const {
    const CIMName& source = objectPath.getClassName();
    if (source.equal(_kind.elementClass)) return settingOf(objectPath);
    const Uint32 persona = source.equal(SETTING_CLASS) ? personaOf(objectPath) : 0;
    return persona == 0 ? Array<CIMInstance>() : _kind.elementsOf(_request, persona);
}

Array<CIMObjectPath> ElementSettingAssociation::relatedNames(
    const CIMObjectPath& objectPath) const {
    const SettingRequest names{_request.cimom, _request.systemAddress, _request.context, {}};
    return pathsOf(ElementSettingAssociation(_kind, names).relatedInstances(objectPath));
}

Array<CIMInstance> ElementSettingAssociation::settingOf(const CIMObjectPath& element) const {
    Array<CIMInstance> settings;
    const Persona persona = _kind.personaOfSource(element);
    if (!persona) return settings;
    const CIMObjectPath path = QRV_StorageClientSettingDataProvider::buildObjectPath(
        _request.systemAddress, QRV_StorageClientSettingDataProvider::makeUniqueID(*persona));
    const CIMInstance setting =
        tryGetInstance(_request.cimom, _request.context, path, _request.shape.includeQualifiers,
                       _request.shape.includeClassOrigin, _request.shape.propertyList);
    if (!setting.isUninitialized()) settings.append(setting);
    return settings;
}

std::vector<ElementSettingAssociation::Link> ElementSettingAssociation::allLinks() const {
    const Array<CIMInstance> elements = allInstances(_request, _kind.elementClass);
    const SettingsByPersona settings = byPersona(allInstances(_request, SETTING_CLASS));
    const auto personaOfElement = _kind.personasOfAll();
    std::vector<Link> links;
    for (Uint32 i = 0; i < elements.size(); ++i) {
        const Persona persona = personaOfElement(elements[i]);
        const auto linked = persona ? settings.find(*persona) : settings.end();
        if (linked == settings.end()) continue;
        for (const CIMObjectPath& setting : linked->second) {
            links.push_back({elements[i].getPath(), setting});
            if (!_kind.linksEverySetting) break;
        }
    }
    return links;
}

void ElementSettingAssociation::getInstance(const CIMObjectPath& instanceName,
                                            InstanceResponseHandler& handler) const {
    const Array<CIMInstance> found = matching(instanceName, associations(instanceName));
    if (_kind.completesWithoutResult && found.size() == 0) completeEmpty(handler);
    deliverFound(_kind.frame, found, handler);
}

Array<CIMInstance> allInstances(const SettingRequest& request, const CIMName& className) {
    return request.cimom.enumerateInstances(request.context, QRV_NAMESPACE, className, false, false,
                                            false, false, CIMPropertyList());
}

Uint32 personaIn(CIMInstance instance) {
    Uint32 persona = 0;
    QRV_Common::getProperty(instance, "HostPersonaID", persona);
    return persona;
}

bool readHosts(HostList& hosts, const char* hostName, qrv_u64 wwn, const char* iscsiName) {
    return !callArrayForStatus([&] {
                return api_getHosts(hostName, wwn, iscsiName, hosts.receive(), 1, 0);
            }).failed();
}

Persona personaOfFirstHost(const char* hostName, qrv_u64 wwn, const char* iscsiName) {
    HostList hosts;
    if (!readHosts(hosts, hostName, wwn, iscsiName) || hosts->count == 0) return std::nullopt;
    return hosts->hosts[0].host_persona;
}

}  // namespace Pegasus
