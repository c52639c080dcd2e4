#include <Pegasus/Common/CIMInstance.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/ObjectRep.h"

#include <Pegasus/Common/CIMClass.h>

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

namespace {

Ref<ObjectRep> instanceOf(const CIMConstObject& x) {
    if (!x.isInstance()) throw DynamicCastFailedException();
    return Access::rep(x);
}

Ref<ObjectRep> newInstance(const CIMName& className) {
    const CIMObjectPath path(String(), CIMNamespaceName(), className);
    return Ref<ObjectRep>::adopt(new InstanceRep(path));
}

CIMKeyBinding keyBindingOf(const ObjectRep& instance, const CIMName& keyName) {
    const Uint32 index = instance.properties.find(keyName);
    if (index == PEG_NOT_FOUND) throw NoSuchProperty(keyName.getString());
    return {keyName, instance.properties[index]->value()};
}

}  // namespace

CIMConstInstance::CIMConstInstance(const CIMConstObject& x) : CIMConstObject(instanceOf(x)) {}
CIMConstInstance::CIMConstInstance(const CIMName& className)
    : CIMConstObject(newInstance(className)) {}

CIMObjectPath CIMConstInstance::buildPath(const CIMConstClass& cimClass) const {
    Array<CIMKeyBinding> keys;
    for (const auto& property : initialized(cimClass).properties) {
        if (isKey(*property)) keys.append(keyBindingOf(initialized(*this), property->name()));
    }
    return CIMObjectPath(String(), CIMNamespaceName(), getClassName(), keys);
}

CIMInstance CIMConstInstance::clone() const {
    return Access::handle<CIMInstance>(initialized(*this).clone());
}

CIMInstance::CIMInstance(Ref<ObjectRep> rep) : CIMConstInstance(std::move(rep)) {}
CIMInstance::CIMInstance(const CIMObject& x) : CIMConstInstance(x) {}
CIMInstance::CIMInstance(const CIMName& className) : CIMConstInstance(className) {}

void CIMInstance::setPath(const CIMObjectPath& path) {
    initialized(*this).setPath(path);
}

CIMInstance& CIMInstance::addQualifier(const CIMQualifier& qualifier) {
    initialized(*this).qualifiers.add(sharedRep(qualifier));
    return *this;
}
CIMQualifier CIMInstance::getQualifier(Uint32 index) {
    return Access::handle<CIMQualifier>(initialized(*this).qualifiers.forWriting(index));
}
void CIMInstance::removeQualifier(Uint32 index) {
    initialized(*this).qualifiers.remove(index);
}

CIMInstance& CIMInstance::addProperty(const CIMProperty& x) {
    initialized(*this).addProperty(sharedRep(x));
    return *this;
}
CIMProperty CIMInstance::getProperty(Uint32 index) {
    return Access::handle<CIMProperty>(initialized(*this).properties[index]);
}
void CIMInstance::removeProperty(Uint32 index) {
    initialized(*this).properties.remove(index);
}

void CIMInstance::instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                                 const CIMPropertyList& propertyList) {
    initialized(*this).filter(includeQualifiers, includeClassOrigin, propertyList);
}

template class Array<CIMInstance>;

PEGASUS_NAMESPACE_END
