// Properties, and the properties of an object.
#pragma once

#include "model/Access.h"
#include "model/Counted.h"
#include "model/NamedSet.h"
#include "model/QualifierRep.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMValue.h>

namespace cimserver {

/// All of a property but its value: what the instances of a class seldom change and therefore
/// share.
struct PropertyTraits : Counted<PropertyTraits> {
    Pegasus::CIMName name;
    Pegasus::CIMName referenceClass;
    Pegasus::CIMName classOrigin;
    QualifierList qualifiers;
    Pegasus::Uint32 arraySize = 0;
    bool propagated = false;
};

/// The block of memory in which one or more properties live and that counts the owners of them all.
class PropertyHome : public Counted<PropertyHome> {
  public:
    virtual ~PropertyHome() = default;
};

/// A property. It is never on its own: its home is what is allocated and deleted.
class PropertyRep : public Member {
  public:
    static constexpr const char* kind = "property";

    /// A new property in a home of its own.
    static Ref<PropertyRep> create(Ref<PropertyTraits> traits, const Pegasus::CIMValue& value);

    /// Shares in the ownership of the traits.
    PropertyRep(const PropertyHome& home, Ref<PropertyTraits> traits,
                const Pegasus::CIMValue& value);
    /// In one set already; the traits must live as long as the home does.
    PropertyRep(const PropertyHome& home, PropertyTraits& traits, std::uint32_t tag,
                const Pegasus::CIMValue& value) noexcept
        : Member(tag, 1), _home(home), _traits(&traits), _value(value) {}
    ~PropertyRep() {
        if (_ownsTraits) _traits->release();
    }

    void retain() const noexcept { _home.retain(); }
    void release() const noexcept { _home.release(); }
    bool isShared() const noexcept { return _home.isShared(); }
    const PropertyHome& home() const noexcept { return _home; }

    const PropertyTraits& traits() const noexcept { return *_traits; }
    const Pegasus::CIMName& name() const noexcept { return _traits->name; }
    const Pegasus::CIMValue& value() const noexcept { return _value; }

    /// The traits for writing, no longer shared with others.
    PropertyTraits& writableTraits();

    /// The traits for another property, which may live longer.
    Ref<PropertyTraits> shareTraits() const;

    void setName(const Pegasus::CIMName& name);
    /// @throws TypeMismatchException
    void setValue(const Pegasus::CIMValue& value);

    bool identical(const PropertyRep& other) const;
    Ref<PropertyRep> clone() const;

    /// Takes away what shall not be kept.
    void strip(bool keepQualifiers, bool keepClassOrigin);

  private:
    const PropertyHome& _home;
    PropertyTraits* _traits;
    bool _ownsTraits = false;
    Pegasus::CIMValue _value;
};

/// What to make the instances of a class from, for one choice of what instances get.
///
/// It shares the traits of the class's properties, so that a change of the class gives it other
/// traits: that is how a plan tells whether it still fits.
class InstancePlan : public Counted<InstancePlan> {
  public:
    struct Entry {
        Ref<PropertyRep> source;
        Ref<PropertyTraits> sourceTraits;
        Ref<PropertyTraits> traits;
        Pegasus::CIMValue value;
    };

    InstancePlan(const Pegasus::CIMName& className, const QualifierList& classQualifiers,
                 const NamedSet<PropertyRep>& properties, bool withQualifiers,
                 bool withClassOrigin);

    /// Whether the class is still what the plan was made from. Never, if somebody could change a
    /// qualifier of it through a handle of his own.
    bool fits(const Pegasus::CIMName& className, const QualifierList& classQualifiers,
              const NamedSet<PropertyRep>& properties) const noexcept;

    const Pegasus::CIMObjectPath& path() const noexcept { return _path; }
    const QualifierList& qualifiers() const noexcept { return _qualifiers; }
    const std::vector<Entry>& entries() const noexcept { return _entries; }

  private:
    Pegasus::CIMObjectPath _path;
    QualifierList _classQualifiers;
    QualifierList _qualifiers;
    std::vector<Entry> _entries;
};

/// The properties of a class or an instance.
class PropertySet : public NamedSet<PropertyRep> {
  public:
    PropertySet() = default;
    /// The properties of the plan that the list asks for, together in one block of memory.
    PropertySet(const Ref<InstancePlan>& plan, const Pegasus::CIMPropertyList& wanted);
    explicit PropertySet(NamedSet properties) : NamedSet(std::move(properties)) {}
    PropertySet(PropertySet&&) noexcept = default;
    PropertySet& operator=(PropertySet&&) = delete;
    ~PropertySet();

  private:
    const PropertyHome* _block = nullptr;  ///< compared with only: it may be gone
};

}  // namespace cimserver
