// Who may call, as the server is told.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace cimserver {

/// Without `verify` everybody may call, as the user "".
struct Authenticator {
    /// Whether a user may call with this password. May take its time; called on a thread that does
    /// nothing else.
    std::function<bool(const std::string& user, const std::string& password)> verify;

    /// Changes when a password that verify() has taken may be wrong by now. Never waits. May be
    /// missing when that never happens.
    std::function<std::uint64_t()> version;
};

}  // namespace cimserver
