#include "broker/ClassRepository.h"

#include "broker/ClassCopy.h"
#include "broker/ClassResolver.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>

using namespace Pegasus;

namespace cimserver {

struct ClassRepository::ClassEntry {
    CIMClass resolved;
    std::size_t order = 0;  ///< of declaration
    const ClassEntry* parent = nullptr;
    std::vector<const ClassEntry*> children;
    std::vector<const ClassEntry*> referenced;  ///< the classes its references point to
    std::vector<CIMInstance> instances;

    const CIMName& name() const { return resolved.getClassName(); }
    bool descendsFrom(const ClassEntry& base) const;
    bool refersTo(const ClassEntry& source) const;
    std::vector<const ClassEntry*> family() const;
};

bool ClassRepository::ClassEntry::descendsFrom(const ClassEntry& base) const {
    const ClassEntry* entry = this;
    while (entry && entry != &base) entry = entry->parent;
    return entry != nullptr;
}

bool ClassRepository::ClassEntry::refersTo(const ClassEntry& source) const {
    return std::any_of(referenced.begin(), referenced.end(),
                       [&](const ClassEntry* target) { return source.descendsFrom(*target); });
}

/// The class and all its descendants, parents before children.
std::vector<const ClassRepository::ClassEntry*> ClassRepository::ClassEntry::family() const {
    std::vector<const ClassEntry*> members{this};
    for (std::size_t i = 0; i < members.size(); ++i) {
        const auto& next = members[i]->children;
        members.insert(members.end(), next.begin(), next.end());
    }
    return members;
}

struct ClassRepository::Namespace final : Declarations {
    FoldedMap<CIMName, std::unique_ptr<ClassEntry>> classes;
    FoldedMap<CIMName, CIMQualifierDecl> qualifiers;
    std::vector<const ClassEntry*> roots;
    std::vector<const ClassEntry*> associations;  ///< in order of declaration

    ClassEntry* find(const CIMName& name) const {
        const auto found = classes.find(name);
        return found == classes.end() ? nullptr : found->second.get();
    }
    ClassEntry& get(const CIMName& name, CIMStatusCode code = CIM_ERR_INVALID_CLASS) const {
        ClassEntry* entry = find(name);
        if (!entry) throw CIMException(code, name.getString());
        return *entry;
    }
    ClassEntry& insert(const CIMClass& resolved);

    const CIMQualifierDecl* findQualifier(const CIMName& name) const override {
        const auto found = qualifiers.find(name);
        return found == qualifiers.end() ? nullptr : &found->second;
    }
    const CIMClass* findClass(const CIMName& name) const override {
        const ClassEntry* entry = find(name);
        return entry ? &entry->resolved : nullptr;
    }
    bool descends(const CIMName& derived, const CIMName& base) const override {
        const ClassEntry* from = find(derived);
        const ClassEntry* to = find(base);
        return from && to && from->descendsFrom(*to);
    }

  private:
    void link(ClassEntry& entry);
};

ClassRepository::ClassEntry& ClassRepository::Namespace::insert(const CIMClass& resolved) {
    auto entry = std::make_unique<ClassEntry>();
    entry->resolved = resolved;
    entry->order = classes.size();
    ClassEntry& inserted =
        *classes.emplace(resolved.getClassName(), std::move(entry)).first->second;
    link(inserted);
    return inserted;
}

void ClassRepository::Namespace::link(ClassEntry& entry) {
    const CIMName& parent = entry.resolved.getSuperClassName();
    if (!parent.isNull()) {
        ClassEntry& above = get(parent);
        entry.parent = &above;
        above.children.push_back(&entry);
    } else {
        roots.push_back(&entry);
    }
    for (Uint32 i = 0; i < entry.resolved.getPropertyCount(); ++i) {
        const CIMConstProperty property = entry.resolved.getProperty(i);
        if (property.getType() == CIMTYPE_REFERENCE)
            entry.referenced.push_back(&get(property.getReferenceClassName()));
    }
    if (entry.resolved.isAssociation()) associations.push_back(&entry);
}

namespace {

template <class Entries>
std::vector<CIMName> names(const Entries& entries) {
    std::vector<CIMName> result;
    result.reserve(entries.size());
    for (const auto* entry : entries) result.push_back(entry->name());
    return result;
}

[[noreturn]] void failProperty(CIMStatusCode code, const CIMInstance& instance, const CIMName& name,
                               const char* what) {
    throw CIMException(
        code, "property " + instance.getClassName().getString() + "." + name.getString() + what);
}

void setProperty(CIMInstance& instance, const CIMConstProperty& given) {
    const Uint32 index = instance.findProperty(given.getName());
    if (index == PEG_NOT_FOUND)
        failProperty(CIM_ERR_NO_SUCH_PROPERTY, instance, given.getName(), " is not declared");
    CIMProperty property = instance.getProperty(index);
    if (!property.getValue().typeCompatible(given.getValue()))
        failProperty(CIM_ERR_TYPE_MISMATCH, instance, given.getName(), " is of another type");
    property.setValue(given.getValue());
}

void checkKeys(const CIMClass& definition, const CIMInstance& instance) {
    Array<CIMName> keys;
    definition.getKeyNames(keys);
    if (keys.size() == 0)
        throw CIMException(CIM_ERR_FAILED,
                           "class " + definition.getClassName().getString() + " has no keys");
    for (Uint32 i = 0; i < keys.size(); ++i) {
        const CIMConstProperty key = instance.getProperty(instance.findProperty(keys[i]));
        if (key.getValue().isNull())
            failProperty(CIM_ERR_INVALID_PARAMETER, instance, keys[i], " is a key without a value");
    }
}

/// The instance with the class's defaults filled in, in the order of the class.
CIMInstance completed(const CIMClass& definition, const CIMInstance& given) {
    CIMInstance result = definition.buildInstance(false, true, CIMPropertyList());
    for (Uint32 i = 0; i < given.getPropertyCount(); ++i) setProperty(result, given.getProperty(i));
    checkKeys(definition, result);
    result.setPath(result.buildPath(definition));
    return result;
}

}  // namespace

ClassRepository::ClassRepository() = default;
ClassRepository::~ClassRepository() = default;

ClassRepository::Namespace& ClassRepository::at(const CIMNamespaceName& name) const {
    const auto found = _namespaces.find(name);
    if (found == _namespaces.end()) throw CIMException(CIM_ERR_INVALID_NAMESPACE, name.getString());
    return *found->second;
}

void ClassRepository::addNamespace(const CIMNamespaceName& name) {
    auto& space = _namespaces[name];
    if (!space) space = std::make_unique<Namespace>();
}

void ClassRepository::addQualifier(const CIMNamespaceName& space,
                                   const CIMQualifierDecl& declaration) {
    const auto [known, isNew] =
        at(space).qualifiers.emplace(declaration.getName(), declaration.clone());
    if (!isNew && !known->second.identical(declaration))
        throw CIMException(
            CIM_ERR_ALREADY_EXISTS,
            "qualifier " + declaration.getName().getString() + " is already declared otherwise");
}

void ClassRepository::addClass(const CIMNamespaceName& space, const CIMClass& declared) {
    Namespace& target = at(space);
    if (target.find(declared.getClassName()))
        throw CIMException(CIM_ERR_ALREADY_EXISTS,
                           "class " + declared.getClassName().getString() + " is already declared");
    target.insert(resolveClass(declared, target));
}

void ClassRepository::addInstance(const CIMNamespaceName& space, const CIMInstance& instance) {
    ClassEntry& entry = at(space).get(instance.getClassName());
    if (entry.resolved.isAbstract())
        throw CIMException(CIM_ERR_FAILED, "class " + entry.name().getString() + " is abstract");
    const CIMInstance complete = completed(entry.resolved, instance);
    const auto samePath = [&](const CIMInstance& other) {
        return other.getPath().identical(complete.getPath());
    };
    if (std::any_of(entry.instances.begin(), entry.instances.end(), samePath))
        throw CIMException(CIM_ERR_ALREADY_EXISTS,
                           "instance " + complete.getPath().toString() + " exists already");
    entry.instances.push_back(complete);
}

bool ClassRepository::hasNamespace(const CIMNamespaceName& name) const {
    return _namespaces.count(name) != 0;
}

bool ClassRepository::hasClass(const CIMNamespaceName& space, const CIMName& name) const {
    return at(space).find(name) != nullptr;
}

bool ClassRepository::hasQualifier(const CIMNamespaceName& space, const CIMName& name) const {
    return at(space).findQualifier(name) != nullptr;
}

CIMQualifierDecl ClassRepository::getQualifier(const CIMNamespaceName& space,
                                               const CIMName& name) const {
    const CIMQualifierDecl* declaration = at(space).findQualifier(name);
    if (!declaration) throw CIMException(CIM_ERR_NOT_FOUND, name.getString());
    return *declaration;
}

CIMClass ClassRepository::getClass(const CIMNamespaceName& space, const CIMName& name,
                                   bool localOnly, const Selection& selection) const {
    return copyClass(at(space).get(name, CIM_ERR_NOT_FOUND).resolved, localOnly, selection);
}

CIMConstClass ClassRepository::resolvedClass(const CIMNamespaceName& space,
                                             const CIMName& name) const {
    return at(space).get(name).resolved;
}

std::vector<CIMName> ClassRepository::classAndDescendants(const CIMNamespaceName& space,
                                                          const CIMName& name) const {
    std::vector<const ClassEntry*> family = at(space).get(name).family();
    std::sort(family.begin(), family.end(),
              [](const ClassEntry* a, const ClassEntry* b) { return a->order < b->order; });
    return names(family);
}

std::vector<CIMName> ClassRepository::children(const CIMNamespaceName& space,
                                               const CIMName& name) const {
    const Namespace& known = at(space);
    return names(name.isNull() ? known.roots : known.get(name).children);
}

bool ClassRepository::isA(const CIMNamespaceName& space, const CIMName& derived,
                          const CIMName& base) const {
    return at(space).descends(derived, base);
}

std::vector<CIMName> ClassRepository::associationsOf(const CIMNamespaceName& space,
                                                     const CIMName& source,
                                                     const CIMName& associationClass) const {
    const Namespace& known = at(space);
    const ClassEntry& from = known.get(source);
    const ClassEntry* above = associationClass.isNull() ? nullptr : &known.get(associationClass);
    std::vector<const ClassEntry*> result;
    for (const ClassEntry* association : known.associations)
        if ((!above || association->descendsFrom(*above)) && association->refersTo(from))
            result.push_back(association);
    return names(result);
}

const std::vector<CIMInstance>& ClassRepository::instances(const CIMNamespaceName& space,
                                                           const CIMName& name) const {
    return at(space).get(name).instances;
}

}  // namespace cimserver
