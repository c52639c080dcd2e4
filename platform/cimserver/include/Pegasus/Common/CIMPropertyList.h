// Which properties a request asks for.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// A list of property names, or null for all properties; an empty list asks for none. A value.
class PEGASUS_COMMON_LINKAGE CIMPropertyList {
  public:
    /// Null.
    CIMPropertyList() noexcept = default;

    /// A null name among them throws UninitializedObjectException.
    CIMPropertyList(const Array<CIMName>& propertyNames) { set(propertyNames); }

    void set(const Array<CIMName>& propertyNames);

    /// The names take the place of those that the list had, each once; without any, those stay. The
    /// list is not null afterwards. An illegal name throws InvalidNameException.
    void append(Array<String>& propertyNames);

    /// Makes the list null.
    void clear() noexcept { *this = CIMPropertyList(); }

    Boolean isNull() const noexcept { return _isNull; }
    Uint32 size() const noexcept { return _names.size(); }
    const CIMName& operator[](Uint32 index) const { return _names[index]; }
    Array<CIMName> getPropertyNameArray() const { return _names; }

    /// Whether the list names it, ignoring case; a null list names nothing.
    Boolean contains(const CIMName& name) const noexcept;

    /// Whether the property is asked for: the list is null or names it.
    Boolean useThisProperty(const CIMName& name) const noexcept {
        return _isNull || contains(name);
    }

    /// "NULL", "EMPTY", or the names joined with ", ".
    String toString() const;

  private:
    Array<CIMName> _names;
    Boolean _isNull = true;
};

PEGASUS_NAMESPACE_END
