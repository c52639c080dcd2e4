#include <Pegasus/Common/CIMValue.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/ValueVisitor.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <type_traits>

using namespace cimserver;

PEGASUS_NAMESPACE_BEGIN

namespace {

/// What goes into a value or comes out of it: a copy, which for embedded objects is a clone.
template <class T>
const T& detached(const T& x) {
    return x;
}
CIMObject detached(const CIMObject& x) {
    return x.clone();
}
CIMInstance detached(const CIMInstance& x) {
    return x.clone();
}

template <class Object>
Array<Object> clonesOf(const Array<Object>& objects) {
    Array<Object> clones;
    clones.reserveCapacity(objects.size());
    for (Uint32 i = 0; i < objects.size(); ++i) clones.append(objects[i].clone());
    return clones;
}
Array<CIMObject> detached(const Array<CIMObject>& x) {
    return clonesOf(x);
}
Array<CIMInstance> detached(const Array<CIMInstance>& x) {
    return clonesOf(x);
}

template <class T>
bool same(const T& x, const T& y) {
    return x == y;
}
bool same(const CIMObject& x, const CIMObject& y) {
    return x.identical(y);
}
bool same(const CIMInstance& x, const CIMInstance& y) {
    return x.identical(y);
}

template <class T>
bool same(const Array<T>& x, const Array<T>& y) {
    const T* const begin = x.getData();
    const T* const other = y.getData();
    return std::equal(begin, begin + x.size(), other, other + y.size(),
                      [](const T& a, const T& b) { return same(a, b); });
}

template <class Number>
String numberText(Number x) {
    char text[24];
    return String(text, Uint32(std::to_chars(text, text + sizeof text, x).ptr - text));
}

String realText(Real64 x) {
    char text[40];
    const auto end =
        std::to_chars(text, text + sizeof text, x, std::chars_format::scientific, 16).ptr;
    return String(text, Uint32(end - text));
}

String textOf(Boolean x) {
    return x ? "TRUE" : "FALSE";
}
String textOf(Real32 x) {
    return realText(x);
}
String textOf(Real64 x) {
    return realText(x);
}
String textOf(const Char16& x) {
    return String(&x, 1);
}
const String& textOf(const String& x) {
    return x;
}
String textOf(const CIMDateTime& x) {
    return x.toString();
}
String textOf(const CIMObjectPath& x) {
    return x.toString();
}
String textOf(const CIMConstObject& x) {
    return x.toString();
}
template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
String textOf(Integer x) {
    return numberText(x);
}

template <class T>
String textOf(const Array<T>& x) {
    String text;
    for (Uint32 i = 0; i < x.size(); ++i) {
        text.append(textOf(x[i]));
        text.append(Char16(' '));
    }
    return text;
}

template <class T>
Uint32 sizeOf(const T&) {
    return 0;
}
template <class T>
Uint32 sizeOf(const Array<T>& x) {
    return x.size();
}

/// @throws TypeMismatchException
template <class T>
void getInto(T& x, const CIMValue& value) {
    if (value.getType() != typeOf<T> || value.isArray() != isArrayType<T>) {
        throw TypeMismatchException();
    }
    if (!value.isNull()) x = detached(Access::held<T>(value));
}

}  // namespace

CIMValue::CIMValue(CIMType type, Boolean isArray, Uint32 arraySize)
    : _kind{isArray ? arraySize : 0, Uint8(type), isArray} {}

template <class T>
void CIMValue::hold(const T& x) {
    static_assert(sizeof(T) <= sizeof _data && alignof(T) <= 8);
    new (_data) T(detached(x));
    _kind = {0, typeOf<T>, isArrayType<T>, false, !std::is_trivially_destructible_v<T>};
}

void CIMValue::copyFrom(const CIMValue& x) noexcept {
    if (x._kind.ownsData) {
        visit(x, [this](const auto& data) {
            using Data = std::decay_t<decltype(data)>;
            new (_data) Data(data);
        });
    } else {
        std::memcpy(_data, x._data, sizeof _data);
    }
    _kind = x._kind;
}

void CIMValue::takeFrom(CIMValue& x) noexcept {
    if (x._kind.ownsData) {
        visit(x, [&](const auto& data) {
            using Data = std::decay_t<decltype(data)>;
            new (_data) Data(std::move(Access::held<Data>(x)));
        });
    } else {
        std::memcpy(_data, x._data, sizeof _data);
    }
    _kind = x._kind;
    if (x._kind.ownsData) x.destroy();
    x._kind = Kind();
}

void CIMValue::destroy() noexcept {
    visit(*this, [this](const auto& data) {
        using Data = std::decay_t<decltype(data)>;
        std::destroy_at(&Access::held<Data>(*this));
    });
    _kind.ownsData = false;
}

CIMValue& CIMValue::operator=(const CIMValue& x) noexcept {
    return *this = CIMValue(x);
}

CIMValue& CIMValue::operator=(CIMValue&& x) noexcept {
    if (this == &x) return *this;
    if (_kind.ownsData) destroy();
    takeFrom(x);
    return *this;
}

Uint32 CIMValue::getArraySize() const {
    if (_kind.isNull || !_kind.isArray) return _kind.nullSize;
    return visit(*this, [](const auto& data) { return sizeOf(data); });
}

void CIMValue::setNullValue(CIMType type, Boolean isArray, Uint32 arraySize) {
    *this = CIMValue(type, isArray, arraySize);
}

Boolean CIMValue::equal(const CIMValue& x) const {
    if (!typeCompatible(x) || _kind.isNull != x._kind.isNull) return false;
    return _kind.isNull || visit(*this, [&](const auto& data) {
               return same(data, Access::held<std::decay_t<decltype(data)>>(x));
           });
}

String CIMValue::toString() const {
    if (_kind.isNull) return String();
    return visit(*this, [](const auto& data) -> String { return textOf(data); });
}

// For each type: the constructor, set() and get() of it and of arrays of it.
#define CIM_VALUE_TYPE(TYPE, PARAMETER)                     \
    CIMValue::CIMValue(PARAMETER x) : CIMValue() {          \
        hold(x);                                            \
    }                                                       \
    CIMValue::CIMValue(const Array<TYPE>& x) : CIMValue() { \
        hold(x);                                            \
    }                                                       \
    void CIMValue::set(PARAMETER x) {                       \
        *this = CIMValue(x);                                \
    }                                                       \
    void CIMValue::set(const Array<TYPE>& x) {              \
        *this = CIMValue(x);                                \
    }                                                       \
    void CIMValue::get(TYPE& x) const {                     \
        getInto(x, *this);                                  \
    }                                                       \
    void CIMValue::get(Array<TYPE>& x) const {              \
        getInto(x, *this);                                  \
    }

CIM_VALUE_TYPE(Boolean, Boolean)
CIM_VALUE_TYPE(Uint8, Uint8)
CIM_VALUE_TYPE(Sint8, Sint8)
CIM_VALUE_TYPE(Uint16, Uint16)
CIM_VALUE_TYPE(Sint16, Sint16)
CIM_VALUE_TYPE(Uint32, Uint32)
CIM_VALUE_TYPE(Sint32, Sint32)
CIM_VALUE_TYPE(Uint64, Uint64)
CIM_VALUE_TYPE(Sint64, Sint64)
CIM_VALUE_TYPE(Real32, Real32)
CIM_VALUE_TYPE(Real64, Real64)
CIM_VALUE_TYPE(Char16, const Char16&)
CIM_VALUE_TYPE(String, const String&)
CIM_VALUE_TYPE(CIMDateTime, const CIMDateTime&)
CIM_VALUE_TYPE(CIMObjectPath, const CIMObjectPath&)
CIM_VALUE_TYPE(CIMObject, const CIMObject&)
CIM_VALUE_TYPE(CIMInstance, const CIMInstance&)

#undef CIM_VALUE_TYPE

Boolean operator==(const CIMValue& x, const CIMValue& y) {
    return x.equal(y);
}
Boolean operator!=(const CIMValue& x, const CIMValue& y) {
    return !x.equal(y);
}

template class Array<CIMValue>;

PEGASUS_NAMESPACE_END
