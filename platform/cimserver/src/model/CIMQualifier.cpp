#include <Pegasus/Common/CIMQualifier.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/QualifierRep.h"

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

CIMConstQualifier::CIMConstQualifier() = default;
CIMConstQualifier::CIMConstQualifier(const CIMConstQualifier& x) = default;
CIMConstQualifier::CIMConstQualifier(CIMConstQualifier&& x) noexcept = default;
CIMConstQualifier::CIMConstQualifier(Ref<QualifierRep> rep) : _rep(std::move(rep)) {}
CIMConstQualifier::CIMConstQualifier(const CIMName& name, const CIMValue& value,
                                     const CIMFlavor& flavor, Boolean propagated)
    : _rep(Ref<QualifierRep>::adopt(new QualifierRep(name, value, flavor, propagated))) {}
CIMConstQualifier::~CIMConstQualifier() = default;
CIMConstQualifier& CIMConstQualifier::operator=(const CIMConstQualifier& x) = default;
CIMConstQualifier& CIMConstQualifier::operator=(CIMConstQualifier&& x) noexcept = default;

const CIMName& CIMConstQualifier::getName() const {
    return initialized(*this).name();
}
CIMType CIMConstQualifier::getType() const {
    return getValue().getType();
}
Boolean CIMConstQualifier::isArray() const {
    return getValue().isArray();
}
const CIMValue& CIMConstQualifier::getValue() const {
    return initialized(*this).value;
}
const CIMFlavor& CIMConstQualifier::getFlavor() const {
    return initialized(*this).flavor;
}
Uint32 CIMConstQualifier::getPropagated() const {
    return initialized(*this).propagated;
}

Boolean CIMConstQualifier::identical(const CIMConstQualifier& x) const {
    return initialized(*this).identical(initialized(x));
}

CIMQualifier CIMConstQualifier::clone() const {
    return Access::handle<CIMQualifier>(initialized(*this).clone());
}

void CIMQualifier::setName(const CIMName& name) {
    initialized(*this).setName(name);
}
void CIMQualifier::setValue(const CIMValue& value) {
    initialized(*this).value = value;
}
void CIMQualifier::setFlavor(const CIMFlavor& flavor) {
    initialized(*this).flavor.addFlavor(flavor);
}
void CIMQualifier::unsetFlavor(const CIMFlavor& flavor) {
    initialized(*this).flavor.removeFlavor(flavor);
}
void CIMQualifier::setPropagated(Boolean propagated) {
    initialized(*this).propagated = propagated;
}

template class Array<CIMQualifier>;

PEGASUS_NAMESPACE_END
