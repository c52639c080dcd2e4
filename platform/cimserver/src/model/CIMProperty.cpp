#include <Pegasus/Common/CIMProperty.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/PropertyRep.h"

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

namespace {

void check(const CIMValue& value, const PropertyTraits& traits) {
    if (traits.name.isNull()) throw UninitializedObjectException();
    const bool isReference = value.getType() == CIMTYPE_REFERENCE;
    const bool isSized = traits.arraySize != 0;
    if ((isSized && (!value.isArray() || value.getArraySize() != traits.arraySize)) ||
        (isReference && value.isArray()) || (!isReference && !traits.referenceClass.isNull())) {
        throw TypeMismatchException();
    }
}

}  // namespace

CIMConstProperty::CIMConstProperty() = default;
CIMConstProperty::CIMConstProperty(const CIMConstProperty& x) = default;
CIMConstProperty::CIMConstProperty(CIMConstProperty&& x) noexcept = default;
CIMConstProperty::CIMConstProperty(Ref<PropertyRep> rep) : _rep(std::move(rep)) {}
CIMConstProperty::CIMConstProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize,
                                   const CIMName& referenceClassName, const CIMName& classOrigin,
                                   Boolean propagated) {
    auto traits = Ref<PropertyTraits>::adopt(new PropertyTraits);
    traits->name = name;
    traits->referenceClass = referenceClassName;
    traits->classOrigin = classOrigin;
    traits->arraySize = arraySize;
    traits->propagated = propagated;
    check(value, *traits);
    _rep = PropertyRep::create(std::move(traits), value);
}
CIMConstProperty::~CIMConstProperty() = default;
CIMConstProperty& CIMConstProperty::operator=(const CIMConstProperty& x) = default;
CIMConstProperty& CIMConstProperty::operator=(CIMConstProperty&& x) noexcept = default;

const CIMName& CIMConstProperty::getName() const {
    return initialized(*this).name();
}
const CIMValue& CIMConstProperty::getValue() const {
    return initialized(*this).value();
}
CIMType CIMConstProperty::getType() const {
    return getValue().getType();
}
Boolean CIMConstProperty::isArray() const {
    return getValue().isArray();
}
Uint32 CIMConstProperty::getArraySize() const {
    return initialized(*this).traits().arraySize;
}
const CIMName& CIMConstProperty::getReferenceClassName() const {
    return initialized(*this).traits().referenceClass;
}
const CIMName& CIMConstProperty::getClassOrigin() const {
    return initialized(*this).traits().classOrigin;
}
Boolean CIMConstProperty::getPropagated() const {
    return initialized(*this).traits().propagated;
}

Uint32 CIMConstProperty::findQualifier(const CIMName& name) const {
    return initialized(*this).traits().qualifiers.find(name);
}
CIMConstQualifier CIMConstProperty::getQualifier(Uint32 index) const {
    return Access::handle<CIMConstQualifier>(initialized(*this).traits().qualifiers[index]);
}
Uint32 CIMConstProperty::getQualifierCount() const {
    return initialized(*this).traits().qualifiers.size();
}

Boolean CIMConstProperty::identical(const CIMConstProperty& x) const {
    return initialized(*this).identical(initialized(x));
}

CIMProperty CIMConstProperty::clone() const {
    return Access::handle<CIMProperty>(initialized(*this).clone());
}

void CIMProperty::setName(const CIMName& name) {
    initialized(*this).setName(name);
}
void CIMProperty::setValue(const CIMValue& value) {
    initialized(*this).setValue(value);
}
void CIMProperty::setClassOrigin(const CIMName& classOrigin) {
    initialized(*this).writableTraits().classOrigin = classOrigin;
}
void CIMProperty::setPropagated(Boolean propagated) {
    initialized(*this).writableTraits().propagated = propagated;
}

CIMProperty& CIMProperty::addQualifier(const CIMQualifier& x) {
    initialized(*this).writableTraits().qualifiers.add(sharedRep(x));
    return *this;
}
CIMQualifier CIMProperty::getQualifier(Uint32 index) {
    auto& qualifiers = initialized(*this).writableTraits().qualifiers;
    return Access::handle<CIMQualifier>(qualifiers.forWriting(index));
}
void CIMProperty::removeQualifier(Uint32 index) {
    initialized(*this).writableTraits().qualifiers.remove(index);
}

template class Array<CIMProperty>;

PEGASUS_NAMESPACE_END
