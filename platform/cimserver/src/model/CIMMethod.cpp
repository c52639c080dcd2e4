#include <Pegasus/Common/CIMMethod.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/MethodRep.h"

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

CIMConstMethod::CIMConstMethod() = default;
CIMConstMethod::CIMConstMethod(const CIMConstMethod& x) = default;
CIMConstMethod::CIMConstMethod(CIMConstMethod&& x) noexcept = default;
CIMConstMethod::CIMConstMethod(Ref<MethodRep> rep) : _rep(std::move(rep)) {}
CIMConstMethod::CIMConstMethod(const CIMName& name, CIMType type, const CIMName& classOrigin,
                               Boolean propagated)
    : _rep(Ref<MethodRep>::adopt(new MethodRep(name, type, classOrigin, propagated))) {}
CIMConstMethod::~CIMConstMethod() = default;
CIMConstMethod& CIMConstMethod::operator=(const CIMConstMethod& x) = default;
CIMConstMethod& CIMConstMethod::operator=(CIMConstMethod&& x) noexcept = default;

const CIMName& CIMConstMethod::getName() const {
    return initialized(*this).name();
}
CIMType CIMConstMethod::getType() const {
    return initialized(*this).type;
}
const CIMName& CIMConstMethod::getClassOrigin() const {
    return initialized(*this).classOrigin;
}
Boolean CIMConstMethod::getPropagated() const {
    return initialized(*this).propagated;
}

Uint32 CIMConstMethod::findQualifier(const CIMName& name) const {
    return initialized(*this).qualifiers.find(name);
}
CIMConstQualifier CIMConstMethod::getQualifier(Uint32 index) const {
    return Access::handle<CIMConstQualifier>(initialized(*this).qualifiers[index]);
}
Uint32 CIMConstMethod::getQualifierCount() const {
    return initialized(*this).qualifiers.size();
}

Uint32 CIMConstMethod::findParameter(const CIMName& name) const {
    return initialized(*this).parameters.find(name);
}
CIMConstParameter CIMConstMethod::getParameter(Uint32 index) const {
    return Access::handle<CIMConstParameter>(initialized(*this).parameters[index]);
}
Uint32 CIMConstMethod::getParameterCount() const {
    return initialized(*this).parameters.size();
}

Boolean CIMConstMethod::identical(const CIMConstMethod& x) const {
    return initialized(*this).identical(initialized(x));
}

CIMMethod CIMConstMethod::clone() const {
    return Access::handle<CIMMethod>(initialized(*this).clone());
}

void CIMMethod::setName(const CIMName& name) {
    initialized(*this).setName(name);
}
void CIMMethod::setType(CIMType type) {
    initialized(*this).type = type;
}
void CIMMethod::setClassOrigin(const CIMName& classOrigin) {
    initialized(*this).classOrigin = classOrigin;
}
void CIMMethod::setPropagated(Boolean propagated) {
    initialized(*this).propagated = propagated;
}

CIMMethod& CIMMethod::addQualifier(const CIMQualifier& x) {
    initialized(*this).qualifiers.add(sharedRep(x));
    return *this;
}
CIMQualifier CIMMethod::getQualifier(Uint32 index) {
    return Access::handle<CIMQualifier>(initialized(*this).qualifiers.forWriting(index));
}
void CIMMethod::removeQualifier(Uint32 index) {
    initialized(*this).qualifiers.remove(index);
}

CIMMethod& CIMMethod::addParameter(const CIMParameter& x) {
    initialized(*this).parameters.add(sharedRep(x));
    return *this;
}
CIMParameter CIMMethod::getParameter(Uint32 index) {
    return Access::handle<CIMParameter>(initialized(*this).parameters[index]);
}
void CIMMethod::removeParameter(Uint32 index) {
    initialized(*this).parameters.remove(index);
}

template class Array<CIMMethod>;

PEGASUS_NAMESPACE_END
