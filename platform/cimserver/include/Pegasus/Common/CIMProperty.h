// Properties of classes and instances.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>

namespace cimserver {
class PropertyRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMConstQualifier;
class CIMProperty;
class CIMQualifier;

/// Read access to a property: a shared handle, whose copies all show the same property.
///
/// Every function but isUninitialized() throws UninitializedObjectException on a handle that was
/// default-constructed.
class PEGASUS_COMMON_LINKAGE CIMConstProperty {
  public:
    CIMConstProperty();
    CIMConstProperty(const CIMConstProperty& x);
    CIMConstProperty(CIMConstProperty&& x) noexcept;

    /// @param arraySize the fixed size of an array, 0 if its size is free
    /// @param referenceClassName the class that a reference refers to
    /// @throws UninitializedObjectException for a null name
    /// @throws TypeMismatchException for an array of references, for an `arraySize` that the value
    ///     does not have, and for a `referenceClassName` with a value that is no reference
    CIMConstProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize = 0,
                     const CIMName& referenceClassName = CIMName(),
                     const CIMName& classOrigin = CIMName(), Boolean propagated = false);
    ~CIMConstProperty();
    CIMConstProperty& operator=(const CIMConstProperty& x);
    CIMConstProperty& operator=(CIMConstProperty&& x) noexcept;

    const CIMName& getName() const;
    const CIMValue& getValue() const;
    CIMType getType() const;
    Boolean isArray() const;
    Uint32 getArraySize() const;
    const CIMName& getReferenceClassName() const;

    /// The class that declares the property; null if nobody said so.
    const CIMName& getClassOrigin() const;

    /// Whether the property is inherited from a superclass as it is.
    Boolean getPropagated() const;

    /// The index of the qualifier, ignoring case, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    Boolean isUninitialized() const { return !_rep; }

    /// Whether name (ignoring case), value, reference class, class origin, propagated flag and the
    /// qualifiers in their order are equal.
    Boolean identical(const CIMConstProperty& x) const;

    /// A copy that nobody shares.
    CIMProperty clone() const;

  protected:
    friend struct cimserver::Access;
    explicit CIMConstProperty(cimserver::Ref<cimserver::PropertyRep> rep);

    cimserver::Ref<cimserver::PropertyRep> _rep;
};

/// A property of a class or an instance: a shared handle, a change through which all other handles
/// of the property and all objects that contain it see.
class PEGASUS_COMMON_LINKAGE CIMProperty : public CIMConstProperty {
  public:
    using CIMConstProperty::CIMConstProperty;
    CIMProperty() = default;

    /// @throws UninitializedObjectException for a null name
    /// @throws Exception for another name than the present one (ignoring case) while the property
    ///     is part of an object
    void setName(const CIMName& name);

    /// @throws TypeMismatchException if `value` differs from the present value in type or
    ///     arrayness, has not the fixed size of the array, or is an array of references
    void setValue(const CIMValue& value);
    void setClassOrigin(const CIMName& classOrigin);
    void setPropagated(Boolean propagated);

    /// Adds the qualifier itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMProperty& addQualifier(const CIMQualifier& x);

    using CIMConstProperty::getQualifier;
    /// The qualifier itself: what is changed through the handle is changed in this property.
    /// @throws IndexOutOfBoundsException
    CIMQualifier getQualifier(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeQualifier(Uint32 index);

  private:
    friend struct cimserver::Access;
};

extern template class Array<CIMProperty>;

PEGASUS_NAMESPACE_END
