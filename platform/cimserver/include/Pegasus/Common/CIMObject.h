// What classes and instances have in common.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>
#include <Pegasus/Common/String.h>

namespace cimserver {
class ObjectRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMClass;
class CIMConstProperty;
class CIMConstQualifier;
class CIMInstance;
class CIMObject;
class CIMProperty;
class CIMQualifier;

/// Read access to what classes and instances have in common: a path, qualifiers and properties.
///
/// A shared handle: its copies, and the class and instance handles it was made from, all show the
/// same object. Every function but isUninitialized(), isClass() and isInstance() throws
/// UninitializedObjectException on a handle that was default-constructed.
class PEGASUS_COMMON_LINKAGE CIMConstObject {
  public:
    CIMConstObject();
    CIMConstObject(const CIMConstObject& x);
    CIMConstObject(CIMConstObject&& x) noexcept;
    ~CIMConstObject();
    CIMConstObject& operator=(const CIMConstObject& x);
    CIMConstObject& operator=(CIMConstObject&& x) noexcept;

    const CIMName& getClassName() const;
    const CIMObjectPath& getPath() const;

    /// The index of the qualifier, ignoring case, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    /// The index of the property, ignoring case, or PEG_NOT_FOUND. Properties stand in the order in
    /// which they were added.
    Uint32 findProperty(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstProperty getProperty(Uint32 index) const;
    Uint32 getPropertyCount() const;

    /// A copy that nobody shares, properties and qualifiers included.
    CIMObject clone() const;

    /// Whether both are classes or both are instances with equal paths, qualifiers and properties,
    /// in the same order.
    Boolean identical(const CIMConstObject& x) const;

    Boolean isUninitialized() const { return !_rep; }

    /// The CIM-XML text of the object.
    String toString() const;

    Boolean isClass() const;
    Boolean isInstance() const;

  protected:
    friend struct cimserver::Access;
    explicit CIMConstObject(cimserver::Ref<cimserver::ObjectRep> rep);

    cimserver::Ref<cimserver::ObjectRep> _rep;
};

/// A class or an instance, as a shared handle: a change through it is seen by all other handles.
class PEGASUS_COMMON_LINKAGE CIMObject : public CIMConstObject {
  public:
    CIMObject() = default;
    /// Share the object of `x`.
    CIMObject(const CIMClass& x);
    CIMObject(const CIMInstance& x);

    /// @throws UninitializedObjectException for a path without a class
    /// @throws TypeMismatchException for the path of another class, ignoring case
    void setPath(const CIMObjectPath& path);

    /// Adds the qualifier itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMObject& addQualifier(const CIMQualifier& qualifier);

    using CIMConstObject::getQualifier;
    /// The qualifier itself: what is changed through the handle is changed in this object.
    /// @throws IndexOutOfBoundsException
    CIMQualifier getQualifier(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeQualifier(Uint32 index);

    /// Adds the property itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMObject& addProperty(const CIMProperty& x);

    using CIMConstObject::getProperty;
    /// The property itself: what is changed through the handle is changed in this object.
    /// @throws IndexOutOfBoundsException
    CIMProperty getProperty(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeProperty(Uint32 index);

    /// As CIMInstance::instanceFilter().
    void instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                        const CIMPropertyList& propertyList);

  private:
    friend struct cimserver::Access;
    explicit CIMObject(cimserver::Ref<cimserver::ObjectRep> rep);
};

extern template class Array<CIMObject>;

PEGASUS_NAMESPACE_END
