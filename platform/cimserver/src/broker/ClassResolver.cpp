#include "broker/ClassResolver.h"

#include <Pegasus/Common/Exception.h>

#include <optional>
#include <vector>

using namespace Pegasus;

namespace cimserver {
namespace {

/// An element of a class, for error texts and for the scope that its qualifiers must have.
struct Element {
    String title;
    CIMScope scope;

    [[noreturn]] void fail(CIMStatusCode code, const String& what) const {
        throw CIMException(code, title + ": " + what);
    }
};

template <class Qualified>
bool isTrue(const Qualified& element, const CIMName& qualifier) {
    const Uint32 index = element.findQualifier(qualifier);
    if (index == PEG_NOT_FOUND) return false;
    const CIMValue value = element.getQualifier(index).getValue();
    Boolean flag = false;
    if (value.getType() == CIMTYPE_BOOLEAN && !value.isArray()) value.get(flag);
    return flag;
}

String typeText(CIMType type, bool isArray) {
    return String(cimTypeToString(type)) + (isArray ? "[]" : "");
}

/// The inherited property or method of this name, if there is one.
std::optional<CIMConstProperty> inheritedProperty(const CIMClass* parent, const CIMName& name) {
    const Uint32 index = parent ? parent->findProperty(name) : PEG_NOT_FOUND;
    if (index == PEG_NOT_FOUND) return std::nullopt;
    return parent->getProperty(index);
}

std::optional<CIMConstMethod> inheritedMethod(const CIMClass* parent, const CIMName& name) {
    const Uint32 index = parent ? parent->findMethod(name) : PEG_NOT_FOUND;
    if (index == PEG_NOT_FOUND) return std::nullopt;
    return parent->getMethod(index);
}

/// What is said at the qualifier itself goes before what governs it.
CIMFlavor combine(const CIMFlavor& own, CIMFlavor governing) {
    if (own.hasFlavor(CIMFlavor::DISABLEOVERRIDE)) governing.removeFlavor(CIMFlavor::OVERRIDABLE);
    if (own.hasFlavor(CIMFlavor::RESTRICTED)) governing.removeFlavor(CIMFlavor::TOSUBCLASS);
    if (own.hasFlavor(CIMFlavor::TOSUBCLASS)) governing.removeFlavor(CIMFlavor::RESTRICTED);
    return own + governing;
}

template <class Qualified>
std::vector<CIMQualifier> takeQualifiers(Qualified& element) {
    std::vector<CIMQualifier> taken;
    for (; element.getQualifierCount() > 0; element.removeQualifier(0))
        taken.push_back(element.getQualifier(0));
    return taken;
}

/// Inherited qualifiers come first, the last of them foremost: the order OpenPegasus shows them in.
template <class Qualified, class Parent>
void inheritQualifiers(Qualified& element, const Parent& parent) {
    const std::vector<CIMQualifier> own = takeQualifiers(element);
    for (Uint32 i = parent.getQualifierCount(); i-- > 0;) {
        CIMQualifier qualifier = parent.getQualifier(i).clone();
        qualifier.setPropagated(true);
        if (qualifier.getFlavor().hasFlavor(CIMFlavor::TOSUBCLASS)) element.addQualifier(qualifier);
    }
    for (const CIMQualifier& qualifier : own) {
        const Uint32 inherited = element.findQualifier(qualifier.getName());
        if (inherited != PEG_NOT_FOUND) element.removeQualifier(inherited);
        element.addQualifier(qualifier);
    }
}

class ClassResolver {
  public:
    ClassResolver(const CIMClass& declared, const Declarations& known)
        : _declared(declared),
          _known(known),
          _name(declared.getClassName().getString()),
          _class{"class " + _name, CIMScope::CLASS},
          _parent(findParent()) {
        if (isTrue(declared, "Association")) _class.scope = CIMScope::ASSOCIATION;
    }

    CIMClass resolve();

  private:
    const CIMClass* findParent() const;
    void resolveClassQualifiers(CIMClass& result) const;
    void addProperties(CIMClass& result) const;
    void addMethods(CIMClass& result) const;
    CIMProperty resolveProperty(const CIMConstProperty& declared) const;
    CIMMethod resolveMethod(const CIMConstMethod& declared) const;
    void resolveParameters(CIMMethod& method) const;

    void checkReference(const Element&, const CIMName& referenceClass) const;
    void checkOverride(const Element&, const CIMProperty&, const CIMConstProperty& inherited) const;
    void checkKey(const Element&, const CIMProperty&,
                  const std::optional<CIMConstProperty>& inherited) const;

    template <class Qualified, class Parent>
    void resolveQualifiers(const Element&, Qualified&, const Parent* parent) const;
    CIMFlavor resolveQualifier(const Element&, const CIMQualifier&,
                               const std::optional<CIMConstQualifier>& inherited) const;
    void checkDeclaration(const Element&, const CIMQualifier&, const CIMQualifierDecl&) const;
    void checkEmbeddedClass(const Element&, const CIMQualifier&) const;

    const CIMClass& _declared;
    const Declarations& _known;
    String _name;
    Element _class;
    const CIMClass* _parent;
};

const CIMClass* ClassResolver::findParent() const {
    const CIMName& name = _declared.getSuperClassName();
    if (name.isNull()) return nullptr;
    const CIMClass* parent = _known.findClass(name);
    if (!parent)
        _class.fail(CIM_ERR_INVALID_SUPERCLASS,
                    "superclass " + name.getString() + " is not declared");
    return parent;
}

CIMClass ClassResolver::resolve() {
    CIMClass result(_declared.getClassName(), _parent ? _parent->getClassName() : CIMName());
    resolveClassQualifiers(result);
    addProperties(result);
    addMethods(result);
    return result;
}

void ClassResolver::resolveClassQualifiers(CIMClass& result) const {
    for (Uint32 i = 0; i < _declared.getQualifierCount(); ++i)
        result.addQualifier(_declared.getQualifier(i).clone());
    resolveQualifiers(_class, result, _parent);
}

void ClassResolver::addProperties(CIMClass& result) const {
    for (Uint32 i = 0; _parent && i < _parent->getPropertyCount(); ++i) {
        CIMProperty property = _parent->getProperty(i).clone();
        property.setPropagated(true);
        if (_declared.findProperty(property.getName()) == PEG_NOT_FOUND)
            result.addProperty(property);
    }
    for (Uint32 i = 0; i < _declared.getPropertyCount(); ++i)
        result.addProperty(resolveProperty(_declared.getProperty(i)));
}

void ClassResolver::addMethods(CIMClass& result) const {
    for (Uint32 i = 0; _parent && i < _parent->getMethodCount(); ++i) {
        CIMMethod method = _parent->getMethod(i).clone();
        method.setPropagated(true);
        if (_declared.findMethod(method.getName()) == PEG_NOT_FOUND) result.addMethod(method);
    }
    for (Uint32 i = 0; i < _declared.getMethodCount(); ++i)
        result.addMethod(resolveMethod(_declared.getMethod(i)));
}

CIMProperty ClassResolver::resolveProperty(const CIMConstProperty& declared) const {
    CIMProperty property = declared.clone();
    const bool isReference = property.getType() == CIMTYPE_REFERENCE;
    const Element element{"property " + _name + "." + property.getName().getString(),
                          isReference ? CIMScope::REFERENCE : CIMScope::PROPERTY};
    const auto inherited = inheritedProperty(_parent, property.getName());
    if (isReference) {
        if (!_class.scope.equal(CIMScope::ASSOCIATION))
            element.fail(CIM_ERR_INVALID_PARAMETER, "only an association has references");
        checkReference(element, property.getReferenceClassName());
    }
    if (inherited) checkOverride(element, property, *inherited);
    resolveQualifiers(element, property, inherited ? &*inherited : nullptr);
    checkKey(element, property, inherited);
    property.setClassOrigin(inherited ? inherited->getClassOrigin() : _declared.getClassName());
    property.setPropagated(false);
    return property;
}

CIMMethod ClassResolver::resolveMethod(const CIMConstMethod& declared) const {
    CIMMethod method = declared.clone();
    const Element element{"method " + _name + "." + method.getName().getString(), CIMScope::METHOD};
    const auto inherited = inheritedMethod(_parent, method.getName());
    if (inherited && inherited->getType() != method.getType())
        element.fail(CIM_ERR_TYPE_MISMATCH,
                     "the inherited method returns " + typeText(inherited->getType(), false));
    resolveQualifiers(element, method, inherited ? &*inherited : nullptr);
    resolveParameters(method);
    method.setClassOrigin(inherited ? inherited->getClassOrigin() : _declared.getClassName());
    method.setPropagated(false);
    return method;
}

/// The class that a reference parameter names may be declared later or nowhere: the CIM schema
/// itself has methods that refer forward.
void ClassResolver::resolveParameters(CIMMethod& method) const {
    for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
        CIMParameter parameter = method.getParameter(i);
        const Element element{"parameter " + _name + "." + method.getName().getString() + "." +
                                  parameter.getName().getString(),
                              CIMScope::PARAMETER};
        resolveQualifiers<CIMParameter, CIMConstParameter>(element, parameter, nullptr);
    }
}

void ClassResolver::checkReference(const Element& element, const CIMName& referenceClass) const {
    const bool toItself = referenceClass.equal(_declared.getClassName());
    if (!toItself && !_known.findClass(referenceClass))
        element.fail(CIM_ERR_INVALID_PARAMETER,
                     "class " + referenceClass.getString() + " is not declared");
}

void ClassResolver::checkOverride(const Element& element, const CIMProperty& property,
                                  const CIMConstProperty& inherited) const {
    if (property.getType() != inherited.getType() || property.isArray() != inherited.isArray())
        element.fail(CIM_ERR_TYPE_MISMATCH, "the inherited property is of type " +
                                                typeText(inherited.getType(), inherited.isArray()));
    const CIMName& base = inherited.getReferenceClassName();
    if (property.getType() == CIMTYPE_REFERENCE &&
        !_known.descends(property.getReferenceClassName(), base))
        element.fail(CIM_ERR_TYPE_MISMATCH, "class " +
                                                property.getReferenceClassName().getString() +
                                                " does not descend from " + base.getString() +
                                                ", which the inherited reference names");
}

void ClassResolver::checkKey(const Element& element, const CIMProperty& property,
                             const std::optional<CIMConstProperty>& inherited) const {
    if (!isTrue(property, "Key")) return;
    if (property.isArray()) element.fail(CIM_ERR_INVALID_PARAMETER, "an array cannot be a key");
    const bool isNew = !inherited || !isTrue(*inherited, "Key");
    if (isNew && _parent && _parent->hasKeys())
        element.fail(CIM_ERR_INVALID_PARAMETER, "a key cannot be added, superclass " +
                                                    _parent->getClassName().getString() +
                                                    " has its keys already");
}

template <class Qualified, class Parent>
void ClassResolver::resolveQualifiers(const Element& element, Qualified& qualified,
                                      const Parent* parent) const {
    for (Uint32 i = 0; i < qualified.getQualifierCount(); ++i) {
        CIMQualifier qualifier = qualified.getQualifier(i);
        const Uint32 index = parent ? parent->findQualifier(qualifier.getName()) : PEG_NOT_FOUND;
        std::optional<CIMConstQualifier> inherited;
        if (index != PEG_NOT_FOUND) inherited = parent->getQualifier(index);
        const CIMFlavor flavor = resolveQualifier(element, qualifier, inherited);
        qualifier.unsetFlavor(qualifier.getFlavor());
        qualifier.setFlavor(flavor);
    }
    if (parent) inheritQualifiers(qualified, *parent);
}

CIMFlavor ClassResolver::resolveQualifier(const Element& element, const CIMQualifier& qualifier,
                                          const std::optional<CIMConstQualifier>& inherited) const {
    const String title = "qualifier " + qualifier.getName().getString();
    const CIMQualifierDecl* declaration = _known.findQualifier(qualifier.getName());
    if (!declaration) element.fail(CIM_ERR_FAILED, title + " is not declared");
    checkDeclaration(element, qualifier, *declaration);
    checkEmbeddedClass(element, qualifier);
    const CIMFlavor governing = inherited ? inherited->getFlavor() : declaration->getFlavor();
    const bool fixed = !governing.hasFlavor(CIMFlavor::OVERRIDABLE);
    if (fixed && qualifier.getFlavor().hasFlavor(CIMFlavor::OVERRIDABLE))
        element.fail(CIM_ERR_INVALID_PARAMETER, title + " cannot be made overridable");
    if (fixed && inherited && governing.hasFlavor(CIMFlavor::TOSUBCLASS) &&
        qualifier.getValue() != inherited->getValue())
        element.fail(CIM_ERR_INVALID_PARAMETER, title + " cannot change its inherited value");
    return combine(qualifier.getFlavor(), governing);
}

void ClassResolver::checkDeclaration(const Element& element, const CIMQualifier& qualifier,
                                     const CIMQualifierDecl& declaration) const {
    const String title = "qualifier " + qualifier.getName().getString();
    if (qualifier.getType() != declaration.getType() ||
        qualifier.isArray() != declaration.isArray())
        element.fail(CIM_ERR_TYPE_MISMATCH,
                     title + " is declared with type " +
                         typeText(declaration.getType(), declaration.isArray()));
    if (!declaration.getScope().hasScope(element.scope))
        element.fail(CIM_ERR_INVALID_PARAMETER, title + " is not for this kind of element");
}

void ClassResolver::checkEmbeddedClass(const Element& element,
                                       const CIMQualifier& qualifier) const {
    if (!qualifier.getName().equal("EmbeddedInstance") || qualifier.getValue().isNull()) return;
    String name;
    qualifier.getValue().get(name);
    const bool known =
        CIMName::legal(name) && (_known.findClass(name) || _declared.getClassName().equal(name));
    if (!known)
        element.fail(CIM_ERR_INVALID_PARAMETER, "embedded class \"" + name + "\" is not declared");
}

}  // namespace

CIMClass resolveClass(const CIMClass& declared, const Declarations& known) {
    return ClassResolver(declared, known).resolve();
}

}  // namespace cimserver
