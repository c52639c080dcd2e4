#include "model/MethodRep.h"

using namespace Pegasus;

namespace cimserver {

ParameterRep::ParameterRep(const CIMName& name, CIMType ofType, bool array, Uint32 size,
                           const CIMName& refersTo)
    : Member(nameTag(name)),
      type(ofType),
      isArray(array),
      arraySize(size),
      referenceClass(refersTo),
      _name(name) {
    if (name.isNull()) throw UninitializedObjectException();
    const bool isReference = type == CIMTYPE_REFERENCE;
    if ((arraySize != 0 && !isArray) || isReference == referenceClass.isNull()) {
        throw TypeMismatchException();
    }
}

void ParameterRep::setName(const CIMName& name) {
    rename(_name, name, kind);
    _name = name;
}

bool ParameterRep::identical(const ParameterRep& other) const {
    return this == &other ||
           (_name == other._name && type == other.type && isArray == other.isArray &&
            arraySize == other.arraySize && referenceClass == other.referenceClass &&
            qualifiers.identical(other.qualifiers));
}

Ref<ParameterRep> ParameterRep::clone() const {
    return Ref<ParameterRep>::adopt(new ParameterRep(*this));
}

MethodRep::MethodRep(const CIMName& name, CIMType returns, const CIMName& origin, bool isPropagated)
    : Member(nameTag(name)),
      type(returns),
      classOrigin(origin),
      propagated(isPropagated),
      _name(name) {
    if (name.isNull()) throw UninitializedObjectException();
}

MethodRep::MethodRep(const MethodRep& other)
    : Counted(other),
      Member(other),
      type(other.type),
      classOrigin(other.classOrigin),
      propagated(other.propagated),
      qualifiers(other.qualifiers),
      parameters(other.parameters.clone()),
      _name(other._name) {}

void MethodRep::setName(const CIMName& name) {
    rename(_name, name, kind);
    _name = name;
}

bool MethodRep::identical(const MethodRep& other) const {
    return this == &other ||
           (_name == other._name && type == other.type && qualifiers.identical(other.qualifiers) &&
            parameters.identical(other.parameters));
}

Ref<MethodRep> MethodRep::clone() const {
    return Ref<MethodRep>::adopt(new MethodRep(*this));
}

}  // namespace cimserver
