// The way from the public handles and values to what is behind them.
#pragma once

#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/SharedRep.h>

#include <cstring>
#include <new>
#include <utility>

namespace cimserver {

struct Access {
    /// What the handle shares; null if the handle is uninitialized.
    template <class Handle>
    static const auto& rep(const Handle& handle) noexcept {
        return handle._rep;
    }

    /// A handle of type `Handle` on `rep`.
    template <class Handle, class Rep>
    static Handle handle(Ref<Rep> rep) {
        return Handle(std::move(rep));
    }

    /// The `T` in a value that holds a `T`.
    template <class T>
    static const T& held(const Pegasus::CIMValue& value) noexcept {
        static_assert(sizeof(T) <= sizeof(value._data));
        return *std::launder(static_cast<const T*>(static_cast<const void*>(value._data)));
    }
    template <class T>
    static T& held(Pegasus::CIMValue& value) noexcept {
        return *std::launder(static_cast<T*>(static_cast<void*>(value._data)));
    }

    /// Whether both values share all that they hold. Values that do are equal; others may be, too.
    static bool sameData(const Pegasus::CIMValue& x, const Pegasus::CIMValue& y) noexcept {
        return x.typeCompatible(y) && x._kind.isNull == y._kind.isNull &&
               x._kind.nullSize == y._kind.nullSize &&
               std::memcmp(x._data, y._data, sizeof x._data) == 0;
    }
};

/// What the handle shares.
/// @throws UninitializedObjectException
template <class Handle>
auto& initialized(const Handle& handle) {
    const auto& rep = Access::rep(handle);
    if (!rep) throw Pegasus::UninitializedObjectException();
    return *rep;
}

/// A share of what the handle shares.
/// @throws UninitializedObjectException
template <class Handle>
auto sharedRep(const Handle& handle) {
    initialized(handle);
    return Access::rep(handle);
}

}  // namespace cimserver
