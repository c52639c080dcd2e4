#include "QRV_SystemElementProvider.h"

#include <utility>
#include <vector>

#include "SystemFacts.h"

namespace Pegasus {

namespace {

using Texts = std::vector<std::pair<const char*, String>>;

}  // namespace

struct SystemElement {
    ProviderFrame frame;
    Texts (*keys)(const api_SystemFacts_t&);
    Texts (*properties)(const api_SystemFacts_t&);  ///< beside the keys
};

namespace {

String elementName(const api_SystemFacts_t& facts) {
    return String(facts.model) + " " + String(facts.name);
}

Texts storageSystemKeys(const api_SystemFacts_t& facts) {
    return {{"CreationClassName", "QRV_StorageSystem"}, {"Name", facts.name}};
}

Texts storageSystemProperties(const api_SystemFacts_t& facts) {
    return {{"ElementName", elementName(facts)},
            {"PrimaryOwnerName", facts.owner},
            {"PrimaryOwnerContact", facts.contact}};
}

Texts packageKeys(const api_SystemFacts_t& facts) {
    return {{"CreationClassName", "QRV_SystemPackage"}, {"Tag", facts.serial}};
}

Texts packageProperties(const api_SystemFacts_t& facts) {
    return {{"ElementName", elementName(facts)},
            {"Model", facts.model},
            {"SerialNumber", facts.serial}};
}

Texts viewKeys(const api_SystemFacts_t& facts) {
    return {{"InstanceID", String("ORVELIS:") + String(facts.name)}};
}

Texts viewProperties(const api_SystemFacts_t& facts) {
    return {{"ElementName", elementName(facts)},
            {"SystemName", facts.name},
            {"Model", facts.model},
            {"SerialNumber", facts.serial}};
}

CIMObjectPath makePath(const SystemElement& element, const String& host, const Texts& keys) {
    Array<CIMKeyBinding> bindings;
    for (const auto& [name, text] : keys)
        bindings.append(CIMKeyBinding(name, text, CIMKeyBinding::STRING));
    return CIMObjectPath(host, QRV_NAMESPACE, element.frame.qrvClass, bindings);
}

void setTexts(CIMInstance& instance, const Texts& texts) {
    for (const auto& [name, text] : texts) QRV_Common::setPropertyValue(instance, name, text);
}

/// Whether the path holds just these keys. Host, namespace and the spelling of the class are the
/// server's business.
bool hasKeys(const CIMObjectPath& path, const Texts& keys) {
    for (const auto& [name, text] : keys)
        if (QRV_Common::getStringProperty(path, name) != text) return false;
    return true;
}

}  // namespace

const SystemElement STORAGE_SYSTEM{
    {"QRV_StorageSystem", "QRV_StorageSystemProvider", "CIM_ComputerSystem", "QRV_StorageSystem", 2,
     " Expect two keys."},
    storageSystemKeys,
    storageSystemProperties};
const SystemElement SYSTEM_PACKAGE{
    {"QRV_SystemPackage", "QRV_SystemPackageProvider", "CIM_PhysicalPackage", "QRV_SystemPackage",
     2, " Expect two keys."},
    packageKeys,
    packageProperties};
const SystemElement STORAGE_SYSTEM_VIEW{
    {"QRV_StorageSystemView", "QRV_StorageSystemViewProvider", "CIM_View", "QRV_StorageSystemView",
     1, " Expect only one key."},
    viewKeys,
    viewProperties};

void QRV_SystemElementProvider::initialize(CIMOMHandle& cimom) {
    _cimom = cimom;
    _hostName = QRV_Common::getSystemHostName(cimom);
}

const ProviderFrame& QRV_SystemElementProvider::_frame() const {
    return _element.frame;
}

Array<CIMInstance> QRV_SystemElementProvider::_buildInstances(const CIMObjectPath& path,
                                                              const InstanceShape& shape) {
    const api_SystemFacts_t facts = readSystemFacts();
    const Texts keys = _element.keys(facts);
    Array<CIMInstance> instances;
    if (!path.getClassName().isNull() && !hasKeys(path, keys)) return instances;
    CIMClass cimClass = storedClass(_cimom, _element.frame.qrvClass, shape);
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(cimClass);
    setTexts(instance, keys);
    setTexts(instance, _element.properties(facts));
    instance.setPath(makePath(_element, _hostName, keys));
    instances.append(instance);
    return instances;
}

}  // namespace Pegasus
