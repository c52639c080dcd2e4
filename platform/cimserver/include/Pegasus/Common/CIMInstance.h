// Instances of classes.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

class CIMConstClass;

/// Read access to an instance: a shared handle.
class PEGASUS_COMMON_LINKAGE CIMConstInstance : public CIMConstObject {
  public:
    CIMConstInstance() = default;

    /// Shares the instance of `x`.
    /// @throws DynamicCastFailedException if `x` is no instance
    explicit CIMConstInstance(const CIMConstObject& x);

    /// A new instance without properties, whose path is the class name.
    /// @throws UninitializedObjectException for a null name
    CIMConstInstance(const CIMName& className);

    /// The path that the key properties of the class and their values in this instance make: class
    /// and keys, neither host nor namespace. A null key value gives an empty text.
    /// @throws NoSuchProperty if the instance lacks a key property
    CIMObjectPath buildPath(const CIMConstClass& cimClass) const;

    /// A copy that nobody shares, properties and qualifiers included.
    CIMInstance clone() const;

  protected:
    friend struct cimserver::Access;
    using CIMConstObject::CIMConstObject;
};

/// An instance of a class: a shared handle, a change through which all other handles see.
class PEGASUS_COMMON_LINKAGE CIMInstance : public CIMConstInstance {
  public:
    CIMInstance() = default;

    /// Shares the instance of `x`.
    /// @throws DynamicCastFailedException if `x` is no instance
    explicit CIMInstance(const CIMObject& x);

    /// A new instance without properties, whose path is the class name.
    /// @throws UninitializedObjectException for a null name
    CIMInstance(const CIMName& className);

    /// Also takes over the way the path spells the class name.
    /// @throws UninitializedObjectException for a path without a class
    /// @throws TypeMismatchException for the path of another class, ignoring case
    void setPath(const CIMObjectPath& path);

    /// Adds the qualifier itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMInstance& addQualifier(const CIMQualifier& qualifier);

    using CIMConstInstance::getQualifier;
    /// The qualifier itself: what is changed through the handle is changed in this instance.
    /// @throws IndexOutOfBoundsException
    CIMQualifier getQualifier(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeQualifier(Uint32 index);

    /// Adds the property itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMInstance& addProperty(const CIMProperty& x);

    using CIMConstInstance::getProperty;
    /// The property itself: what is changed through the handle is changed in this instance.
    /// @throws IndexOutOfBoundsException
    CIMProperty getProperty(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeProperty(Uint32 index);

    /// Removes from this instance, and so for all who share it, what was not asked for: the
    /// properties that a non-null list does not name, keys not excepted; the qualifiers of the
    /// instance and of its properties; the class origins of its properties.
    void instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                        const CIMPropertyList& propertyList);

  private:
    friend struct cimserver::Access;
    explicit CIMInstance(cimserver::Ref<cimserver::ObjectRep> rep);
};

extern template class Array<CIMInstance>;

PEGASUS_NAMESPACE_END
