// Values of all CIM types.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

class CIMInstance;
class CIMObject;

/// A value of one of the CIM types, or an array of such values, or a null that has a type all the
/// same.
///
/// A value type: copies are cheap and independent. Embedded objects and instances are cloned on
/// their way in and on their way out, so that nobody outside shares them.
class PEGASUS_COMMON_LINKAGE CIMValue {
  public:
    /// A null boolean.
    CIMValue() noexcept {}
    /// A null of the type. `arraySize` is what getArraySize() tells of a null array.
    CIMValue(CIMType type, Boolean isArray, Uint32 arraySize = 0);
    CIMValue(const CIMValue& x) noexcept : CIMValue() { copyFrom(x); }
    CIMValue(CIMValue&& x) noexcept : CIMValue() { takeFrom(x); }

    /// The type follows from the argument. An uninitialized object or instance, also as an element
    /// of an array, is refused with UninitializedObjectException.
    CIMValue(Boolean x);
    CIMValue(Uint8 x);
    CIMValue(Sint8 x);
    CIMValue(Uint16 x);
    CIMValue(Sint16 x);
    CIMValue(Uint32 x);
    CIMValue(Sint32 x);
    CIMValue(Uint64 x);
    CIMValue(Sint64 x);
    CIMValue(Real32 x);
    CIMValue(Real64 x);
    CIMValue(const Char16& x);
    CIMValue(const String& x);
    CIMValue(const CIMDateTime& x);
    CIMValue(const CIMObjectPath& x);
    CIMValue(const CIMObject& x);
    CIMValue(const CIMInstance& x);
    CIMValue(const Array<Boolean>& x);
    CIMValue(const Array<Uint8>& x);
    CIMValue(const Array<Sint8>& x);
    CIMValue(const Array<Uint16>& x);
    CIMValue(const Array<Sint16>& x);
    CIMValue(const Array<Uint32>& x);
    CIMValue(const Array<Sint32>& x);
    CIMValue(const Array<Uint64>& x);
    CIMValue(const Array<Sint64>& x);
    CIMValue(const Array<Real32>& x);
    CIMValue(const Array<Real64>& x);
    CIMValue(const Array<Char16>& x);
    CIMValue(const Array<String>& x);
    CIMValue(const Array<CIMDateTime>& x);
    CIMValue(const Array<CIMObjectPath>& x);
    CIMValue(const Array<CIMObject>& x);
    CIMValue(const Array<CIMInstance>& x);

    ~CIMValue() {
        if (_kind.ownsData) destroy();
    }

    CIMValue& operator=(const CIMValue& x) noexcept;
    CIMValue& operator=(CIMValue&& x) noexcept;
    void assign(const CIMValue& x) { *this = x; }

    /// Makes this a null boolean.
    void clear() { setNullValue(CIMTYPE_BOOLEAN, false); }

    /// Whether `x` has the same type and is an array if this is one. Null or not does not matter.
    Boolean typeCompatible(const CIMValue& x) const {
        return _kind.type == x._kind.type && _kind.isArray == x._kind.isArray;
    }

    Boolean isArray() const { return _kind.isArray; }
    Boolean isNull() const { return _kind.isNull; }

    /// The number of elements; 0 for what is no array.
    Uint32 getArraySize() const;
    CIMType getType() const { return CIMType(_kind.type); }

    /// Makes this a null of the type.
    void setNullValue(CIMType type, Boolean isArray, Uint32 arraySize = 0);

    /// As constructing anew from the argument, the type included.
    void set(Boolean x);
    void set(Uint8 x);
    void set(Sint8 x);
    void set(Uint16 x);
    void set(Sint16 x);
    void set(Uint32 x);
    void set(Sint32 x);
    void set(Uint64 x);
    void set(Sint64 x);
    void set(Real32 x);
    void set(Real64 x);
    void set(const Char16& x);
    void set(const String& x);
    void set(const CIMDateTime& x);
    void set(const CIMObjectPath& x);
    void set(const CIMObject& x);
    void set(const CIMInstance& x);
    void set(const Array<Boolean>& x);
    void set(const Array<Uint8>& x);
    void set(const Array<Sint8>& x);
    void set(const Array<Uint16>& x);
    void set(const Array<Sint16>& x);
    void set(const Array<Uint32>& x);
    void set(const Array<Sint32>& x);
    void set(const Array<Uint64>& x);
    void set(const Array<Sint64>& x);
    void set(const Array<Real32>& x);
    void set(const Array<Real64>& x);
    void set(const Array<Char16>& x);
    void set(const Array<String>& x);
    void set(const Array<CIMDateTime>& x);
    void set(const Array<CIMObjectPath>& x);
    void set(const Array<CIMObject>& x);
    void set(const Array<CIMInstance>& x);

    /// Stores the value in `x`; a null leaves `x` as it is.
    /// @throws TypeMismatchException if `x` is not of exactly this type, also for a null
    void get(Boolean& x) const;
    void get(Uint8& x) const;
    void get(Sint8& x) const;
    void get(Uint16& x) const;
    void get(Sint16& x) const;
    void get(Uint32& x) const;
    void get(Sint32& x) const;
    void get(Uint64& x) const;
    void get(Sint64& x) const;
    void get(Real32& x) const;
    void get(Real64& x) const;
    void get(Char16& x) const;
    void get(String& x) const;
    void get(CIMDateTime& x) const;
    void get(CIMObjectPath& x) const;
    void get(CIMObject& x) const;
    void get(CIMInstance& x) const;
    void get(Array<Boolean>& x) const;
    void get(Array<Uint8>& x) const;
    void get(Array<Sint8>& x) const;
    void get(Array<Uint16>& x) const;
    void get(Array<Sint16>& x) const;
    void get(Array<Uint32>& x) const;
    void get(Array<Sint32>& x) const;
    void get(Array<Uint64>& x) const;
    void get(Array<Sint64>& x) const;
    void get(Array<Real32>& x) const;
    void get(Array<Real64>& x) const;
    void get(Array<Char16>& x) const;
    void get(Array<String>& x) const;
    void get(Array<CIMDateTime>& x) const;
    void get(Array<CIMObjectPath>& x) const;
    void get(Array<CIMObject>& x) const;
    void get(Array<CIMInstance>& x) const;

    /// Whether type, arrayness, nullness and all elements are equal. Strings are compared exactly,
    /// embedded objects with identical().
    Boolean equal(const CIMValue& x) const;

    /// The value as text for people: nothing for a null, one blank after each element of an array.
    String toString() const;

  private:
    friend struct cimserver::Access;

    template <class T>
    void hold(const T& x);
    void copyFrom(const CIMValue& x) noexcept;
    void takeFrom(CIMValue& x) noexcept;
    void destroy() noexcept;

    struct Kind {
        Uint32 nullSize = 0;
        Uint8 type = CIMTYPE_BOOLEAN;
        Boolean isArray = false;
        Boolean isNull = true;
        Boolean ownsData = false;  ///< the data has a destructor
    };

    alignas(8) unsigned char _data[16] = {};  ///< a scalar, or the handle of what is shared
    Kind _kind;
};

/// As CIMValue::equal().
PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMValue& x, const CIMValue& y);
PEGASUS_COMMON_LINKAGE Boolean operator!=(const CIMValue& x, const CIMValue& y);

extern template class Array<CIMValue>;

PEGASUS_NAMESPACE_END

#include <Pegasus/Common/CIMObject.h>
