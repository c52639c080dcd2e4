// Classes and instances.
//
// Code of the server that reads many objects, such as the encoder, may look at them through these
// representations, which costs neither a handle nor a copy: initialized(object) of Access.h gives
// the ObjectRep behind a handle, its properties, qualifiers and their names and values come as
// references, and visit() of ValueVisitor.h gives what a value holds. All that takes is inline.
#pragma once

#include "model/Counted.h"
#include "model/MethodRep.h"
#include "model/PropertyRep.h"
#include "model/QualifierRep.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <array>
#include <mutex>

namespace cimserver {

/// What classes and instances have in common.
class ObjectRep : public Counted<ObjectRep> {
  public:
    virtual ~ObjectRep() = default;

    const Pegasus::CIMObjectPath& path() const noexcept { return _path; }
    const Pegasus::CIMName& className() const { return _path.getClassName(); }

    /// @throws UninitializedObjectException, TypeMismatchException
    void setPath(const Pegasus::CIMObjectPath& path);

    /// @throws AlreadyExistsException, and for a class also TypeMismatchException
    virtual void addProperty(Ref<PropertyRep> property);

    virtual bool isClass() const noexcept = 0;
    virtual bool identical(const ObjectRep& other) const;
    virtual Ref<ObjectRep> clone() const = 0;

    /// Removes what was not asked for; see CIMInstance::instanceFilter().
    void filter(bool includeQualifiers, bool includeClassOrigin,
                const Pegasus::CIMPropertyList& wanted);

    QualifierList qualifiers;
    PropertySet properties;

  protected:
    /// @throws UninitializedObjectException for a path without a class
    explicit ObjectRep(const Pegasus::CIMObjectPath& path);
    ObjectRep(const Pegasus::CIMObjectPath& path, const QualifierList& withQualifiers,
              PropertySet withProperties)
        : qualifiers(withQualifiers), properties(std::move(withProperties)), _path(path) {}
    ObjectRep(const ObjectRep& other);

  private:
    Pegasus::CIMObjectPath _path;
};

class InstanceRep final : public ObjectRep {
  public:
    explicit InstanceRep(const Pegasus::CIMObjectPath& path) : ObjectRep(path) {}
    InstanceRep(const Ref<InstancePlan>& plan, const Pegasus::CIMPropertyList& wanted)
        : ObjectRep(plan->path(), plan->qualifiers(), PropertySet(plan, wanted)) {}

    bool isClass() const noexcept override { return false; }
    Ref<ObjectRep> clone() const override;
};

class ClassRep final : public ObjectRep {
  public:
    ClassRep(const Pegasus::CIMName& className, const Pegasus::CIMName& superClassName);
    ClassRep(const ClassRep& other);

    bool isClass() const noexcept override { return true; }
    void addProperty(Ref<PropertyRep> property) override;
    bool identical(const ObjectRep& other) const override;
    Ref<ObjectRep> clone() const override;

    /// See CIMClass::buildInstance(). May run on several threads at once.
    Ref<ObjectRep> buildInstance(bool includeQualifiers, bool includeClassOrigin,
                                 const Pegasus::CIMPropertyList& wanted) const;

    Pegasus::CIMName superClassName;
    NamedSet<MethodRep> methods;

  private:
    Ref<InstancePlan> plan(bool includeQualifiers, bool includeClassOrigin) const;

    mutable std::mutex _plansMutex;
    mutable std::array<Ref<InstancePlan>, 4> _plans;  ///< the last of each kind, or null
};

/// Whether a property is a key.
inline bool isKey(const PropertyRep& property) {
    static const Pegasus::CIMName key("Key");
    return property.traits().qualifiers.isTrue(key);
}

}  // namespace cimserver
