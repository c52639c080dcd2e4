#include <Pegasus/Common/CIMClass.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/ObjectRep.h"

#include <algorithm>

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

namespace {

Ref<ObjectRep> classOf(const CIMConstObject& x) {
    if (!x.isClass()) throw DynamicCastFailedException();
    return Access::rep(x);
}

/// The class that a handle of a class shares.
ClassRep& classRep(const CIMConstClass& x) {
    return static_cast<ClassRep&>(initialized(x));
}

Boolean hasTrueQualifier(const CIMConstClass& x, const char* name) {
    return initialized(x).qualifiers.isTrue(CIMName(name));
}

Ref<ObjectRep> newClass(const CIMName& name, const CIMName& superClassName) {
    return Ref<ObjectRep>::adopt(new ClassRep(name, superClassName));
}

}  // namespace

CIMConstClass::CIMConstClass(const CIMConstObject& x) : CIMConstObject(classOf(x)) {}
CIMConstClass::CIMConstClass(const CIMName& className, const CIMName& superClassName)
    : CIMConstObject(newClass(className, superClassName)) {}

Boolean CIMConstClass::isAssociation() const {
    return hasTrueQualifier(*this, "Association");
}
Boolean CIMConstClass::isAbstract() const {
    return hasTrueQualifier(*this, "Abstract");
}
const CIMName& CIMConstClass::getSuperClassName() const {
    return classRep(*this).superClassName;
}

Uint32 CIMConstClass::findMethod(const CIMName& name) const {
    return classRep(*this).methods.find(name);
}
CIMConstMethod CIMConstClass::getMethod(Uint32 index) const {
    return Access::handle<CIMConstMethod>(classRep(*this).methods[index]);
}
Uint32 CIMConstClass::getMethodCount() const {
    return classRep(*this).methods.size();
}

void CIMConstClass::getKeyNames(Array<CIMName>& keyNames) const {
    keyNames.clear();
    for (const auto& property : initialized(*this).properties) {
        if (isKey(*property)) keyNames.append(property->name());
    }
}

Boolean CIMConstClass::hasKeys() const {
    const auto& properties = initialized(*this).properties;
    return std::any_of(properties.begin(), properties.end(),
                       [](const auto& property) { return isKey(*property); });
}

CIMClass CIMConstClass::clone() const {
    return Access::handle<CIMClass>(initialized(*this).clone());
}

CIMClass::CIMClass(Ref<ObjectRep> rep) : CIMConstClass(std::move(rep)) {}
CIMClass::CIMClass(const CIMObject& x) : CIMConstClass(x) {}
CIMClass::CIMClass(const CIMName& className, const CIMName& superClassName)
    : CIMConstClass(className, superClassName) {}

void CIMClass::setPath(const CIMObjectPath& path) {
    initialized(*this).setPath(path);
}
void CIMClass::setSuperClassName(const CIMName& superClassName) {
    classRep(*this).superClassName = superClassName;
}

CIMClass& CIMClass::addQualifier(const CIMQualifier& qualifier) {
    initialized(*this).qualifiers.add(sharedRep(qualifier));
    return *this;
}
CIMQualifier CIMClass::getQualifier(Uint32 index) {
    return Access::handle<CIMQualifier>(initialized(*this).qualifiers.forWriting(index));
}
void CIMClass::removeQualifier(Uint32 index) {
    initialized(*this).qualifiers.remove(index);
}

CIMClass& CIMClass::addProperty(const CIMProperty& x) {
    initialized(*this).addProperty(sharedRep(x));
    return *this;
}
CIMProperty CIMClass::getProperty(Uint32 index) {
    return Access::handle<CIMProperty>(initialized(*this).properties[index]);
}
void CIMClass::removeProperty(Uint32 index) {
    initialized(*this).properties.remove(index);
}

CIMClass& CIMClass::addMethod(const CIMMethod& x) {
    classRep(*this).methods.add(sharedRep(x));
    return *this;
}
CIMMethod CIMClass::getMethod(Uint32 index) {
    return Access::handle<CIMMethod>(classRep(*this).methods[index]);
}
void CIMClass::removeMethod(Uint32 index) {
    classRep(*this).methods.remove(index);
}

CIMInstance CIMClass::buildInstance(Boolean includeQualifiers, Boolean includeClassOrigin,
                                    const CIMPropertyList& propertyList) const {
    return Access::handle<CIMInstance>(
        classRep(*this).buildInstance(includeQualifiers, includeClassOrigin, propertyList));
}

template class Array<CIMClass>;

PEGASUS_NAMESPACE_END
