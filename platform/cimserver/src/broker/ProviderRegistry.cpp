#include "broker/ProviderRegistry.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>

using namespace Pegasus;

namespace cimserver {
namespace {

constexpr const char* ModuleClass = "PG_ProviderModule";
constexpr const char* ProviderClass = "PG_Provider";
constexpr const char* CapabilitiesClass = "PG_ProviderCapabilities";

[[noreturn]] void fail(const CIMInstance& instance, const String& what) {
    throw CIMException(CIM_ERR_FAILED, instance.getPath().toString() + ": " + what);
}

CIMValue valueOf(const CIMInstance& instance, const char* property) {
    const Uint32 index = instance.findProperty(CIMName(property));
    return index == PEG_NOT_FOUND ? CIMValue() : instance.getProperty(index).getValue();
}

/// The value of a property that must be there and be a T.
template <class T>
T required(const CIMInstance& instance, const char* property) {
    const CIMValue value = valueOf(instance, property);
    if (value.isNull()) fail(instance, String(property) + " has no value");
    T result{};
    value.get(result);
    return result;
}

std::string requiredText(const CIMInstance& instance, const char* property) {
    const String text = required<String>(instance, property);
    if (text.size() == 0) fail(instance, String(property) + " is empty");
    return std::string(text.getCString());
}

CIMName toName(const CIMInstance& instance, const char* property, const String& text) {
    if (!CIMName::legal(text))
        fail(instance, String(property) + " \"" + text + "\" is not a legal name");
    return CIMName(text);
}

void checkInterface(const CIMInstance& module) {
    const std::string type = requiredText(module, "InterfaceType");
    if (type != "C++Default")
        fail(module, "InterfaceType \"" + String(type.c_str()) + "\" is not supported");
    const std::string version = requiredText(module, "InterfaceVersion");
    const auto allowed = {"2.1.0", "2.2.0", "2.3.0", "2.5.0", "2.6.0", "2.9.0"};
    if (std::find(allowed.begin(), allowed.end(), version) == allowed.end())
        fail(module, "InterfaceVersion \"" + String(version.c_str()) + "\" is not supported");
}

std::optional<std::vector<CIMName>> supportedMethods(const CIMInstance& capabilities) {
    const CIMValue value = valueOf(capabilities, "SupportedMethods");
    if (value.isNull()) return std::nullopt;
    Array<String> names;
    value.get(names);
    std::vector<CIMName> methods;
    for (Uint32 i = 0; i < names.size(); ++i)
        methods.push_back(toName(capabilities, "SupportedMethods", names[i]));
    return methods;
}

}  // namespace

class ProviderRegistry::Reader {
  public:
    Reader(const ClassRepository& repository, const CIMNamespaceName& interop,
           ProviderRegistry& registry)
        : _repository(repository), _interop(interop), _registry(registry) {}

    void read();

  private:
    void readModule(const CIMInstance&);
    void readProvider(const CIMInstance&);
    void readCapabilities(const CIMInstance&);
    ProviderId providerOf(const CIMInstance& capabilities) const;
    std::vector<Kind> kindsOf(const CIMInstance& capabilities) const;
    void checkClass(const CIMInstance& capabilities, const CIMNamespaceName&,
                    const CIMName& className) const;
    const std::vector<CIMInstance>& instances(const char* className) const {
        return _repository.instances(_interop, CIMName(className));
    }

    const ClassRepository& _repository;
    const CIMNamespaceName& _interop;
    ProviderRegistry& _registry;
    std::map<std::string, std::string> _locations;                         ///< by module
    std::map<std::pair<std::string, std::string>, ProviderId> _providers;  ///< by module and name
};

void ProviderRegistry::Reader::read() {
    for (const CIMInstance& module : instances(ModuleClass)) readModule(module);
    for (const CIMInstance& provider : instances(ProviderClass)) readProvider(provider);
    for (const CIMInstance& entry : instances(CapabilitiesClass)) readCapabilities(entry);
}

void ProviderRegistry::Reader::readModule(const CIMInstance& module) {
    checkInterface(module);
    requiredText(module, "Vendor");
    requiredText(module, "Version");
    _locations.emplace(requiredText(module, "Name"), requiredText(module, "Location"));
}

void ProviderRegistry::Reader::readProvider(const CIMInstance& provider) {
    const std::string module = requiredText(provider, "ProviderModuleName");
    const std::string name = requiredText(provider, "Name");
    const auto location = _locations.find(module);
    if (location == _locations.end()) fail(provider, "its module is not registered");
    _providers.emplace(std::pair(module, name), ProviderId{module, location->second, name});
}

ProviderId ProviderRegistry::Reader::providerOf(const CIMInstance& capabilities) const {
    const auto found = _providers.find({requiredText(capabilities, "ProviderModuleName"),
                                        requiredText(capabilities, "ProviderName")});
    if (found == _providers.end()) fail(capabilities, "its provider is not registered");
    return found->second;
}

std::vector<ProviderRegistry::Kind> ProviderRegistry::Reader::kindsOf(
    const CIMInstance& capabilities) const {
    const auto types = required<Array<Uint16>>(capabilities, "ProviderType");
    std::vector<Kind> kinds;
    for (Uint32 i = 0; i < types.size(); ++i) {
        const auto kind = static_cast<Kind>(types[i]);
        if (kind != Kind::Instance && kind != Kind::Association && kind != Kind::Method)
            fail(capabilities,
                 "ProviderType " + CIMValue(types[i]).toString() + " is not supported");
        kinds.push_back(kind);
    }
    if (kinds.empty()) fail(capabilities, "ProviderType is empty");
    return kinds;
}

void ProviderRegistry::Reader::checkClass(const CIMInstance& capabilities,
                                          const CIMNamespaceName& space,
                                          const CIMName& className) const {
    if (!_repository.hasNamespace(space))
        fail(capabilities, "namespace " + space.getString() + " does not exist");
    if (!_repository.hasClass(space, className))
        fail(capabilities, "class " + className.getString() + " does not exist in namespace " +
                               space.getString());
}

void ProviderRegistry::Reader::readCapabilities(const CIMInstance& capabilities) {
    const Entry entry{providerOf(capabilities), supportedMethods(capabilities)};
    const std::vector<Kind> kinds = kindsOf(capabilities);
    const CIMName className =
        toName(capabilities, "ClassName", required<String>(capabilities, "ClassName"));
    const auto namespaces = required<Array<String>>(capabilities, "Namespaces");
    if (namespaces.size() == 0) fail(capabilities, "Namespaces is empty");
    for (Uint32 i = 0; i < namespaces.size(); ++i) {
        if (!CIMNamespaceName::legal(namespaces[i]))
            fail(capabilities, "namespace \"" + namespaces[i] + "\" is not a legal name");
        const CIMNamespaceName space(namespaces[i]);
        checkClass(capabilities, space, className);
        for (const Kind kind : kinds) _registry._entries[space][className][kind].push_back(entry);
    }
}

ProviderRegistry::ProviderRegistry(const ClassRepository& repository,
                                   const CIMNamespaceName& interop) {
    Reader(repository, interop, *this).read();
}

const std::vector<ProviderRegistry::Entry>& ProviderRegistry::entries(
    Kind kind, const CIMNamespaceName& space, const CIMName& className) const {
    static const std::vector<Entry> none;
    const auto inSpace = _entries.find(space);
    if (inSpace == _entries.end()) return none;
    const auto ofClass = inSpace->second.find(className);
    if (ofClass == inSpace->second.end()) return none;
    const auto ofKind = ofClass->second.find(kind);
    return ofKind == ofClass->second.end() ? none : ofKind->second;
}

std::optional<ProviderId> ProviderRegistry::find(Kind kind, const CIMNamespaceName& space,
                                                 const CIMName& className) const {
    const std::vector<Entry>& found = entries(kind, space, className);
    if (found.empty()) return std::nullopt;
    return found.front().id;
}

std::optional<ProviderId> ProviderRegistry::methodProvider(const CIMNamespaceName& space,
                                                           const CIMName& className,
                                                           const CIMName& method) const {
    for (const Entry& entry : entries(Kind::Method, space, className)) {
        const auto& methods = entry.methods;
        const auto isMethod = [&](const CIMName& name) { return name.equal(method); };
        if (!methods || std::any_of(methods->begin(), methods->end(), isMethod)) return entry.id;
    }
    return std::nullopt;
}

}  // namespace cimserver
