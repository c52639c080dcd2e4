#include "QRV_StorageClientSettingDataProvider.h"

#include <Pegasus/Provider/ProviderException.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "../QRV_ArrayRecords.h"
#include "../QRV_InstanceID.h"
#include "../QRV_PathMatcher.h"
#include "../QRV_StoredClass.h"
#include "../QRV_Text.h"
#include "../QRV_WriteFrame.h"

namespace Pegasus {

namespace {

constexpr ProviderFrame FRAME{"QRV_StorageClientSettingDataProvider",
                              "QRV_StorageClientSettingDataProvider",
                              "QRV_StorageClientSettingData",
                              "QRV_StorageClientSettingData",
                              1,
                              " InstanceID key not found."};

constexpr const char* ID_PREFIX = "ORVELIS:PERSONA-";

const CIMName SETTING_CLASS("QRV_StorageClientSettingData");
const CIMName INSTANCE_ID("InstanceID");
const CIMName HOST_PERSONA_ID("HostPersonaID");
const CIMName HOST_PERSONA_CAPABILITIES("HostPersonaCapabilities");
const CIMName CAPTION("Caption");
const CIMName DESCRIPTION("Description");
const CIMName ELEMENT_NAME("ElementName");
const CIMName CLIENT_TYPES("ClientTypes");
const CIMName OTHER_CLIENT_TYPE_DESCRIPTIONS("OtherClientTypeDescriptions");

/// Values of CIM_StorageClientSettingData.ClientTypes that don't come from the table below.
constexpr Uint16 OTHER = 1;
constexpr Uint16 STANDARD = 2;
constexpr Uint16 MS_WINDOWS_2003 = 21;
constexpr Uint16 MS_WINDOWS_2008 = 20;
constexpr Uint16 MS_WINDOWS = 15;

/// An operating system by a word in its name.
struct Keyword {
    const char* word;
    Uint16 clientType;
};

/// A name that holds several of these counts for the first.
constexpr Keyword KEYWORDS[] = {{"solaris", 3}, {"zeux", 4},    {"ze-ux", 4},
                                {"aix", 9},     {"linux", 14},  {"suse", 14},
                                {"esx", 19},    {"vmware", 19}, {"oxs", 5}};

bool holds(const String& text, const char* word) {
    return text.find(String(word)) != PEG_NOT_FOUND;
}

class ClientTypes {
  public:
    ClientTypes(Array<Uint16>& types, Array<String>& descriptions)
        : _types(types), _descriptions(descriptions) {}

    void append(Uint16 type, const String& description) {
        _types.append(type);
        _descriptions.append(description);
    }

    void appendOperatingSystem(const String& name) {
        String normalizedStr = name;
        normalizedStr.toLower();
        const auto keyword =
            std::find_if(std::begin(KEYWORDS), std::end(KEYWORDS),
                         [&](const Keyword& each) { return holds(normalizedStr, each.word); });
        if (keyword != std::end(KEYWORDS))
            append(keyword->clientType, name);
        else if (holds(normalizedStr, "windows"))
            appendWindows(name, normalizedStr);
        else
            append(OTHER, name);
    }

  private:
    /// A Windows of an unknown version adds nothing.
    void appendWindows(const String& name, const String& normalizedStr) {
        if (holds(normalizedStr, "2003")) {
            append(MS_WINDOWS_2003, name);
        } else if (holds(normalizedStr, "2008")) {
            append(MS_WINDOWS, "Generic Microsoft Windows");
            append(MS_WINDOWS_2008, name + "/2012");
        }
    }

    Array<Uint16>& _types;
    Array<String>& _descriptions;
};

ArrayAnswer readPersonas(PersonaList& personas) {
    return callArrayForStatus([&] { return api_getHostPersonaList(personas.receive(), 1); });
}

String requireInstanceID(const CIMObjectPath& path) {
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i)
        if (keys[i].getName().equal(INSTANCE_ID)) return keys[i].getValue();
    throw CIMInvalidParameterException(String(FRAME.className) + FRAME.keyText);
}

}  // namespace

QRV_StorageClientSettingDataProvider::QRV_StorageClientSettingDataProvider() = default;

QRV_StorageClientSettingDataProvider::QRV_StorageClientSettingDataProvider(const CIMObjectPath&) {
    refuseObjectPathConstructor(FRAME);
}

QRV_StorageClientSettingDataProvider::~QRV_StorageClientSettingDataProvider() = default;

const ProviderFrame& QRV_StorageClientSettingDataProvider::_frame() {
    return FRAME;
}

void QRV_StorageClientSettingDataProvider::initialize(CIMOMHandle& cimom) {
    const OperationTrace trace("QRV_StorageClientSettingDataProvider::initialize(cimom)");
    _cimom = cimom;
    _systemAddress = QRV_Common::getSystemHostName(cimom);
}

/// An instance is looked for by the whole path, whatever its class and the number of its keys.
void QRV_StorageClientSettingDataProvider::_checkPath(const CIMObjectPath& instanceReference) {
    requireInstanceID(instanceReference);
}

void QRV_StorageClientSettingDataProvider::_getInstance(const OperationContext&,
                                                        const CIMObjectPath& instanceReference,
                                                        const InstanceShape& shape,
                                                        InstanceResponseHandler& handler) {
    deliverFound(FRAME, matching(instanceReference, _build_instances(shape)), handler,
                 requireInstanceID(instanceReference));
}

/// The class is looked at for names alone.
bool QRV_StorageClientSettingDataProvider::_beginEnumeration(const OperationContext& context,
                                                             const CIMObjectPath& classReference,
                                                             const char* operation) {
    openArray(FRAME, context);
    if (String::equal(operation, "enumerateInstanceNames"))
        checkClass(FRAME, classReference.getClassName());
    traceClassName(classReference.getClassName());
    return true;
}

void QRV_StorageClientSettingDataProvider::_enumerateInstances(const OperationContext&,
                                                               const InstanceShape& shape,
                                                               InstanceResponseHandler& handler) {
    deliverInstances(_build_instances(shape), handler);
}

void QRV_StorageClientSettingDataProvider::_enumerateInstanceNames(
    const OperationContext&, ObjectPathResponseHandler& handler) {
    deliverPaths(_build_ref(), handler);
}

Array<CIMInstance> QRV_StorageClientSettingDataProvider::_build_instances(
    const InstanceShape& shape) {
    CIMClass settingClass = storedClass(_cimom, SETTING_CLASS, shape);
    PersonaList personas;
    const ArrayAnswer answer = readPersonas(personas);
    if (answer.failed()) throw CIMOperationFailedException(errorText(answer.status));
    Array<CIMInstance> settings;
    for (unsigned int i = 0; i < personas->count; ++i)
        settings.append(buildInstance(settingClass, personas->hpes[i], _systemAddress));
    return settings;
}

/// A failed read gives no paths and no error.
Array<CIMObjectPath> QRV_StorageClientSettingDataProvider::_build_ref() {
    PersonaList personas;
    Array<CIMObjectPath> paths;
    if (readPersonas(personas).failed()) return paths;
    for (unsigned int i = 0; i < personas->count; ++i)
        paths.append(
            buildObjectPath(_systemAddress, makeUniqueID(Uint32(personas->hpes[i].hpe.hpe_num))));
    return paths;
}

String QRV_StorageClientSettingDataProvider::makeUniqueID(Uint32 personaNum) {
    char number[15];
    std::snprintf(number, sizeof number, "%u", personaNum);
    return String(ID_PREFIX) + number;
}

CIMObjectPath QRV_StorageClientSettingDataProvider::buildObjectPath(const String& systemAddress,
                                                                    const String& instanceID) {
    return pathByInstanceID(systemAddress, SETTING_CLASS, instanceID);
}

Uint32 QRV_StorageClientSettingDataProvider::extractPersonaNumber(
    const CIMObjectPath& clientSettingPath) {
    const String instanceID = QRV_Common::getStringProperty(clientSettingPath, "InstanceID");
    const String prefix(ID_PREFIX);
    const Uint32 found = instanceID.find(prefix);
    if (found == PEG_NOT_FOUND) return 0;
    return leadingNumber(instanceID.subString(found + prefix.size())).value_or(0);
}

void QRV_StorageClientSettingDataProvider::setPersonaClientTypes(Array<Uint16>& cltTypes,
                                                                 Array<String>& otherTypeDescs,
                                                                 api_hostpersonaentry_t& pentry) {
    constexpr int STANDARD_PERSONA = 1;
    ClientTypes types(cltTypes, otherTypeDescs);
    for (unsigned int i = 0; i < pentry.oscount; ++i)
        types.appendOperatingSystem(arrayText(pentry.hos[i].hos_name));
    if (pentry.hpe.hpe_num == STANDARD_PERSONA) types.append(STANDARD, "Standard");
}

CIMInstance QRV_StorageClientSettingDataProvider::buildInstance(CIMClass settingClass,
                                                                api_hostpersonaentry_t& hostpersona,
                                                                const String& systemAddress) {
    const host_persona_entry_t& persona = hostpersona.hpe;
    const String name = arrayText(persona.hpe_name);
    const String instanceID = makeUniqueID(Uint32(persona.hpe_num));
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(settingClass);
    QRV_Common::setPropertyValue(instance, INSTANCE_ID, instanceID);
    QRV_Common::setPropertyValue(instance, HOST_PERSONA_ID, Uint32(persona.hpe_num));
    QRV_Common::setPropertyValue(instance, HOST_PERSONA_CAPABILITIES,
                                 Uint32(persona.hpe_capabilities));
    QRV_Common::setPropertyValue(instance, CAPTION, name + " host persona setting");
    QRV_Common::setPropertyValue(
        instance, DESCRIPTION,
        String("A storage client setting consists of host environment factors that influence the "
               "behavior between host and Storage System."));
    QRV_Common::setPropertyValue(instance, ELEMENT_NAME, name);
    Array<Uint16> clientTypes;
    Array<String> descriptions;
    setPersonaClientTypes(clientTypes, descriptions, hostpersona);
    QRV_Common::setPropertyValue(instance, CLIENT_TYPES, clientTypes);
    if (descriptions.size() > 0)
        QRV_Common::setPropertyValue(instance, OTHER_CLIENT_TYPE_DESCRIPTIONS, descriptions);
    instance.setPath(buildObjectPath(systemAddress, instanceID));
    return instance;
}

}  // namespace Pegasus
