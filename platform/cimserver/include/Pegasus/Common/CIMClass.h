// Classes.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// Read access to a class: a shared handle.
class PEGASUS_COMMON_LINKAGE CIMConstClass : public CIMConstObject {
  public:
    CIMConstClass() = default;

    /// Shares the class of `x`.
    /// @throws DynamicCastFailedException if `x` is no class
    explicit CIMConstClass(const CIMConstObject& x);

    /// A new class without properties and methods.
    CIMConstClass(const CIMName& className, const CIMName& superClassName = CIMName());

    /// Whether the boolean qualifier Association is true.
    Boolean isAssociation() const;
    /// Whether the boolean qualifier Abstract is true.
    Boolean isAbstract() const;

    /// Null for a class without a superclass.
    const CIMName& getSuperClassName() const;

    /// The index of the method, ignoring case, or PEG_NOT_FOUND.
    Uint32 findMethod(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstMethod getMethod(Uint32 index) const;
    Uint32 getMethodCount() const;

    /// Replaces what `keyNames` holds by the names of the properties whose qualifier Key is true.
    void getKeyNames(Array<CIMName>& keyNames) const;
    Boolean hasKeys() const;

    /// A copy that nobody shares, all parts included.
    CIMClass clone() const;

  protected:
    friend struct cimserver::Access;
    using CIMConstObject::CIMConstObject;
};

/// A class: a shared handle, a change through which all other handles see.
class PEGASUS_COMMON_LINKAGE CIMClass : public CIMConstClass {
  public:
    CIMClass() = default;

    /// Shares the class of `x`.
    /// @throws DynamicCastFailedException if `x` is no class
    explicit CIMClass(const CIMObject& x);

    /// A new class without properties and methods.
    CIMClass(const CIMName& className, const CIMName& superClassName = CIMName());

    /// @throws UninitializedObjectException for a path without a class
    /// @throws TypeMismatchException for the path of another class, ignoring case
    void setPath(const CIMObjectPath& path);
    void setSuperClassName(const CIMName& superClassName);

    /// Adds the qualifier itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMClass& addQualifier(const CIMQualifier& qualifier);

    using CIMConstClass::getQualifier;
    /// The qualifier itself: what is changed through the handle is changed in this class.
    /// @throws IndexOutOfBoundsException
    CIMQualifier getQualifier(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeQualifier(Uint32 index);

    /// Adds the property itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws TypeMismatchException for a reference without a reference class
    /// @throws UninitializedObjectException
    CIMClass& addProperty(const CIMProperty& x);

    using CIMConstClass::getProperty;
    /// The property itself: what is changed through the handle is changed in this class.
    /// @throws IndexOutOfBoundsException
    CIMProperty getProperty(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeProperty(Uint32 index);

    /// Adds the method itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMClass& addMethod(const CIMMethod& x);

    using CIMConstClass::getMethod;
    /// The method itself: what is changed through the handle is changed in this class.
    /// @throws IndexOutOfBoundsException
    CIMMethod getMethod(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeMethod(Uint32 index);

    /// A new instance whose path is the class name, with a copy of each property of this class that
    /// a non-null list names, or of all, in the order of the class and with its default or a typed
    /// null. Qualifiers of class and properties, and the properties' class origins, come along if
    /// asked for.
    CIMInstance buildInstance(Boolean includeQualifiers, Boolean includeClassOrigin,
                              const CIMPropertyList& propertyList) const;

  private:
    friend struct cimserver::Access;
    explicit CIMClass(cimserver::Ref<cimserver::ObjectRep> rep);
};

extern template class Array<CIMClass>;

PEGASUS_NAMESPACE_END
