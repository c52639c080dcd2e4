#include "model/ObjectRep.h"

#include <algorithm>

using namespace Pegasus;

namespace cimserver {

ObjectRep::ObjectRep(const CIMObjectPath& path) : _path(path) {
    if (path.getClassName().isNull()) throw UninitializedObjectException();
}

ObjectRep::ObjectRep(const ObjectRep& other)
    : Counted(other),
      qualifiers(other.qualifiers),
      properties(other.properties.clone()),
      _path(other._path) {}

void ObjectRep::setPath(const CIMObjectPath& path) {
    if (path.getClassName().isNull()) throw UninitializedObjectException();
    if (path.getClassName() != className()) throw TypeMismatchException();
    _path = path;
}

void ObjectRep::addProperty(Ref<PropertyRep> property) {
    properties.add(std::move(property));
}

bool ObjectRep::identical(const ObjectRep& other) const {
    return this == &other ||
           (isClass() == other.isClass() && _path.identical(other._path) &&
            qualifiers.identical(other.qualifiers) && properties.identical(other.properties));
}

void ObjectRep::filter(bool includeQualifiers, bool includeClassOrigin,
                       const CIMPropertyList& wanted) {
    if (!includeQualifiers) qualifiers.clear();
    for (Uint32 i = properties.size(); i-- > 0;) {
        if (wanted.useThisProperty(properties[i]->name())) {
            properties[i]->strip(includeQualifiers, includeClassOrigin);
        } else {
            properties.remove(i);
        }
    }
}

Ref<ObjectRep> InstanceRep::clone() const {
    return Ref<ObjectRep>::adopt(new InstanceRep(*this));
}

ClassRep::ClassRep(const CIMName& className, const CIMName& super)
    : ObjectRep(CIMObjectPath(String(), CIMNamespaceName(), className)), superClassName(super) {}

ClassRep::ClassRep(const ClassRep& other)
    : ObjectRep(other), superClassName(other.superClassName), methods(other.methods.clone()) {}

void ClassRep::addProperty(Ref<PropertyRep> property) {
    const bool isReference = property->value().getType() == CIMTYPE_REFERENCE;
    if (isReference && property->traits().referenceClass.isNull()) throw TypeMismatchException();
    ObjectRep::addProperty(std::move(property));
}

bool ClassRep::identical(const ObjectRep& other) const {
    if (this == &other) return true;
    if (!ObjectRep::identical(other)) return false;
    const auto& otherClass = static_cast<const ClassRep&>(other);
    const auto sameOrigin = [](const Ref<MethodRep>& x, const Ref<MethodRep>& y) {
        return x->classOrigin == y->classOrigin && x->propagated == y->propagated;
    };
    return superClassName == otherClass.superClassName && methods.identical(otherClass.methods) &&
           std::equal(methods.begin(), methods.end(), otherClass.methods.begin(), sameOrigin);
}

Ref<ObjectRep> ClassRep::clone() const {
    return Ref<ObjectRep>::adopt(new ClassRep(*this));
}

Ref<ObjectRep> ClassRep::buildInstance(bool includeQualifiers, bool includeClassOrigin,
                                       const CIMPropertyList& wanted) const {
    return Ref<ObjectRep>::adopt(
        new InstanceRep(plan(includeQualifiers, includeClassOrigin), wanted));
}

Ref<InstancePlan> ClassRep::plan(bool includeQualifiers, bool includeClassOrigin) const {
    const std::lock_guard lock(_plansMutex);
    auto& plan = _plans[std::size_t(includeQualifiers) * 2 + std::size_t(includeClassOrigin)];
    if (!plan || !plan->fits(className(), qualifiers, properties)) {
        plan = Ref<InstancePlan>::adopt(new InstancePlan(className(), qualifiers, properties,
                                                         includeQualifiers, includeClassOrigin));
    }
    return plan;
}

}  // namespace cimserver
