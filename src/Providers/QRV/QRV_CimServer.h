// Where CIM servers differ: the one place that adapts to the server that the module is built for.
#pragma once

// Some servers' InternalException.h leaves it to its includer to declare the message loader.
#if __has_include(<Pegasus/Common/MessageLoader.h>)
#include <Pegasus/Common/MessageLoader.h>
#endif

#include <Pegasus/Common/InternalException.h>
#include <Pegasus/Common/OperationContext.h>

#include <type_traits>

namespace Pegasus {

namespace detail {

template <class Identity>
auto ipAddressOf(const Identity& identity, int) -> decltype(identity.getIpAddress()) {
    return identity.getIpAddress();
}

template <class Identity>
String ipAddressOf(const Identity&, long) {
    return String();
}

/// Converts to Boolean and to nothing else. A bare `true` would also do where a server wants a list
/// of error instances: as its size, with an instance in it that the server fails to write.
struct Flag {
    operator Boolean() const { return true; }
};

template <class Failure>
Failure makeFailure(Uint32 code, const String& text) {
    constexpr bool TAKES_FLAG =
        std::is_constructible_v<Failure, CIMStatusCode, const String&, Flag>;
    if constexpr (TAKES_FLAG)
        return Failure(CIMStatusCode(code), text, Flag());
    else
        return Failure(CIMStatusCode(code), text);
}

}  // namespace detail

/// The address that a request came from, empty where the server doesn't tell it.
inline String clientAddress(const IdentityContainer& identity) {
    return detail::ipAddressOf(identity, 0);
}

/// The exception that ends a method with one of its own return codes. Some servers want a flag with
/// a code that is none of CIM's.
inline CIMException methodFailure(Uint32 code, const String& text) {
    return detail::makeFailure<CIMException>(code, text);
}

}  // namespace Pegasus
