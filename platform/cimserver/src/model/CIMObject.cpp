#include <Pegasus/Common/CIMObject.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/ObjectEncoder.h"
#include "model/ObjectRep.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

CIMConstObject::CIMConstObject() = default;
CIMConstObject::CIMConstObject(const CIMConstObject& x) = default;
CIMConstObject::CIMConstObject(CIMConstObject&& x) noexcept = default;
CIMConstObject::CIMConstObject(Ref<ObjectRep> rep) : _rep(std::move(rep)) {}
CIMConstObject::~CIMConstObject() = default;
CIMConstObject& CIMConstObject::operator=(const CIMConstObject& x) = default;
CIMConstObject& CIMConstObject::operator=(CIMConstObject&& x) noexcept = default;

const CIMName& CIMConstObject::getClassName() const {
    return initialized(*this).className();
}
const CIMObjectPath& CIMConstObject::getPath() const {
    return initialized(*this).path();
}

Uint32 CIMConstObject::findQualifier(const CIMName& name) const {
    return initialized(*this).qualifiers.find(name);
}
CIMConstQualifier CIMConstObject::getQualifier(Uint32 index) const {
    return Access::handle<CIMConstQualifier>(initialized(*this).qualifiers[index]);
}
Uint32 CIMConstObject::getQualifierCount() const {
    return initialized(*this).qualifiers.size();
}

Uint32 CIMConstObject::findProperty(const CIMName& name) const {
    return initialized(*this).properties.find(name);
}
CIMConstProperty CIMConstObject::getProperty(Uint32 index) const {
    return Access::handle<CIMConstProperty>(initialized(*this).properties[index]);
}
Uint32 CIMConstObject::getPropertyCount() const {
    return initialized(*this).properties.size();
}

CIMObject CIMConstObject::clone() const {
    return Access::handle<CIMObject>(initialized(*this).clone());
}
Boolean CIMConstObject::identical(const CIMConstObject& x) const {
    return initialized(*this).identical(initialized(x));
}
String CIMConstObject::toString() const {
    std::string xml;
    if (initialized(*this).isClass()) {
        appendClass(xml, CIMConstClass(*this));
    } else {
        appendInstance(xml, CIMConstInstance(*this), {true, true, {}});
    }
    return String(xml.data(), Uint32(xml.size()));
}
Boolean CIMConstObject::isClass() const {
    return _rep && _rep->isClass();
}
Boolean CIMConstObject::isInstance() const {
    return _rep && !_rep->isClass();
}

CIMObject::CIMObject(Ref<ObjectRep> rep) : CIMConstObject(std::move(rep)) {}
CIMObject::CIMObject(const CIMClass& x) : CIMConstObject(x) {}
CIMObject::CIMObject(const CIMInstance& x) : CIMConstObject(x) {}

void CIMObject::setPath(const CIMObjectPath& path) {
    initialized(*this).setPath(path);
}

CIMObject& CIMObject::addQualifier(const CIMQualifier& qualifier) {
    initialized(*this).qualifiers.add(sharedRep(qualifier));
    return *this;
}
CIMQualifier CIMObject::getQualifier(Uint32 index) {
    return Access::handle<CIMQualifier>(initialized(*this).qualifiers.forWriting(index));
}
void CIMObject::removeQualifier(Uint32 index) {
    initialized(*this).qualifiers.remove(index);
}

CIMObject& CIMObject::addProperty(const CIMProperty& x) {
    initialized(*this).addProperty(sharedRep(x));
    return *this;
}
CIMProperty CIMObject::getProperty(Uint32 index) {
    return Access::handle<CIMProperty>(initialized(*this).properties[index]);
}
void CIMObject::removeProperty(Uint32 index) {
    initialized(*this).properties.remove(index);
}

void CIMObject::instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                               const CIMPropertyList& propertyList) {
    initialized(*this).filter(includeQualifiers, includeClassOrigin, propertyList);
}

template class Array<CIMObject>;

PEGASUS_NAMESPACE_END
