// Calls a function with what a value holds: without a copy, and without a question for each type.
#pragma once

#include "model/Access.h"
#include "model/TypeDispatch.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMValue.h>

namespace cimserver {

/// The type of a value that holds a `T` or an array of `T`.
template <class T>
inline constexpr Pegasus::CIMType typeOf = T::isNotOfACimType;
template <>
inline constexpr auto typeOf<Pegasus::Boolean> = Pegasus::CIMTYPE_BOOLEAN;
template <>
inline constexpr auto typeOf<Pegasus::Uint8> = Pegasus::CIMTYPE_UINT8;
template <>
inline constexpr auto typeOf<Pegasus::Sint8> = Pegasus::CIMTYPE_SINT8;
template <>
inline constexpr auto typeOf<Pegasus::Uint16> = Pegasus::CIMTYPE_UINT16;
template <>
inline constexpr auto typeOf<Pegasus::Sint16> = Pegasus::CIMTYPE_SINT16;
template <>
inline constexpr auto typeOf<Pegasus::Uint32> = Pegasus::CIMTYPE_UINT32;
template <>
inline constexpr auto typeOf<Pegasus::Sint32> = Pegasus::CIMTYPE_SINT32;
template <>
inline constexpr auto typeOf<Pegasus::Uint64> = Pegasus::CIMTYPE_UINT64;
template <>
inline constexpr auto typeOf<Pegasus::Sint64> = Pegasus::CIMTYPE_SINT64;
template <>
inline constexpr auto typeOf<Pegasus::Real32> = Pegasus::CIMTYPE_REAL32;
template <>
inline constexpr auto typeOf<Pegasus::Real64> = Pegasus::CIMTYPE_REAL64;
template <>
inline constexpr auto typeOf<Pegasus::Char16> = Pegasus::CIMTYPE_CHAR16;
template <>
inline constexpr auto typeOf<Pegasus::String> = Pegasus::CIMTYPE_STRING;
template <>
inline constexpr auto typeOf<Pegasus::CIMDateTime> = Pegasus::CIMTYPE_DATETIME;
template <>
inline constexpr auto typeOf<Pegasus::CIMObjectPath> = Pegasus::CIMTYPE_REFERENCE;
template <>
inline constexpr auto typeOf<Pegasus::CIMObject> = Pegasus::CIMTYPE_OBJECT;
template <>
inline constexpr auto typeOf<Pegasus::CIMInstance> = Pegasus::CIMTYPE_INSTANCE;
template <class T>
inline constexpr auto typeOf<Pegasus::Array<T>> = typeOf<T>;

template <class T>
inline constexpr bool isArrayType = false;
template <class T>
inline constexpr bool isArrayType<Pegasus::Array<T>> = true;

template <class T, class Visitor>
decltype(auto) visitAs(const Pegasus::CIMValue& value, Visitor&& visitor) {
    return value.isArray() ? visitor(Access::held<Pegasus::Array<T>>(value))
                           : visitor(Access::held<T>(value));
}

/// Calls `visitor` with a const reference to the `T` or the Array<T> that a value holds, for its
/// own `T`. The value must not be null. The visitor returns the same type for each.
template <class Visitor>
decltype(auto) visit(const Pegasus::CIMValue& value, Visitor&& visitor) {
    return withType(value.getType(), [&](auto tag) -> decltype(auto) {
        return visitAs<typename decltype(tag)::Type>(value, visitor);
    });
}

}  // namespace cimserver
