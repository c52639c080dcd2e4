#include <Pegasus/Common/CIMParameter.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/MethodRep.h"

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

CIMConstParameter::CIMConstParameter() = default;
CIMConstParameter::CIMConstParameter(const CIMConstParameter& x) = default;
CIMConstParameter::CIMConstParameter(CIMConstParameter&& x) noexcept = default;
CIMConstParameter::CIMConstParameter(Ref<ParameterRep> rep) : _rep(std::move(rep)) {}
CIMConstParameter::CIMConstParameter(const CIMName& name, CIMType type, Boolean isArray,
                                     Uint32 arraySize, const CIMName& referenceClassName)
    : _rep(Ref<ParameterRep>::adopt(
          new ParameterRep(name, type, isArray, arraySize, referenceClassName))) {}
CIMConstParameter::~CIMConstParameter() = default;
CIMConstParameter& CIMConstParameter::operator=(const CIMConstParameter& x) = default;
CIMConstParameter& CIMConstParameter::operator=(CIMConstParameter&& x) noexcept = default;

const CIMName& CIMConstParameter::getName() const {
    return initialized(*this).name();
}
Boolean CIMConstParameter::isArray() const {
    return initialized(*this).isArray;
}
Uint32 CIMConstParameter::getArraySize() const {
    return initialized(*this).arraySize;
}
const CIMName& CIMConstParameter::getReferenceClassName() const {
    return initialized(*this).referenceClass;
}
CIMType CIMConstParameter::getType() const {
    return initialized(*this).type;
}

Uint32 CIMConstParameter::findQualifier(const CIMName& name) const {
    return initialized(*this).qualifiers.find(name);
}
CIMConstQualifier CIMConstParameter::getQualifier(Uint32 index) const {
    return Access::handle<CIMConstQualifier>(initialized(*this).qualifiers[index]);
}
Uint32 CIMConstParameter::getQualifierCount() const {
    return initialized(*this).qualifiers.size();
}

Boolean CIMConstParameter::identical(const CIMConstParameter& x) const {
    return initialized(*this).identical(initialized(x));
}

CIMParameter CIMConstParameter::clone() const {
    return Access::handle<CIMParameter>(initialized(*this).clone());
}

void CIMParameter::setName(const CIMName& name) {
    initialized(*this).setName(name);
}

CIMParameter& CIMParameter::addQualifier(const CIMQualifier& x) {
    initialized(*this).qualifiers.add(sharedRep(x));
    return *this;
}
CIMQualifier CIMParameter::getQualifier(Uint32 index) {
    return Access::handle<CIMQualifier>(initialized(*this).qualifiers.forWriting(index));
}
void CIMParameter::removeQualifier(Uint32 index) {
    initialized(*this).qualifiers.remove(index);
}

template class Array<CIMParameter>;

PEGASUS_NAMESPACE_END
