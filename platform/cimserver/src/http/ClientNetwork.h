// Whom limits on one client are for.
#pragma once

#include <string>
#include <string_view>

namespace cimserver {

/// What stands for a client where clients are counted: its IPv4 address, or the /64 of its IPv6
/// address, of which it has as many as it likes.
std::string networkOf(std::string_view address);

}  // namespace cimserver
